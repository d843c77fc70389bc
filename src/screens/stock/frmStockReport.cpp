#include "screens/stock/frmStockReport.h"

#include "report_framework/busy_pointer.h"
#include "report_framework/report_preview.h"
#include "report_framework/staging.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  return tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                   button("cmdView", "&View"), button("cmdRefresh", "&Refresh"),
                   button("cmdprint", "&Print >0 Stock"), button("cmdPreview", "Print &All"),
                   button("cmdClose", "&CLOSE"), grid("MSHF", 8));
}

constexpr int kRowNumber = 0;
constexpr int kClosingStock = 7;

GridColumns columns() {
  const std::string mask = "######0.00";
  return {
      {"S.No.", 600, row_number()},
      {"CODE", 800, field(0)},
      {"ITEM NAME", 5200, trimmed_field(1)},
      {"OP_STK", 1100, number_field(2, mask)},
      {"SALE QTY", 1100, number_field(3, mask)},
      {"P_QTY", 1100, number_field(4, mask)},
      {"Adj_Qty", 1100, number_field(5, mask)},
      {"CL_STK", 1100, number_field(6, mask)},
  };
}

}  // namespace

frmStockReport::frmStockReport(AppState& app)
    : Screen(app, "frmStockReport", "STOCK REPORT", controls()), grid_(form(), columns()) {
  key_walk({"DTP1", "DTP2", "cmdView"});
  on_press("cmdView", [this] { view(); });
  on_press("cmdprint", [this] { print(kClosingStock); });
  on_press("cmdPreview", [this] { print(kRowNumber); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

namespace {

/// A table of movements of stock, and the column of their day.
struct Movements {
  std::string table;
  std::string day;
};
const Movements kSales = {"Sales", "billdate"};
const Movements kPurchases = {"purchase", "billdate"};
const Movements kAdjustments = {"stockadjust", "AdjustDate"};

std::string item_sum(const Movements& of, const std::string& summed) {
  return "(Select isnull(sum(" + summed + "),0) from " + of.table +
         " where Items.icode=" + of.table + ".iCode and " + of.table + "." + of.day;
}

/// An item's movements ahead of the period, as a column.
std::string before(const Movements& of, const std::string& summed, const Period& period) {
  return item_sum(of, summed) + "<" + sql_text(period.from) + ")";
}

/// Those within it.
std::string within(const Movements& of, const std::string& summed, const Period& period) {
  return item_sum(of, summed) + ">=" + sql_text(period.from) + " and " + of.table + "." + of.day +
         "<=" + sql_text(period.to) + ")";
}

}  // namespace

// Free goods count for the stock at the start of the period, and not within it.
std::string frmStockReport::computed_sql(const Period& period) {
  return "Insert Into StkAsOnDate Select icode,iname,opstock," +
         before(kSales, "Sales.qty", period) + ", " +
         before(kPurchases, "purchase.qty+purchase.Fqty", period) + "," +
         before(kAdjustments, "stockadjust.AdjustQty", period) + "," +
         within(kSales, "Sales.qty", period) + ", " + within(kPurchases, "purchase.qty", period) +
         "," + within(kAdjustments, "stockadjust.AdjustQty", period) +
         ",0 from items WHERE CreatedDate<" + sql_text(period.to) + " order by icode";
}

std::string frmStockReport::zeros_sql(const Period& period) {
  return "Insert Into StkAsOnDate Select icode,iname,0,0,0,0,0,0,0,0 from items WHERE "
         "CreatedDate>=" +
         sql_text(period.to) + " order by icode";
}

std::string frmStockReport::closing_sql() {
  return "Update StkAsOnDate set ClStock=(OpStock+PurQty+AdjQty+PurQtyBdt+AdjQtyBdt)-"
         "(SaleQtyBdt+SaleQty)";
}

std::string frmStockReport::list_sql() {
  return "Select "
         "iCode,iName,(OpStock+PurQtyBdt+AdjQtyBdt-SaleQtyBdt),SaleQty,PurQty,AdjQty,ClStock "
         "from StkAsOnDate order by iCode";
}

void frmStockReport::view() {
  Refusal reversed_period = reversed("DTP1", "DTP2", "Start Date is Greater than End Date");
  reversed_period.icon = Icon::information;
  if (refused(reversed_period)) return;
  const Period period = take_period();
  const BusyPointer busy(app().display);
  grid_.clear();
  rebuild(period);
  grid_.show(app(), list_sql());
}

void frmStockReport::rebuild(const Period& period) {
  Transaction clearing(*app().Con);
  app().Con->execute("Delete from StkAsOnDate");
  clearing.commit();
  Transaction filling(*app().Con);
  app().Con->execute(computed_sql(period));
  app().Con->execute(zeros_sql(period));
  filling.commit();
  Transaction closing(*app().Con);
  app().Con->execute(closing_sql());
  closing.commit();
}

void frmStockReport::print(int counted_by) {
  const Period period = take_period();
  grid_.RowHeading();
  stage_rows(app(), grid_,
             {.clear = "Delete from StockRepPrint",
              .insert = "Insert into StockRepPrint values(",
              .counted_by = counted_by,
              .values = [&](const GridRow& row) -> std::vector<std::string> {
                return {sql_text(period.from), sql_text(period.to), row.numbers(0, 1), row.text(2),
                        row.numbers(3, 7)};
              },
              .transactions = StagingTransactions::clear_apart});
  open_preview(app(), "StockRep.rpt", "SELECT * FROM StockRepPrint");
}

}  // namespace tela
