#include "screens/profit/FrmSaleProfit.h"

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "report_framework/report_preview.h"
#include "screens/profit/item_profit.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

const char* const kMask = "##########0.00";

// The boxes of the period, all but the stock value, in the order of their staging columns.
const std::vector<std::string> kBoxes = {"Text1", "Text2", "tDiscount", "Text3",
                                         "Text4", "Text5", "Text6"};

std::vector<Control> controls() {
  return tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                   total_box("Text1", "TOTAL SALE VALUE"), total_box("tDiscount", "TOTAL DISCOUNT"),
                   total_box("Text2", "TOTAL PURCHASE VALUE"), total_box("Text3", "TOTAL EXPENSES"),
                   total_box("Text4", "SALE  PROFIT"), label("Lstock", "PRESENT STOCK VALUE"),
                   total_box("Text5", "TOTAL SALES"), total_box("Text6", "TOTAL PURCHASE"),
                   button("CmdView", "&View "), button("cmdRefresh", "&Refresh"),
                   button("cmdprint", "Previe&w"), button("CmdClose", "&Close"));
}

}  // namespace

FrmSaleProfit::FrmSaleProfit(AppState& app)
    : Screen(app, "FrmSaleProfit", "SALE PROFIT", controls()) {
  key_walk({"DTP1", "DTP2"});
  on_key("DTP2", Key::enter, [this] { view(); });
  on_press("CmdView", [this] { view(); });
  on_press("cmdRefresh", [this] { reset(); });
  on_press("cmdprint", [this] { preview(); });
  close_on("CmdClose");
}

void FrmSaleProfit::fill_lists() {
  item_profit::write_stock_value(app(), form(), "Lstock");
}

std::vector<FrmSaleProfit::Figures> FrmSaleProfit::figures(const Period& period) {
  const std::string from = sql_text(period.from);
  const std::string to = sql_text(period.to);
  const std::string billed = "BillDate>=" + from + " and BillDate<=" + to;
  const auto box = [](std::string name, int position) {
    return RowBox{std::move(name), {}, number_field(position, kMask)};
  };
  return {
      {"Select sum(salerate *  QTY) from sales Where " + billed, {box("Text1", 0)}},
      {"Select sum(QTY * purrate) from sales Where " + billed, {box("Text2", 0)}},
      {"Select sum(TransAmount) from Journal Where TransDate>=" + from + " and TransDate<=" + to +
           " and LedgerType=10",
       {box("Text3", 0)}},
      {"Select sum(DiscAmount),SUM(Total) from salesTemp where " + billed,
       {box("tDiscount", 0), box("Text5", 1)}},
      {"Select sum(NetAmount) from PurchaseTemp where " + billed, {box("Text6", 0)}},
  };
}

void FrmSaleProfit::view() {
  for (const Figures& read : figures(take_period())) {
    fill_boxes(form(), read.boxes, OpenRs(app(), read.sql));
    CloseRs(app());
  }
  const auto shown = [this](const char* box) { return Val(form().text(box)); };
  const double profit = shown("Text1") - shown("Text2") - shown("Text3") - shown("tDiscount");
  form().set_text("Text4", format_number(profit, kMask));
}

void FrmSaleProfit::reset() {
  for (const std::string& box : kBoxes) form().set_text(box, "0.00");
}

std::string FrmSaleProfit::insert_sql(const Period& period, const Form& form) {
  std::vector<std::string> values = {sql_text(period.from), sql_text(period.to)};
  for (const std::string& box : kBoxes) values.push_back(sql_number(form.text(box)));
  values.push_back(sql_number(form.text("Lstock")));
  return "Insert into SaleProfit values(" + sql_list(values) + ")";
}

void FrmSaleProfit::preview() {
  const Period period = take_period();
  std::vector<std::string> boxes = kBoxes;
  boxes.emplace_back("Lstock");
  for (const std::string& box : boxes)
    if (trimmed(form().text(box)).empty()) form().set_text(box, "0.00");
  if (!ask("Profit Report PREVIEW - (OK To Print, Cancel To Exit) ")) return;
  guarded([&] { stage(period); },
          [this](const std::runtime_error& failure) { app().display.hint(failure.what()); });
  open_preview(app(), "ProfitReport.rpt", "SELECT * FROM SaleProfit");
}

// A figure that cannot be staged leaves the table empty, so that no old row passes for this
// period's.
void FrmSaleProfit::stage(const Period& period) {
  Transaction staging(*app().Con);
  app().Con->execute("Delete from SaleProfit");
  guarded([&] { app().Con->execute(insert_sql(period, form())); },
          [this](const std::runtime_error& failure) { app().display.hint(failure.what()); });
  staging.commit();
}

}  // namespace tela
