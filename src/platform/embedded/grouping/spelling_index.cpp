#include "platform/embedded/grouping/spelling_index.h"

#include <algorithm>
#include <utility>

namespace tela::embedded {

std::optional<std::uint32_t> SpellingIndex::find(const Spelling& spelling) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = spelling.hash() & mask; slots_[at].entry != none; at = (at + 1) & mask) {
    const Slot& slot = slots_[at];
    if (slot.hash == spelling.hash() && is_spelled(slot.entry, spelling)) {
      return static_cast<std::uint32_t>(entries_[slot.entry]);
    }
  }
  return std::nullopt;
}

bool SpellingIndex::is_spelled(std::uint32_t entry, const Spelling& spelling) const {
  const auto words = spelling.words();
  const auto kept = entries_.begin() + entry;
  return *kept >> 32U == words.size() && std::equal(words.begin(), words.end(), kept + 1);
}

void SpellingIndex::add(const Spelling& spelling, std::uint32_t group) {
  if (used_ * 2 >= slots_.size()) grow();
  const auto words = spelling.words();
  slots_[free_slot(spelling.hash())] = {spelling.hash(),
                                        static_cast<std::uint32_t>(entries_.size())};
  entries_.push_back(std::uint64_t{words.size()} << 32U | group);
  entries_.insert(entries_.end(), words.begin(), words.end());
  ++used_;
}

std::size_t SpellingIndex::free_slot(std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].entry != none) at = (at + 1) & mask;
  return at;
}

void SpellingIndex::grow() {
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
  for (const Slot& slot : old) {
    if (slot.entry != none) slots_[free_slot(slot.hash)] = slot;
  }
}

}  // namespace tela::embedded
