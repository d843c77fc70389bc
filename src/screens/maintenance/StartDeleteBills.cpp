#include "screens/maintenance/StartDeleteBills.h"

#include <string>

#include "report_framework/way_back.h"
#include "screens/maintenance/long_statement.h"
#include "shell/display.h"

namespace tela {

namespace {

/// A table, and the columns that tell its bills: what comes later under the same number is another
/// bill.
struct BillTable {
  const char* name;
  WayBack::Columns key;
};

// The headers go before the lines.
const BillTable kTables[] = {{"salestemp", {"BillNo"}},
                             {"sales", {"BillNo"}},
                             {"salesreturn", {"ReturnNo"}},
                             {"salesreturntemp", {"ReturnNo"}},
                             {"stockledger", {}}};

void delete_bills(AppState& app) {
  WayBack way_back(app, "StartDeleteBills");
  way_back.begin();
  app.Con->set_command_timeout(kLongStatement);
  for (const BillTable& table : kTables) {
    way_back.keep_removed(table.name, {}, table.key);
    app.Con->execute("delete from " + std::string(table.name));
  }
  way_back.keep_changed("bill_no", {{"billno", "0"}});
  app.Con->execute("update bill_no set billno=0");
  way_back.commit();
}

}  // namespace

void StartDeleteBills(AppState& app) {
  const Message question{"Bill Print - (OK To Delete, Cancel To Save) ", Icon::none,
                         Buttons::ok_cancel, app.ShopName};
  if (app.display.message(question) != Answer::ok) return;
  delete_bills(app);
  app.display.message({"ALL BILLS ARE DELETED", Icon::information, Buttons::ok, app.ShopName});
}

}  // namespace tela
