// What people need who hear the screen, or read it large: over all windows.
#include <QAccessible>
#include <QAccessibleInterface>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "display/qt/date_field.h"
#include "display/qt/grid_pane.h"
#include "display/qt/look.h"
#include "display_qt/desktop_fixture.h"

namespace tela::testing {

namespace {

// The relative luminance of WCAG 2.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

constexpr double kLeastContrast = 4.5;

void expect_contrast(const QWidget& widget) {
  const QPalette& colours = widget.palette();
  using Role = QPalette::ColorRole;
  for (const auto& [ink, ground] :
       {std::pair(Role::WindowText, Role::Window), std::pair(Role::Text, Role::Base),
        std::pair(Role::ButtonText, Role::Button), std::pair(Role::PlaceholderText, Role::Base),
        std::pair(Role::HighlightedText, Role::Highlight),
        std::pair(Role::ToolTipText, Role::ToolTipBase)})
    EXPECT_GE(
        contrast(colours.color(QPalette::Active, ink), colours.color(QPalette::Active, ground)),
        kLeastContrast)
        << widget.objectName().toStdString() << " role " << ink;
}

QString heard(QWidget& widget, QAccessible::Text what) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
  return interface ? interface->text(what) : QString();
}

QString shown_text(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return box->currentText();
  const auto* line = qobject_cast<const QLineEdit*>(&widget);
  return line ? line->text() : QString();
}

// Every screen that has a window, one after another.
void on_every_screen(Desktop& desktop, const std::function<void(ScreenView&)>& look) {
  for (const ScreenEntry& entry : all_screens()) {
    SCOPED_TRACE(std::string(entry.name));
    ScreenView& view = desktop.open(std::string(entry.name));
    look(view);
    desktop.frame()
        .findChild<QMdiSubWindow*>(QString::fromStdString(std::string(entry.name)))
        ->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

}  // namespace

TEST(Reading, EveryFieldHasANameAndItsValueIsHeard) {
  Desktop desktop;
  on_every_screen(desktop, [](ScreenView& view) {
    for (const Control& control : view.screen()->form().controls()) {
      auto* widget = view.findChild<QWidget*>(QString::fromStdString(control.name));
      ASSERT_NE(widget, nullptr) << control.name;
      if (widget->focusProxy() && control.kind == ControlKind::grid) widget = widget->focusProxy();
      const QString name = heard(*widget, QAccessible::Name);
      EXPECT_FALSE(name.trimmed().isEmpty()) << control.name;
      EXPECT_NE(name, QString::fromStdString(control.name));
      const QString text = QString::fromStdString(control.text);
      if (control.kind == ControlKind::text && !control.password) {
        EXPECT_EQ(heard(*widget, QAccessible::Value), text) << control.name;
      }
      if (control.kind == ControlKind::label) {
        EXPECT_TRUE(name.endsWith(text)) << control.name;
      }
    }
    for (auto* button : view.findChildren<QAbstractButton*>()) {
      if (button->focusPolicy() == Qt::NoFocus) continue;
      EXPECT_FALSE(heard(*button, QAccessible::Name).isEmpty()) << button->toolTip().toStdString();
    }
  });
}

TEST(Reading, TextStandsOutFromItsGround) {
  Desktop desktop;
  const auto look = [](QWidget& window) {
    expect_contrast(window);
    for (QWidget* widget : window.findChildren<QWidget*>())
      if (widget->isEnabled()) expect_contrast(*widget);
  };
  look(*desktop.login());
  on_every_screen(desktop, [&](ScreenView& view) { look(view); });
  look(desktop.frame());
  const QColor ink = QApplication::palette().color(QPalette::Text);
  desktop.shop.is_second_huge = true;
  ScreenView& bills = desktop.open("frmDailyS_R");
  desktop.windows().current()->set("Combo1", "ALL COUNTER");
  desktop.windows().current()->press("cmdView");
  bills.mirror();
  const GridView& list = child<GridPane>(bills, "MSHF").view();
  for (int row = 0; row < 3; ++row) {
    const QVariant ground = list.model()->index(row, 2).data(Qt::BackgroundRole);
    ASSERT_TRUE(ground.isValid());
    EXPECT_GE(contrast(ink, ground.value<QColor>()), kLeastContrast) << row;
  }
}

TEST(Reading, TextTwiceAsLargeIsNotCut) {
  Desktop desktop;
  on_every_screen(desktop, [](ScreenView& view) {
    set_text_size(200);
    QCoreApplication::processEvents();
    view.parentWidget()->resize(view.parentWidget()->sizeHint());
    QCoreApplication::processEvents();
    for (QWidget* widget : view.findChildren<QWidget*>()) {
      const auto* label = qobject_cast<QLabel*>(widget);
      const bool shows_text = (label && !label->wordWrap()) || qobject_cast<QPushButton*>(widget) ||
                              qobject_cast<QCheckBox*>(widget) ||
                              qobject_cast<QComboBox*>(widget) || qobject_cast<DateField*>(widget);
      if (!shows_text || !widget->isVisible() || shown_text(*widget).isEmpty()) continue;
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
          << widget->objectName().toStdString();
      EXPECT_GE(widget->height(), widget->fontMetrics().height())
          << widget->objectName().toStdString();
    }
    set_text_size(100);
  });
}

}  // namespace tela::testing
