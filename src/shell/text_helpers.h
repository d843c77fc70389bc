// Fits a text into a fixed number of columns, for what is printed in a fixed pitch. A column holds
// one character, however many bytes it has.
#pragma once

#include <string>
#include <string_view>

namespace tela {

/// `text` without the blanks around it, right-aligned in exactly `width` columns; cut at `width`
/// from its start when it is longer.
std::string PadLeft(std::string_view text, int width);

/// The same, left-aligned.
std::string PadRight(std::string_view text, int width);

/// `text` without the blanks around it behind half of the free columns, a half blank going to the
/// even number; nothing is added behind it. Cut at `width` when it is longer.
std::string CenterPad(std::string_view text, int width);

}  // namespace tela
