// The colours and fonts of charts. The colours of the rows are ones that people with any kind of
// colour blindness tell apart (the palette of Okabe and Ito), once as they are and once darker.
#pragma once

#include <QColor>
#include <QFont>

namespace tela {

inline constexpr int kRowColours = 16;

/// The colour of the row with that number, from 0; they begin anew after kRowColours.
QColor row_colour(int row);

/// The colour with that share of white in it, from 0 to 1.
QColor tinted(const QColor& colour, double white);

inline const QColor kChartInk(28, 43, 51);
inline const QColor kChartFaintInk(96, 110, 118);
inline const QColor kChartGrid(218, 225, 229);
inline const QColor kChartWall(244, 247, 249);
/// Lines and areas that join all rows.
inline const QColor kChartLine(31, 78, 110);

/// The fonts of a chart, from the desktop's own.
struct ChartFonts {
  explicit ChartFonts(const QFont& base);

  QFont title;
  QFont text;   ///< axes and data labels
  QFont small;  ///< where the text does not fit
};

}  // namespace tela
