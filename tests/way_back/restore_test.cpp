// The way back as a whole: a screen's own action runs on a shop of random rows, its rows are
// brought back, and every table holds what it held before.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "apps/tela_catalogue/commands/insert_text.h"
#include "apps/tela_catalogue/commands/kept_commands.h"
#include "platform/csv/csv_value.h"
#include "processes/child_process.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// Few values a type, so that many rows are alike and codes, numbers and days meet; one in eight is
/// null.
class RandomRows {
 public:
  explicit RandomRows(unsigned seed) : random_(seed) {}

  Value operator()(FieldType type) {
    if (below(8) == 0) return {};
    switch (type) {
      case FieldType::whole_number:
        return static_cast<std::int64_t>(1 + below(5));
      case FieldType::number:
        return numbers[below(std::size(numbers))];
      case FieldType::date:
        return std::chrono::year(2024) / 1 / static_cast<int>(2 + below(6));
      case FieldType::time:
        return TimeOfDay{static_cast<int>(below(24)), static_cast<int>(below(60)), 59};
      case FieldType::text:
        break;
    }
    return texts[below(std::size(texts))];
  }

  /// Rows that are like this one: the same, the same to the catalogue but spelled otherwise, or
  /// another in one column.
  std::vector<std::vector<Value>> copies(const std::vector<Value>& row,
                                         const std::vector<Field>& fields) {
    std::vector<std::vector<Value>> all(below(3), row);
    for (std::vector<Value>& copy : all) {
      if (below(3) == 0)
        for (Value& value : copy)
          if (auto* text = std::get_if<std::string>(&value)) *text = respelled(*text);
      const std::size_t column = 1 + below(fields.size() - 1);
      if (below(2) == 0) copy[column] = (*this)(fields[column].type);
    }
    return all;
  }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  static std::string respelled(const std::string& text) {
    std::string other = text + ' ';
    std::ranges::transform(other, other.begin(), [](char letter) {
      return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return other;
  }

  static constexpr double numbers[] = {0,  1,    2.5,     5,         5,       12,
                                       18, -0.3, 1.0 / 3, 1e6 + .01, 74.0625, -133.68};
  // Spellings that are one text to the catalogue, what has to be quoted, and what looks like a
  // value.
  inline static const std::string texts[] = {
      "Rice", "RICE  ", "rice", "", "  ", "Amma's, \"best\"", "அரிசி", "1006", "null", "a\nb"};

  std::mt19937 random_;
};

constexpr const char* filled_tables[] = {
    "SalesTemp",    "Sales",           "wsalestemp",      "wsales",
    "salesreturn",  "salesreturntemp", "stockledger",     "BillRateChanged",
    "Items",        "OptimumStock",    "StockAdjust",     "ProductEdit",
    "PurchaseTemp", "Purchase",        "SupplierCashPay", "Journal"};

/// A shop all of whose tables hold random rows. Only the numbers of wholesale bills are each used
/// once: their deletion reads the sum of the one header.
class RandomShop : public Shop {
 public:
  explicit RandomShop(unsigned seed) : random_(seed) {
    run("open frmDailyS_R\n");
    for (const char* table : filled_tables) fill(table);
    sql("update bill_no set billno=5");
    sql("insert into StockAdjust values (5,'RICE',1,-2,-1,'2024-01-03')");
  }

 private:
  void fill(const std::string& table) {
    Connection& con = *state().Con;
    const auto fields = con.execute("select * from " + table + " where 1=0").fields;
    std::vector<std::string> columns;
    for (const Field& field : fields) columns.push_back(field.name);
    InsertText insert(table, columns);
    for (int i = 0; i < 30; ++i) {
      std::vector<Value> row;
      for (const Field& field : fields) row.push_back(random_(field.type));
      const bool is_once = table == "wsalestemp";
      if (is_once) row[0] = std::int64_t{i};
      insert.add(row);
      if (is_once) continue;
      for (const auto& copy : random_.copies(row, fields)) insert.add(copy);
    }
    con.execute(insert.take());
  }

  RandomRows random_;
};

/// One action, and the tables that it writes.
struct Action {
  const char* screen;
  std::string script;
  const char* done;  ///< what it says at its end
  std::vector<std::string> tables;
};

const std::string period = "set DTP1 03/01/2024\nset DTP2 05/01/2024\n";

const Action actions[] = {
    {"StartDeleteBills",
     "",
     "ALL BILLS ARE DELETED",
     {"Sales", "SalesTemp", "bill_no", "salesreturn", "salesreturntemp", "stockledger"}},
    {"frmStockAdjustReport", period + "press Command1", "STOCK REPORT DELETED", {"StockAdjust"}},
    {"frmTotPurchaseReport",
     period + "set tGrnNo 3\npress cmdDelete",
     "Purchase Record Deleted",
     {"Journal", "Purchase", "PurchaseTemp", "SupplierCashPay"}},
    {"frmStockZero", "press cmdUpdate", "", {"Items"}},
    {"frmOptimumStock",
     period + "pick Combo1 ALL SUPPLIER\npress cmdView\npress cmdUpdate",
     "Records Updated",
     {"Items", "OptimumStock"}},
    {"frmGstModifySales",
     period + "set Combo1 5\nset Combo2 12\npress Command1",
     "Records Updated",
     {"Sales"}},
    {"frmHsnSalesReport", "press cmdUpdate", "HSN Code Updated", {"Sales"}},
    {"frmCatWSaleDelete",
     period + "pick Combo1 1006\npress cmdView\npress cmdDelete",
     "\"ok\"",
     {"wsales", "wsalestemp"}},
    {"frmProductEditReport", period + "press cmdDelete", "DELETED", {"ProductEdit"}},
    {"frmSaleRateDiff",
     period + "pick Combo1 COUNTER-1\npress cmdDelete",
     "REPORT DELETED",
     {"BillRateChanged"}},
};

void append_csv_row(std::string& text, const std::vector<Value>& row) {
  for (const Value& value : row) {
    append_csv_value(text, value);
    text += ',';
  }
  text += '\n';
}

class Restore {
 public:
  explicit Restore(unsigned seed) : shop_(seed) {}

  void act(const Action& action) {
    const auto told = shop_.run("answer ok\nopen " + (action.screen + ('\n' + action.script)));
    EXPECT_THAT(told, Each(AllOf(Not(HasSubstr("\"error\"")), Not(HasSubstr("not be completed")))));
    EXPECT_THAT(told, ::testing::Contains(HasSubstr(action.done)));
  }

  /// All rows of all tables, whatever their order.
  std::map<std::string, std::string> everything() {
    std::map<std::string, std::string> all;
    for (const std::string& table : Shop::stored_tables()) {
      std::vector<std::string> rows;
      for (const auto& row : shop_.state().Con->execute("select * from " + table).rows)
        append_csv_row(rows.emplace_back(), row);
      std::ranges::sort(rows);
      std::string& text = all[table];
      for (const std::string& row : rows) text += row;
    }
    return all;
  }

  std::string action_name() const {
    return fs::directory_iterator(shop_.paths().way_back())->path().filename();
  }

  /// The exit code of the tool, run as the owner runs it.
  int run_tool() const {
    return ChildProcess(
               {TELA_CATALOGUE, "--root", shop_.paths().root().string(), "restore", action_name()})
        .wait();
  }

  /// What the tool says; its failure last.
  std::string restore() {
    std::ostringstream said;
    Messages messages(said, false);
    try {
      restore_kept(*shop_.state().Con, shop_.paths().way_back(), action_name(), messages);
    } catch (const std::exception& error) {
      said << error.what();
    }
    EXPECT_FALSE(shop_.state().Con->in_transaction());
    return said.str();
  }

  RandomShop shop_;
};

void PrintTo(const Action& action, std::ostream* out) {
  *out << action.screen;
}
class EachAction : public ::testing::TestWithParam<Action> {};

TEST_P(EachAction, IsUndoneRowForRowAndOnceOnly) {
  std::set<std::string> changed;
  for (unsigned seed = 1; seed <= 3; ++seed) {
    SCOPED_TRACE(seed);
    Restore shop(seed);
    const auto before = shop.everything();
    shop.act(GetParam());
    const auto after = shop.everything();
    const auto written = changed_tables(before, after);
    if (written.empty()) continue;
    changed.insert(written.begin(), written.end());
    EXPECT_EQ(shop.run_tool(), 0) << shop.restore();
    EXPECT_THAT(changed_tables(before, shop.everything()), IsEmpty());
    EXPECT_THAT(shop.restore(), HasSubstr("nothing was to do"));
    EXPECT_THAT(changed_tables(before, shop.everything()), IsEmpty());
  }
  EXPECT_THAT(changed, ::testing::ElementsAreArray(GetParam().tables));
}

INSTANTIATE_TEST_SUITE_P(TheWayBack, EachAction, ::testing::ValuesIn(actions),
                         [](const auto& action) { return action.param.screen; });

// The quantities are written one by one, and an update that is killed has written some.
TEST(PartlyWritten, IsUndoneWhereItIsWritten) {
  Shop shop;
  for (int code = 1; code <= 120; ++code) {
    const std::string number = std::to_string(code);
    shop.sql("insert into OptimumStock values (" + number + ",'Rice',5)");
    shop.sql("insert into Sales (BillDate,iCode,iName,Qty) values ('2024-01-05'," + number +
             ",'Rice',10)");
  }
  const auto before = shop.stored();
  shop.run("open frmOptimumStock\npick Combo1 ALL SUPPLIER\npress cmdView\npress cmdUpdate");
  EXPECT_EQ(changed_tables(before, shop.stored()), std::vector<std::string>{"OptimumStock"});
  shop.sql("update OptimumStock set OpStock=5 where iCode<>99");
  std::ostringstream said;
  Messages messages(said, false);
  restore_kept(*shop.state().Con, shop.paths().way_back(),
               fs::directory_iterator(shop.paths().way_back())->path().filename().string(),
               messages);
  EXPECT_THAT(changed_tables(before, shop.stored()), IsEmpty()) << said.str();
}

/// What others write behind an action, so that it cannot be undone, and what the tool names.
struct Since {
  int action;
  const char* sql;
  const char* named;
};

void PrintTo(const Since& since, std::ostream* out) {
  *out << since.sql;
}
class WhenOthersHaveWritten : public ::testing::TestWithParam<Since> {};

TEST_P(WhenOthersHaveWritten, NothingIsBroughtBack) {
  Restore shop(1);
  shop.act(actions[GetParam().action]);
  shop.shop_.sql(GetParam().sql);
  const auto then = shop.everything();
  EXPECT_EQ(shop.run_tool(), 1);
  const std::string said = shop.restore();
  EXPECT_THAT(said, HasSubstr("nothing is brought back"));
  EXPECT_THAT(said, HasSubstr(GetParam().named));
  EXPECT_THAT(changed_tables(then, shop.everything()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    TheWayBack, WhenOthersHaveWritten,
    ::testing::Values(
        Since{0, "insert into Sales (BillNo,iCode) values (2,9)", "sales holds other rows"},
        Since{0, "update bill_no set billno=1", "bill_no"},
        Since{1, "insert into StockAdjust values (5,'RICE',1,-2,-1,'2024-01-03')", "StockAdjust"},
        Since{2, "insert into PurchaseTemp (GrnNo) values (3)", "PurchaseTemp"},
        Since{3, "update Items set Stock=-1 where Stock=0", "Items"},
        Since{4, "update OptimumStock set OpStock=1", "OptimumStock"},
        Since{5, "update Sales set iIGst=18 where iIGst=12", "Sales"},
        Since{6, "delete from Sales where BillNo=1", "Sales"}));

}  // namespace
}  // namespace tela::testing
