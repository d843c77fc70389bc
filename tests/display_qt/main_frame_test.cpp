// The main window by mouse: menus, toolbar, panels, and the windows inside it.
#include <gmock/gmock.h>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

#include "display/qt/menu_letters.h"
#include "display_qt/desktop_fixture.h"
#include "shell/main_window.h"

namespace tela::testing {

namespace {

void click_tool(Desktop& desktop, const char* key) {
  child<QAction>(desktop.frame(), key).trigger();
}

QMdiSubWindow* front(Desktop& desktop) {
  return desktop.frame().area().activeSubWindow();
}

}  // namespace

TEST(MainFrame, OffersTheMenusAndGreysWhatIsSwitchedOff) {
  Desktop desktop;
  desktop.log_in();
  QStringList captions;
  for (const QAction* menu : desktop.frame().menuBar()->actions()) captions << menu->text();
  EXPECT_EQ(captions.filter("&").size(), 6) << "no letter is left for TAX REPORT";
  EXPECT_EQ(
      captions.join('|').remove('&'),
      "SALES REPORT|PROFIT REPORT|Graph View|PURCHASE REPORT|TAX REPORT|DELETE BILLS|Settings");
  EXPECT_FALSE(child<QAction>(desktop.frame(), "CostVeriation").isEnabled());
  EXPECT_FALSE(child<QAction>(desktop.frame(), "StartDeleteBills").isEnabled());
  EXPECT_TRUE(child<QAction>(desktop.frame(), "Points").isEnabled());
  EXPECT_FALSE(child<QAction>(desktop.frame(), "sales").icon().isNull());
}

TEST(MainFrame, ShowsOnePanelAtATimeAndNoneAfterItsExit) {
  Desktop desktop;
  desktop.log_in();
  const auto visible = [&](const char* panel) {
    return child<QWidget>(desktop.frame(), panel).isVisible();
  };
  EXPECT_FALSE(visible("Picture1"));
  click_tool(desktop, "sales");
  EXPECT_TRUE(visible("Picture1"));
  click_tool(desktop, "purchase");
  EXPECT_TRUE(visible("Picture3"));
  EXPECT_FALSE(visible("Picture1"));
  click_tool(desktop, "tax");
  EXPECT_TRUE(visible("Picture3"));
  QWidget& panel = child<QWidget>(desktop.frame(), "Picture3");
  QTest::mouseClick(&child<QPushButton>(panel, "CmdExit"), Qt::LeftButton);
  EXPECT_FALSE(visible("Picture3"));
}

TEST(MainFrame, OpensOneWindowFromMenuAndPanel) {
  Desktop desktop;
  desktop.log_in();
  child<QAction>(desktop.frame(), "DailySalesReport").trigger();
  ScreenView* first = desktop.view("frmDailyS_R");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(front(desktop)->windowTitle(), " DAILY SALES REPORT");
  click_tool(desktop, "sales");
  QTest::mouseClick(&child<QPushButton>(desktop.frame(), "cmdDailySales"), Qt::LeftButton);
  EXPECT_EQ(desktop.view("frmDailyS_R"), first);
  EXPECT_EQ(desktop.frame().area().subWindowList().size(), 1);
}

TEST(MainFrame, KeepsItsOrderOfWindowsAndTheLogicsAlike) {
  Desktop desktop;
  desktop.open("frmDailyS_R");
  desktop.open("frmmonthlySR");
  EXPECT_EQ(desktop.windows().current()->name(), "frmmonthlySR");

  desktop.frame().area().setActiveSubWindow(desktop.frame().area().subWindowList().first());
  EXPECT_EQ(desktop.windows().current()->name(), "frmDailyS_R");

  front(desktop)->close();
  EXPECT_EQ(desktop.windows().find("frmDailyS_R"), nullptr);
  EXPECT_EQ(desktop.windows().current()->name(), "frmmonthlySR");
  EXPECT_EQ(front(desktop)->objectName(), "frmmonthlySR");
}

TEST(MainFrame, EndsTheProgramAtOnceByItsButtonAndByItsFrame) {
  Desktop by_button;
  by_button.open("frmDailyS_R");
  click_tool(by_button, "exit");
  EXPECT_TRUE(by_button.ended);
  EXPECT_FALSE(by_button.frame().isVisible());

  Desktop by_frame;
  by_frame.log_in();
  by_frame.frame().close();
  EXPECT_TRUE(by_frame.ended);
}

TEST(MainFrame, SizesAndRemembersItsText) {
  Desktop desktop;
  desktop.log_in();
  const double usual = QApplication::font().pointSizeF();
  QTest::keyClick(&desktop.frame(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(QApplication::font().pointSizeF(), usual * 1.1, 0.01);
  EXPECT_EQ(desktop.settings().text_percent(), 110);
  QTest::keyClick(&desktop.frame(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_NEAR(QApplication::font().pointSizeF(), usual, 0.01);
}

TEST(MainFrame, IsWorkedByKeys) {
  Desktop desktop;
  desktop.open("frmDailyS_R");
  desktop.open("frmmonthlySR");
  EXPECT_NE(front(desktop)->pos(), QPoint(7, 7)) << "the second window covers the first";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10);
  EXPECT_EQ(desktop.frame().menuBar()->activeAction()->text().remove('&'), "SALES REPORT");
  desktop.view("frmmonthlySR")->focus_first();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(desktop.windows().current()->name(), "frmDailyS_R");
  desktop.view("frmDailyS_R")->focus_first();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, Qt::ControlModifier);
  EXPECT_EQ(desktop.windows().current(), nullptr);
  EXPECT_FALSE(desktop.ended);
}

TEST(MainFrame, SaysWhatHasNoAction) {
  Desktop desktop;
  desktop.log_in();
  for (const char* entry : {"PrinterSettings", "tax", "printer"}) {
    desktop.frame().statusBar()->clearMessage();
    child<QAction>(desktop.frame(), entry).trigger();
    EXPECT_THAT(desktop.frame().statusBar()->currentMessage().toStdString(),
                ::testing::HasSubstr("no action"));
  }
}

// Alt and a letter means one thing only: a menu, or a button of the screen in front.
TEST(MainFrame, LettersOfMenusAndButtonsDoNotMeet) {
  Desktop desktop;
  for (const ScreenEntry& entry : all_screens()) {
    ScreenView& view = desktop.open(std::string(entry.name));
    for (const Control& control : view.screen()->form().controls()) {
      const auto mark = control.caption.find('&');
      const bool fits = mark == std::string::npos ||
                        kButtonLetters.contains(QChar(control.caption.at(mark + 1)).toUpper());
      EXPECT_TRUE(fits) << entry.name << ": " << control.caption;
      EXPECT_FALSE(child<QWidget>(view, control.name.c_str()).accessibleName().isEmpty());
    }
    front(desktop)->close();
  }
}

// Every screen of the program has a window that shows all its controls, without a line of its own.
TEST(MainFrame, ShowsEveryScreen) {
  Desktop desktop;
  for (const ScreenEntry& entry : all_screens()) {
    const ScreenView& view = desktop.open(std::string(entry.name));
    for (const Control& control : view.screen()->form().controls())
      EXPECT_NE(view.findChild<QWidget*>(QString::fromStdString(control.name)), nullptr)
          << entry.name << ": " << control.name;
    EXPECT_GT(view.width(), 100) << entry.name;
    front(desktop)->close();
    EXPECT_EQ(desktop.windows().current(), nullptr);
  }
}

// A total may stand without a caption, beside one that has it; both have room for their figures.
TEST(MainFrame, GivesEveryTotalTheSameRoom) {
  Desktop desktop;
  ScreenView& view = desktop.open("frmRateOfTax");
  const int room = child<QWidget>(view, "tTotalSales").width();
  EXPECT_EQ(child<QWidget>(view, "tTotalSalesGst").width(), room);
  EXPECT_EQ(child<QWidget>(view, "tTotalPurGst").width(), room);
}

}  // namespace tela::testing
