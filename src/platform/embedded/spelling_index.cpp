#include "platform/embedded/spelling_index.h"

#include <functional>
#include <utility>

namespace tela::embedded {

std::optional<std::uint32_t> SpellingIndex::find(std::string_view spelling) const {
  const Slot& slot = slots_[place(std::hash<std::string_view>()(spelling), spelling)];
  if (slot.group == none) return std::nullopt;
  return slot.group;
}

void SpellingIndex::add(std::string_view spelling, std::uint32_t group) {
  if (used_ * 2 >= slots_.size()) grow();
  const std::size_t hash = std::hash<std::string_view>()(spelling);
  slots_[place(hash, spelling)] = {hash, spellings_.size(),
                                   static_cast<std::uint32_t>(spelling.size()), group};
  spellings_ += spelling;
  ++used_;
}

std::size_t SpellingIndex::place(std::size_t hash, std::string_view spelling) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].group != none &&
         (slots_[at].hash != hash || spelling_of(slots_[at]) != spelling)) {
    at = (at + 1) & mask;
  }
  return at;
}

std::string_view SpellingIndex::spelling_of(const Slot& slot) const {
  return std::string_view(spellings_).substr(slot.offset, slot.length);
}

void SpellingIndex::grow() {
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
  for (const Slot& slot : old) {
    if (slot.group != none) slots_[place(slot.hash, spelling_of(slot))] = slot;
  }
}

}  // namespace tela::embedded
