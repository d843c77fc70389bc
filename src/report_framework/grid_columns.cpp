#include "report_framework/grid_columns.h"

#include <utility>

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/database_gateway.h"

namespace tela {

CellSource row_number() {
  return {};
}
CellSource field(int position) {
  return {position, CellForm::as_it_comes, {}};
}
CellSource trimmed_field(int position) {
  return {position, CellForm::trimmed, {}};
}
CellSource number_field(int position, std::string mask) {
  return {position, CellForm::number, std::move(mask)};
}
CellSource val_field(int position, std::string mask) {
  return {position, CellForm::val, std::move(mask)};
}
CellSource date_field(int position, std::string mask) {
  return {position, CellForm::date, std::move(mask)};
}
CellSource time_field(int position, std::string mask) {
  return {position, CellForm::time, std::move(mask)};
}
CellSource worked_out(std::function<std::string(const Recordset&)> text) {
  return {.worked_out = std::move(text)};
}

namespace {

std::string number_text(const Value& value, const std::string& mask) {
  if (const auto* text = std::get_if<std::string>(&value)) return format_number(*text, mask);
  return is_null(value) ? std::string() : format_number(field_number(value), mask);
}

std::string date_text(const Value& value, const std::string& mask) {
  const auto* date = std::get_if<Date>(&value);
  return date ? format_date(*date, mask) : field_text(value);
}

std::string time_text(const Value& value, const std::string& mask) {
  const auto* time = std::get_if<TimeOfDay>(&value);
  return time ? format_time(*time, mask) : field_text(value);
}

}  // namespace

std::string cell_text(const Value& value, const CellSource& source) {
  switch (source.form) {
    case CellForm::as_it_comes:
      return field_text(value);
    case CellForm::trimmed:
      return std::string(trimmed(field_text(value)));
    case CellForm::number:
      return number_text(value, source.mask);
    case CellForm::val:
      return format_number(field_number(value), source.mask);
    case CellForm::date:
      return date_text(value, source.mask);
    case CellForm::time:
      return time_text(value, source.mask);
  }
  return {};
}

}  // namespace tela
