// Reports as PDF files and in the viewer, on a desktop without a screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QPrinter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "platform/report/banded_engine.h"
#include "platform/report_qt/paged_output.h"
#include "platform/report_qt/report_viewer.h"
#include "report/shipped_report.h"
#include "source_folder/source_folder.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::shared_ptr<const ReportDocument> run_report(const std::string& file, int records) {
  FakeCatalogue catalogue;
  return open_shipped(file, catalogue, records)->run();
}

/// What a program prints.
std::string output_of(const std::string& command) {
  std::string output;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::array<char, 4096> buffer;
  while (std::fgets(buffer.data(), buffer.size(), pipe.get()) != nullptr) output += buffer.data();
  return output;
}

class Pdf : public testing::Test {
 protected:
  ~Pdf() override { fs::remove(path_); }

  std::string text() const { return output_of("pdftotext -layout " + path_ + " -"); }
  std::string info() const { return output_of("pdfinfo " + path_); }

  /// Each test has a file of its own, since they may run side by side.
  const std::string path_ =
      testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + ".pdf";
};

TEST_F(Pdf, HoldsAllPagesAndTexts) {
  const auto document = run_report("MonthlyProfitPri.rpt", 100);
  write_pdf(*document, path_);
  EXPECT_THAT(info(),
              HasSubstr("Pages:           " + std::to_string(document->page_count()) + "\n"));
  EXPECT_THAT(info(), HasSubstr("842 x 595 pts (A4)"));
  const std::string all = text();
  const std::string last_page = std::to_string(document->page_count());
  EXPECT_THAT(all, HasSubstr("TELA MINI SUPER MARKET"));
  EXPECT_THAT(all, HasSubstr("O'Neil & Sons no. 99"));
  EXPECT_THAT(all, HasSubstr("Page " + last_page + " of " + last_page));
}

TEST_F(Pdf, HeadingsAreWholeInEveryLayout) {
  for (const fs::directory_entry& file : fs::directory_iterator(source_folder() / "reports")) {
    if (file.path().extension() != ".rpt") continue;
    const auto document = run_report(file.path().filename().string(), 3);
    write_pdf(*document, path_);
    const std::string all = text();
    for (const PageText& item : document->page(1).texts) {
      if (!item.style.bold) continue;
      EXPECT_THAT(all, HasSubstr(item.text)) << file.path();
    }
  }
}

TEST_F(Pdf, LongTextIsShortenedAndFiguresAreNot) {
  FakeCatalogue catalogue;
  catalogue.rows = {{{"Name", FieldType::text}, {"Amount", FieldType::number}},
                    {{std::string(60, 'W'), 123456789012.25}}};
  const fs::path folder = fs::path(testing::TempDir()) / "report_qt_layouts";
  fs::create_directories(folder);
  std::ofstream(folder / "Narrow.rpt") << "table T\ndetail\nrow 5\n"
                                          "cell left \"{Name}\" width 30\n"
                                          "cell right \"{Amount:0.00}\" at 31 width 8\n";
  BandedReportEngine engine(
      {catalogue.factory(), [&](std::string_view) { return folder; }, folder, {}});
  write_pdf(*engine.open_report("D:\\Report\\Narrow.rpt")->run(), path_);
  EXPECT_THAT(text(), HasSubstr("WWW\u2026"));
  EXPECT_THAT(text(), HasSubstr("123456789012.25"));
  fs::remove_all(folder);
}

TEST_F(Pdf, AFileThatCannotBeWrittenIsNamed) {
  const auto document = run_report("SalesReport.rpt", 1);
  try {
    write_pdf(*document, "/no/such/folder/report.pdf");
    FAIL() << "no error";
  } catch (const ReportError& error) {
    EXPECT_THAT(error.what(), HasSubstr("/no/such/folder/report.pdf"));
  }
}

TEST_F(Pdf, APrinterGetsThePagesAskedFor) {
  const auto document = run_report("SalesReport.rpt", 200);
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(path_));
  printer.setFullPage(true);
  set_paper(printer, *document);
  paint_pages(printer, *document, 2, 3);
  EXPECT_THAT(info(), HasSubstr("Pages:           2\n"));
  EXPECT_THAT(text(), HasSubstr("Page 3 of"));
}

