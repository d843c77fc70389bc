// The engine as its caller uses it, over layouts in a folder and a catalogue that is not there.
#include "platform/report/banded_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "report/fake_catalogue.h"
#include "report/layout_fixture.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string report_path = "D:\\Tela_Supermarket\\Report\\Bills.rpt";
const std::string bills_layout =
    "table Bills\ninclude \"head.inc\"\ndetail\nrow 5\ncell left \"{No}\"";

class Engine : public testing::Test {
 protected:
  Engine() {
    fs::remove_all(folder_);
    write("shipped/Bills.rpt", bills_layout);
    write("shipped/head.inc", "formula tit\npage_header\nrow 5\ncell left \"[{tit}]\"");
    catalogue_.rows = {{{"No", FieldType::whole_number}}, {{std::int64_t{7}}}};
  }
  ~Engine() override { fs::remove_all(folder_); }

  void write(const std::string& file, const std::string& text) const {
    fs::create_directories((folder_ / file).parent_path());
    std::ofstream(folder_ / file) << text;
  }

  std::unique_ptr<Report> open(const std::string& path = report_path) {
    BandedReportEngine engine({catalogue_.factory(),
                               [this](std::string_view shop_folder) {
                                 EXPECT_EQ(shop_folder, "D:\\Tela_Supermarket\\Report");
                                 return folder_ / "shop";
                               },
                               folder_ / "shipped",
                               [this](std::string_view line) { log_.emplace_back(line); }});
    return engine.open_report(path);
  }

  const fs::path folder_ =
      fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();
  FakeCatalogue catalogue_;
  std::vector<std::string> log_;
};

TEST_F(Engine, RunsTheQueryOfTheLoggedOnCatalogue) {
  const auto report = open();
  ASSERT_EQ(report->tables().size(), 1u);
  report->tables().front().set_logon_info({"", "TelaData", "sa", "secret"});
  for (ReportTable& table : report->tables()) table.set_location(table.location());
  report->set_query("SELECT * FROM Bills");
  report->set_formula("TIT", "\"TELA MINI \"");
  const auto document = report->run();
  EXPECT_THAT(catalogue_.opened, HasSubstr("Initial Catalog=TelaData"));
  EXPECT_THAT(catalogue_.queries, ElementsAre("SELECT * FROM Bills"));
  EXPECT_THAT(texts_of(*document, 1), ElementsAre("[TELA MINI ]", "7"));
  EXPECT_TRUE(log_.empty());
}

TEST_F(Engine, WithoutAQueryTheTablesLocationIsRead) {
  const auto report = open();
  report->tables().front().set_location("Copy_of_Bills");
  report->run();
  EXPECT_THAT(catalogue_.queries, ElementsAre("SELECT * FROM Copy_of_Bills"));
}

TEST_F(Engine, FormulasAreTextsInQuotes) {
  const auto report = open();
  for (const std::string bad : {"no quotes", "\"open", "\"", "\"one\" & \"two\"", ""}) {
    EXPECT_THROW(report->set_formula("tit", bad), ReportError) << bad;
  }
  EXPECT_THROW(report->set_formula("add", "\"address\""), ReportError);
  EXPECT_EQ(log_.size(), 6u);
  EXPECT_EQ(log_.back(), "Bills.rpt: there is no formula field 'add'");
}

TEST_F(Engine, TheShopsOwnFolderReplacesTheShippedLayouts) {
  write("shop/bills.RPT", "table Own\ninclude \"head.inc\"\ndetail\nrow 5\ncell left \"own {No}\"");
  EXPECT_THAT(texts_of(*open()->run(), 1), ElementsAre("[]", "own 7"));
  EXPECT_THROW(open("D:\\Tela_Supermarket\\Report\\Items.rpt"), ReportError);
  EXPECT_THAT(log_, ElementsAre("Items.rpt: there is no such layout file"));
}

TEST_F(Engine, FailuresGoToTheLogAndToTheCaller) {
  write("shipped/Bills.rpt", "table Bills\nbroken");
  EXPECT_THROW(open(), ReportError);
  write("shipped/Bills.rpt", "table Bills\ndetail\nrow 5\ncell left \"{Price}\"");
  EXPECT_THROW(open()->run(), ReportError);
  EXPECT_THROW(open("Bills.rpt"), ReportError);
  EXPECT_THAT(log_, ElementsAre("Bills.rpt:2: 'broken' is no statement",
                                "Bills.rpt:4: the query gives no column 'Price'",
                                "Bills.rpt: a report is opened by its whole path"));
}

}  // namespace
}  // namespace tela
