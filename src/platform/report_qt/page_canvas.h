// The sheet of paper in the viewer: one page at a zoom, with what was found marked in it.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <string>

#include "platform/report/report_engine.h"

namespace tela {

class PageCanvas : public QWidget {
 public:
  using QWidget::QWidget;

  /// Shows page `number` of `document`; a null document shows nothing.
  void show_page(std::shared_ptr<const ReportDocument> document, int number);
  /// The zoom in per cent: at 100 a millimetre on the screen is one on paper.
  void set_zoom(double percent);
  /// Marks all texts that hold `wanted`, the one numbered `current` more strongly.
  void mark(std::string wanted, std::optional<std::size_t> current);

  /// Where the text of that number stands on this widget.
  QRect text_rect(std::size_t text) const;
  /// How wide the page is at 100 per cent.
  double natural_width() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double dots_per_mm() const;
  void fit_size();

  std::shared_ptr<const ReportDocument> document_;
  ReportPage page_;
  double zoom_ = 100;
  std::string wanted_;
  std::optional<std::size_t> current_;
};

}  // namespace tela
