// What a finished page of a report holds: texts, rules and shades at their places. A painter draws
// it without knowing where it came from, so the window, the printer and the PDF show the same page.
#pragma once

#include <string>
#include <vector>

namespace tela {

/// Where a text stands in its box.
enum class TextAlign { left, centre, right };

/// The look of a text. The size is in points.
struct TextStyle {
  double size = 9;
  bool bold = false;
  bool italic = false;
  bool operator==(const TextStyle&) const = default;
};

/// A rectangle in millimetres from the paper's upper left corner.
struct PageBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// One line of text in its box. A figure is never cut: a painter narrows it until it fits, while
/// other text that is too wide is shortened with an ellipsis.
struct PageText {
  PageBox box;
  std::string text;
  TextAlign align = TextAlign::left;
  TextStyle style;
  bool is_figure = false;
};

/// One page. The shades lie under the rules, the rules under the texts; a rule is a filled box.
struct ReportPage {
  std::vector<PageBox> shades;
  std::vector<PageBox> rules;
  std::vector<PageText> texts;
};

/// The size of the paper in millimetres, as it is turned.
struct PaperSize {
  double width = 210;
  double height = 297;
  bool operator==(const PaperSize&) const = default;
};

}  // namespace tela
