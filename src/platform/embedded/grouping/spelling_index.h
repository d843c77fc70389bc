// Finds a group by the very bytes of its keys.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/embedded/grouping/group_value.h"

namespace tela::embedded {

/// The values of a row's keys, word after word: keys that are spelled alike are alike; the other
/// way round need not hold. Ten million rows pass here, so that it is all in the header.
class Spelling {
 public:
  void clear() {
    size_ = 0;
    hash_ = 0;
  }

  void add(const RowValue& value) {
    if (value.is_text()) return add_text(value.text());
    make_room(2);
    if (value.is_null()) return add_word(null);
    add_word(value.is_whole() ? whole : real);
    add_word(value.is_whole() ? static_cast<std::uint64_t>(value.whole())
                              : std::bit_cast<std::uint64_t>(value.real()));
  }

  std::span<const std::uint64_t> words() const { return {words_.data(), size_}; }
  std::uint32_t hash() const { return static_cast<std::uint32_t>(hash_ ^ (hash_ >> 32U)); }

 private:
  // The word ahead of a value says what it is: these, or a text of as many bytes as it is above.
  static constexpr std::uint64_t null = 0;
  static constexpr std::uint64_t whole = 1;
  static constexpr std::uint64_t real = 2;
  static constexpr std::uint64_t text = 3;

  void make_room(std::size_t words) {
    if (words_.size() - size_ < words) words_.resize(2 * (size_ + words));
  }

  void add_word(std::uint64_t word) {
    words_[size_++] = word;
    mix(word);
  }

  // The last word of a text may hold bytes of the one before it again: its size tells which.
  void add_text(std::string_view bytes) {
    constexpr std::size_t step = sizeof(std::uint64_t);
    make_room(2 + bytes.size() / step);
    add_word(text + bytes.size());
    if (bytes.size() < step) return add_word(word_at(bytes.data(), bytes.size()));
    const char* last = bytes.data() + bytes.size() - step;
    for (const char* at = bytes.data(); at < last; at += step) add_word(word_at(at, step));
    add_word(word_at(last, step));
  }

  static std::uint64_t word_at(const char* bytes, std::size_t count) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word;
  }

  // The word is spread before it meets the hash: the processor does that for the next word while it
  // still waits for this one.
  void mix(std::uint64_t word) {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;  // the golden ratio's bits
    word *= spread;
    hash_ = (hash_ ^ word ^ (word >> 32U)) * spread;
  }

  std::vector<std::uint64_t> words_;  ///< the first `size_` of them
  std::size_t size_ = 0;
  std::uint64_t hash_ = 0;
};

/// A hash table from spellings of keys to numbers of groups. Nearly every row is spelled as one
/// before it, so that the server's rules for equality are asked for new spellings alone.
class SpellingIndex {
 public:
  SpellingIndex() : slots_(least_slots) {}

  /// The group of that spelling, if it is known.
  std::optional<std::uint32_t> find(const Spelling& spelling) const;
  /// Keeps a spelling that is not known yet.
  void add(const Spelling& spelling, std::uint32_t group);

 private:
  /// Small, so that as many as possible stay in the processor's cache.
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t entry = none;  ///< where in entries_
  };

  static constexpr std::uint32_t none = UINT32_MAX;
  static constexpr std::size_t least_slots = 256;

  bool is_spelled(std::uint32_t entry, const Spelling& spelling) const;
  /// The first free slot for a hash.
  std::size_t free_slot(std::uint32_t hash) const;
  void grow();

  std::vector<Slot> slots_;  ///< a power of two, at most half full
  std::size_t used_ = 0;
  /// One behind the other: the group and the number of the words in one word, then the words.
  std::vector<std::uint64_t> entries_;
};

}  // namespace tela::embedded
