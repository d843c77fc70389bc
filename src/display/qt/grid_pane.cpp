#include "display/qt/grid_pane.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

namespace tela {

namespace {

QToolButton* tool_button(Qt::ArrowType arrow, const QString& tip) {
  auto* button = new QToolButton;
  button->setArrowType(arrow);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  return button;
}

}  // namespace

GridPane::GridPane(DesktopSettings& settings, const QString& key, const QString& heading,
                   QWidget* parent)
    : QWidget(parent),
      view_(new GridView(settings, key)),
      wanted_(new QLineEdit),
      result_(new QLabel),
      bar_(make_find_bar()),
      empty_words_(new QLabel(view_->viewport())),
      note_(new QLabel) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  if (!heading.trimmed().isEmpty())
    column->addWidget(new QLabel("<b>" + heading.toHtmlEscaped() + "</b>"));
  column->addWidget(view_, 1);
  column->addWidget(bar_);
  column->addWidget(note_);
  for (QLabel* words : {empty_words_, note_}) {
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->hide();
  }
  note_->setObjectName("note");
  empty_words_->setObjectName("emptyWords");
  empty_words_->setAlignment(Qt::AlignCenter);
  empty_words_->setAttribute(Qt::WA_TransparentForMouseEvents);
  view_->viewport()->installEventFilter(this);
  setFocusProxy(view_);

  auto* again = new QShortcut(QKeySequence::FindNext, this);
  again->setContext(Qt::WidgetWithChildrenShortcut);
  connect(again, &QShortcut::activated, this, [this] { find(true); });
}

QWidget* GridPane::make_find_bar() {
  auto* bar = new QWidget;
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  wanted_->setObjectName("find");
  wanted_->setPlaceholderText(tr("Find in the list"));
  wanted_->setAccessibleName(tr("Find in the list"));
  wanted_->setClearButtonEnabled(true);
  wanted_->setMaximumWidth(280);
  QToolButton* previous = tool_button(Qt::UpArrow, tr("Previous"));
  QToolButton* next = tool_button(Qt::DownArrow, tr("Next (F3)"));
  row->addWidget(wanted_, 1);
  row->addWidget(previous);
  row->addWidget(next);
  row->addWidget(result_);
  row->addStretch(1);
  connect(wanted_, &QLineEdit::returnPressed, this, [this] { find(true); });
  connect(previous, &QToolButton::clicked, this, [this] { find(false); });
  connect(next, &QToolButton::clicked, this, [this] { find(true); });
  bar->hide();
  return bar;
}

void GridPane::show_words(const Grid& grid) {
  note_->setText(QString::fromStdString(grid.Note()));
  note_->setVisible(!grid.Note().empty());
  const bool empty = !grid.EmptyWords().empty() && grid.IsEmpty();
  empty_words_->setText(QString::fromStdString(grid.EmptyWords()));
  empty_words_->setVisible(empty);
  QString spoken = note_->text();
  if (empty) spoken = empty_words_->text();
  view_->setAccessibleDescription(spoken);
}

bool GridPane::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) empty_words_->setGeometry(view_->viewport()->rect());
  return QWidget::eventFilter(watched, event);
}

void GridPane::open_find() {
  bar_->show();
  wanted_->setFocus(Qt::ShortcutFocusReason);
  wanted_->selectAll();
}

void GridPane::find(bool forward) {
  if (wanted_->text().isEmpty()) return open_find();
  result_->setText(view_->find(wanted_->text(), forward) ? QString() : tr("Not found"));
}

void GridPane::close_find() {
  bar_->hide();
  view_->setFocus(Qt::OtherFocusReason);
}

void GridPane::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && bar_->isVisible()) return close_find();
  QWidget::keyPressEvent(event);
}

}  // namespace tela
