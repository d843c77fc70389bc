#include "apps/program/program.h"

#include <ctime>
#include <utility>

#include "platform/catalogue/catalogue_client.h"
#include "platform/printer/printer_port.h"
#include "screens/registry.h"

namespace tela {

namespace {

// Today by the machine's own clock and time zone.
Date local_today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return Date{std::chrono::year(local.tm_year + 1900),
              std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
              std::chrono::day(static_cast<unsigned>(local.tm_mday))};
}

}  // namespace

Platform make_platform(const Paths& paths) {
  Platform platform;
  platform.make_connection = make_catalogue_factory(paths);
  platform.today = local_today;
  return platform;
}

Program::Program(Platform platform, Display& display)
    : platform_(std::move(platform)),
      windows_(all_screens()),
      state_(platform_, display, windows_) {
  windows_.create_login(state_);
}

}  // namespace tela
