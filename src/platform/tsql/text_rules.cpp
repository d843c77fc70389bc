#include "platform/tsql/text_rules.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/text/letters.h"
#include "platform/text/strings.h"
#include "platform/text/utf8.h"

namespace tela::tsql {
namespace {

constexpr bool is_digit(unsigned byte) {
  return byte >= '0' && byte <= '9';
}
constexpr bool is_upper(unsigned byte) {
  return byte >= 'A' && byte <= 'Z';
}
constexpr bool is_lower(unsigned byte) {
  return byte >= 'a' && byte <= 'z';
}

// The sort weight of each ASCII character: signs in the order of their codes, digits, letters.
constexpr std::array<std::uint8_t, 128> ascii_weights() {
  std::array<std::uint8_t, 128> weights{};
  std::uint8_t next = 0;
  for (unsigned c = 0; c < 128; ++c) {
    if (!is_digit(c) && !is_upper(c) && !is_lower(c)) weights[c] = next++;
  }
  for (unsigned c = '0'; c <= '9'; ++c) weights[c] = next++;
  for (unsigned c = 'A'; c <= 'Z'; ++c) {
    weights[c] = next;
    weights[c - 'A' + 'a'] = next++;
  }
  return weights;
}
constexpr auto weights = ascii_weights();

/// What a character sorts by: the letter, then its accent.
struct Weight {
  unsigned letter = 0;
  unsigned accent = 0;
};

// Behind all that ASCII has: other letters in the order of their code points, then bytes that are
// no characters.
constexpr unsigned first_other = 0x100;
constexpr unsigned first_stray_byte = 0x200000;

Weight weight_of(char32_t character) {
  if (character < weights.size()) return {weights[character], 0};
  const char32_t base = base_letter(character);
  const auto small = static_cast<unsigned>(lower_case(character));
  if (base == 0) return {first_other + small, 0};
  return {weight_of(base).letter, small};
}

// Takes the weight of the next character off the front; behind the end there are blanks.
class Weights {
 public:
  explicit Weights(std::string_view text) : text_(text) {}

  bool at_end() const { return text_.empty(); }

  Weight next() {
    if (at_end()) return {weights[' '], 0};
    const auto byte = static_cast<unsigned char>(text_.front());
    if (byte >= weights.size()) return next_of_several_bytes(byte);
    text_.remove_prefix(1);
    return {weights[byte], 0};
  }

 private:
  Weight next_of_several_bytes(unsigned byte) {
    const std::size_t size = text_.size();
    const char32_t character = take_character(text_);
    const bool is_stray = size - text_.size() == 1;
    return is_stray ? Weight{first_stray_byte + byte, 0} : weight_of(character);
  }

  std::string_view text_;
};

// One member of a like set: a character or a range, taken off the front of `set`.
bool set_holds(std::string_view set, std::string_view character) {
  const auto members = characters(set);
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (i + 2 < members.size() && members[i + 1] == "-") {
      if (compare_texts(members[i], character) <= 0 &&
          compare_texts(character, members[i + 2]) <= 0)
        return true;
      i += 2;
    } else if (compare_texts(members[i], character) == 0) {
      return true;
    }
  }
  return false;
}

// One element of a like pattern: what a single character must be.
struct PatternElement {
  enum class Kind { run, any, one, set, other_than_set } kind;
  std::string_view text;

  bool matches(std::string_view character) const {
    switch (kind) {
      case Kind::any:
        return true;
      case Kind::one:
        return compare_texts(text, character) == 0;
      case Kind::set:
        return set_holds(text, character);
      case Kind::other_than_set:
        return !set_holds(text, character);
      case Kind::run:
        break;
    }
    return false;
  }
};

std::size_t character_length(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
    ++length;
  return length;
}

PatternElement take_element(std::string_view& pattern) {
  using Kind = PatternElement::Kind;
  const char first = pattern.front();
  if (first == '[') {
    const std::size_t close = pattern.find(']', 1);
    if (close != std::string_view::npos) {
      std::string_view set = pattern.substr(1, close - 1);
      pattern.remove_prefix(close + 1);
      const bool inverted = set.starts_with('^');
      if (inverted) set.remove_prefix(1);
      return {inverted ? Kind::other_than_set : Kind::set, set};
    }
  }
  const std::string_view character = pattern.substr(0, character_length(pattern));
  pattern.remove_prefix(character.size());
  if (first == '%') return {Kind::run, character};
  if (first == '_') return {Kind::any, character};
  return {Kind::one, character};
}

}  // namespace

int compare_texts(std::string_view left, std::string_view right) {
  Weights a(left);
  Weights b(right);
  int by_accent = 0;
  while (!a.at_end() || !b.at_end()) {
    const Weight x = a.next();
    const Weight y = b.next();
    if (x.letter != y.letter) return x.letter < y.letter ? -1 : 1;
    if (by_accent == 0 && x.accent != y.accent) by_accent = x.accent < y.accent ? -1 : 1;
  }
  return by_accent;
}

std::size_t hash_text(std::string_view text) {
  Weights characters_of(without_trailing_blanks(text));
  std::uint64_t hash = 0xCBF29CE484222325U;
  while (!characters_of.at_end()) {
    const Weight weight = characters_of.next();
    hash = (hash ^ weight.letter ^ (weight.accent << 8U)) * 0x100000001B3U;
  }
  return hash;
}

int compare_spellings(std::string_view left, std::string_view right) {
  const int order = compare_texts(left, right);
  return order != 0 ? order : left.compare(right);
}

bool matches_like(std::string_view text, std::string_view pattern) {
  std::string_view
      retry_pattern;  // behind the last run, and the text that it has not swallowed yet
  std::string_view retry_text;
  bool in_run = false;
  while (true) {
    if (pattern.empty() && without_trailing_blanks(text).empty()) return true;
    if (!pattern.empty()) {
      std::string_view rest = pattern;
      const PatternElement element = take_element(rest);
      if (element.kind == PatternElement::Kind::run) {
        in_run = true;
        retry_pattern = pattern = rest;
        retry_text = text;
        continue;
      }
      if (!text.empty()) {
        const std::string_view character = text.substr(0, character_length(text));
        if (element.matches(character)) {
          text.remove_prefix(character.size());
          pattern = rest;
          continue;
        }
      }
    }
    if (!in_run || retry_text.empty()) return false;
    retry_text.remove_prefix(character_length(retry_text));
    text = retry_text;
    pattern = retry_pattern;
  }
}

}  // namespace tela::tsql
