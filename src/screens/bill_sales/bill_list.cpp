#include "screens/bill_sales/bill_list.h"

#include <utility>

#include "platform/text/number_text.h"
#include "report_framework/busy_pointer.h"
#include "report_framework/report_preview.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/retail_tables.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

GridColumns columns(const BillList& list) {
  const std::string money = "########0.00";
  const std::string paid = "#########0.00";
  const std::string total = "#######0.00";
  return {
      {"BILL NO", 900, field(0)},
      {"BILL DATE", 1200, date_field(1, "DD/MM/YYYY")},
      {"TIME", 1200, time_field(2, "HH:MM AM/PM")},
      {"AMOUNT", 1200, val_field(3, money)},
      {"Discount", 1200, val_field(4, money)},
      {"TOTAL", 1100, val_field(5, money), {"tTotalAmount", total}},
      {"CASH", 1200, val_field(6, money), {list.boxes[0], total}},
      {"CARD", 1100, number_field(7, paid), {list.boxes[1], total}},
      {"PASS", 1100, number_field(8, paid), {list.boxes[2], total}},
      {"Mobile Pay", 1200, number_field(9, paid), {"tMobilePay", total}},
      {"POINTS", 1100, number_field(10, paid), {list.boxes[3], total}},
  };
}

constexpr int kColumns = 11;

std::vector<Control> controls(BillList& list) {
  std::vector<Control> all = std::move(list.inputs);
  if (list.counters > 0) all.push_back(text_box("tCounter"));
  for (const BillOrder& order : list.orders) all.push_back(button(order.button, order.caption));
  append(all, std::move(list.buttons));
  all.push_back(grid("MSHF", kColumns));
  if (list.count_label) all.push_back(label("lTotalBills", "TOTAL BILLS "));
  if (list.range != BillRange::none)
    append(all, tab_order(label("lStart", "START BILL"), label("lEnd", "END BILL")));
  append(
      all,
      tab_order(total_box("tTotalAmount", " TOTAL AMOUNT"), total_box(list.boxes[0], " TOTAL CASH"),
                total_box(list.boxes[1], " TOTAL CARD"), total_box(list.boxes[2], " TOTAL PASS"),
                total_box("tMobilePay", list.mobile_pay_label),
                total_box(list.boxes[3], " TOTAL POINTS")));
  return all;
}

}  // namespace

BillListReport::BillListReport(AppState& app, BillList list)
    : Screen(app, list.screen, list.caption, controls(list)),
      list_(std::move(list)),
      grid_(form(), columns(list_),
            {.bands = RowBands{0, kColumns - 1},
             .counted_by = list_.counted_by,
             .whole_amounts = "MONTHLY CASH SALES REPORT and MONTHLY CREDIT SALES REPORT"}) {
  key_walk(list_.walk);
  for (std::size_t order = 0; order < list_.orders.size(); ++order)
    on_press(list_.orders[order].button, [this, order] { this->list(order); });
  if (!list_.enter_lists.empty()) on_key(list_.enter_lists, Key::enter, [this] { this->list(0); });
  if (list_.bounded) on_key("Text2", Key::up, [this] { focus("Text1"); });
  on_press(list_.preview.button, [this] { preview(); });
  if (form().has("cmdRefresh")) refresh_on("cmdRefresh");
  if (form().has("cmdClose")) close_on("cmdClose");
  drill_down_on("MSHF", 0, &AppState::SaleBillNo, "FrmBillView");
}

void BillListReport::fill_lists() {
  if (list_.counters > 0) form().at("Combo1").items = counter_entries(list_.counters);
  if (!list_.list_sql.empty()) fill_combo("Combo1", list_.list_sql);
}

std::string BillListReport::sql(const BillList& list, const BillInputs& inputs, std::size_t order) {
  return list.select + list.condition(inputs) + list.orders[order].order_by;
}

std::string BillListReport::range_sql(const BillList& list, const BillInputs& inputs,
                                      std::size_t order) {
  return "Select isnull(min(billno),0),isnull(max(BillNo),0) from SalesTemp where " +
         (list.range_condition ? list.range_condition(inputs, order) : list.condition(inputs));
}

BillInputs BillListReport::take_inputs() {
  std::vector<std::string> pickers;
  for (const Control& control : form().controls())
    if (control.kind == ControlKind::date) pickers.push_back(control.name);
  BillInputs inputs;
  if (!pickers.empty()) inputs.period = take_period(pickers.front(), pickers.back());
  if (form().has("Combo1")) inputs.filter = filter();
  if (list_.bounded) {
    inputs.first = form().text("Text1");
    inputs.last = form().text("Text2");
  }
  return inputs;
}

