#include "platform/database/database_client.h"

namespace tela {

void Connection::read_each(std::string_view sql, const RowVisitor& visit) {
  const RowSet rows = execute(sql);
  for (const std::vector<Value>& row : rows.rows) visit(rows.fields, row);
}

void Recordset::open(std::string_view sql, Connection& connection) {
  if (open_) throw DatabaseError(DatabaseError::Kind::other, "The recordset is already open.");
  rows_ = connection.execute(sql);
  position_ = 0;
  open_ = true;
}

void Recordset::require_open() const {
  if (!open_) throw DatabaseError(DatabaseError::Kind::other, "The recordset is closed.");
}

bool Recordset::eof() const {
  require_open();
  return position_ >= rows_.rows.size();
}

void Recordset::move_first() {
  require_open();
  position_ = 0;
}

void Recordset::move_next() {
  if (eof()) throw DatabaseError(DatabaseError::Kind::other, "There is no next record.");
  ++position_;
}

int Recordset::record_count() const {
  require_open();
  return static_cast<int>(rows_.rows.size());
}

int Recordset::field_count() const {
  require_open();
  return static_cast<int>(rows_.fields.size());
}

const Value& Recordset::field(int position) const {
  if (eof()) throw DatabaseError(DatabaseError::Kind::other, "There is no current record.");
  const auto& row = rows_.rows[position_];
  if (position < 0 || static_cast<std::size_t>(position) >= row.size())
    throw DatabaseError(DatabaseError::Kind::other, "The record has no such field.");
  return row[static_cast<std::size_t>(position)];
}

const Field& Recordset::field_info(int position) const {
  require_open();
  if (position < 0 || position >= field_count())
    throw DatabaseError(DatabaseError::Kind::other, "The record has no such field.");
  return rows_.fields[static_cast<std::size_t>(position)];
}

void Recordset::close() {
  require_open();
  rows_ = {};
  open_ = false;
}

}  // namespace tela
