// Rows of a long select, kept aside until the lock for writing them is worth taking.
#pragma once

#include "platform/embedded/sqlite_handles.h"

namespace tela::embedded {

/// A private store in memory, which goes to a temporary file beyond some tens of megabytes.
class RowSpool {
 public:
  /// Runs `source` to its end and keeps its rows.
  explicit RowSpool(Statement& source);

  /// Runs `insert` once for each row, the row's columns bound as ?1, ?2 ….
  void insert_each(Statement& insert);

 private:
  Database store_;
  int columns_;
};

}  // namespace tela::embedded
