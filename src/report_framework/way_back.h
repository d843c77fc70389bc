// The way back of an action that removes or rewrites what is stored: the rows as they were, kept
// before the catalogue changes, for `tela_catalogue restore`.
//
//   WayBack way_back(app(), name());
//   way_back.begin();
//   way_back.keep_removed("StockAdjust", where);
//   app().Con->execute("Delete from StockAdjust " + where);
//   way_back.commit();
//
// begin() and commit() are the transaction's, and enclose the statements of one transaction each.
// An action of several transactions uses one WayBack for all of them.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/way_back/kept_contents.h"
#include "platform/way_back/kept_rows.h"
#include "shell/app_state.h"

namespace tela {

class WayBack {
 public:
  /// A column that a statement writes, and its new value as an expression of T-SQL: a literal, or
  /// what the statement itself says.
  struct NewValue {
    std::string column;
    std::string value;
  };
  using Columns = std::vector<std::string>;

  /// `screen` names the kept rows for the user. Writes nothing yet.
  WayBack(AppState& app, std::string_view screen);
  /// Rolls back what is not committed.
  ~WayBack();
  WayBack(const WayBack&) = delete;
  WayBack& operator=(const WayBack&) = delete;

  /// Begins a transaction on `Con`.
  void begin();

  // Each of the next is called ahead of the statement that it stands for, within the
  // transaction, which holds off the tills until its end. `rows` is what follows the table's name
  // in "select * from TABLE": "where …", or nothing for the whole table. A failure throws
  // DatabaseError, or std::runtime_error where the rows cannot be kept; the action then ends there,
  // by itself or through the screen's own failure step, and the destructor undoes it.

  /// Keeps rows that the next statement deletes. They are brought back unless rows with the same
  /// values in `key` have come since; without a key, unless the same rows have.
  void keep_removed(std::string_view table, const std::string& rows = {}, const Columns& key = {});

  /// Keeps rows in which the next statement writes `changes`. Each is set back if the row with the
  /// same values in `key` still holds what was written; without a key, all other columns find it,
  /// which suits a table whose other columns nobody changes. Rows that hold their new values
  /// already are left out.
  void keep_changed(std::string_view table, const std::vector<NewValue>& changes,
                    const std::string& rows = {}, const Columns& key = {});

  /// Runs a statement that writes `written` into `rows` with values that only it knows, and keeps
  /// the rows: where several rows offer a value, an engine takes any. `rows` names the same rows
  /// before and behind the statement, and has no key: all other columns find a row.
  void keep_changed_by(const std::function<void()>& statement, std::string_view table,
                       const Columns& written, const std::string& rows);

  /// Notes the rows that the next statement adds, which `select` gives with the table's column
  /// names. They are taken away again if they are still there as they were added; `key` tells a row
  /// that others have written to since from one that was never added.
  void keep_added(std::string_view table, const std::string& select, const Columns& key = {});

  /// Lets the kept rows appear, safely stored, and then commits the transaction.
  void commit();

 private:
  /// The rows of one table with one kind of change, and their text that is not handed on yet.
  struct File {
    KeptTable contents;
    std::string text;
    std::string after_text;
  };

  void require_open() const;
  File& file_of(KeptTable contents);
  void add_row(File& file, std::span<const Field> fields, std::span<const Value> row);
  void add_after_values(File& file, std::span<const Value> values);
  void add_changed_row(File& file, std::span<const Field> fields, std::span<const Value> row);
  void hand_on(const std::string& name, std::string& text);
  void publish();

  AppState& app_;
  std::unique_ptr<KeptRows> kept_;
  std::deque<File> files_;  ///< of the open transaction
  bool open_ = false;
};

}  // namespace tela
