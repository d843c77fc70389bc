#include "report_framework/way_back.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/csv/csv_value.h"
#include "platform/text/ascii.h"
#include "shell/failure.h"

namespace tela {

using Change = KeptTable::Change;

namespace {

/// Text is handed on in pieces of this size, so that memory does not grow with the rows.
constexpr std::size_t piece = std::size_t{256} * 1024;

/// The rows of a table as they are now, and locked on a server until the transaction's end: no till
/// changes one between the reading and the statement.
std::string locked(std::string_view table) {
  return std::string(table) + " with (updlock,holdlock) ";
}

void append_header(std::string& text, std::span<const Field> fields) {
  const char* comma = "";
  for (const Field& field : fields) {
    text += comma;
    append_csv_text(text, field.name);
    comma = ",";
  }
  text += '\n';
}

void append_line(std::string& text, std::span<const Value> values) {
  const char* comma = "";
  for (const Value& value : values) {
    text += comma;
    append_csv_value(text, value);
    comma = ",";
  }
  text += '\n';
}

/// Names of columns as a select and a header list them.
std::string joined(const std::vector<std::string>& columns) {
  std::string list;
  for (const std::string& column : columns) list += (list.empty() ? "" : ",") + column;
  return list;
}

/// The files of a table that has `others` files of the same kind already.
void name_files(KeptTable& contents, std::ptrdiff_t others) {
  const std::string number = others == 0 ? "" : '_' + std::to_string(others + 1);
  const auto name = [&](const char* what) { return contents.table + what + number + ".csv"; };
  switch (contents.change) {
    case KeptTable::Change::removed:
      contents.file = name("_removed");
      return;
    case KeptTable::Change::added:
      contents.file = name("_added");
      return;
    case KeptTable::Change::changed:
      contents.file = name("_before");
      contents.after_file = name("_after");
      return;
  }
}

std::size_t position_of(const std::string& column, std::span<const Field> fields) {
  const auto found = std::ranges::find_if(
      fields, [&](const Field& field) { return equal_ignoring_case(field.name, column); });
  if (found == fields.end()) throw std::logic_error("The kept rows have no column " + column + ".");
  return static_cast<std::size_t>(found - fields.begin());
}

/// Whether a column holds its new value already. A whole number may be the new value of a floating
/// column.
bool is_same(const Value& old_value, const Value& new_value) {
  const auto* whole = std::get_if<std::int64_t>(&new_value);
  if (whole != nullptr && std::holds_alternative<double>(old_value))
    return old_value == Value(static_cast<double>(*whole));
  return old_value == new_value;
}

}  // namespace

WayBack::WayBack(AppState& app, std::string_view screen)
    : app_(app), kept_(app.platform.keep_rows(screen)) {}

WayBack::~WayBack() {
  if (!open_) return;
  pass_over([&] {
    if (app_.Con->in_transaction()) app_.Con->rollback_trans();
  });
}

void WayBack::begin() {
  app_.Con->begin_trans();
  files_.clear();
  open_ = true;
}

void WayBack::require_open() const {
  if (!open_) throw std::logic_error("Rows are kept within a transaction of the way back.");
}

WayBack::File& WayBack::file_of(KeptTable contents) {
  const auto is_same_kind = [&](const File& file) {
    const KeptTable& other = file.contents;
    return equal_ignoring_case(other.table, contents.table) && other.change == contents.change;
  };
  const auto holds_the_same = [&](const File& file) {
    return is_same_kind(file) && file.contents.key == contents.key &&
           file.contents.written == contents.written;
  };
  const auto found = std::ranges::find_if(files_, holds_the_same);
  if (found != files_.end()) return *found;
  name_files(contents, std::ranges::count_if(files_, is_same_kind));
  std::string after_text = contents.written.empty() ? "" : joined(contents.written) + '\n';
  return files_.emplace_back(File{std::move(contents), {}, std::move(after_text)});
}

void WayBack::keep_removed(std::string_view table, const std::string& rows, const Columns& key) {
  require_open();
  File& file = file_of({.table = std::string(table), .change = Change::removed, .key = key});
  app_.Con->read_each("select * from " + locked(table) + rows,
                      [&](auto fields, auto row) { add_row(file, fields, row); });
}

void WayBack::keep_added(std::string_view table, const std::string& select, const Columns& key) {
  require_open();
  File& file = file_of({.table = std::string(table), .change = Change::added, .key = key});
  app_.Con->read_each(select, [&](auto fields, auto row) { add_row(file, fields, row); });
}

void WayBack::keep_changed(std::string_view table, const std::vector<NewValue>& changes,
                           const std::string& rows, const Columns& key) {
  require_open();
  std::string sql = "select " + std::string(table) + ".*";
  Columns written;
  for (const NewValue& change : changes) {
    sql += ',' + change.value;
    written.push_back(change.column);
  }
  File& file = file_of({.table = std::string(table),
                        .change = Change::changed,
                        .key = key,
                        .written = std::move(written)});
  app_.Con->read_each(sql + " from " + locked(table) + rows,
                      [&](auto fields, auto row) { add_changed_row(file, fields, row); });
}

// Read in the order of the other columns both times, the old rows and the new values go together:
// rows that are alike in that order may change places.
void WayBack::keep_changed_by(const std::function<void()>& statement, std::string_view table,
                              const Columns& written, const std::string& rows) {
  require_open();
  const auto is_written = [&](const Field& field) {
    return std::ranges::any_of(written, [&](const std::string& column) {
      return equal_ignoring_case(column, field.name);
    });
  };
  std::string order;
  for (const Field& field :
       app_.Con->execute("select * from " + std::string(table) + " where 1=0").fields)
    if (!is_written(field)) order += (order.empty() ? " order by " : ",") + field.name;
  const std::string from = " from " + locked(table) + rows + order;

  File& file =
      file_of({.table = std::string(table), .change = Change::changed, .written = written});
  std::int64_t open_rows = 0;
  app_.Con->read_each("select *" + from, [&](auto fields, auto row) {
    add_row(file, fields, row);
    ++open_rows;
  });
  statement();
  app_.Con->read_each("select " + joined(written) + from, [&](auto, auto values) {
    add_after_values(file, values);
    --open_rows;
  });
  if (open_rows != 0)
    throw std::runtime_error("The rows of " + std::string(table) +
                             " are others than before the statement.");
}

void WayBack::add_row(File& file, std::span<const Field> fields, std::span<const Value> row) {
  if (file.contents.rows++ == 0) append_header(file.text, fields);
  append_line(file.text, row);
  if (file.text.size() >= piece) hand_on(file.contents.file, file.text);
}

// The new values stand behind the row's own.
void WayBack::add_changed_row(File& file, std::span<const Field> fields,
                              std::span<const Value> row) {
  const Columns& written = file.contents.written;
  const auto old_fields = fields.first(fields.size() - written.size());
  const auto new_values = row.last(written.size());
  bool is_changed = false;
  for (std::size_t i = 0; i < written.size(); ++i)
    is_changed |= !is_same(row[position_of(written[i], old_fields)], new_values[i]);
  if (!is_changed) return;
  add_row(file, old_fields, row.first(old_fields.size()));
  add_after_values(file, new_values);
}

void WayBack::add_after_values(File& file, std::span<const Value> values) {
  append_line(file.after_text, values);
  if (file.after_text.size() >= piece) hand_on(file.contents.after_file, file.after_text);
}

void WayBack::hand_on(const std::string& name, std::string& text) {
  if (!text.empty()) kept_->append(name, text);
  text.clear();
}

void WayBack::publish() {
  std::vector<KeptTable> tables;
  for (File& file : files_) {
    if (file.contents.rows == 0) continue;
    hand_on(file.contents.file, file.text);
    hand_on(file.contents.after_file, file.after_text);
    tables.push_back(file.contents);
  }
  if (!tables.empty()) kept_->append(kept_contents_file, contents_text(tables));
  kept_->publish();
}

void WayBack::commit() {
  require_open();
  publish();
  app_.Con->commit_trans();
  app_.has_stored = true;
  open_ = false;
}

}  // namespace tela
