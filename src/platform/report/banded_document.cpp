// The pages and the other outputs of a report that has run.
#include "platform/report/banded_document.h"

#include <ostream>
#include <stdexcept>
#include <utility>

#include "platform/csv/csv_value.h"
#include "platform/report/page_composer.h"

namespace tela {

BandedDocument::BandedDocument(Layout layout, ReportData data)
    : layout_(std::move(layout)), data_(std::move(data)), pages_(paginate(layout_, data_)) {}

ReportPage BandedDocument::page(int number) const {
  if (number < 1 || number > page_count()) throw std::out_of_range("no such page");
  const RecordSpan records = pages_[static_cast<std::size_t>(number - 1)];
  const bool has_records = records.first < records.last;
  Scope scope{has_records ? records.first : -1, data_.all(), number, page_count()};
  PageComposer composer(layout_, data_);
  composer.place(layout_.page_header, scope);
  composer.place(layout_.column_header, scope);
  const auto place_group = [&](std::size_t level, Band Group::*band) {
    Scope of_group = scope;
    of_group.span = data_.group_span(static_cast<int>(level), scope.record);
    composer.place(layout_.groups[level].*band, of_group);
  };
  for (int record = records.first; record < records.last; ++record) {
    scope.record = record;
    const auto opened = static_cast<std::size_t>(data_.group_starting_at(record));
    for (std::size_t i = opened; i < layout_.groups.size(); ++i) place_group(i, &Group::header);
    composer.place(layout_.detail, scope, layout_.striped && (record - records.first) % 2 == 1);
    const auto closed = static_cast<std::size_t>(data_.group_starting_at(record + 1));
    for (std::size_t i = layout_.groups.size(); i > closed; --i) place_group(i - 1, &Group::footer);
  }
  if (number == page_count()) composer.place(layout_.report_footer, scope);
  composer.place_footer(scope);
  return composer.take();
}

namespace {

// The column that a cell shows, if that is all that it shows.
const TextPiece* shown_column(const Cell& cell) {
  const bool one = cell.text.size() == 1 && cell.text[0].kind == TextPiece::Kind::column;
  return one ? &cell.text[0] : nullptr;
}

}  // namespace

// A heading stands where its column stands; what the report does not show keeps the query's name.
std::vector<std::string> BandedDocument::csv_headings() const {
  std::vector<std::string> headings;
  for (const Field& field : data_.rows().fields) headings.push_back(field.name);
  for (const Row& head : layout_.column_header.rows)
    for (const Cell& heading : head.cells)
      for (const Row& row : layout_.detail.rows)
        for (const Cell& cell : row.cells) {
          const TextPiece* column = shown_column(cell);
          const bool is_plain =
              heading.text.size() == 1 && heading.text[0].kind == TextPiece::Kind::literal;
          if (column && is_plain && cell.x == heading.x && !heading.text[0].name.empty())
            headings[column->column] = heading.text[0].name;
        }
  return headings;
}

void BandedDocument::write_csv(std::ostream& out) const {
  std::string line;
  const auto write_line = [&](const auto& items, const auto& append) {
    line.clear();
    for (const auto& item : items) {
      if (&item != &items.front()) line += ',';
      append(item);
    }
    out << line << "\r\n";
  };
  write_line(csv_headings(), [&](const std::string& heading) { append_csv_text(line, heading); });
  for (const auto& row : data_.rows().rows) {
    write_line(row, [&](const Value& value) { append_csv_value(line, value); });
  }
}

}  // namespace tela
