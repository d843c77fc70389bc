// From bands to the texts and rules of a page.
#include "platform/report/page_composer.h"

#include <utility>

namespace tela {
namespace {
constexpr double rule_thickness = 0.2;
}

PageComposer::PageComposer(const Layout& layout, const ReportData& data)
    : layout_(layout), data_(data), y_(layout.margins.top) {}

void PageComposer::place(const Band& band, const Scope& scope, bool shaded) {
  for (const Row& row : band.rows) place(row, scope, shaded);
}

void PageComposer::place_footer(const Scope& scope) {
  y_ = layout_.paper.height - layout_.margins.bottom - layout_.page_footer.height();
  place(layout_.page_footer, scope);
}

void PageComposer::place(const Row& row, const Scope& scope, bool shaded) {
  const double left = layout_.margins.left;
  const double width = layout_.body_width();
  if (row.shaded || shaded) page_.shades.push_back({left, y_, width, row.height});
  if (row.rule_above) page_.rules.push_back({left, y_, width, rule_thickness});
  for (const Cell& cell : row.cells) {
    std::string text = data_.text(cell.text, scope);
    if (text.empty()) continue;
    page_.texts.push_back({{left + cell.x, y_, cell.width, row.height},
                           std::move(text),
                           cell.align,
                           cell.style,
                           data_.is_figure(cell.text)});
  }
  y_ += row.height;
  if (row.rule_below) page_.rules.push_back({left, y_ - rule_thickness, width, rule_thickness});
}

}  // namespace tela
