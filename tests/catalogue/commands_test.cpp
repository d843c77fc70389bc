// The tool's commands, as a shop's administrator uses them: on files in a folder of their own,
// through the real program where the exit code matters.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "apps/tela_catalogue/commands/commands.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::string text_of(const fs::path& file) {
  std::ifstream input(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(input), {}};
}

class CatalogueTool : public testing::Test {
 protected:
  CatalogueTool() {
    std::string name = (fs::temp_directory_path() / "tela_tool.XXXXXX").string();
    folder_ = mkdtemp(name.data());
    catalogue_ = folder_ / "TelaData.db";
  }
  ~CatalogueTool() override { fs::remove_all(folder_); }

  void create() { create_catalogue(catalogue_, messages_); }

  void create_demo(std::uint64_t seed = 1) {
    using namespace std::chrono_literals;
    make_demo_catalogue(catalogue_, {5, 30, 120, seed, {2024y, std::chrono::January, 5d}},
                        messages_);
  }

  fs::path write_file(std::string_view text) {
    const fs::path file = folder_ / "rows.csv";
    std::ofstream(file, std::ios::binary) << text;
    return file;
  }

  std::string exported(std::string_view table) {
    const fs::path file = folder_ / "exported.csv";
    export_table(catalogue_, table, file, messages_);
    return text_of(file);
  }

  // What the import of a text into a table says; the text of the failure last.
  std::string import(std::string_view table, std::string_view text) {
    said_.str("");
    try {
      import_table(catalogue_, table, write_file(text), messages_);
    } catch (const std::exception& error) {
      said_ << error.what() << '\n';
    }
    return said_.str();
  }

  void execute(std::string_view statement) {
    EmbeddedCatalogue(catalogue_).connection().execute(statement);
  }

  std::string checked() {
    said_.str("");
    said_ << (check_catalogue(catalogue_, messages_) ? "exit 0\n" : "exit 1\n");
    return said_.str();
  }

