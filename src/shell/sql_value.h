// Values as they stand in a statement. Every text, number and date that a user typed or a table
// supplied enters a statement through these, and through nothing else.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tela {

/// What was given cannot stand where the statement wants a number or a date. Says what it was.
class ValueError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The text between the quotes of a literal: single quotes are doubled.
std::string sql_quoted(std::string_view text);

/// A text literal, quotes included.
std::string sql_text(std::string_view text);

/// A number exactly as it was written, or null for a text of nothing but blanks. Throws ValueError
/// for a text that is no number as a whole.
std::string sql_number(std::string_view text);

/// The values with commas between them, as they stand in an insert.
std::string sql_list(const std::vector<std::string>& values);

}  // namespace tela
