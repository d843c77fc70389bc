#include "platform/chart_qt/chart_look.h"

#include <array>

namespace tela {

namespace {

constexpr std::array<QRgb, 8> kPalette = {
    0xff0072b2, 0xffe69f00, 0xff009e73, 0xffcc79a7, 0xff56b4e9, 0xffd55e00, 0xfff0e442, 0xff7f7f7f,
};

QFont scaled(QFont font, double factor) {
  font.setPointSizeF(font.pointSizeF() * factor);
  return font;
}

}  // namespace

QColor row_colour(int row) {
  const int place = row % kRowColours;
  const QColor colour(kPalette[static_cast<std::size_t>(place) % kPalette.size()]);
  return place < static_cast<int>(kPalette.size()) ? colour : colour.darker(160);
}

QColor tinted(const QColor& colour, double white) {
  const auto mixed = [white](int part) { return static_cast<int>(part + (255 - part) * white); };
  return {mixed(colour.red()), mixed(colour.green()), mixed(colour.blue())};
}

ChartFonts::ChartFonts(const QFont& base)
    : title(scaled(base, 1.3)), text(scaled(base, 0.9)), small(scaled(base, 0.78)) {
  title.setBold(true);
}

}  // namespace tela
