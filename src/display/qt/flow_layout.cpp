#include "display/qt/flow_layout.h"

#include <QWidget>
#include <algorithm>

namespace tela {

namespace {

// The items of one line stand on a common base, so that buttons line up with the boxes beside them
// and not with the captions above the boxes.
void place_line(const std::vector<QLayoutItem*>& line, QPoint corner, int height, int spacing) {
  for (QLayoutItem* item : line) {
    const QSize size = item->sizeHint();
    item->setGeometry({QPoint(corner.x(), corner.y() + height - size.height()), size});
    corner.rx() += size.width() + spacing;
  }
}

}  // namespace

QLayoutItem* FlowLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  if (!itemAt(index)) return nullptr;
  QLayoutItem* item = items_[static_cast<std::size_t>(index)].release();
  items_.erase(items_.begin() + index);
  return item;
}

int FlowLayout::heightForWidth(int width) const {
  return arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const {
  QSize size;
  for (const auto& item : items_)
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  return size.grownBy(contentsMargins());
}

QSize FlowLayout::sizeHint() const {
  QSize size;
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize hint = item->sizeHint();
    size.rwidth() += hint.width() + (size.width() > 0 ? spacing() : 0);
    size.setHeight(std::max(size.height(), hint.height()));
  }
  return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& area) {
  QLayout::setGeometry(area);
  arrange(area, true);
}

int FlowLayout::arrange(const QRect& area, bool place) const {
  const QRect inside = area.marginsRemoved(contentsMargins());
  std::vector<QLayoutItem*> line;
  QPoint corner = inside.topLeft();
  int used = 0;
  int height = 0;
  const auto end_line = [&] {
    if (place) place_line(line, corner, height, spacing());
    line.clear();
    used = 0;
  };
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize size = item->sizeHint();
    if (!line.empty() && used + size.width() > inside.width()) {
      end_line();
      corner.ry() += height + spacing();
      height = 0;
    }
    line.push_back(item.get());
    used += size.width() + spacing();
    height = std::max(height, size.height());
  }
  end_line();
  return corner.y() + height - area.y() + contentsMargins().bottom();
}

}  // namespace tela
