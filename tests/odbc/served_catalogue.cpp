#include "odbc/served_catalogue.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/embedded/embedded_catalogue.h"
#include "platform/odbc/wide_text.h"

namespace tela::testing {
namespace {

WireColumn wire_column(const Field& field) {
  switch (field.type) {
    case FieldType::number:
      return wire::floating(field.name, 8);
    case FieldType::whole_number:
      return wire::decimal(field.name, 18, 0);
    case FieldType::date:
      return wire::date(field.name);
    case FieldType::time:
      return wire::time(field.name, 0);
    case FieldType::text:
      break;
  }
  return wire::nvarchar(field.name);
}

struct WireValue {
  FieldType type;

  std::string operator()(std::monostate /*null*/) const {
    return type == FieldType::text ? wire::null_text() : wire::null();
  }
  std::string operator()(const std::string& text) const { return wire::text(odbc::to_utf16(text)); }
  std::string operator()(double number) const { return wire::real(number); }
  std::string operator()(std::int64_t number) const {
    return type == FieldType::number ? wire::real(static_cast<double>(number))
                                     : wire::decimal_value(number);
  }
  std::string operator()(const Date& date) const {
    using namespace std::chrono;
    return wire::date_value(
        static_cast<int>((sys_days(date) - sys_days(year(1) / January / 1)).count()));
  }
  std::string operator()(const TimeOfDay& time) const {
    return wire::time_value(
        static_cast<std::uint64_t>(time.hour * 3600 + time.minute * 60 + time.second), 3);
  }
};

Reply wire_reply(const RowSet& rows) {
  Reply reply;
  if (rows.fields.empty()) return reply.done(0);
  std::vector<WireColumn> columns;
  for (const Field& field : rows.fields) columns.push_back(wire_column(field));
  reply.columns(columns);
  for (const auto& row : rows.rows) {
    std::vector<std::string> values;
    for (std::size_t i = 0; i < row.size(); ++i)
      values.push_back(std::visit(WireValue{rows.fields[i].type}, row[i]));
    reply.row(values);
  }
  return reply.done(rows.rows.size());
}

}  // namespace

ServedCatalogue::ServedCatalogue(const std::filesystem::path& file)
    : behind_(make_embedded_connection(file)) {
  behind_->open("Initial Catalog=TelaData");
  server_.serve_from([this](const std::string& sql) { return answer(sql); },
                     [this](const std::string& change) { follow(change); });
}

Reply ServedCatalogue::answer(const std::string& sql) {
  try {
    return wire_reply(behind_->execute(sql));
  } catch (const DatabaseError& error) {
    return Reply().error(50000, odbc::to_utf16(error.what()));
  }
}

void ServedCatalogue::follow(const std::string& change) {
  if (change == "begin") behind_->begin_trans();
  if (change == "commit") behind_->commit_trans();
  if (change == "roll back" && behind_->in_transaction()) behind_->rollback_trans();
}

}  // namespace tela::testing
