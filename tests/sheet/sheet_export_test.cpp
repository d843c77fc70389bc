// The export as the user meets it: what is asked and told, in which order, and what becomes of the
// sheets.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "display/scripted/told_sheets.h"
#include "platform/sheet/csv_sheets.h"
#include "report_framework/sheet_export.h"
#include "screens/registry.h"
#include "shell/windows.h"
#include "support/temporary_folder.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using tela::testing::TemporaryFolder;

constexpr const char* kDone = "Exported to Excell Sucessfully";
constexpr const char* kCreate = "PLEASE CREATE D:\\Tela_Supermarket\\IGST.xls";

std::string file_text(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

Form purchases() {
  std::vector<Control> controls;
  controls.push_back(grid("MSHF", 8));
  controls.front().grid->SetTextMatrix(1, 0, "1");
  controls.front().grid->SetTextMatrix(1, 1, "29AAACR");
  return Form(std::move(controls));
}

class SheetExport : public ::testing::Test {
 protected:
  SheetExport() {
    fs::create_directories(folder_ / "D" / "Tela_Supermarket");
    platform_.sheets =
        tell_sheets(make_csv_sheets(Paths(folder_.path()), folder_ / "out" / "sheets"), display_);
    app_.ShopName = "THE SHOP";
  }

  void put_workbook() { std::ofstream(workbook_) << "as it was"; }

  fs::path sheet(const std::string& name) const { return folder_ / "out" / "sheets" / name; }

  // What the user sees: the texts of the boxes, and the sheets that are told.
  std::vector<std::string> run(const SheetLayout& layout) {
    events_.clear();
    export_sheet(app_, purchases(), layout);
    std::vector<std::string> seen;
    for (const Json& event : events_)
      seen.push_back(event.contains("message") ? event["message"]["text"].get<std::string>()
                                               : event.dump());
    return seen;
  }

  TemporaryFolder folder_;
  fs::path workbook_ = folder_ / "D" / "Tela_Supermarket" / "igst.XLS";
  std::vector<Json> events_;
  ScriptedDisplay display_{[this](const Json& event) { events_.push_back(event); }};
  Platform platform_;
  Windows windows_{all_screens()};
  AppState app_{platform_, display_, windows_};
};

TEST_F(SheetExport, AddsASheetForEachExportAndTellsOfIt) {
  put_workbook();
  const std::string told = R"({"sheet":{"workbook":"IGST","rows":2,"cols":8}})";
  const std::vector<std::string> seen = {told, kDone};
  EXPECT_EQ(run(sheet_layouts::frmIgstPurchase()), seen);
  EXPECT_EQ(events_[1]["message"]["icon"], "information");
  EXPECT_EQ(events_[1]["message"]["title"], "THE SHOP");
  EXPECT_EQ(run(sheet_layouts::frmIgstPurchase()), seen);
  EXPECT_EQ(file_text(sheet("IGST-1.csv")), file_text(sheet("IGST-2.csv")));
  EXPECT_EQ(file_text(sheet("IGST-2.csv")),
            "S.No.,GST No,Bill No,Bill Date,VALUE,TAXABLE,IGST,SUPPLIER NAME\r\n"
            "1,29AAACR,,,,,,\r\n");
  EXPECT_EQ(file_text(workbook_), "as it was");
}

TEST_F(SheetExport, WithoutItsWorkbookTellsTheFailureAlone) {
  EXPECT_EQ(run(sheet_layouts::frmIgstPurchase()), std::vector<std::string>{kCreate});
  EXPECT_EQ(events_[0]["message"]["icon"], "information");
  EXPECT_FALSE(fs::exists(sheet("IGST-1.csv")));
  fs::create_directory(workbook_);  // a folder is no workbook
  EXPECT_EQ(run(sheet_layouts::frmIgstPurchase()), std::vector<std::string>{kCreate});
}

TEST_F(SheetExport, WhatCannotBeWrittenEndsInTheFailureMessage) {
  put_workbook();
  std::ofstream(folder_ / "out") << "a file where the folder should be";
  EXPECT_EQ(run(sheet_layouts::frmIgstPurchase()), std::vector<std::string>{kCreate});
  platform_.sheets.reset();
  EXPECT_EQ(run(sheet_layouts::frmIgstPurchase()), std::vector<std::string>{kCreate});
}

TEST_F(SheetExport, AsksFirstWhereTheLayoutHasAQuestion) {
  SheetLayout layout = sheet_layouts::frmIgstPurchase();
  const SheetLayout stock = sheet_layouts::frmStockZero();
  layout.question = stock.question;
  layout.success = stock.success;
  const std::string question = "EXPORT TO EXCEL THIS LIST  - (OK To EXPORT, Cancel To EXIT) ";
  EXPECT_EQ(run(layout), std::vector<std::string>{question});
  EXPECT_EQ(events_[0]["message"]["buttons"], "okcancel");
  put_workbook();
  display_.queue_answer(Answer::ok);
  const auto seen = run(layout);
  ASSERT_EQ(seen.size(), 3U);
  EXPECT_EQ(seen[2], "Records Exported Sucessfully");
}

}  // namespace
}  // namespace tela
