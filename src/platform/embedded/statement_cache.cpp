#include "platform/embedded/statement_cache.h"

#include <utility>

namespace tela::embedded {
namespace {

// More than all statements of the program; a stream of ad-hoc statements starts afresh beyond it.
constexpr std::size_t most_statements = 1000;

bool fits(const CachedStatement& cached, const std::vector<tsql::Literal>& literals) {
  for (std::size_t i = 0; i < cached.pinned.size(); ++i)
    if (cached.pinned[i] != literals[cached.compiled.pinned[i]]) return false;
  return true;
}

}  // namespace

CachedStatement* StatementCache::find(const tsql::Normalized& statement) {
  const auto found = by_key_.find(statement.key);
  if (found == by_key_.end()) return nullptr;
  for (const auto& cached : found->second)
    if (fits(*cached, statement.literals)) return cached.get();
  return nullptr;
}

CachedStatement& StatementCache::add(const tsql::Normalized& statement, tsql::Compiled compiled) {
  if (size_ >= most_statements) clear();
  auto cached = std::make_unique<CachedStatement>();
  for (const std::size_t literal : compiled.pinned)
    cached->pinned.push_back(statement.literals[literal]);
  cached->compiled = std::move(compiled);
  ++size_;
  return *by_key_[statement.key].emplace_back(std::move(cached));
}

void StatementCache::clear() {
  by_key_.clear();
  size_ = 0;
}

}  // namespace tela::embedded
