#include "report_framework/staging.h"

#include "platform/text/date_text.h"
#include "platform/text/strings.h"
#include "report_framework/lacking_amounts.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/period.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

constexpr std::string_view kNull = "null";

}  // namespace

void GridRow::refuse(int col, const std::string& reason) const {
  const std::string& header = grid_->columns()[static_cast<std::size_t>(col)].header;
  throw ValueError("Row " + std::to_string(row_) + ", column \"" + header + "\": " + reason);
}

std::string GridRow::text(int col) const {
  return sql_text(trimmed(cell(col)));
}

std::string GridRow::number(int col) const {
  const std::string& shown = cell(col);
  if (is_overflow(shown)) refuse(col, "the number is too wide to be shown (" + shown + ").");
  try {
    return sql_number(shown);
  } catch (const ValueError& failure) {
    refuse(col, failure.what());
  }
}

std::string GridRow::numbers(int first, int last) const {
  std::vector<std::string> values;
  for (int col = first; col <= last; ++col) values.push_back(number(col));
  return sql_list(values);
}

std::string GridRow::date(int col) const {
  const std::string& shown = cell(col);
  if (trimmed(shown).empty()) return std::string(kNull);
  const auto date = read_day_first(shown);
  if (!date) refuse(col, "\"" + shown + "\" is no date.");
  return sql_text(format_date(*date, kSqlDateMask));
}

std::string GridRow::time(int col) const {
  const std::string& shown = cell(col);
  if (trimmed(shown).empty()) return std::string(kNull);
  const auto time = read_time(shown);
  if (!time) refuse(col, "\"" + shown + "\" is no time.");
  return sql_text(format_time(*time, "HH:MM:SS"));
}

namespace {

bool counts(const ReportGrid& grid, int row, const Staging& staging) {
  return staging.any_text_counts ? !grid.cell(row, staging.counted_by).empty()
                                 : grid.number(row, staging.counted_by) > 0;
}

void insert_row(AppState& app, const GridRow& row, const Staging& staging) {
  const auto insert = [&] {
    app.Con->execute(staging.insert + sql_list(staging.values(row)) + ")");
  };
  if (!staging.passed_over) return insert();
  guarded(insert, staging.passed_over);
}

void insert_rows(AppState& app, const ReportGrid& grid, const Staging& staging) {
  for (app.RowNo = 1; app.RowNo < grid.cells().Rows(); ++app.RowNo)
    if (counts(grid, app.RowNo, staging)) insert_row(app, {grid, app.RowNo}, staging);
}

}  // namespace

void stage_rows(AppState& app, const ReportGrid& grid, const Staging& staging) {
  const bool apart = staging.transactions == StagingTransactions::clear_apart;
  if (apart) {
    Transaction clearing(*app.Con);
    app.Con->execute(staging.clear);
    clearing.commit();
  }
  Transaction filling(*app.Con);
  if (!apart) app.Con->execute(staging.clear);
  insert_rows(app, grid, staging);
  filling.commit();
}

}  // namespace tela
