// Paints report pages with QPainter, on a screen as on paper.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <functional>
#include <string>
#include <vector>

#include "platform/report/report_page.h"

namespace tela {

/// Keeps the fonts of a report, so that a page costs its texts alone.
class PagePainter {
 public:
  /// The colour to lay under the text of that number, if any.
  using Marker = std::function<QColor(std::size_t text)>;

  /// `dots_per_mm` is the scale of the paper on the painter's device.
  PagePainter(QPainter& painter, const std::string& font_family, double dots_per_mm);

  /// Paints `page` with the paper's corner at the painter's origin. `marker` may be empty.
  void paint(const ReportPage& page, const Marker& marker = {});

 private:
  struct Face {
    TextStyle style;
    QFont font;
    QFontMetricsF metrics;
  };

  const Face& face(const TextStyle& style);
  void paint(const PageText& text, const QColor& mark);

  QPainter& painter_;
  QString family_;
  double dots_per_mm_;
  std::vector<Face> faces_;
};

}  // namespace tela
