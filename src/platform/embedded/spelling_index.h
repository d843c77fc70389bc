// Finds a group by the very bytes of its keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tela::embedded {

/// A hash table from spellings of keys to numbers of groups. Nearly every row is spelled as one
/// before it, so that the server's rules for equality are asked for new spellings alone.
class SpellingIndex {
 public:
  SpellingIndex() : slots_(least_slots) {}

  /// The group of that spelling, if it is known.
  std::optional<std::uint32_t> find(std::string_view spelling) const;
  /// Keeps a spelling that is not known yet.
  void add(std::string_view spelling, std::uint32_t group);

 private:
  struct Slot {
    std::size_t hash = 0;
    std::size_t offset = 0;
    std::uint32_t length = 0;
    std::uint32_t group = none;
  };

  static constexpr std::uint32_t none = UINT32_MAX;
  static constexpr std::size_t least_slots = 256;

  /// Where the spelling is, or belongs.
  std::size_t place(std::size_t hash, std::string_view spelling) const;
  std::string_view spelling_of(const Slot& slot) const;
  void grow();

  std::vector<Slot> slots_;  ///< a power of two, at most half full
  std::size_t used_ = 0;
  std::string spellings_;
};

}  // namespace tela::embedded
