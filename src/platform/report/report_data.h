// The rows of a report beside its layout: columns found by name, values as text, groups and sums.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/report/layout.h"

namespace tela {

/// Rows that a band speaks of, from `first` up to and not including `last`.
struct RecordSpan {
  int first = 0;
  int last = 0;
};

/// What the places of a band refer to.
struct Scope {
  int record = 0;  ///< the row at hand; -1 if there is none
  RecordSpan span;
  int page = 1;
  int pages = 1;
};

/// A value as the mask shows it; null is empty.
std::string masked_text(const Value& value, const std::string& mask);

class ReportData {
 public:
  /// Finds every column that `layout` names, and writes its number there. Throws ReportError that
  /// names file, line and column where the result has no such column or it cannot be summed.
  ReportData(Layout& layout, RowSet rows, std::map<std::string, std::string> formulas);

  int record_count() const { return static_cast<int>(rows_.rows.size()); }
  const RowSet& rows() const { return rows_; }

  /// The text of a cell. A text that shows a column is empty where there is no row.
  std::string text(const TextTemplate& pieces, const Scope& scope) const;

  /// Whether the cell shows a number and nothing else.
  bool is_figure(const TextTemplate& pieces) const;

  /// The outermost group that starts with `record`, the number of groups if none does; 0 for the
  /// first record and behind the last.
  int group_starting_at(int record) const;

  /// The rows of the group at `level` that holds `record`.
  RecordSpan group_span(int level, int record) const;

  RecordSpan all() const { return {0, record_count()}; }

 private:
  std::string text(const TextPiece& piece, const Scope& scope) const;
  std::string column_text(const TextPiece& piece, int record) const;
  double sum(std::size_t column, RecordSpan span) const;

  RowSet rows_;
  std::map<std::string, std::string> formulas_;
  std::vector<int> group_starts_;
};

}  // namespace tela
