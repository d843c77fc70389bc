#include "display/qt/field.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

#include "display/qt/date_field.h"
#include "display/qt/entry_combo.h"
#include "display/qt/grid_pane.h"
#include "display/qt/look.h"
#include "platform/chart_qt/chart_view.h"
#include "platform/text/number_text.h"

namespace tela {

namespace {

const char* const kDateFormat = "dd/MM/yyyy";

// Widths in characters of the field's font.
constexpr int kBoxCharacters = 14;
constexpr int kResultCharacters = 10;
constexpr int kScratchCharacters = 4;  // a box for typing without a caption
constexpr int kComboCharacters = 18;

int character_width(const QWidget& widget) {
  return widget.fontMetrics().averageCharWidth();
}

ScreenField make_date(const FieldActions& actions) {
  auto* field = new DateField(actions.today);
  QObject::connect(field, &DateField::date_changed, field,
                   [set = actions.set](QDate date) { set(date.toString(kDateFormat)); });
  QObject::connect(field, &DateField::refused, field, actions.hint);
  const auto mirror = [field](const Control& control) {
    const QSignalBlocker quiet(field);
    field->show_date(to_qt(control.date));
    field->setReadOnly(control.locked);
  };
  const auto held = [field] {
    field->settle();
    return field->date().toString(kDateFormat);
  };
  return {{}, {}, field, mirror, held, [field] { return field->settle(); }};
}

ScreenField make_combo(const FieldActions& actions) {
  auto* box = new EntryCombo;
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  box->setMinimumContentsLength(kComboCharacters);
  box->setMaxVisibleItems(20);
  QObject::connect(box, &QComboBox::textActivated, box, actions.pick);
  QObject::connect(box->lineEdit(), &QLineEdit::textEdited, box, actions.set);
  QObject::connect(box, &EntryCombo::unmatched, box, actions.hint);
  const auto mirror = [box](const Control& control) {
    const QSignalBlocker quiet(box);
    box->show_entries(control.items);
    box->lineEdit()->setReadOnly(control.locked);
    box->show_text(QString::fromStdString(control.text));
  };
  const auto settle = [box] {
    box->take_only_match();
    return true;
  };
  return {{}, {}, box, mirror, [box] { return box->currentText(); }, settle};
}

QString spoken_caption(const Control& control) {
  return QString::fromStdString(plain_words(control.caption)).trimmed();
}

// A box that is as wide as the text that it is made for. What the program writes is seen from its
// start, and whole as far as names go.
class TextBox : public QLineEdit {
 public:
  explicit TextBox(int width_in_characters) : characters_(width_in_characters) {}

  void show_text(const QString& words) {
    if (text() == words) return;
    setText(words);
    if (!isReadOnly()) return;
    setCursorPosition(0);
    updateGeometry();
  }

