// The daily sales report as a shopkeeper uses it, by keyboard and mouse.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>

#include "display/qt/date_field.h"
#include "display/qt/grid_pane.h"
#include "display/qt/preview_window.h"
#include "display_qt/desktop_fixture.h"
#include "platform/report_qt/report_viewer.h"

namespace tela::testing {

namespace {

GridView& grid(ScreenView& view) {
  return child<GridPane>(view, "MSHF").view();
}

QString cell(ScreenView& view, int row, int col) {
  return grid(view).model()->index(row, col).data().toString();
}

QComboBox& counter(ScreenView& view) {
  return child<QComboBox>(view, "Combo1");
}

// Opens the report and lists the bills of all counters, by keyboard alone.
ScreenView& list_bills(Desktop& desktop) {
  ScreenView& view = desktop.open("frmDailyS_R");
  QTest::keyClicks(&counter(view), "ALL COUNTER");
  QTest::keyClick(&counter(view), Qt::Key_Return);
  return view;
}

}  // namespace

TEST(ReportScreen, IsWalkedWithEnterAndListsByEnterInTheCounter) {
  Desktop desktop;
  ScreenView& view = desktop.open("frmDailyS_R");
  auto& day = child<DateField>(view, "DTPicker1");
  EXPECT_EQ(day.text(), "05/01/2024");
  EXPECT_TRUE(day.hasFocus());
  EXPECT_EQ(grid(view).model()->headerData(3, Qt::Horizontal).toString(), "AMOUNT");

  QTest::keyClick(&day, Qt::Key_Return);
  EXPECT_TRUE(counter(view).hasFocus());
  QTest::keyClicks(&counter(view), "COUNTER-2");
  QTest::keyClick(&counter(view), Qt::Key_Return);
  EXPECT_EQ(grid(view).model()->rowCount(), 3);
  EXPECT_EQ(cell(view, 1, 1), "05/01/2024");
  EXPECT_EQ(cell(view, 1, 5), "2.00");
  EXPECT_EQ(child<QLineEdit>(view, "tCounter").text(), "2");
  EXPECT_EQ(child<QLineEdit>(view, "tTotalAmount").text(), "6.00");
  EXPECT_EQ(child<QLabel>(view, "lEnd").text(), "3");
}

TEST(ReportScreen, RefusesWithACriticalBoxAndPutsTheFocusRight) {
  Desktop desktop;
  ScreenView& view = desktop.open("frmDailyS_R");
  const SeenBox box = desktop.box_of(
      [&] { QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton); });
  EXPECT_EQ(box.text, "Please Select The Counter No.");
  EXPECT_EQ(box.icon, QMessageBox::Critical);
  EXPECT_EQ(box.title, "TELA MINI SUPER MARKET");
  EXPECT_FALSE(box.asks);
  EXPECT_TRUE(gets_focus(counter(view)));
}

TEST(ReportScreen, AsksBeforeThePreviewAndShowsItUnlessCancelled) {
  Desktop desktop;
  ScreenView& view = list_bills(desktop);
  const auto preview = [&] {
    QTest::mouseClick(&child<QPushButton>(view, "cmdprint"), Qt::LeftButton);
  };
  EXPECT_TRUE(desktop.box_of(preview, QMessageBox::Cancel).asks);
  EXPECT_EQ(desktop.display().preview_window(), nullptr);
  desktop.box_of(preview, QMessageBox::Ok);
  ASSERT_NE(desktop.display().preview_window(), nullptr);
  EXPECT_EQ(desktop.display().preview_window()->windowTitle(), "DAILY SALES REPORT – Report");
  // There is no report engine here, so the viewer is empty.
  EXPECT_EQ(desktop.display().preview_window()->viewer().report(), nullptr);
}

TEST(ReportScreen, PaintsTheBandsAndAlignsFigures) {
  Desktop desktop;
  ScreenView& view = list_bills(desktop);
  GridView& list = grid(view);
  list.clearSelection();
  const QImage picture = list.viewport()->grab().toImage();
  const auto colour_at = [&](int row) {
    const QRect place = list.visualRect(list.model()->index(row, 0));
    return picture.pixelColor(place.left() + 2, place.top() + 2);
  };
  EXPECT_EQ(colour_at(0), QColor(255, 255, 255));
  EXPECT_EQ(colour_at(1), QColor(146, 170, 216));
  const auto alignment = [&](int col) {
    return list.model()->index(0, col).data(Qt::TextAlignmentRole).toInt();
  };
  EXPECT_TRUE(alignment(5) & Qt::AlignRight);
  EXPECT_TRUE(alignment(1) & Qt::AlignLeft);
}

