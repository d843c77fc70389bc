// The way back as a whole: an action runs, its rows are brought back, and every table holds what it
// held before.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <sstream>

#include "apps/tela_catalogue/commands/kept_commands.h"
#include "report_framework/way_back.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr const char* rows[] = {
    "SalesTemp (BillNo,BillDate,NetAmount) values (1,'2024-01-03',30),(2,'2024-01-04',15.5)",
    ("Sales (BillNo,BillDate,iCode,iName,Qty,Amount,iIGst,iCGst,iSGst,iHSNcode) values "
     "(1,'2024-01-03',5,N'Amma''s அரிசி  ',1,10,5,2.5,2.5,'1006'),"
     "(1,'2024-01-03',5,N'Amma''s அரிசி  ',1,10,5,2.5,2.5,'1006'),"
     "(1,'2024-01-03',5,N'AMMA''s அரிசி',1,10,5,2.5,2.5,'1006'),"
     "(1,'2024-01-03',6,'SOAP',1,10,18,9,9,null),"
     "(2,'2024-01-04',6,'SOAP',0.1,15.5,5,2.4,2.6,''),"
     "(2,'2024-01-04',6,'SOAP',0.1,15.5,12,6,6,'')"),
    "stockledger values (5,'2024-01-03',-1,'BILL'),(5,'2024-01-03',-1,'BILL'),(6,null,-2,null)",
    ("Items (iCode,iName,ministock,Stock,iHSNcode) values (5,'RICE',2,-2.5,'1006'),"
     "(6,'SOAP',null,-0.1,'3401')"),
    "OptimumStock values (5,'RICE',4)",
    "StockAdjust values (5,'RICE',1,-2,-1,'2024-01-03'),(5,'RICE',1,-2,-1,'2024-01-03')",
    "Purchase (GrnNo,iCode,Qty) values (3,5,10),(3,6,10),(4,5,1)",
    "PurchaseTemp (GrnNo,InternalNo) values (3,11),(4,12)",
    "Journal (InternalNo,TransAmount) values (11,100),(12,5),(13,60),(14,40)",
    "SupplierCashPay values (3,13),(3,14),(4,15)",
};
constexpr const char* tables[] = {"SalesTemp",    "Sales",   "stockledger",    "Items",
                                  "OptimumStock", "bill_no", "StockAdjust",    "Purchase",
                                  "PurchaseTemp", "Journal", "SupplierCashPay"};

/// One action, as its screen runs it.
struct Action {
  const char* name;
  std::function<void(WayBack&, Connection&)> run;
};

void in_transaction(WayBack& way_back, const std::function<void()>& statements) {
  way_back.begin();
  statements();
  way_back.commit();
}

void delete_bills(WayBack& way_back, Connection& con) {
  in_transaction(way_back, [&] {
    for (const char* table : {"salestemp", "sales"}) {
      way_back.keep_removed(table, {}, {"BillNo"});
      con.execute("delete from " + std::string(table));
    }
    way_back.keep_removed("stockledger");
    con.execute("delete from stockledger");
    way_back.keep_changed("bill_no", {{"billno", "0"}});
    con.execute("update bill_no set billno=0");
  });
}

void delete_log(WayBack& way_back, Connection& con) {
  const std::string where = "where AdjustDate>='01/Jan/2024' and AdjustDate<='05/Jan/2024'";
  in_transaction(way_back, [&] {
    way_back.keep_removed("StockAdjust", where);
    con.execute("Delete from StockAdjust " + where);
  });
}

void delete_purchase(WayBack& way_back, Connection& con) {
  const auto remove = [&](const char* table, const char* column, int number) {
    const std::string where = "where " + std::string(column) + '=' + std::to_string(number);
    way_back.keep_removed(table, where, {column});
    con.execute("Delete from " + std::string(table) + ' ' + where);
  };
  in_transaction(way_back, [&] {
    remove("Purchase", "GrnNo", 3);
    remove("PurchaseTemp", "GrnNo", 3);
    remove("Journal", "InternalNo", 11);
  });
  in_transaction(way_back, [&] {
    remove("Journal", "InternalNo", 13);
    remove("Journal", "InternalNo", 14);
  });
  in_transaction(way_back, [&] { remove("SupplierCashPay", "GrnNo", 3); });
}

void zero_negative_stock(WayBack& way_back, Connection& con) {
  in_transaction(way_back, [&] {
    way_back.keep_changed("Items", {{"Stock", "0"}}, "where stock<0", {"iCode"});
    con.execute("Update Items set Stock=0 where stock<0");
  });
}

// The item that a list names twice, for two rates, is written twice, and added twice.
void set_optimum_stock(WayBack& way_back, Connection& con) {
  in_transaction(way_back, [&] {
    for (const char* level : {"3.00", "8.00"}) {
      way_back.keep_changed("Items", {{"ministock", level}}, "where icode=5", {"iCode"});
      con.execute("Update items set ministock=" + std::string(level) + " where icode=5");
    }
  });
  in_transaction(way_back, [&] {
    way_back.keep_changed("OptimumStock", {{"OpStock", "9"}}, "where icode=5", {"iCode"});
    con.execute("Update OptimumStock set OpStock=9 where icode=5");
  });
  con.execute("Insert into OptimumStockTemp values (6,'SOAP',2),(6,'SOAP',7),(6,'SOAP',7)");
  in_transaction(way_back, [&] {
    const std::string select =
        "Select iCode,iName,OpStock from OptimumStockTemp where iCode not in "
        "(Select iCode from OptimumStock)";
    way_back.keep_added("OptimumStock", select, {"iCode"});
    con.execute("Insert into OptimumStock " + select);
  });
}

