#include "platform/tsql/engine_names.h"

namespace tela::tsql {
namespace {

std::string quoted(std::string_view text, char quote) {
  std::string result(1, quote);
  for (const char c : text) result.append(c == quote ? 2 : 1, c);
  return result + quote;
}

}  // namespace

std::string quoted_name(std::string_view name) {
  return quoted(name, '"');
}

std::string quoted_text(std::string_view text) {
  return quoted(text, '\'');
}

bool is_temporary(std::string_view table) {
  return table.starts_with('#');
}

std::string table_name(std::string_view name) {
  return (is_temporary(name) ? "temp." : "main.") + quoted_name(name);
}

}  // namespace tela::tsql
