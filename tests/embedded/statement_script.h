// Scripts of statements and what they give, which read like a session:
//
//   > select icode from items     a statement
//   | 101|'Ponni Rice'            a row that it gives, fields parted by |, texts in quotes
//   ! Invalid column name 'x'.    the error that it gives
//   # anything                    a comment
//   < press cmdView               a command of the console: what follows are the statements that it
//                                 made a screen run
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "source_folder/source_folder.h"

namespace tela::test {

struct ScriptedStatement {
  int line = 0;
  std::string sql;
  std::vector<std::string> rows;
  std::string error;
};

/// The statements of a script file of tests/embedded, in order.
inline std::vector<ScriptedStatement> read_script(const std::string& name) {
  const auto path = source_folder() / "tests" / "embedded" / name;
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::vector<ScriptedStatement> statements;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#' || line[0] == '<') continue;
    const std::string rest = line.size() > 2 ? line.substr(2) : "";
    if (line[0] == '>') {
      statements.push_back({number, rest, {}, {}});
    } else if (line[0] == '|' && !statements.empty()) {
      statements.back().rows.push_back(rest);
    } else if (line[0] == '!' && !statements.empty()) {
      statements.back().error = rest;
    } else {
      throw std::runtime_error(name + ":" + std::to_string(number) + ": no such line");
    }
  }
  return statements;
}

/// Rows as a script states them.
inline std::vector<std::string> row_texts(const RowSet& rows) {
  struct FieldText {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(const std::string& text) const { return "'" + text + "'"; }
    std::string operator()(double number) const { return plain_number(number); }
    std::string operator()(std::int64_t number) const { return plain_number(number); }
    std::string operator()(Date date) const { return format_date(date, "yyyy-mm-dd"); }
    std::string operator()(TimeOfDay time) const { return format_time(time, "HH:MM:SS"); }
  };
  std::vector<std::string> texts;
  for (const auto& row : rows.rows) {
    std::string text;
    for (const Value& field : row) {
      if (!text.empty()) text += '|';
      text += std::visit(FieldText{}, field);
    }
    texts.push_back(text);
  }
  return texts;
}

}  // namespace tela::test
