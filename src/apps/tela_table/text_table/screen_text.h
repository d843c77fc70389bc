// What tela_console prints, as text for a reader.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tela {

/// A control of a screen and the words that stand for it.
struct LabelledControl {
  std::string name;
  std::string label;
};

/// The text for one line of tela_console: the caption, the grids and the labelled controls of a
/// screen that was shown, the words of a message, a query's rows; nothing for any other event.
/// Throws std::runtime_error with the console's words for an error, and for a line that is no JSON
/// object.
std::string console_text(std::string_view line, const std::vector<LabelledControl>& controls);

}  // namespace tela