void BillListReport::list(std::size_t order) {
  if (list_.empties_first) grid_.clear();
  for (const Refusal& refusal : list_.refusals)
    if (refused(refusal)) return;
  if (list_.failure.empty()) return show(order);
  guarded([&] { show(order); },
          [this](const std::runtime_error& failure) {
            app().display.message(
                {list_.failure, Icon::information, Buttons::ok, app().ShopName, failure.what()});
          });
}

void BillListReport::show(std::size_t order) {
  std::optional<BusyPointer> busy;
  if (list_.long_run) busy.emplace(app().display);
  grid_.clear();
  BillInputs inputs = take_inputs();
  if (list_.counters > 0) inputs.counter = take_counter(form());
  const std::string statement = sql(list_, inputs, order);
  Recordset& rs = OpenRs(app(), statement);
  if (list_.most_rows > 0 && rs.record_count() > list_.most_rows) {
    tell("Too Many Records - Please Select Minimum Period", Icon::information);
    return CloseRs(app());
  }
  grid_.fill(app(), rs);
  write_labels(rs);
  CloseRs(app());
  grid_.note_lacking(app(), statement);
  if (list_.range == BillRange::of_query) write_range(inputs, order);
  grid_.finish();
}

// A label whose source is not there, in a list without rows, stays as it was.
void BillListReport::write_labels(const Recordset& rs) {
  if (list_.count_label) form().set_text("lTotalBills", std::to_string(rs.record_count()));
  if (list_.range != BillRange::of_grid) return;
  const auto bill_in = [this](int row) { return plain_number(grid_.number(row, 0)); };
  pass_over([&] { form().set_text("lStart", bill_in(1)); });
  pass_over([&] { form().set_text("lEnd", bill_in(app().RowNo - 1)); });
}

void BillListReport::write_range(const BillInputs& inputs, std::size_t order) {
  const Recordset& rs = OpenRs(app(), range_sql(list_, inputs, order));
  form().set_text("lStart", field_text(rs.field(0)));
  form().set_text("lEnd", field_text(rs.field(1)));
  CloseRs(app());
}

void BillListReport::preview() {
  const BillPreview& preview = list_.preview;
  for (const Refusal& refusal : preview.refusals)
    if (refused(refusal)) return;
  const bool asks = !preview.question.empty();
  if (asks && !preview.asks_last && !ask(preview.question)) return;
  const BillInputs inputs = take_inputs();
  stage_rows(app(), grid_,
             {.clear = preview.clear,
              .insert = preview.insert,
              .values = [&](const GridRow& row) { return preview.values(inputs, row); },
              .transactions = preview.transactions});
  if (asks && preview.asks_last && !ask(preview.question)) return;
  open_preview(app(), preview.report_file, preview.report_query);
}

std::string split_select() {
  return "select billno,billdate,BillTime,str(netamount,8,2)'NET "
         "AMT',str(DiscAmount,8,2)'Discount',"
         "str(Total,8,2),(case when BillType='CASH/CREDIT' or BillType='POINTS SALES' then "
         "Total-(CardPaid+MealsPaid+MobilePay+PointsUsed) else CashPaid end),str(CardPaid,8,2),"
         "str(MealsPaid,8,2),MobilePay,STR(PointsUsed,8,2) from salestemp where ";
}

std::string plain_select(const std::string& cash) {
  return "Select billno,billdate,BillTime,netamount,DiscAmount,Total," + cash +
         ",CardPaid,MealsPaid,MobilePay,PointsUsed from salestemp where ";
}

std::string in_period(const Period& period) {
  return "billdate>=" + sql_text(period.from) + " AND BILLDATE<=" + sql_text(period.to);
}

std::string of_counter(const BillInputs& inputs) {
  return inputs.counter ? " AND counter=" + *inputs.counter : "";
}

std::string cash_values(const GridRow& row) {
  return sql_list({row.row_number(), row.number(0), row.date(1), row.time(2), row.numbers(3, 6)});
}

BillPreview sales_print(std::string button) {
  return {
      .button = std::move(button),
      .clear = "Delete from SalesPrint",
      .insert = "Insert into SalesPrint values(",
      .transactions = StagingTransactions::clear_apart,
      .values = [](const BillInputs& inputs, const GridRow& row) -> std::vector<std::string> {
        return {sql_text(inputs.period.from),
                sql_text(inputs.period.to),
                sql_text(inputs.filter),
                row.number(0),
                row.date(1),
                row.numbers(3, 10)};
      },
      .report_file = "SalesReport.rpt",
      .report_query = "SELECT * FROM SalesPrint",
  };
}

}  // namespace tela
