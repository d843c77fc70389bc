#include "display/qt/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace tela {

namespace {

// Column widths in twips were measured for text of this size in points.
constexpr double kPointsOfWidths = 8.25;
constexpr int kTwipsPerInch = 1440;
constexpr int kHeaderPadding = 16;  // pixels
constexpr int kRowPadding = 7;      // pixels
constexpr int kRowsInHint = 16;
constexpr int kLeastPadding = 8;  // pixels, in a column that gave way
constexpr int kMostExcess = 6;    // the part of the window's width that columns give way for

}  // namespace

GridView::GridView(DesktopSettings& settings, QString key, QWidget* parent)
    : QTableView(parent),
      settings_(settings),
      key_(std::move(key)),
      model_(new GridModel(this)),
      pulled_(settings.pulled_columns(key_)) {
  setModel(model_);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(0);
  horizontalHeader()->setResizeContentsPrecision(0);  // the rows in sight are enough
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int column, int, int pixels) { column_pulled(column, pixels); });
  adopt_font();
}

void GridView::set_grid(const Grid* grid) {
  grid_ = grid;
  model_->set_grid(grid);
  apply_widths();
}

void GridView::refresh() {
  model_->refresh();
  apply_widths();
}

void GridView::adopt_font() {
  QFont heading = font();
  heading.setBold(true);
  horizontalHeader()->setFont(heading);
  verticalHeader()->setMinimumSectionSize(fontMetrics().height() + kRowPadding);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
}

double GridView::pixels_per_twip() const {
  return static_cast<double>(logicalDpiX()) / kTwipsPerInch * fontInfo().pointSizeF() /
         kPointsOfWidths;
}

void GridView::apply_widths() {
  if (!grid_) return;
  sizing_ = true;
  const QFontMetrics heading(horizontalHeader()->font());
  for (int col = 0; col < grid_->Cols(); ++col) {
    const bool hidden = grid_->ColWidth(col) <= 0;
    setColumnHidden(col, hidden);
    if (hidden) continue;
    const auto pulled = pulled_.find(col);
    const int twips = pulled == pulled_.end() ? grid_->ColWidth(col) : pulled->second;
    int pixels = static_cast<int>(std::lround(twips * pixels_per_twip()));
    if (pulled == pulled_.end()) {
      const QString header = model_->headerData(col, Qt::Horizontal).toString();
      pixels = std::max(pixels, heading.horizontalAdvance(header) + kHeaderPadding);
    }
    setColumnWidth(col, pixels);
  }
  if (pulled_.empty()) squeeze_columns();
  sizing_ = false;
}

void GridView::squeeze_columns() {
  const int excess = horizontalHeader()->length() - viewport()->width();
  if (excess <= 0 || excess > viewport()->width() / kMostExcess) return;
  const QFontMetrics heading(horizontalHeader()->font());
  std::vector<int> room;
  for (int col = 0; col < grid_->Cols(); ++col) {
    const QString header = model_->headerData(col, Qt::Horizontal).toString();
    const int needed = std::max(heading.horizontalAdvance(header), sizeHintForColumn(col));
    room.push_back(isColumnHidden(col) ? 0
                                       : std::max(0, columnWidth(col) - needed - kLeastPadding));
  }
  const int whole = std::accumulate(room.begin(), room.end(), 0);
  if (whole < excess) return;
  for (int col = 0; col < grid_->Cols(); ++col)
    setColumnWidth(
        col, columnWidth(col) - (excess * room[static_cast<std::size_t>(col)] + whole - 1) / whole);
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  apply_widths();
}

void GridView::column_pulled(int column, int pixels) {
  if (sizing_ || pixels <= 0) return;
  pulled_[column] = static_cast<int>(std::lround(pixels / pixels_per_twip()));
  settings_.set_pulled_columns(key_, pulled_);
}

void GridView::reset_columns() {
  pulled_.clear();
  settings_.set_pulled_columns(key_, pulled_);
  apply_widths();
}

QSize GridView::sizeHint() const {
  const int frame = 2 * frameWidth();
  const int rows = kRowsInHint * verticalHeader()->defaultSectionSize();
  return {horizontalHeader()->length() + verticalScrollBar()->sizeHint().width() + frame + 2,
          horizontalHeader()->sizeHint().height() + rows + frame};
}

QString GridView::selected_text() const {
  QModelIndexList cells = selectionModel()->selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  int row = -1;
  for (const QModelIndex& cell : cells) {
    if (isColumnHidden(cell.column())) continue;
    if (row >= 0) text += cell.row() == row ? '\t' : '\n';
    row = cell.row();
    text += cell.data().toString();
  }
  return text;
}

void GridView::copy_selection() const {
  QApplication::clipboard()->setText(selected_text());
}

bool GridView::holds(int cell, const QString& text) const {
  const int cols = model_->columnCount();
  return !isColumnHidden(cell % cols) && model_->index(cell / cols, cell % cols)
                                             .data()
                                             .toString()
                                             .contains(text, Qt::CaseInsensitive);
}

bool GridView::find(const QString& text, bool forward) {
  const int cols = model_->columnCount();
  const int cells = model_->rowCount() * cols;
  if (text.isEmpty() || cells == 0) return false;
  const QModelIndex current = currentIndex();
  const int start = current.isValid() ? current.row() * cols + current.column() : cells - 1;
  for (int step = 1; step <= cells; ++step) {
    const int cell = (start + (forward ? step : cells - step)) % cells;
    if (!holds(cell, text)) continue;
    setCurrentIndex(model_->index(cell / cols, cell % cols));
    return true;
  }
  return false;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copy_selection();
  const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (is_enter && currentIndex().isValid()) return emit doubleClicked(currentIndex());
  QTableView::keyPressEvent(event);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu;
  menu.addAction(tr("&Copy"), QKeySequence::Copy, this, [this] { copy_selection(); });
  menu.addAction(tr("Select &All"), QKeySequence::SelectAll, this, [this] { selectAll(); });
  menu.addSeparator();
  menu.addAction(tr("&Reset Column Widths"), this, [this] { reset_columns(); });
  menu.exec(event->globalPos());
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange || !model_) return;
  adopt_font();
  apply_widths();
}

}  // namespace tela