TEST(ReportScreen, OpensTheBillOfADoubleClick) {
  Desktop desktop;
  ScreenView& view = list_bills(desktop);
  GridView& list = grid(view);
  const QPoint place = list.visualRect(list.model()->index(1, 2)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
  ScreenView* bill = desktop.view("FrmBillView");
  ASSERT_NE(bill, nullptr);
  EXPECT_EQ(child<QLineEdit>(*bill, "tSearch").text(), "2");
  // Enter does the same, and behind a number in SEARCH it shows that bill.
  QTest::keyClick(&child<QLineEdit>(*bill, "tSearch"), Qt::Key_Escape);
  ASSERT_EQ(desktop.view("FrmBillView"), nullptr);
  list.setCurrentIndex(list.model()->index(2, 2));
  QTest::keyClick(&list, Qt::Key_Return);
  bill = desktop.view("FrmBillView");
  ASSERT_NE(bill, nullptr);
  auto& search = child<QLineEdit>(*bill, "tSearch");
  EXPECT_EQ(search.text(), "3");
  search.setText("1");
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_TRUE(child<QPushButton>(*bill, "cmdView").hasFocus());
}

TEST(ReportScreen, StartsAfreshWithRefresh) {
  Desktop desktop;
  ScreenView& view = list_bills(desktop);
  QTest::keyClick(&counter(view), Qt::Key_R, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.view("frmDailyS_R") != &view; }, 2000));
  ScreenView* fresh = desktop.view("frmDailyS_R");
  ASSERT_NE(fresh, nullptr);
  EXPECT_EQ(counter(*fresh).currentText(), "");
  EXPECT_EQ(cell(*fresh, 0, 0), "");
}

TEST(ReportScreen, CopiesAndFindsWhatTheListShows) {
  Desktop desktop;
  ScreenView& view = list_bills(desktop);
  GridView& list = grid(view);
  list.selectionModel()->select(
      QItemSelection(list.model()->index(0, 4), list.model()->index(1, 5)),
      QItemSelectionModel::ClearAndSelect);
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "0.00\t1.00\n0.00\t2.00");

  list.setCurrentIndex(list.model()->index(0, 0));
  QTest::keyClick(&counter(view), Qt::Key_F, Qt::ControlModifier);
  QLineEdit& wanted = child<QLineEdit>(view, "find");
  EXPECT_TRUE(gets_focus(wanted));
  QTest::keyClicks(&wanted, "3.0");
  QTest::keyClick(&wanted, Qt::Key_Return);
  EXPECT_EQ(list.currentIndex().row(), 2);
  QTest::keyClick(&wanted, Qt::Key_Escape);
  EXPECT_FALSE(wanted.isVisible());

  EXPECT_TRUE(list.find("10:30", true));
  EXPECT_EQ(list.currentIndex(), list.model()->index(0, 2));
  EXPECT_TRUE(list.find("10:30", false));
  EXPECT_EQ(list.currentIndex().row(), 2);
  EXPECT_FALSE(list.find("nowhere", true));
}

TEST(ReportScreen, RemembersPulledColumnsForTheNextWindow) {
  Desktop desktop;
  ScreenView& view = desktop.open("frmDailyS_R");
  grid(view).setColumnWidth(3, 222);
  desktop.frame().findChild<QMdiSubWindow*>("frmDailyS_R")->close();
  ScreenView& again = desktop.open("frmDailyS_R");
  EXPECT_NEAR(grid(again).columnWidth(3), 222, 1);
  grid(again).reset_columns();
  EXPECT_LT(grid(again).columnWidth(3), 200);
}

TEST(ReportScreen, ShowsAFullGridAtOnce) {
  Desktop desktop;
  desktop.shop.bills = 32000;
  ScreenView& view = desktop.open("frmDailyS_R");
  desktop.windows().current()->set("Combo1", "ALL COUNTER");
  desktop.windows().current()->press("cmdView");
  QElapsedTimer clock;
  clock.start();
  view.mirror();
  grid(view).viewport()->grab();
  RecordProperty("milliseconds", static_cast<int>(clock.elapsed()));
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_EQ(cell(view, 31999, 0), "32000");
}

