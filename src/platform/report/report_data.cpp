// Binding a layout to a result, and the texts that come of it.
#include "platform/report/report_data.h"

#include <algorithm>
#include <utility>

#include "platform/report/report_engine.h"
#include "platform/text/ascii.h"
#include "platform/text/date_text.h"
#include "platform/text/number_text.h"

namespace tela {
namespace {

using Kind = TextPiece::Kind;

[[noreturn]] void refuse(const SourceLine& at, const std::string& reason) {
  throw ReportError(at.file + ":" + std::to_string(at.line) + ": " + reason);
}

bool is_number(FieldType type) {
  return type == FieldType::number || type == FieldType::whole_number;
}

std::size_t find_column(const RowSet& rows, const std::string& name, const SourceLine& at) {
  for (std::size_t i = 0; i < rows.fields.size(); ++i) {
    if (equal_ignoring_case(rows.fields[i].name, name)) return i;
  }
  refuse(at, "the query gives no column '" + name + "'");
}

std::size_t find_number(const RowSet& rows, const std::string& name, const SourceLine& at) {
  const std::size_t column = find_column(rows, name, at);
  if (!is_number(rows.fields[column].type)) refuse(at, "column '" + name + "' holds no numbers");
  return column;
}

void bind(TextPiece& piece, const RowSet& rows, const SourceLine& at) {
  switch (piece.kind) {
    case Kind::column:
    case Kind::first:
    case Kind::last:
      piece.column = find_column(rows, piece.name, at);
      break;
    case Kind::percent:
      piece.of_column = find_number(rows, piece.of, at);
      [[fallthrough]];
    case Kind::sum:
      piece.column = find_number(rows, piece.name, at);
      break;
    default:
      break;
  }
}

void bind(Band& band, const RowSet& rows) {
  for (Row& row : band.rows) {
    for (Cell& cell : row.cells) {
      for (TextPiece& piece : cell.text) bind(piece, rows, cell.source);
    }
  }
}

void bind(Layout& layout, const RowSet& rows) {
  for (Band* band : {&layout.page_header, &layout.column_header, &layout.detail,
                     &layout.report_footer, &layout.page_footer}) {
    bind(*band, rows);
  }
  for (Group& group : layout.groups) {
    bind(group.key, rows, group.source);
    bind(group.header, rows);
    bind(group.footer, rows);
  }
}

/// For each record the outermost group whose key differs from the record before.
std::vector<int> find_group_starts(const std::vector<Group>& groups, const RowSet& rows) {
  std::vector<int> starts(rows.rows.size(), 0);
  for (std::size_t record = 1; record < rows.rows.size(); ++record) {
    const auto changed = std::find_if(groups.begin(), groups.end(), [&](const Group& group) {
      return rows.rows[record][group.key.column] != rows.rows[record - 1][group.key.column];
    });
    starts[record] = static_cast<int>(changed - groups.begin());
  }
  return starts;
}

double number_of(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  const auto* number = std::get_if<double>(&value);
  return number != nullptr ? *number : 0;
}

std::string masked_number(double value, const std::string& mask) {
  return mask.empty() ? plain_number(value) : format_number(value, mask);
}

struct MaskedText {
  const std::string& mask;

  std::string operator()(std::monostate) const { return ""; }
  std::string operator()(const std::string& text) const {
    return mask.empty() ? text : format_number(text, mask);
  }
  std::string operator()(double number) const { return masked_number(number, mask); }
  std::string operator()(std::int64_t number) const {
    return mask.empty() ? plain_number(number) : format_number(static_cast<double>(number), mask);
  }
  std::string operator()(Date date) const {
    return format_date(date, mask.empty() ? "dd/mm/yyyy" : mask);
  }
  std::string operator()(TimeOfDay time) const {
    return format_time(time, mask.empty() ? "HH:MM:SS" : mask);
  }
};

}  // namespace

std::string masked_text(const Value& value, const std::string& mask) {
  return std::visit(MaskedText{mask}, value);
}

ReportData::ReportData(Layout& layout, RowSet rows, std::map<std::string, std::string> formulas)
    : rows_(std::move(rows)), formulas_(std::move(formulas)) {
  bind(layout, rows_);
  std::erase_if(layout.groups, [&](const Group& group) {
    const auto differs = [&](const auto& row) {
      return row[group.key.column] != rows_.rows.front()[group.key.column];
    };
    return group.only_if_many && std::none_of(rows_.rows.begin(), rows_.rows.end(), differs);
  });
  group_starts_ = find_group_starts(layout.groups, rows_);
}

std::string ReportData::text(const TextTemplate& pieces, const Scope& scope) const {
  const bool shows_column = std::any_of(pieces.begin(), pieces.end(), [](const TextPiece& piece) {
    return piece.kind == Kind::column || piece.kind == Kind::first || piece.kind == Kind::last;
  });
  if (shows_column && scope.record < 0) return "";
  std::string text;
  for (const TextPiece& piece : pieces) text += this->text(piece, scope);
  return text;
}

std::string ReportData::text(const TextPiece& piece, const Scope& scope) const {
  switch (piece.kind) {
    case Kind::literal:
      return piece.name;
    case Kind::column:
      return column_text(piece, scope.record);
    case Kind::first:
      return column_text(piece, scope.span.first);
    case Kind::last:
      return column_text(piece, scope.span.last - 1);
    case Kind::formula: {
      const auto found = std::find_if(formulas_.begin(), formulas_.end(), [&](const auto& formula) {
        return equal_ignoring_case(formula.first, piece.name);
      });
      return found == formulas_.end() ? "" : found->second;
    }
    case Kind::page:
      return std::to_string(scope.page);
    case Kind::pages:
      return std::to_string(scope.pages);
    case Kind::records:
      return std::to_string(scope.span.last - scope.span.first);
    case Kind::sum:
      return masked_number(sum(piece.column, scope.span), piece.mask);
    case Kind::percent: {
      const double whole = sum(piece.of_column, scope.span);
      if (whole == 0) return "-";
      return masked_number(sum(piece.column, scope.span) * 100 / whole, piece.mask);
    }
  }
  return "";
}

std::string ReportData::column_text(const TextPiece& piece, int record) const {
  return masked_text(rows_.rows[static_cast<std::size_t>(record)][piece.column], piece.mask);
}

bool ReportData::is_figure(const TextTemplate& pieces) const {
  if (pieces.size() != 1) return false;
  switch (pieces.front().kind) {
    case Kind::column:
      return rows_.fields[pieces.front().column].type != FieldType::text;
    case Kind::sum:
    case Kind::percent:
      return true;
    default:
      return false;
  }
}

int ReportData::group_starting_at(int record) const {
  return record >= record_count() ? 0 : group_starts_[static_cast<std::size_t>(record)];
}

RecordSpan ReportData::group_span(int level, int record) const {
  RecordSpan span{record, record + 1};
  while (group_starting_at(span.first) > level) --span.first;
  while (span.last < record_count() && group_starting_at(span.last) > level) ++span.last;
  return span;
}

double ReportData::sum(std::size_t column, RecordSpan span) const {
  double sum = 0;
  for (int record = span.first; record < span.last; ++record) {
    sum += number_of(rows_.rows[static_cast<std::size_t>(record)][column]);
  }
  return sum;
}

}  // namespace tela
