#include "platform/csv/csv_value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "platform/text/date_text.h"
#include "platform/text/utf8.h"

namespace tela {
namespace {

// The number that `text` is from its first character to its last.
template <typename Number>
std::optional<Number> whole_text(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, number);
  if (problem != std::errc{} || stop != end) return std::nullopt;
  return number;
}

// The forms are fixed, so that each date and each time has one spelling in a file.
std::optional<Date> date_of(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  return read_sql_date(text);
}

std::optional<TimeOfDay> time_of(std::string_view text) {
  if (text.size() != 8 || text[2] != ':' || text[5] != ':') return std::nullopt;
  return read_time(text);
}

[[noreturn]] void refuse(const CsvField& field, const char* reason) {
  throw CsvValueError("'" + field.text + "' " + reason);
}

Value text_value(const CsvField& field, const CsvColumn& column) {
  if (!is_utf8(field.text)) throw CsvValueError("the text is not valid UTF-8");
  if (field.text.find('\0') != std::string::npos) throw CsvValueError("the text holds a zero byte");
  const std::size_t length = character_count(field.text);
  if (column.max_length > 0 && length > static_cast<std::size_t>(column.max_length)) {
    throw CsvValueError("the text has " + std::to_string(length) + " characters, at most " +
                        std::to_string(column.max_length) + " fit");
  }
  return field.text;
}

Value whole_value(const CsvField& field, const CsvColumn& column) {
  const auto number = whole_text<std::int64_t>(field.text);
  if (!number) refuse(field, "is not a whole number");
  if (*number < column.smallest || *number > column.largest) refuse(field, "is out of range");
  return *number;
}

Value number_value(const CsvField& field) {
  const auto number = whole_text<double>(field.text);
  if (!number || !std::isfinite(*number)) refuse(field, "is not a number");
  return *number;
}

template <typename T>
Value found_value(const CsvField& field, const std::optional<T>& found, const char* reason) {
  if (!found) refuse(field, reason);
  return *found;
}

template <typename Number>
void append_number(std::string& out, Number number) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  out.append(buffer.data(), end);
}

struct FieldWriter {
  std::string& out;

  void operator()(std::monostate) const {}
  void operator()(const std::string& text) const { append_csv_text(out, text); }
  void operator()(double number) const { append_number(out, number == 0 ? 0.0 : number); }
  void operator()(std::int64_t number) const { append_number(out, number); }

  void operator()(const Date& date) const { out += format_date(date, "yyyy-mm-dd"); }
  void operator()(const TimeOfDay& time) const { out += format_time(time, "hh:mm:ss"); }
};

}  // namespace

Value csv_value(const CsvField& field, const CsvColumn& column) {
  if (field.text.empty() && !field.quoted) return std::monostate{};
  switch (column.type) {
    case FieldType::text:
      return text_value(field, column);
    case FieldType::whole_number:
      return whole_value(field, column);
    case FieldType::number:
      return number_value(field);
    case FieldType::date:
      return found_value(field, date_of(field.text), "is not a date of the form yyyy-mm-dd");
    case FieldType::time:
      return found_value(field, time_of(field.text), "is not a time of the form HH:MM:SS");
  }
  throw CsvValueError("the column's type is unknown");
}

void append_csv_value(std::string& out, const Value& value) {
  std::visit(FieldWriter{out}, value);
}

}  // namespace tela
