#include "apps/program/program.h"

#include <ctime>
#include <iostream>
#include <utility>

#include "apps/program/share_folder.h"
#include "platform/catalogue/catalogue_client.h"
#include "platform/printer/open_port.h"
#include "platform/report/banded_engine.h"
#include "platform/sheet/office_sheets.h"
#include "platform/way_back/kept_folder.h"
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

void log_line(std::string_view line) {
  std::clog << line << std::endl;
}

}  // namespace

Platform make_platform(const Paths& paths) {
  Platform platform;
  platform.make_connection = make_catalogue_factory(paths);
  platform.today = local_today;
  platform.make_report_engine = [paths, connect = platform.make_connection] {
    return std::make_unique<BandedReportEngine>(ReportEngineParts{
        connect, [paths](std::string_view folder) { return paths.resolve(folder); },
        share_folder("reports"), log_line});
  };
  platform.open_port = [paths](std::string_view name) { return open_port(name, paths); };
  platform.keep_rows = [paths](std::string_view screen) {
    return keep_in_folder(paths.way_back(), screen);
  };
  platform.sheets = make_office_sheets(paths, {.link = inner_program("tela_office")});
  return platform;
}

Program::Program(Platform platform, Display& display)
    : platform_(std::move(platform)),
      windows_(all_screens(), all_actions()),
      state_(platform_, display, windows_) {
  windows_.create_login(state_);
}

}  // namespace tela
