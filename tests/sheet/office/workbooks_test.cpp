// The workbooks that the tool makes.
#include <fstream>
#include <sstream>

#include "apps/tela_catalogue/commands/commands.h"
#include "report_framework/sheet_layouts.h"
#include "sheet/office/office_test.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;

class Workbooks : public OfficeTest {
 protected:
  fs::path drive() const { return folder_ / "D" / "Tela_Supermarket"; }

  std::ostringstream said_;
  Messages messages_{said_, false};
};

TEST_F(Workbooks, AreMadeEmptyAndNeverOverwritten) {
  fs::create_directories(drive());
  std::ofstream(drive() / "sgst.XLS") << "the shop's own";
  fs::create_symlink("/no/such/drive/HSN.xls", drive() / "HSN.xls");
  make_workbooks(paths_, "soffice", messages_);
  EXPECT_EQ(file_text(drive() / "sgst.XLS"), "the shop's own");
  EXPECT_TRUE(fs::is_symlink(drive() / "HSN.xls"));
  EXPECT_EQ(std::distance(fs::directory_iterator(drive()), fs::directory_iterator()), 8);
  for (const char* name : {"GSTR3", "GSTRI", "IGST", "Gst", "GST_TAX", "Products"}) {
    const std::string workbook = workbook_path(name);
    const auto compound_file = "\xD0\xCF\x11\xE0";  // what an .xls file begins with
    EXPECT_TRUE(file_text(file_of(workbook)).starts_with(compound_file)) << name;
  }
  const std::string workbook = workbook_path("Products");
  sheets()->add_sheet(workbook, {{"Code"}});
  EXPECT_EQ(read_back(workbook), "Sheet1:\n\nSheet2:\nCode\n");

  const auto before = fs::last_write_time(drive() / "Products.xls");
  make_workbooks(paths_, "soffice", messages_);
  EXPECT_TRUE(said_.str().ends_with("all workbooks are there already\n")) << said_.str();
  EXPECT_EQ(fs::last_write_time(drive() / "Products.xls"), before);
}

TEST_F(Workbooks, AreNotMadeWithoutLibreOffice) {
  EXPECT_EQ(error_of([&] { make_workbooks(paths_, "no-such-office", messages_); }),
            "LibreOffice is not installed.");
  EXPECT_FALSE(fs::exists(drive()));
}

}  // namespace
}  // namespace tela::testing
