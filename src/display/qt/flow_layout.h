// A layout that sets its items side by side and goes on in a new line when the width is used up, so
// that a screen's inputs and totals fit a window of any width.
#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace tela {

class FlowLayout : public QLayout {
 public:
  /// `spacing` lies between items and between lines, in pixels.
  explicit FlowLayout(int spacing) { setSpacing(spacing); }

  void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;

  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize minimumSize() const override;
  /// As wide as all items in one line.
  QSize sizeHint() const override;
  void setGeometry(const QRect& area) override;

 private:
  /// Finds the places of all items in `area`, and gives them to the items if `place` is true.
  /// Returns the height that they take.
  int arrange(const QRect& area, bool place) const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace tela