class Viewer : public testing::Test {
 protected:
  Viewer() {
    viewer_.resize(1000, 700);
    viewer_.set_report(run_report("SalesReport.rpt", 200));
    viewer_.show();
    viewer_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&viewer_));
  }

  /// How many pixels of the viewer have this colour.
  int pixels(const QColor& colour) {
    const QImage picture = viewer_.grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
  }

  ReportViewer viewer_;
};

TEST_F(Viewer, OpensOnTheFirstPageAtNinetyPerCent) {
  EXPECT_EQ(viewer_.windowTitle(), "Report");
  EXPECT_EQ(viewer_.zoom(), 90);
  EXPECT_EQ(viewer_.current_page(), 1);
  EXPECT_GT(pixels(Qt::white), 100000);
  EXPECT_GT(pixels(Qt::black), 100);
}

TEST_F(Viewer, KeysTurnThePages) {
  const int pages = viewer_.report()->page_count();
  ASSERT_GE(pages, 3);
  const auto after = [&](Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(&viewer_, key, held);
    return viewer_.current_page();
  };
  EXPECT_EQ(after(Qt::Key_PageDown, Qt::ControlModifier), 2);
  EXPECT_EQ(after(Qt::Key_End), pages);
  EXPECT_EQ(after(Qt::Key_PageDown, Qt::ControlModifier), pages) << "no page is behind the last";
  EXPECT_EQ(after(Qt::Key_PageUp, Qt::ControlModifier), pages - 1);
  EXPECT_EQ(after(Qt::Key_Home), 1);

  const auto* bar = viewer_.findChild<QScrollArea*>()->verticalScrollBar();
  ASSERT_GT(bar->maximum(), 0) << "a page is higher than the window";
  EXPECT_EQ(after(Qt::Key_PageDown), 1);
  EXPECT_GT(bar->value(), 0) << "the next part of the page";
  while (bar->value() < bar->maximum()) EXPECT_EQ(after(Qt::Key_PageDown), 1);
  EXPECT_EQ(after(Qt::Key_PageDown), 2);
  EXPECT_EQ(bar->value(), 0) << "the next page begins at its top";
  EXPECT_EQ(after(Qt::Key_PageUp), 1);
  EXPECT_EQ(bar->value(), bar->maximum()) << "and the way back at its foot";
  viewer_.findChild<QSpinBox*>()->setValue(3);
  EXPECT_EQ(viewer_.current_page(), 3);
}

TEST_F(Viewer, SearchShowsThePlace) {
  EXPECT_TRUE(viewer_.find("Mobile pay"));
  EXPECT_EQ(viewer_.current_page(), 1);
  EXPECT_TRUE(viewer_.find("mobile PAY"));
  EXPECT_EQ(viewer_.current_page(), 1) << "another spelling is a new search";
  EXPECT_TRUE(viewer_.find("mobile PAY"));
  EXPECT_EQ(viewer_.current_page(), 2);
  EXPECT_GT(pixels(QColor(0xff, 0xc1, 0x4d)), 50) << "the place is marked";
  EXPECT_FALSE(viewer_.find("no such text"));
  EXPECT_EQ(viewer_.current_page(), 2);
}

TEST_F(Viewer, ZoomStepsAndFitsTheWidth) {
  QTest::keyClick(&viewer_, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(viewer_.zoom(), 100);
  QTest::keyClick(&viewer_, Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(viewer_.zoom(), 90);
  viewer_.fit_width();
  const int fitted = viewer_.zoom();
  EXPECT_GT(fitted, 100);
  viewer_.resize(700, 700);
  QApplication::processEvents();
  EXPECT_LT(viewer_.zoom(), fitted);
}

TEST_F(Viewer, WithoutAReportItIsEmptyAndItsButtonsAreOff) {
  viewer_.set_report(nullptr);
  EXPECT_EQ(viewer_.current_page(), 0);
  EXPECT_LT(pixels(Qt::white), 1000) << "no paper";
  EXPECT_FALSE(viewer_.find("Total"));
  QTest::keyClick(&viewer_, Qt::Key_PageDown);
  QTest::keyClick(&viewer_, Qt::Key_End);
  QTest::keyClick(&viewer_, Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(viewer_.current_page(), 0);
  viewer_.set_report(run_report("ProfitReport.rpt", 1));
  EXPECT_EQ(viewer_.current_page(), 1);
}

}  // namespace
}  // namespace tela

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
