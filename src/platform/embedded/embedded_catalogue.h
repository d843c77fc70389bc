// The embedded catalogue as a file: made, opened for the program's statements, filled in bulk, read
// through row by row, and checked.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/tsql/compiler.h"

namespace tela {

class EmbeddedSession;

/// A connection that opens exactly `file` when its open() is called, whatever the connection string
/// says. The file must be there: it is never created by opening it.
std::unique_ptr<Connection> make_embedded_connection(std::filesystem::path file);

/// Adds rows to one table at the engine's full speed, without a statement's text for each.
class BulkInserter {
 public:
  BulkInserter(BulkInserter&&) noexcept;
  BulkInserter& operator=(BulkInserter&&) noexcept;
  ~BulkInserter();

  /// Adds one row, in the order of the columns that the inserter was made for, within the
  /// connection's open transaction. A whole number fits a floating column; any other value of the
  /// wrong kind, or a text too long for its column, throws DatabaseError of kind value and adds
  /// nothing.
  void add(std::span<const Value> row);

 private:
  friend class EmbeddedCatalogue;
  struct Insert;
  explicit BulkInserter(std::unique_ptr<Insert> insert);
  std::unique_ptr<Insert> insert_;
};

/// One catalogue file, open for a tool's work. Every failure throws DatabaseError.
class EmbeddedCatalogue {
 public:
  /// Opens a file that is there.
  explicit EmbeddedCatalogue(const std::filesystem::path& file);
  ~EmbeddedCatalogue();
  EmbeddedCatalogue(EmbeddedCatalogue&&) noexcept;
  EmbeddedCatalogue& operator=(EmbeddedCatalogue&&) noexcept;

  /// T-SQL on the same file; its transaction is also that of the inserters.
  Connection& connection();

  /// Runs a T-SQL script: statements parted by `;` or GO lines.
  void run_script(std::string_view script);

  /// The permanent tables, in alphabetical order.
  std::vector<std::string> table_names() const;

  /// A table with its columns in position order, its name as created; null if there is none of that
  /// name, in any case of letters. Stands until the next statement that changes the schema.
  const tsql::TableInfo* find_table(std::string_view name) const;

  /// An inserter for some of a table's columns; the others stay null. It must not outlive the
  /// catalogue.
  BulkInserter inserter(std::string_view table, std::span<const std::string> columns);

  /// Hands every row of a table to `visit`, all columns in position order, in the order in which
  /// they were added. Memory does not grow with the rows.
  void read_rows(std::string_view table,
                 const std::function<void(std::span<const Value>)>& visit) const;

  /// What the engine finds wrong with the file; empty if it is sound. Reads the whole file.
  std::vector<std::string> integrity_check() const;

  /// Writes the catalogue as it stands at one moment into a new file. Others may go on meanwhile:
  /// what they commit later is not in it. `file` appears once it is whole and on the disk; one that
  /// is there already is left as it is.
  void back_up(const std::filesystem::path& file) const;

 private:
  friend void create_embedded_catalogue(const std::filesystem::path& file,
                                        std::span<const std::string_view> scripts,
                                        const std::function<void(EmbeddedCatalogue&)>& fill);
  /// From here to `finish_filling` nothing is kept that would bring the file back after a failure.
  void start_filling();
  /// Makes the file an ordinary catalogue, which others may share.
  void finish_filling();

  std::unique_ptr<EmbeddedSession> session_;
};

/// Makes a catalogue: runs the T-SQL scripts in order, lets `fill` add what else it is to hold, and
/// gives the file its name once all of it is on the disk. A failure, of `fill` too, leaves no file
/// behind; a file that is there already is left as it is. Throws DatabaseError.
void create_embedded_catalogue(const std::filesystem::path& file,
                               std::span<const std::string_view> scripts,
                               const std::function<void(EmbeddedCatalogue&)>& fill = {});

}  // namespace tela
