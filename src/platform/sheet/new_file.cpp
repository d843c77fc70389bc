#include "platform/sheet/new_file.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "platform/sheet/sheet_port.h"

namespace tela {
namespace {

[[noreturn]] void refuse(const std::filesystem::path& file, int error) {
  throw SheetError(file.string() + " cannot be written (" + std::generic_category().message(error) +
                   ").");
}

}  // namespace

bool write_new_file(const std::filesystem::path& file, std::string_view text) {
  std::FILE* const out = std::fopen(file.c_str(), "wxb");  // x: refused if it is there by now
  if (!out && errno == EEXIST) return false;
  if (!out) refuse(file, errno);
  const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
  if (std::fclose(out) == 0 && written) return true;
  const int error = errno;
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
  refuse(file, error);
}

}  // namespace tela