TEST(ReportScreen, SaysWhatATotalLeavesOut) {
  Desktop desktop;
  desktop.shop.is_second_huge = true;
  ScreenView& view = list_bills(desktop);
  const auto ground = [&](int row) {
    return grid(view).model()->index(row, 3).data(Qt::BackgroundRole).value<QColor>();
  };
  EXPECT_EQ(cell(view, 1, 5), "0.00");
  EXPECT_EQ(child<QLineEdit>(view, "tTotalAmount").text(), "4.00");
  EXPECT_NE(ground(1), ground(0));
  EXPECT_NE(ground(1), ground(2));
  QLabel& note = child<QLabel>(view, "note");
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(note.text(),
            "1 row has an amount too wide for the list, which counts as 0 in the totals. TOTAL "
            "AMOUNT lacks 250000.00. For the whole amounts take MONTHLY CASH SALES REPORT and "
            "MONTHLY CREDIT SALES REPORT.");
  desktop.shop.is_second_huge = false;
  QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton);
  EXPECT_EQ(child<QLineEdit>(view, "tTotalAmount").text(), "6.00");
  EXPECT_FALSE(note.isVisible());
}

TEST(ReportScreen, AnEmptyListSaysWhyAndKeepsItsHeadings) {
  Desktop desktop;
  desktop.shop.bills = 0;
  ScreenView& view = desktop.open("frmmonthlySR");
  QLabel& words = child<QLabel>(view, "emptyWords");
  EXPECT_FALSE(words.isVisible());
  const auto press_view = [&] {
    QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton);
  };
  desktop.box_of(press_view);
  EXPECT_TRUE(words.isVisible());
  EXPECT_EQ(words.text(), "Please Select The Counter No.");
  EXPECT_EQ(grid(view).model()->headerData(3, Qt::Horizontal).toString(), "AMOUNT");

  QTest::keyClicks(&counter(view), "ALL COUNTER");
  auto& last = child<DateField>(view, "DTP2");
  last.setFocus();
  QTest::keyClicks(&last, "010124");
  press_view();
  EXPECT_EQ(words.text(),
            "Nothing to list between 05/01/2024 and 01/01/2024: the first date is the later one.");
  EXPECT_EQ(last.accessibleDescription(), "before the first date");
  EXPECT_NE(last.palette().color(QPalette::Base), counter(view).palette().color(QPalette::Base));

  last.setFocus();
  QTest::keyClicks(&last, "050124");
  desktop.shop.bills = 2;
  press_view();
  EXPECT_FALSE(words.isVisible());
  EXPECT_EQ(last.accessibleDescription(), "");
}

TEST(ReportScreen, LongWorkTellsHowFarItIsAndEndsWithEscape) {
  Desktop desktop;
  ScreenView& view = list_bills(desktop);
  desktop.shop.is_slow = true;
  QString seen;
  QStatusBar& line = *desktop.frame().statusBar();
  auto& counted = child<QLineEdit>(view, "tCounter");
  counted.setReadOnly(false);
  QTimer::singleShot(700, &view, [&] {
    seen = line.currentMessage();
    EXPECT_FALSE(desktop.frame().close());
    QTest::keyClick(&counted, Qt::Key_9);  // waits
    EXPECT_NE(counted.text(), "9");
    QTest::keyClick(&counted, Qt::Key_Escape);
  });
  QElapsedTimer clock;
  clock.start();
  QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton);
  EXPECT_LT(clock.elapsed(), 3000);
  EXPECT_EQ(seen, "Reading for 0 s, 1234 rows.   Esc cancels.");
  EXPECT_EQ(line.currentMessage(), "Cancelled with Esc. Nothing has been stored.");
  EXPECT_EQ(child<QLabel>(view, "emptyWords").text(), "Cancelled with Esc.");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(desktop.view("frmDailyS_R"), &view);
  EXPECT_FALSE(desktop.ended);

  desktop.shop.is_slow = false;
  QTest::mouseClick(&child<QPushButton>(view, "cmdView"), Qt::LeftButton);
  EXPECT_EQ(grid(view).model()->rowCount(), 3);
}

TEST(ReportScreen, RefusesMoreRowsThanAGridHolds) {
  Desktop desktop;
  desktop.shop.bills = 40000;
  ScreenView& view = desktop.open("frmDailyS_R");
  QTest::keyClicks(&counter(view), "ALL COUNTER");
  const SeenBox box = desktop.box_of([&] { QTest::keyClick(&counter(view), Qt::Key_Return); });
  EXPECT_TRUE(box.text.contains("more than a grid can hold"));
  EXPECT_EQ(grid(view).model()->rowCount(), 1);
  EXPECT_EQ(cell(view, 0, 0), "");
  EXPECT_EQ(grid(view).model()->headerData(3, Qt::Horizontal).toString(), "AMOUNT");
}

}  // namespace tela::testing
