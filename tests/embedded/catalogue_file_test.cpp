// The catalogue as a file: filled, read through, chosen by name.
#include <gmock/gmock.h>

#include <fstream>

#include "embedded/shop.h"
#include "platform/catalogue/catalogue_client.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Row = std::vector<Value>;

const Date day{std::chrono::year(2024), std::chrono::January, std::chrono::day(5)};
const std::vector<std::string> all_columns = {"BillNo", "BillDate", "BillTime", "iName", "Qty"};

Row bill(std::int64_t number, const char* name) {
  return {number, day, TimeOfDay{9, 5, 0}, std::string(name), 2.5};
}

TEST(CatalogueFileTest, TellsItsTablesAndColumns) {
  const Shop shop;
  const EmbeddedCatalogue catalogue(shop.file);
  EXPECT_THAT(catalogue.table_names(), ElementsAre("Sales", "SalesPrint"));
  const tsql::TableInfo* sales = catalogue.find_table("SALES");
  ASSERT_NE(sales, nullptr);
  EXPECT_EQ(sales->name, "Sales");
  ASSERT_EQ(sales->columns.size(), 5u);
  EXPECT_EQ(sales->columns[1].type.kind, tsql::TypeKind::date);
  EXPECT_EQ(sales->columns[3].type.length, 20);
  EXPECT_EQ(catalogue.find_table("nothing"), nullptr);
}

TEST(CatalogueFileTest, BulkRowsArriveAsTheyWere) {
  const Shop shop;
  EmbeddedCatalogue catalogue(shop.file);
  BulkInserter whole = catalogue.inserter("sales", all_columns);
  BulkInserter part = catalogue.inserter("sales", std::vector<std::string>{"QTY", "billno"});
  catalogue.connection().begin_trans();
  whole.add(bill(1, "Amma's rice"));
  part.add(Row{std::int64_t{3}, std::int64_t{2}});
  catalogue.connection().commit_trans();
  const std::vector<Row> expected = {bill(1, "Amma's rice"),
                                     {std::int64_t{2}, Value(), Value(), Value(), 3.0}};
  EXPECT_EQ(rows_of(catalogue, "Sales"), expected);
  // The same values as a statement sees them.
  EXPECT_EQ(catalogue.connection().execute("select * from Sales").rows, expected);
}

TEST(CatalogueFileTest, ABulkRowThatDoesNotFitIsRefused) {
  const Shop shop;
  EmbeddedCatalogue catalogue(shop.file);
  EXPECT_THROW(catalogue.inserter("nothing", all_columns), DatabaseError);
  EXPECT_THROW(catalogue.inserter("Sales", std::vector<std::string>{"iNam"}), DatabaseError);
  BulkInserter sales = catalogue.inserter("Sales", all_columns);
  EXPECT_THROW(sales.add(bill(1, "outside a transaction")), DatabaseError);
  catalogue.connection().begin_trans();
  const Row bad[] = {
      {std::int64_t{1}},
      bill(1, "a name that is far too long for it"),
      {1.5, day, Value(), Value(), Value()},
      {Value(), std::string("2024-01-05"), Value(), Value(), Value()},
      {Value(), Value(), day, Value(), Value()},
      {Value(), Value(), Value(), std::int64_t{1}, Value()},
      {Value(), Value(), Value(), Value(), std::string("1")},
  };
  for (const Row& row : bad) EXPECT_THROW(sales.add(row), DatabaseError);
  sales.add(bill(2, "blanks may go        "));
  catalogue.connection().commit_trans();
  EXPECT_THAT(rows_of(catalogue, "Sales"), ElementsAre(bill(2, "blanks may go       ")));
}

TEST(CatalogueFileTest, AFilledFileIsAnOrdinaryCatalogue) {
  const Shop shop;
  const fs::path file = shop.folder / "filled.db";
  const std::string_view scripts[] = {"create table Sales (BillNo int)"};
  create_embedded_catalogue(file, scripts, [](EmbeddedCatalogue& made) {
    BulkInserter sales = made.inserter("Sales", std::vector<std::string>{"BillNo"});
    made.connection().begin_trans();
    for (std::int64_t i = 0; i < 5000; ++i) sales.add(Row{i});
    made.connection().commit_trans();
    made.run_script("create index SalesByNumber on Sales (BillNo)");
  });
  {
    const EmbeddedCatalogue filled(file);
    EmbeddedCatalogue(file).connection().execute("delete from Sales where BillNo<10");
    EXPECT_EQ(rows_of(filled, "Sales").size(), 4990u);
    EXPECT_THAT(filled.integrity_check(), ::testing::IsEmpty());
  }
  EXPECT_FALSE(fs::exists(file.string() + "-wal"));
}

TEST(CatalogueFileTest, AValueThatIsNoDayIsTold) {
  const Shop shop;
  OtherProgram till(shop.file);
  ASSERT_EQ(till.run("INSERT INTO Sales(BillNo,BillDate) VALUES(1,20240231)"), SQLITE_OK);
  try {
    shop.connect()->execute("select BillDate from Sales");
    FAIL() << "The 31st of February was read.";
  } catch (const DatabaseError& error) {
    EXPECT_THAT(error.what(), HasSubstr("20240231"));
  }
}

TEST(CatalogueFileTest, ProceduresStayInTheFile) {
  const Shop shop;
  shop.connect()->execute(
      "create procedure spNames @FromDate date as select iName,Qty from Sales where "
      "BillDate>=@FromDate");
  const auto connection = shop.connect();
  connection->execute("insert into Sales values(1,'04/Jan/2024',null,'rice',1)");
  connection->execute("insert into Sales values(1,'05/Jan/2024',null,'oil',2)");
  connection->execute("insert into SalesPrint execute spNames '05/Jan/2024'");
  EXPECT_THAT(connection->execute("select * from SalesPrint").rows,
              ElementsAre(Row{std::string("oil"), 2.0}));
  EXPECT_THROW(connection->execute("create procedure SPNAMES as select 1"), DatabaseError);
}

TEST(CatalogueClientTest, TheRootDecidesWhichEngineHoldsTheCatalogue) {
  const Shop shop;
  const auto connection = make_catalogue_factory(Paths(shop.folder.path()))();
  EXPECT_THROW(connection->execute("select * from Sales"), DatabaseError);
  EXPECT_THROW(connection->open("Provider=SQLOLEDB.1"), DatabaseError);
  EXPECT_THROW(connection->open("Initial Catalog=Other"), DatabaseError);
  connection->set_command_timeout(std::chrono::seconds(5));
  connection->open("Provider=SQLOLEDB.1;initial catalog=TelaData");
  EXPECT_EQ(connection->execute("select * from Sales").fields.size(), 5u);

  std::ofstream(shop.folder / "TelaData.odbc") << "DRIVER=/nowhere/libnone.so;SERVER=shop;PWD=zub";
  const auto to_server = make_catalogue_factory(Paths(shop.folder.path()))();
  const auto failure = [&]() -> std::string {
    try {
      to_server->open("Initial Catalog=TelaData");
    } catch (const DatabaseError& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_THAT(failure(), HasSubstr("TelaData.odbc"));
  fs::permissions(shop.folder / "TelaData.odbc", fs::perms(0600));
  EXPECT_THAT(failure(), ::testing::AllOf(HasSubstr("nowhere"), ::testing::Not(HasSubstr("zub"))));
}

}  // namespace
}  // namespace tela::testing
