#include "apps/tela_catalogue/commands/table_columns.h"

#include <limits>
#include <stdexcept>
#include <string>

#include "platform/text/ascii.h"

namespace tela {
namespace {

CsvColumn whole_number(std::int64_t smallest, std::int64_t largest) {
  return {FieldType::whole_number, 0, smallest, largest};
}

template <typename Number>
CsvColumn whole_number() {
  return whole_number(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max());
}

CsvColumn integer_column(int precision) {
  switch (precision) {
    case 1:
      return whole_number(0, 1);
    case 3:
      return whole_number<std::uint8_t>();
    case 5:
      return whole_number<std::int16_t>();
    case 10:
      return whole_number<std::int32_t>();
    default:
      return whole_number<std::int64_t>();
  }
}

// A code of so many digits.
CsvColumn code_column(int digits) {
  std::int64_t bound = 1;
  for (int i = 0; i < digits && i < 18; ++i) bound *= 10;
  return whole_number(1 - bound, bound - 1);
}

}  // namespace

const tsql::TableInfo& require_table(const EmbeddedCatalogue& catalogue, std::string_view name) {
  const tsql::TableInfo* table = catalogue.find_table(name);
  if (table == nullptr) {
    throw std::runtime_error("the catalogue has no table '" + std::string(name) + "'");
  }
  return *table;
}

const tsql::ColumnInfo* find_column(const tsql::TableInfo& table, std::string_view name) {
  for (const tsql::ColumnInfo& column : table.columns) {
    if (equal_ignoring_case(column.name, name)) return &column;
  }
  return nullptr;
}

CsvColumn csv_column(const tsql::Type& type) {
  switch (type.kind) {
    case tsql::TypeKind::integer:
      return integer_column(type.precision);
    case tsql::TypeKind::decimal:
      return type.scale == 0 ? code_column(type.precision) : CsvColumn{FieldType::number};
    case tsql::TypeKind::real:
      return {FieldType::number};
    case tsql::TypeKind::date:
      return {FieldType::date};
    case tsql::TypeKind::time:
      return {FieldType::time};
    case tsql::TypeKind::text:
    case tsql::TypeKind::null:
      break;
  }
  return {FieldType::text, type.length};
}

}  // namespace tela
