// A chart as a shopkeeper uses it: draws it, changes its type, reads a figure, saves the picture.
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "display_qt/desktop_fixture.h"
#include "platform/chart_qt/chart_view.h"

namespace tela::testing {

namespace {

// The pixels of a row's colour in a picture.
int pixels_of_row(const QImage& picture, int row) {
  int pixels = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      pixels += picture.pixel(x, y) == row_colour(row).rgb();
  return pixels;
}

// Runs `action` and works the file dialog that must come of it.
void with_file_dialog(const std::function<void()>& action,
                      const std::function<void(QFileDialog&)>& work) {
  int dialogs = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    ++dialogs;
    work(*dialog);
  });
  watch.start(1);
  action();
  EXPECT_EQ(dialogs, 1);
}

class ChartScreenWindow : public ::testing::Test {
 protected:
  Desktop desktop;
  ScreenView& view = desktop.open("frmBarChart");
  ChartView& chart = child<ChartView>(view, "MSChart1");

  void press(const char* button) {
    QTest::mouseClick(&child<QPushButton>(view, button), Qt::LeftButton);
  }
  QImage picture() { return chart.grab().toImage(); }
};

}  // namespace

TEST_F(ChartScreenWindow, DrawsWhatViewFindsAndChangesItsTypeWithTheCombo) {
  EXPECT_EQ(pixels_of_row(picture(), 0), 0);
  press("cmdView");
  const QImage bars = picture();
  // The months are 1 lakh, 2 lakh and 50,000.
  EXPECT_NEAR(pixels_of_row(bars, 1), 2 * pixels_of_row(bars, 0), pixels_of_row(bars, 0) / 10);
  EXPECT_GT(pixels_of_row(bars, 2), 1000);

  auto& type = child<QComboBox>(view, "Combo1");
  type.setFocus();
  QTest::keyClick(&type, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&type, "2dPie");
  EXPECT_NE(picture(), bars);
  EXPECT_NEAR(pixels_of_row(picture(), 1), 4 * pixels_of_row(picture(), 2),
              pixels_of_row(picture(), 2) / 4);
}

TEST_F(ChartScreenWindow, FillsTheWindowThatItHas) {
  press("cmdView");
  const QSize before = chart.size();
  view.parentWidget()->resize(view.parentWidget()->size() + QSize(90, 40));
  EXPECT_TRUE(QTest::qWaitFor([&] { return chart.size() != before; }));
  EXPECT_EQ(chart.scene()->sceneRect().size().toSize(), chart.viewport()->size());
}

TEST_F(ChartScreenWindow, SavesTheChartAsItIsSeen) {
  press("cmdView");
  const QTemporaryDir folder;
  with_file_dialog([&] { press("cmdSave"); },
                   [&](QFileDialog& dialog) {
                     EXPECT_EQ(dialog.nameFilters(), QStringList("Pictures (*.bmp)"));
                     dialog.setDirectory(folder.path());
                     dialog.selectFile("may");  // gets its extension from the dialog
                     static_cast<QDialog&>(dialog).accept();
                   });
  const QImage saved(folder.filePath("may.bmp"), "bmp");
  EXPECT_EQ(saved.size(), chart.viewport()->size());
  EXPECT_NEAR(pixels_of_row(saved, 1), 2 * pixels_of_row(saved, 0), pixels_of_row(saved, 0) / 10);
}

TEST_F(ChartScreenWindow, SaysInAPlainBoxThatSavingWasCancelled) {
  const SeenBox box = desktop.box_of([&] {
    with_file_dialog([&] { press("cmdSave"); }, [](QFileDialog& dialog) { dialog.reject(); });
  });
  EXPECT_EQ(box.text, "Cancel was selected.");
  EXPECT_EQ(box.title, " ");
  EXPECT_EQ(box.icon, QMessageBox::NoIcon);
}

TEST(CostChartWindow, ShowsALongNameWholeAndFromItsStart) {
  Desktop desktop;
  ScreenView& view = desktop.open("frmBarChartCost");
  auto& name = child<QLineEdit>(view, "Text2");
  const int before = name.width();
  QTest::keyClicks(&child<QLineEdit>(view, "Text1"), "7");
  EXPECT_EQ(name.text(), "BASMATI RICE OF THE FIRST CROP");
  EXPECT_TRUE(name.isReadOnly());
  EXPECT_EQ(name.cursorPosition(), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return name.width() > before; }));
  EXPECT_GE(name.width(), name.fontMetrics().horizontalAdvance(name.text()));
}

}  // namespace tela::testing
