#include "shell/text_helpers.h"

#include <algorithm>

#include "platform/text/strings.h"
#include "platform/text/utf8.h"

namespace tela {
namespace {

// The text as it fits, and the columns that it leaves free.
struct Fitted {
  std::string text;
  std::size_t free = 0;
};

Fitted fit(std::string_view text, int width) {
  const auto columns = static_cast<std::size_t>(std::max(width, 0));
  const std::string_view kept = first_characters(trimmed(text), columns);
  return {std::string(kept), columns - character_count(kept)};
}

// Half of `columns` to the nearest whole number, a half going to the even neighbour.
std::size_t half_to_even(std::size_t columns) {
  const std::size_t half = columns / 2;
  return half + (columns % 2) * (half % 2);
}

}  // namespace

std::string PadLeft(std::string_view text, int width) {
  const Fitted fitted = fit(text, width);
  return std::string(fitted.free, ' ') + fitted.text;
}

std::string PadRight(std::string_view text, int width) {
  const Fitted fitted = fit(text, width);
  return fitted.text + std::string(fitted.free, ' ');
}

std::string CenterPad(std::string_view text, int width) {
  const Fitted fitted = fit(text, width);
  return std::string(half_to_even(fitted.free), ' ') + fitted.text;
}

}  // namespace tela
