#include "shell/sql_value.h"

#include "platform/text/number_text.h"
#include "platform/text/strings.h"

namespace tela {

std::string sql_quoted(std::string_view text) {
  std::string quoted;
  quoted.reserve(text.size());
  for (const char character : text) {
    quoted += character;
    if (character == '\'') quoted += '\'';
  }
  return quoted;
}

std::string sql_text(std::string_view text) {
  return "'" + sql_quoted(text) + "'";
}

std::string sql_number(std::string_view text) {
  if (trimmed(text).empty()) return "null";
  if (!is_numeric(text)) throw ValueError("\"" + std::string(text) + "\" is no number.");
  return std::string(text);
}

std::string sql_list(const std::vector<std::string>& values) {
  std::string list;
  for (const std::string& value : values) list += (list.empty() ? "" : ",") + value;
  return list;
}

}  // namespace tela
