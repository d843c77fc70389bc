// Compiled and prepared statements, kept so that statements which differ in literals alone are read
// and planned once.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/embedded/sqlite_handles.h"
#include "platform/tsql/compiler.h"

namespace tela::embedded {

/// A statement that can be run again with other literals. The handles are prepared when first
/// needed.
struct CachedStatement {
  tsql::Compiled compiled;
  std::vector<tsql::Literal> pinned;  ///< what compiled.pinned stood for
  Statement whole;                    ///< compiled.sqlite_sql
  Statement source;                   ///< compiled.source_sql
  Statement insert_row;               ///< compiled.insert_row_sql
};

class StatementCache {
 public:
  /// The statement of that key whose pinned literals are the same; null if there is none.
  CachedStatement* find(const tsql::Normalized& statement);
  /// Keeps a compilation of `statement`. References stand until the next add() or clear().
  CachedStatement& add(const tsql::Normalized& statement, tsql::Compiled compiled);
  /// To be called when the schema has changed.
  void clear();

 private:
  std::unordered_map<std::string, std::vector<std::unique_ptr<CachedStatement>>> by_key_;
  std::size_t size_ = 0;
};

}  // namespace tela::embedded