void rewrite_tax(WayBack& way_back, Connection& con) {
  const std::string where =
      " where iIGst=5 and BillDate>='01/Jan/2024' and BillDate<='05/Jan/2024'";
  in_transaction(way_back, [&] {
    way_back.keep_changed("Sales", {{"iIGst", "12"}, {"iCGst", "6"}, {"iSGst", "6"}}, where);
    con.execute("Update Sales Set iIGst=12,iCGst=6,iSGst=6" + where);
  });
}

void rewrite_hsn(WayBack& way_back, Connection& con) {
  in_transaction(way_back, [&] {
    way_back.keep_changed(
        "Sales",
        {{"iHSNcode", "(select max(Items.iHSNcode) from Items where Items.iCode=Sales.iCode)"}},
        "where iCode in (select iCode from Items)");
    con.execute(
        "Update Sales Set Sales.iHSNcode=Items.iHSNcode from Sales Join Items on "
        "Sales.icode=Items.icode");
  });
}

const Action actions[] = {{"StartDeleteBills", delete_bills},
                          {"frmStockAdjustReport", delete_log},
                          {"frmTotPurchaseReport", delete_purchase},
                          {"frmStockZero", zero_negative_stock},
                          {"frmOptimumStockUpdate", set_optimum_stock},
                          {"frmGSTModifyInSales", rewrite_tax},
                          {"frmHsnSalesReport", rewrite_hsn}};

class Restore : public ::testing::Test {
 protected:
  Restore() {
    shop_.run("open frmDailyS_R\n");
    for (const char* row : rows) shop_.sql("insert into " + std::string(row));
    shop_.sql("update bill_no set billno=2");
  }

  void act(const Action& action) {
    WayBack way_back(shop_.state(), action.name);
    action.run(way_back, *shop_.state().Con);
  }

  /// All rows, whatever their order.
  std::map<std::string, std::vector<std::string>> everything() {
    std::map<std::string, std::vector<std::string>> all;
    for (const std::string table : tables) {
      for (const Json& row : shop_.sql("select * from " + table)) all[table].push_back(row.dump());
      std::ranges::sort(all[table]);
    }
    return all;
  }

  std::string action_name() const {
    return fs::directory_iterator(shop_.paths().way_back())->path().filename();
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

  Shop shop_;
};

void PrintTo(const Action& action, std::ostream* out) {
  *out << action.name;
}
class EachAction : public Restore, public ::testing::WithParamInterface<Action> {};

TEST_P(EachAction, IsUndoneRowForRowAndOnceOnly) {
  const auto before = everything();
  act(GetParam());
  const auto after = everything();
  EXPECT_NE(after, before);
  EXPECT_THAT(restore(), HasSubstr("brought back"));
  EXPECT_EQ(everything(), before);
  EXPECT_THAT(restore(), HasSubstr("nothing was to do"));
  EXPECT_EQ(everything(), before);
}

INSTANTIATE_TEST_SUITE_P(TheWayBack, EachAction, ::testing::ValuesIn(actions),
                         [](const auto& action) { return action.param.name; });

/// What others write behind an action, so that it cannot be undone, and what the tool names.
struct Since {
  int action;
  const char* sql;
  const char* named;
};

void PrintTo(const Since& since, std::ostream* out) {
  *out << since.sql;
}
class WhenOthersHaveWritten : public Restore, public ::testing::WithParamInterface<Since> {};

TEST_P(WhenOthersHaveWritten, NothingIsBroughtBack) {
  act(actions[GetParam().action]);
  shop_.sql(GetParam().sql);
  const auto then = everything();
  const std::string said = restore();
  EXPECT_THAT(said, HasSubstr("nothing is brought back"));
  EXPECT_THAT(said, HasSubstr(GetParam().named));
  EXPECT_EQ(everything(), then);
}

INSTANTIATE_TEST_SUITE_P(
    TheWayBack, WhenOthersHaveWritten,
    ::testing::Values(
        Since{0, "insert into Sales (BillNo,iCode) values (2,9)", "sales holds other rows"},
        Since{0, "update bill_no set billno=1", "bill_no"},
        Since{1, "insert into StockAdjust values (5,'RICE',1,-2,-1,'2024-01-03')", "StockAdjust"},
        Since{2, "insert into PurchaseTemp (GrnNo) values (3)", "PurchaseTemp"},
        Since{3, "update Items set Stock=-1 where iCode=6", "Items"},
        Since{4, "update OptimumStock set OpStock=1 where iCode=6", "OptimumStock"},
        Since{5, "update Sales set iIGst=18 where BillNo=2", "Sales"},
        Since{6, "delete from Sales where BillNo=1", "Sales"}));

}  // namespace
}  // namespace tela::testing