  // Runs the program itself on this folder; its exit code.
  int run(const std::string& words) {
    const std::string command = "'" TELA_CATALOGUE_PROGRAM "' --root '" + folder_.string() + "' " +
                                words + " 2>'" + (folder_ / "said.txt").string() + "'";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string said_by_program() { return text_of(folder_ / "said.txt"); }

  fs::path folder_;
  fs::path catalogue_;
  std::ostringstream said_;
  Messages messages_{said_, false};
};

TEST_F(CatalogueTool, CreatesACatalogueThatIsSoundAndReady) {
  create();
  EXPECT_EQ(checked(), catalogue_.string() + " is sound\nexit 0\n");
  EXPECT_EQ(exported("bill_no"), "billno\n0\n");
  // The staging table that is filled by "select *" must keep the shape of its source.
  EXPECT_EQ(exported("GrnPrint"), exported("Purchase"));
  // An item without a cost earns 100 percent, one that came back counts with the sign turned.
  execute(
      "insert into Sales (iCode,iName,BillDate,mrp,SaleRate,PurRate,Qty) values"
      " (1,'Free','2024-01-05',10,10,0,2),(2,'Back','2024-01-05',12,12,10,-1),"
      "(3,'Sold','2024-01-05',12,12,10,3),(4,'Old','2024-01-04',12,12,10,3)");
  execute("insert into ProfitPercent execute spGetProfitNew '05/Jan/2024','05/Jan/2024'");
  EXPECT_EQ(exported("ProfitPercent"),
            "iCode,iName,Mrp,SaleRate,PurRate,Qty,SaleTotal,PurTotal,ProfitTotal,ProfitPer\n"
            "1,Free,10,10,0,2,20,0,20,100\n"
            "2,Back,12,12,10,-1,-12,-10,-2,-20\n"
            "3,Sold,12,12,10,3,36,30,6,20\n");
}

TEST_F(CatalogueTool, NeverOverwritesACatalogue) {
  create();
  const std::string before = text_of(catalogue_);
  EXPECT_THROW(create(), std::runtime_error);
  EXPECT_THROW(create_demo(), std::runtime_error);
  EXPECT_EQ(text_of(catalogue_), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST_F(CatalogueTool, OfSeveralAtOnceOneMakesTheCatalogue) {
  const std::string tool = "'" TELA_CATALOGUE_PROGRAM "' --root '" + folder_.string() + "' ";
  const std::string command = "for i in 1 2 3 4; do " + tool + "create & " + tool +
                              "demo --days 2 --bills-per-day 5 --items 10 & done 2>'" +
                              (folder_ / "said.txt").string() + "'; wait";
  ASSERT_EQ(std::system(command.c_str()), 0);
  const std::string said = said_by_program();
  EXPECT_EQ(said.find("created"), said.rfind("created")) << said;
  EXPECT_THAT(said, HasSubstr("created"));
  EXPECT_THAT(said, HasSubstr("is there already and is left as it is"));
  EXPECT_THAT(checked(), HasSubstr("is sound"));
  fs::remove(folder_ / "said.txt");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST_F(CatalogueTool, ADemoIsSoundAndTheSameEachTime) {
  create_demo();
  EXPECT_EQ(checked(), catalogue_.string() + " is sound\nexit 0\n");
  EXPECT_EQ(exported("bill_no"), "billno\n150\n");
  const std::string sales = exported("Sales");
  const std::string items = exported("Items");
  fs::remove(catalogue_);
  create_demo();
  EXPECT_EQ(exported("Sales"), sales);
  EXPECT_EQ(exported("Items"), items);
}

TEST_F(CatalogueTool, ImportsWhatItExported) {
  create_demo();
  const std::string headers = exported("SalesTemp");
  execute("delete from SalesTemp");
  EXPECT_EQ(import("salestemp", headers), "imported 150 rows into salestemp\n");
  EXPECT_EQ(exported("SalesTemp"), headers);

  const std::string of_one_column = "billno\n\n7\n";
  execute("delete from bill_no");
  EXPECT_EQ(import("bill_no", of_one_column), "imported 2 rows into bill_no\n");
  EXPECT_EQ(exported("bill_no"), of_one_column);
}

TEST_F(CatalogueTool, ImportTakesColumnsInAnyOrderAndCaseAndAppends) {
  create();
  EXPECT_EQ(import("GiftPoints", "giftNAME,GIFTCODE\n\"Farmer's \"\"Gold\"\"\",7\n,8\n\"\",9\n"),
            "imported 3 rows into GiftPoints\n");
  EXPECT_EQ(import("GiftPoints", " GiftCode ,NoOfPoints\r\n10,2.5\r\n"),
            "imported 1 rows into GiftPoints\n");
  EXPECT_EQ(exported("GiftPoints"),
            "GiftCode,GiftName,NoOfPoints\n7,\"Farmer's \"\"Gold\"\"\",\n8,,\n9,\"\",\n10,,2.5\n");
}

TEST_F(CatalogueTool, ABadImportNamesEveryBadLineAndAddsNothing) {
  create();
  EXPECT_EQ(import("StockAdjust",
                   "iCode,iName,AdjustQty,AdjustDate\n"
                   "1,Rice,1.5,2024-01-05\n"
                   "2,Rice,much,2024-01-32\n"
                   "3,Rice,1\n"
                   "4,\"" +
                       std::string(61, 'x') +
                       "\",,\n"
                       "5,\"Two\nlines\",1,2024-01-05\n"
                       "1000000000000000000,Rice,1,2024-01-05\n"
                       "6,Ri\"ce,1,2024-01-05\n"),
            "line 3: AdjustQty: 'much' is not a number; "
            "AdjustDate: '2024-01-32' is not a date of the form yyyy-mm-dd\n"
            "line 4: 3 fields instead of 4\n"
            "line 5: iName: the text has 61 characters, at most 60 fit\n"
            "line 8: iCode: '1000000000000000000' is out of range\n"
            "line 9: a quote stands inside an unquoted field\n"
            "5 lines do not fit; nothing is imported\n");
  EXPECT_EQ(exported("StockAdjust"), "iCode,iName,OpStock,AdjustQty,ClStock,AdjustDate\n");
}

TEST_F(CatalogueTool, ARowThatTheCatalogueRefusesUndoesTheWholeImport) {
  create();
  EXPECT_THAT(import("GiftPoints", "GiftCode\n1\n2\n1\n"), HasSubstr("GiftCode"));
  EXPECT_EQ(exported("GiftPoints"), "GiftCode,GiftName,NoOfPoints\n");
}

TEST_F(CatalogueTool, ImportRefusesAHeaderThatDoesNotFitTheTable) {
  create();
  EXPECT_EQ(import("GiftPoints", "GiftCode,Colour\n"),
            "line 1: GiftPoints has no column 'Colour'\n");
  EXPECT_EQ(import("GiftPoints", "GiftCode,giftcode\n"),
            "line 1: column GiftCode is named twice\n");
  EXPECT_THAT(import("GiftPoints", ""), HasSubstr("has no header line"));
  EXPECT_EQ(import("Gifts", "GiftCode\n"), "the catalogue has no table 'Gifts'\n");
}

TEST_F(CatalogueTool, CheckFindsWhatLooksWrongInTheData) {
  create_demo();
  struct Plant {
    const char* statement;
    const char* finding;
  };
  const Plant plants[] = {
      {"update SalesTemp set NetAmount=NetAmount+1,Total=Total+1 where BillNo=3",
       "warning: bills whose NetAmount is not the sum of their lines: 2 (3, 11)\n"},
      {"update SalesTemp set Total=Total-2 where BillNo=4",
       "warning: bills whose Total is not NetAmount less DiscAmount: 1 (4)\n"},
      {"update SalesTemp set CashPaid=-5 where BillNo in (5,6)",
       "warning: bills with a negative payment: 2 (5, 6)\n"},
      {"update Sales set BillDate='2023-12-31' where BillNo=7",
       "warning: bills with a line of another date or counter: 1 (7)\n"},
      {"update SalesTemp set BillType='LOAN' where BillNo=8",
       "warning: bills with an unknown BillType: 1 (8 LOAN)\n"},
      {"delete from SalesTemp where BillNo=9",
       "warning: bills whose lines have no header: 1 (9)\n"},
      {"delete from Sales where BillNo=10", "warning: bills without lines: 1 (10)\n"},
      {"insert into SalesTemp select * from SalesTemp where BillNo=11",
       "warning: bill numbers used more than once: 1 (11)\n"},
      {"update Sales set Qty=0 where BillNo=12",
       "bills with a line of no quantity, which the profit reports cannot divide by: 1 (12)"},
      {"update Sales set iIGst=7 where BillNo=13",
       "warning: GST rates of Sales that the tax reports do not know: 1 (7)\n"},
      {"update Supplier set TaxType='VAT' where Scode=1",
       "warning: suppliers with an unknown TaxType: 1 (1 VAT)\n"},
      {"delete from Items where iCode=1001",
       "warning: sold items that are missing in Items: 1 (1001)\n"},
      {"delete from Purchase where GrnNo=1", "warning: purchases without lines: 1 (1)\n"},
      {"delete from Supplier where Scode=2", "items of a supplier that is missing in Supplier"},
  };
  execute("update Sales set iCode=1001 where BillNo=1");
  for (const Plant& plant : plants) execute(plant.statement);
  const std::string told = checked();
  for (const Plant& plant : plants) EXPECT_THAT(told, HasSubstr(plant.finding)) << plant.statement;
  EXPECT_THAT(told, HasSubstr("exit 0")) << "oddities in the data are no damage";
}

TEST_F(CatalogueTool, CheckTellsWhatACatalogueLacks) {
  create();
  execute("drop table GiftPoints");
  execute("drop table CrPath");
  execute("create table CrPath (Path varchar(10))");
  EXPECT_EQ(checked(),
            "damage: column CrPath.CrReportPath is missing\n"
            "damage: table GiftPoints is missing\nexit 1\n");
  fs::remove(catalogue_);
  create();
  execute("delete from PrinterSet");
  EXPECT_EQ(checked(), "damage: PrinterSet does not hold exactly one row\nexit 1\n");
}

TEST_F(CatalogueTool, CheckFindsADamagedFile) {
  create_demo();
  // Blanks over some pages in the middle of the file.
  std::fstream file(catalogue_, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(fs::file_size(catalogue_)) / 2);
  file << std::string(40'000, ' ');
  file.close();
  EXPECT_EQ(run("check"), 1) << said_by_program();
}

TEST_F(CatalogueTool, ABackupHoldsWhatIsCommittedAndNeverReplacesAFile) {
  create();
  execute("insert into Items(iName) values('before')");
  EmbeddedCatalogue till(catalogue_);
  till.connection().begin_trans();
  till.connection().execute("insert into Items(iName) values('not yet')");
  const fs::path copy = folder_ / "copy.db";
  const std::string command = "backup '" + copy.string() + "'";
  EXPECT_EQ(run(command), 0) << said_by_program();
  till.connection().commit_trans();
  EXPECT_EQ(run(command), 1);
  EXPECT_THAT(said_by_program(), HasSubstr("is there already"));
  EmbeddedCatalogue backup(copy);
  EXPECT_EQ(backup.integrity_check(), std::vector<std::string>());
  const auto rows = backup.connection().execute("select iName from Items").rows;
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(std::get<std::string>(rows[0][0]), "before");
  EXPECT_EQ(run("backup '" + (folder_ / "no" / "copy.db").string() + "'"), 1);
}

TEST_F(CatalogueTool, TheProgramTellsSuccessFailureAndMisuseApart) {
  EXPECT_EQ(run("check"), 1) << "there is no catalogue yet";
  EXPECT_THAT(said_by_program(), HasSubstr("TelaData.db"));
  EXPECT_EQ(run("demo --days 2 --bills-per-day 5 --items 10 --seed 3 --to 05/01/2024"), 0)
      << said_by_program();
  EXPECT_EQ(run("create"), 1);
  EXPECT_EQ(run("--help >/dev/null"), 0);
  EXPECT_EQ(run("export Sales '" + (folder_ / "no" / "such" / "folder.csv").string() + "'"), 1);
  EXPECT_EQ(run("export Sales /dev/full"), 1) << "a full disk";
  EXPECT_THAT(said_by_program(), HasSubstr("/dev/full cannot be written"));
  const char* const misuses[] = {"",
                                 "polish",
                                 "create now",
                                 "demo --days",
                                 "demo --days 0",
                                 "demo --days 3.5",
                                 "demo --colour red",
                                 "demo --to 31/02/2024",
                                 "import Sales",
                                 "backup"};
  for (const char* misuse : misuses) {
    EXPECT_EQ(run(misuse), 2) << misuse;
    EXPECT_THAT(said_by_program(), HasSubstr("usage: tela_catalogue")) << misuse;
  }
}

}  // namespace
}  // namespace tela
