#include "platform/text/letters.h"

#include <algorithm>
#include <array>

#include "platform/text/utf8.h"

namespace tela {
namespace {

/// Every `step`th character from `first` to `last` is a capital, and its small letter lies
/// `distance` behind it.
struct Capitals {
  char32_t first;
  char32_t last;
  char32_t step;
  int distance;
};

constexpr std::array<Capitals, 22> capitals{{
    {U'A', U'Z', 1, 32}, {U'À', U'Ö', 1, 32}, {U'Ø', U'Þ', 1, 32}, {U'Ā', U'Į', 2, 1},
    {U'Ĳ', U'Ķ', 2, 1},  {U'Ĺ', U'Ň', 2, 1},  {U'Ŋ', U'Ŷ', 2, 1},  {U'Ÿ', U'Ÿ', 1, -121},
    {U'Ź', U'Ž', 2, 1},  {U'Ά', U'Ά', 1, 38}, {U'Έ', U'Ί', 1, 37}, {U'Ό', U'Ό', 1, 64},
    {U'Ύ', U'Ώ', 1, 63}, {U'Α', U'Ρ', 1, 32}, {U'Σ', U'Ϋ', 1, 32}, {U'Ѐ', U'Џ', 1, 80},
    {U'А', U'Я', 1, 32}, {U'Ѡ', U'Ҁ', 2, 1},  {U'Ҋ', U'Ҿ', 2, 1},  {U'Ӏ', U'Ӏ', 1, 15},
    {U'Ӂ', U'Ӎ', 2, 1},  {U'Ӑ', U'Ԯ', 2, 1},
}};

constexpr char32_t final_sigma = U'ς';

char32_t shifted(char32_t character, int distance) {
  return static_cast<char32_t>(static_cast<int>(character) + distance);
}

// From À to ſ, a blank for what is no letter of a to z with something added.
constexpr std::string_view latin_bases =
    "aaaaaaaceeeeiiiidnooooo ouuuuy saaaaaaaceeeeiiiidnooooo ouuuuy y"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllll"
    "lllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

struct Accented {
  char32_t letter;
  char32_t base;
};

constexpr std::array<Accented, 11> other_bases{{
    {U'ά', U'α'},
    {U'έ', U'ε'},
    {U'ή', U'η'},
    {U'ί', U'ι'},
    {U'ϊ', U'ι'},
    {U'ό', U'ο'},
    {U'ύ', U'υ'},
    {U'ϋ', U'υ'},
    {U'ώ', U'ω'},
    {final_sigma, U'σ'},
    {U'ё', U'е'},
}};

// A byte that is no character stays as it is.
template <char32_t (*convert)(char32_t)>
std::string converted(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = take_character(text);
    const char32_t other = convert(character);
    if (other == character) {
      result += before.substr(0, before.size() - text.size());
    } else {
      append_character(result, other);
    }
  }
  return result;
}

}  // namespace

char32_t lower_case(char32_t character) {
  const auto* found = std::ranges::find_if(capitals, [&](const Capitals& range) {
    return character >= range.first && character <= range.last &&
           (character - range.first) % range.step == 0;
  });
  return found == capitals.end() ? character : shifted(character, found->distance);
}

char32_t upper_case(char32_t character) {
  if (character == final_sigma) return U'Σ';
  const auto* found = std::ranges::find_if(capitals, [&](const Capitals& range) {
    const char32_t capital = shifted(character, -range.distance);
    return capital >= range.first && capital <= range.last &&
           (capital - range.first) % range.step == 0;
  });
  return found == capitals.end() ? character : shifted(character, -found->distance);
}

std::string lower_case(std::string_view text) {
  return converted<lower_case>(text);
}

std::string upper_case(std::string_view text) {
  return converted<upper_case>(text);
}

char32_t base_letter(char32_t character) {
  if (character < U'À') return 0;
  if (character <= U'ſ') {
    const char base = latin_bases[character - U'À'];
    return base == ' ' ? 0 : static_cast<char32_t>(base);
  }
  const char32_t small = lower_case(character);
  const auto* found = std::ranges::find_if(
      other_bases, [&](const Accented& accented) { return accented.letter == small; });
  return found == other_bases.end() ? 0 : found->base;
}

}  // namespace tela
