// What hands type into dates and lists, key by key, through whatever has dropped down.
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>

#include "display/qt/date_field.h"
#include "display/qt/entry_combo.h"
#include "display/qt/grid_pane.h"
#include "display_qt/desktop_fixture.h"

namespace tela::testing {

namespace {

void press(int key, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* popup = QApplication::activePopupWidget();
  QTest::keyClick(popup ? popup : QApplication::focusWidget(), static_cast<Qt::Key>(key),
                  modifiers);
}

void type(const QString& text) {
  for (const QChar letter : text) {
    QWidget* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup ? popup : QApplication::focusWidget(), letter.toLatin1());
  }
}

class Typing : public ::testing::Test {
 protected:
  Desktop desktop;
  ScreenView& view = desktop.open("frmmonthlySR");
  DateField& from = child<DateField>(view, "DTP1");
  DateField& to = child<DateField>(view, "DTP2");
  EntryCombo& counter = child<EntryCombo>(view, "Combo1");

  int listed() { return child<GridPane>(view, "MSHF").view().model()->rowCount(); }
  std::string held(const char* control) {
    return shown_text(view.screen()->form().at(control)).toStdString();
  }
};

}  // namespace

TEST_F(Typing, ADateIsTakenAsItIsTypedWhateverStandsThere) {
  const std::pair<const char*, const char*> cases[] = {{"1/9/2026", "01/09/2026"},
                                                       {"31102026", "31/10/2026"},
                                                       {"010926", "01/09/2026"},
                                                       {"1-9", "01/09/2024"},
                                                       {"t", "05/01/2024"}};
  for (const auto& [typed, shown] : cases) {
    for (const int cursor : {0, 4, 10}) {
      from.setFocus();
      from.deselect();
      from.setCursorPosition(cursor);
      type(typed);
      press(Qt::Key_Return);
      EXPECT_EQ(from.text().toStdString(), shown) << typed << " at " << cursor;
      EXPECT_EQ(held("DTP1"), shown);
      EXPECT_TRUE(to.hasFocus());
    }
  }
  type("020926");
  press(Qt::Key_Backtab);
  EXPECT_EQ(held("DTP2"), "02/09/2026");
  EXPECT_EQ(from.selectedText(), from.text());
}

TEST_F(Typing, WhatIsNoDateIsMarkedAndNothingRuns) {
  counter.setFocus();
  type("ALL COUNTER");
  press(Qt::Key_Escape);
  from.setFocus();
  type("45132026");
  press(Qt::Key_Return);
  EXPECT_TRUE(from.hasFocus());
  EXPECT_EQ(from.text(), "45132026");
  EXPECT_FALSE(from.accessibleDescription().isEmpty());
  EXPECT_TRUE(desktop.frame().statusBar()->currentMessage().contains("45132026"));
  press(Qt::Key_Tab);
  QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton);
  EXPECT_TRUE(from.hasFocus());
  counter.setFocus();
  press(Qt::Key_Return);
  EXPECT_TRUE(from.hasFocus());
  EXPECT_EQ(listed(), 1);
  EXPECT_EQ(held("DTP1"), "05/01/2024");
  press(Qt::Key_Escape);
  EXPECT_EQ(from.text(), "05/01/2024");
  EXPECT_TRUE(from.accessibleDescription().isEmpty());
  QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton);
  EXPECT_EQ(listed(), 3);
}

TEST_F(Typing, KeysChangeThePartAtTheCursorAndAPairAtOnce) {
  from.setFocus();
  const auto step = [&](int cursor, Qt::Key key) {
    from.deselect();
    from.setCursorPosition(cursor);
    press(key);
    return held("DTP1");
  };
  EXPECT_EQ(step(1, Qt::Key_Up), "06/01/2024");
  EXPECT_EQ(step(4, Qt::Key_Down), "06/12/2023");
  EXPECT_EQ(step(9, Qt::Key_Up), "06/12/2024");
  press(Qt::Key_Down, Qt::AltModifier);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QApplication::activePopupWidget()->close();

  const auto pair = [&](Qt::Key key) {
    press(key, Qt::ControlModifier);
    return held("DTP1") + ' ' + held("DTP2");
  };
  EXPECT_EQ(pair(Qt::Key_3), "01/12/2023 31/12/2023");
  EXPECT_EQ(pair(Qt::Key_4), "01/04/2023 05/01/2024");
  EXPECT_EQ(pair(Qt::Key_2), "01/01/2024 05/01/2024");
  EXPECT_EQ(pair(Qt::Key_1), "05/01/2024 05/01/2024");
}

TEST_F(Typing, AnExactEntryActsAtOnceAndStaysAsTyped) {
  counter.setFocus();
  type("all counter");
  press(Qt::Key_Return);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(counter.currentText(), "all counter");
  EXPECT_EQ(held("Combo1"), "all counter");
}

TEST_F(Typing, TheOnlyMatchIsChosen) {
  counter.setFocus();
  type("all c");
  press(Qt::Key_Return);
  EXPECT_EQ(held("Combo1"), "ALL COUNTER");
}

TEST_F(Typing, ATextThatIsNoEntryIsMarked) {
  counter.setFocus();
  type("alx");
  EXPECT_FALSE(counter.lineEdit()->accessibleDescription().isEmpty());
  press(Qt::Key_Backspace);
  EXPECT_TRUE(counter.lineEdit()->accessibleDescription().isEmpty());
  press(Qt::Key_Escape);
  from.setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(counter.lineEdit()->accessibleDescription().isEmpty());
  EXPECT_EQ(held("Combo1"), "al");
}

}  // namespace tela::testing