  QSize sizeHint() const override {
    const auto written = isReadOnly() ? std::min(text().size(), kLongName) : 0;
    const int characters = std::max(characters_, static_cast<int>(written));
    return {(characters + 1) * fontMetrics().horizontalAdvance('0') + kFramePixels,
            QLineEdit::sizeHint().height()};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  static constexpr int kFramePixels = 12;
  static constexpr qsizetype kLongName = 40;
  int characters_;
};

int characters_of(const Control& control) {
  if (control.locked && !control.password) return kResultCharacters;
  return control.caption.empty() ? kScratchCharacters : kBoxCharacters;
}

// Figures stand at the right, and what the program writes stands out from what is typed.
void style_box(QLineEdit& box, const Control& control) {
  const bool result = control.locked && !control.password;
  const bool figure = control.numeric_only || is_numeric(control.text);
  // Text that is being typed stays at its side.
  if (!box.hasFocus())
    box.setAlignment((figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  QPalette colours = QApplication::palette();
  if (result) colours.setColor(QPalette::Base, QColor(247, 250, 251));
  box.setPalette(colours);
  QFont font;
  font.setBold(result && figure);
  box.setFont(font);
}

ScreenField make_text(const Control& control, const FieldActions& actions) {
  auto* box = new TextBox(characters_of(control));
  if (control.password) {
    box->setEchoMode(QLineEdit::Password);
    box->setStyleSheet("lineedit-password-character: 42");
  }
  QObject::connect(box, &QLineEdit::textEdited, box, actions.set);
  const auto mirror = [box](const Control& now) {
    box->setReadOnly(now.locked);
    box->show_text(QString::fromStdString(now.text));
    style_box(*box, now);
  };
  return {{}, {}, box, mirror, [box] { return box->text(); }};
}

ScreenField make_label() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumWidth(8 * character_width(*label));
  label->setMinimumHeight(QLineEdit().sizeHint().height());  // to stand in line with boxes
  QFont font;
  font.setBold(true);
  label->setFont(font);
  const auto mirror = [label](const Control& control) {
    label->setText(QString::fromStdString(control.text));
    // A reader of the screen takes the name for all of a label.
    label->setAccessibleName(spoken_caption(control) + ": " + label->text());
  };
  return {{}, {}, label, mirror, {}};
}

ScreenField make_check(const Control& control, const FieldActions& actions) {
  auto* check = new QCheckBox(QString::fromStdString(control.caption));
  QObject::connect(check, &QCheckBox::clicked, check,
                   [set = actions.set](bool on) { set(on ? "1" : "0"); });
  const auto mirror = [check](const Control& now) { check->setChecked(now.text == "1"); };
  return {{}, {}, check, mirror, [check] { return QString(check->isChecked() ? "1" : "0"); }};
}

ScreenField make_button(const Control& control, const FieldActions& actions) {
  auto* button = new QPushButton;
  const QIcon icon = icon_for_words(control.caption);
  const QString words = QString::fromStdString(control.caption);
  if (control.kind == ControlKind::picture_button && !icon.isNull()) {
    button->setToolTip(words);
    button->setAccessibleName(words);
  } else {
    button->setText(words);
  }
  button->setIcon(icon);
  button->setAutoDefault(true);  // Enter presses it, as the space bar does
  QObject::connect(button, &QPushButton::clicked, button, actions.press);
  return {{}, {}, button, [](const Control&) {}, {}};
}

ScreenField make_list(const FieldActions& actions) {
  auto* list = new QListWidget;
  QObject::connect(list, &QListWidget::itemClicked, list,
                   [pick = actions.pick](QListWidgetItem* item) { pick(item->text()); });
  const auto mirror = [list](const Control& control) {
    bool same = list->count() == static_cast<int>(control.items.size());
    for (int i = 0; same && i < list->count(); ++i)
      same = list->item(i)->text() ==
             QString::fromStdString(control.items[static_cast<std::size_t>(i)]);
    if (same) return;
    list->clear();
    for (const std::string& item : control.items) list->addItem(QString::fromStdString(item));
  };
  return {{}, {}, list, mirror, {}};
}

ScreenField make_grid(const Control& control, const FieldActions& actions,
                      DesktopSettings& settings, const QString& key) {
  auto* pane = new GridPane(settings, key, QString::fromStdString(control.caption));
  GridView* view = &pane->view();
  view->set_grid(control.grid.get());
  QObject::connect(view, &QTableView::doubleClicked, view,
                   [press = actions.double_click](const QModelIndex& cell) {
                     press(GridModel::grid_row(cell.row()));
                   });
  QObject::connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, view,
                   [grid = control.grid.get()](const QModelIndex& cell) {
                     if (cell.isValid()) grid->SetRow(GridModel::grid_row(cell.row()));
                   });
  const auto mirror = [pane, view](const Control& now) {
    view->refresh();
    pane->show_words(*now.grid);
  };
  return {{}, {}, pane, mirror, {}};
}

ScreenField make_chart(const Control& control) {
  auto* view = new ChartView;
  view->set_chart(control.chart.get());
  return {{}, {}, view, [view](const Control&) { view->refresh(); }, {}};
}

ScreenField make_widget(const Control& control, const FieldActions& actions,
                        DesktopSettings& settings, const QString& key) {
  switch (control.kind) {
    case ControlKind::date:
      return make_date(actions);
    case ControlKind::combo:
      return make_combo(actions);
    case ControlKind::text:
      return make_text(control, actions);
    case ControlKind::label:
      return make_label();
    case ControlKind::check:
      return make_check(control, actions);
    case ControlKind::button:
    case ControlKind::picture_button:
      return make_button(control, actions);
    case ControlKind::list:
      return make_list(actions);
    case ControlKind::grid:
      return make_grid(control, actions, settings,
                       key + '.' + QString::fromStdString(control.name));
    case ControlKind::chart:
      return make_chart(control);
  }
  return make_label();
}

// What a reader of the screen says: the caption, or what kind of thing has none.
QString spoken_name(const Control& control) {
  QString caption = spoken_caption(control);
  if (!caption.isEmpty()) return caption;
  switch (control.kind) {
    case ControlKind::grid:
    case ControlKind::list:
      return QCoreApplication::translate("Field", "list");
    case ControlKind::chart:
      return QCoreApplication::translate("Field", "chart");
    default:
      return control.locked ? QCoreApplication::translate("Field", "result")
                            : QCoreApplication::translate("Field", "entry");
  }
}

}  // namespace

QString shown_text(const Control& control) {
  if (control.kind == ControlKind::date) return to_qt(control.date).toString(kDateFormat);
  return QString::fromStdString(control.text);
}

ScreenField make_field(const Control& control, const FieldActions& actions,
                       DesktopSettings& settings, const QString& key) {
  ScreenField field = make_widget(control, actions, settings, key);
  field.name = control.name;
  field.kind = control.kind;
  field.input->setObjectName(QString::fromStdString(control.name));
  if (!control.hint.empty()) {
    field.input->setToolTip(QString::fromStdString(control.hint));
    field.input->setAccessibleDescription(QString::fromStdString(control.hint));
  }
  if (field.input->accessibleName().isEmpty()) field.input->setAccessibleName(spoken_name(control));
  // A list has the focus in place of what stands around it.
  if (QWidget* focused = field.input->focusProxy())
    focused->setAccessibleName(field.input->accessibleName());
  return field;
}

}  // namespace tela
