// Reading the words and the places of a layout line.
#include "platform/report/layout_words.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/text/ascii.h"
#include "platform/text/strings.h"

namespace tela {
namespace {

/// Takes a quoted text whose opening quote stands at `at`; leaves `at` behind the closing one.
std::string take_quoted(std::string_view line, std::size_t& at) {
  std::string text;
  for (++at; at < line.size(); ++at) {
    if (line[at] != '"') {
      text += line[at];
    } else if (at + 1 < line.size() && line[at + 1] == '"') {
      text += line[++at];
    } else {
      ++at;
      return text;
    }
  }
  throw std::invalid_argument("a quote is not closed");
}

std::vector<std::string> split_words(std::string_view text) {
  std::vector<std::string> words;
  for (const LayoutWord& word : layout_words(text)) words.push_back(word.text);
  return words;
}

using Kind = TextPiece::Kind;
using KindName = std::pair<std::string_view, Kind>;

constexpr std::array<KindName, 3> counters{
    {{"page", Kind::page}, {"pages", Kind::pages}, {"records", Kind::records}}};
constexpr std::array<KindName, 3> column_functions{
    {{"first", Kind::first}, {"last", Kind::last}, {"sum", Kind::sum}}};

std::optional<Kind> find_kind(const std::array<KindName, 3>& names, std::string_view word) {
  for (const auto& [name, kind] : names) {
    if (equal_ignoring_case(name, word)) return kind;
  }
  return std::nullopt;
}

TextPiece read_name(const std::string& word, const std::vector<std::string>& formulas) {
  TextPiece piece;
  piece.name = word;
  const bool is_formula = std::any_of(formulas.begin(), formulas.end(), [&](const auto& formula) {
    return equal_ignoring_case(formula, word);
  });
  piece.kind = is_formula ? Kind::formula : find_kind(counters, word).value_or(Kind::column);
  return piece;
}

TextPiece read_place(std::string_view place, const std::vector<std::string>& formulas) {
  const std::size_t colon = std::min(place.find(':'), place.size());
  const std::vector<std::string> words = split_words(place.substr(0, colon));
  TextPiece piece;
  if (words.size() == 1) {
    piece = read_name(words[0], formulas);
  } else if (const auto function =
                 words.size() == 2 ? find_kind(column_functions, words[0]) : std::nullopt) {
    piece.kind = *function;
    piece.name = words[1];
  } else if (words.size() == 3 && equal_ignoring_case(words[0], "percent")) {
    piece.kind = Kind::percent;
    piece.name = words[1];
    piece.of = words[2];
  } else {
    throw std::invalid_argument("{" + std::string(place) + "} is no place of a report");
  }
  if (colon < place.size()) piece.mask = trimmed(place.substr(colon + 1));
  return piece;
}

}  // namespace

std::vector<LayoutWord> layout_words(std::string_view line) {
  std::vector<LayoutWord> words;
  std::size_t at = 0;
  while (at < line.size() && line[at] != '#') {
    if (is_blank(line[at])) {
      ++at;
    } else if (line[at] == '"') {
      words.push_back({take_quoted(line, at), true});
    } else {
      const std::size_t start = at;
      while (at < line.size() && !is_blank(line[at]) && line[at] != '"') ++at;
      words.push_back({std::string(line.substr(start, at - start)), false});
    }
  }
  return words;
}

TextTemplate read_template(std::string_view text, const std::vector<std::string>& formulas) {
  TextTemplate pieces;
  while (!text.empty()) {
    const std::size_t open = std::min(text.find('{'), text.size());
    if (open > 0) {
      TextPiece literal;
      literal.name = text.substr(0, open);
      pieces.push_back(std::move(literal));
      text.remove_prefix(open);
      continue;
    }
    const std::size_t close = text.find('}');
    if (close == std::string_view::npos) throw std::invalid_argument("a brace is not closed");
    pieces.push_back(read_place(text.substr(1, close - 1), formulas));
    text.remove_prefix(close + 1);
  }
  return pieces;
}

}  // namespace tela
