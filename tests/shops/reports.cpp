#include "shops/reports.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "platform/text/number_text.h"

namespace tela::testing {

double shown_number(const std::string& text) {
  return std::strtod(text.c_str(), nullptr);
}

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kWholeNumber = 0.51;

Column text(int at, std::string cell) {
  return {at, std::move(cell), Written::text};
}
Column number(int at, std::string cell) {
  return {at, std::move(cell), Written::number};
}
Column date(int at, std::string cell) {
  return {at, std::move(cell), Written::date};
}
Column figure(int at, std::string cell, double slack = 0.0051) {
  return {at, std::move(cell), Written::figure, slack};
}
std::vector<Column> figures(std::vector<Column> columns, int from,
                            const std::vector<std::string>& cells) {
  for (const std::string& cell : cells) columns.push_back(figure(from++, cell));
  return columns;
}

Box sum_of(int column, double slack = 0.0051) {
  return {[column](const Shown& shown) {
            double sum = 0;
            for (const auto& row : shown.rows)
              sum += shown_number(row[static_cast<std::size_t>(column)]);
            return sum;
          },
          slack};
}
Box mean_of(int column) {
  return {[column](const Shown& shown) {
    const double rows = static_cast<double>(shown.rows.size());
    return rows == 0 ? 0 : sum_of(column).reckoned(shown) / rows;
  }};
}
Box count() {
  return {[](const Shown& shown) { return static_cast<double>(shown.reckoned.size()); }};
}
Box difference(const std::string& from, const std::string& taken) {
  return {[=](const Shown& shown) {
    const auto& boxes = shown.state["controls"];
    return shown_number(boxes[from]) - shown_number(boxes[taken]);
  }};
}
Box reckoned(std::function<double(const Rows& shop, const Asked&)> of) {
  return {[of = std::move(of)](const Shown& shown) { return of(shown.shop, shown.asked); }};
}

Rows asked_of(const Rows& shop, const std::string& table, const Asked& asked,
              const std::string& day = "BillDate") {
  return within(of(shop, table), day, asked.period.first, asked.period.last);
}
bool asks_for_all(const Asked& asked) {
  return asked.choice.starts_with("ALL ");
}
Rows of_counter(Rows rows, const Asked& asked) {
  if (asks_for_all(asked)) return rows;
  return where(std::move(rows),
               [&](const Row& row) { return row.number("Counter") == asked.choice.back() - '0'; });
}
Rows chosen(Rows rows, const std::string& cell, const Asked& asked) {
  if (asks_for_all(asked)) return rows;
  return where(std::move(rows), [&](const Row& row) { return row.is(cell, asked.choice); });
}

// A text of a few characters holds no wider number: it counts as nothing.
double fitted(double value, std::size_t width, int places = 2) {
  if (std::isnan(value)) return value;
  return fixed_decimal(value, places).size() > width ? 0 : value;
}
Number fitted(const std::string& cell, std::size_t width = 8) {
  return [=](const Row& row) { return fitted(row.number(cell), width); };
}

// ---- bills ----

double derived_cash(const Row& bill) {
  return bill.number("Total") - (bill.number("CardPaid") + bill.number("MealsPaid") +
                                 bill.number("MobilePay") + bill.number("PointsUsed"));
}
double split_cash(const Row& bill) {
  const bool at_the_till =
      bill.is("BillType", "CASH/CREDIT") || bill.is("BillType", "POINTS SALES");
  return at_the_till ? derived_cash(bill) : bill.number("CashPaid");
}
bool on_credit(const Row& bill) {
  return bill.is("BillType", "CREDIT BILL") || bill.is("BillType", "HOME DELIVERY");
}

/// Which amounts of a bill list pass through a text of eight characters.
enum class Texts { none, payments, all };

using Bills = std::function<Rows(const Rows& shop, const Asked&)>;

Rows listed_bills(Rows bills, const Number& cash, Texts texts) {
  bills = with(std::move(bills), "Cash", cash);
  if (texts == Texts::all)
    for (const char* cell : {"NetAmount", "DiscAmount", "Total"})
      bills = with(std::move(bills), cell, fitted(cell));
  if (texts != Texts::none)
    for (const char* cell : {"CardPaid", "MealsPaid", "PointsUsed"})
      bills = with(std::move(bills), cell, fitted(cell));
  return bills;
}

Report bill_list(const std::string& screen, const Bills& bills, const Number& cash, Texts texts) {
  Report report;
  report.screen = screen;
  report.columns =
      figures({number(0, "BillNo"), date(1, "BillDate"), {2, "BillTime", Written::time}}, 3,
              {"NetAmount", "DiscAmount", "Total", "Cash", "CardPaid", "MealsPaid", "MobilePay",
               "PointsUsed"});
  report.rows = [=](const Rows& shop, const Asked& asked) {
    return listed_bills(bills(shop, asked), cash, texts);
  };
  const bool between = screen == "fBillToBill" || screen == "frmSalesByValue";
  const std::vector<std::string> boxes =
      between ? std::vector<std::string>{"Text3", "Text4", "Text5", "Text6"}
              : std::vector<std::string>{"Text1", "Text2", "Text3", "Text4"};
  report.boxes = {{"tTotalAmount", sum_of(5)}, {boxes[0], sum_of(6)},     {boxes[1], sum_of(7)},
                  {boxes[2], sum_of(8)},       {"tMobilePay", sum_of(9)}, {boxes[3], sum_of(10)}};
  if (screen != "fBillToBill") report.boxes["lTotalBills"] = count();
  return report;
}

Rows bills_of_counter(const Rows& shop, const Asked& asked) {
  return of_counter(asked_of(shop, "SalesTemp", asked), asked);
}
Rows till_bills(const Rows& shop, const Asked& asked) {
  return where(bills_of_counter(shop, asked), [](const Row& bill) { return !on_credit(bill); });
}
Rows credit_bills(const Rows& shop, const Asked& asked) {
  return where(bills_of_counter(shop, asked), on_credit);
}

constexpr const char* kFromOne = "set Text1 1\nset Text2 9999999999\n";

void add_bill_lists(std::vector<Report>& all) {
  Report daily = bill_list("frmDailyS_R", bills_of_counter, split_cash, Texts::all);
  daily.one_day = true;
  Report daily_cash = bill_list("frmDailyCashsales", till_bills, derived_cash, Texts::none);
  daily_cash.one_day = true;
  Report by_number = bill_list(
      "fBillToBill", [](const Rows& shop, const Asked&) { return of(shop, "SalesTemp"); },
      split_cash, Texts::payments);
  Report by_value = bill_list(
      "frmSalesByValue",
      [](const Rows& shop, const Asked& asked) {
        return where(asked_of(shop, "SalesTemp", asked),
                     [](const Row& bill) { return bill.number("Total") >= 1; });
      },
      split_cash, Texts::payments);
  by_number.inputs = by_value.inputs = kFromOne;
  const Bills of_user = [](const Rows& shop, const Asked& asked) {
    return chosen(asked_of(shop, "SalesTemp", asked), "Staff", asked);
  };
  all.push_back(daily);
  all.push_back(bill_list("frmmonthlySR", bills_of_counter, split_cash, Texts::all));
  all.push_back(daily_cash);
  all.push_back(bill_list("frmMonthlyCashSales", till_bills, derived_cash, Texts::none));
  all.push_back(bill_list("frmMonthlyCreditSales", credit_bills, cell("CashPaid"), Texts::none));
  all.push_back(by_number);
  all.push_back(by_value);
  all.push_back(bill_list("frmUserReport", of_user, split_cash, Texts::all));
}

// The numbers that one header alone has: which of two a screen reads is its own affair.
std::vector<std::string> single(const Rows& headers, const std::string& number) {
  std::vector<std::string> numbers;
  for (const Row& row : headers)
    if (std::count_if(headers.begin(), headers.end(), [&](const Row& other) {
          return other.number(number) == row.number(number);
        }) == 1)
      numbers.push_back(plain_number(row.number(number)));
  return numbers;
}
Rows numbered(const Rows& rows, const std::string& cell, const Asked& asked) {
  return where(rows,
               [&](const Row& row) { return plain_number(row.number(cell)) == asked.choice; });
}
Box of_header(const std::string& table, const std::string& key, const std::string& cell) {
  return reckoned([=](const Rows& shop, const Asked& asked) {
    return sum(numbered(of(shop, table), key, asked), testing::cell(cell));
  });
}

Number amount_at_rate(const std::string& rate) {
  return [rate](const Row& row) { return row.number("Qty") * row.number(rate); };
}

// Items at a rate: their quantity, and that at the rate.
Rows sold_items(const Rows& lines, std::vector<std::string> keys = {}) {
  for (const char* key : {"iCode", "iName", "mrp", "SaleRate"}) keys.emplace_back(key);
  return with(grouped(lines, keys, {{"Qty", cell("Qty")}}), "Amount", amount_at_rate("SaleRate"));
}
std::vector<Column> item_columns(int code) {
  return {number(code, "iCode"),        text(code + 1, "iName"), number(code + 2, "mrp"),
          number(code + 3, "SaleRate"), figure(code + 4, "Qty"), figure(code + 5, "Amount")};
}

Report bill_view() {
  std::map<std::string, Box> boxes;
  const std::pair<const char*, const char*> kCells[] = {
      {"tOpPoints", "OpPoints"},     {"tBillPoints", "BillPoints"}, {"tClPoints", "ClPoints"},
      {"tDiscount", "DiscAmount"},   {"tTotal", "Total"},           {"tCashPaid", "CashPaid"},
      {"tCardPaid", "CardPaid"},     {"tMealsPass", "MealsPaid"},   {"tMobilePay", "MobilePay"},
      {"tPointsUsed", "PointsUsed"}, {"tCashReturned", "cashret"}};
  for (const auto& [box, cell] : kCells) boxes[box] = of_header("SalesTemp", "BillNo", cell);
  boxes["tTotalQty"] = sum_of(5);
  return {.screen = "FrmBillView",
          .choose = "set tSearch ",
          .choices = [](const Rows& shop) { return single(of(shop, "SalesTemp"), "BillNo"); },
          .columns = item_columns(1),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                return sold_items(numbered(of(shop, "Sales"), "BillNo", asked));
              },
          .boxes = boxes};
}

// ---- sales ----

Report item_sales() {
  return {.screen = "frmItemSalesReport",
          .columns = item_columns(1),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                Rows rows = sold_items(of_counter(asked_of(shop, "Sales", asked), asked));
                for (const char* cell : {"mrp", "SaleRate", "Amount"})
                  rows = with(rows, cell, fitted(cell));
                return rows;
              },
          .boxes = {{"tTotalQty", sum_of(5)}, {"tTotal", sum_of(6)}}};
}

// The boxes are rounded to whole numbers at each step.
Report daily_items() {
  return {.screen = "frmdailyIwiseSR",
          .one_day = true,
          .columns = item_columns(0),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                return sold_items(of_counter(asked_of(shop, "Sales", asked), asked));
              },
          .boxes = {{"tTotalQty", sum_of(4, 20)}, {"tTotal", sum_of(5, 20)}}};
}

Report returned_lines() {
  std::vector<Column> columns = item_columns(1);
  columns.push_back(number(7, "BillNo"));
  columns.push_back({8, "BillDate", Written::short_date});
  return {.screen = "frmSaleReturn",
          .columns = columns,
          .rows =
              [](const Rows& shop, const Asked& asked) {
                Rows rows = where(of_counter(asked_of(shop, "Sales", asked), asked),
                                  [](const Row& line) { return line.number("Qty") < 0; });
                if (asks_for_all(asked)) return rows;
                for (const char* cell : {"mrp", "SaleRate"}) rows = with(rows, cell, fitted(cell));
                return rows;
              },
          .boxes = {{"tTotalQty", sum_of(5)}, {"tTotal", sum_of(6)}}};
}

Report filtered_sales(const std::string& screen, const std::string& filter) {
  return {.screen = screen,
          .columns = item_columns(1),
          .rows =
              [filter](const Rows& shop, const Asked& asked) {
                const Rows lines = joined(asked_of(shop, "Sales", asked), "iCode",
                                          of(shop, "Items"), "iCode", "I.");
                return sold_items(chosen(lines, "I." + filter, asked));
              },
          .boxes = {{"tTotalQty", sum_of(5)}, {"tTotal", sum_of(6)}}};
}

Report mobile_payments() {
  return {.screen = "frmMobilePayDetails",
          .columns = {text(1, "MobilePayType"), figure(2, "MobilePay")},
          .rows =
              [](const Rows& shop, const Asked& asked) {
                return grouped(bills_of_counter(shop, asked), {"MobilePayType"},
                               {{"MobilePay", cell("MobilePay")}});
              },
          .boxes = {{"tTotalAmount", sum_of(2)}}};
}

Rows by_counter(const Rows& bills, const Number& cash) {
  return grouped(bills, {"Counter"},
                 {{"NetAmount", cell("NetAmount")},
                  {"DiscAmount", cell("DiscAmount")},
                  {"Total", cell("Total")},
                  {"Cash", cash},
                  {"CardPaid", cell("CardPaid")},
                  {"MealsPaid", cell("MealsPaid")},
                  {"MobilePay", cell("MobilePay")},
                  {"PointsUsed", cell("PointsUsed")}});
}

Report counter_sales(const std::string& grid, const std::vector<std::string>& boxes, bool stored,
                     const Test& counts) {
  Report report;
  report.screen = "frmDetailSales1";
  report.grid = grid;
  report.columns = figures({number(1, "Counter")}, 2,
                           {"NetAmount", "DiscAmount", "Total", "Cash", "CardPaid", "MealsPaid",
                            "MobilePay", "PointsUsed"});
  report.rows = [=](const Rows& shop, const Asked& asked) {
    return by_counter(where(asked_of(shop, "SalesTemp", asked), counts),
                      stored ? cell("CashPaid") : Number(derived_cash));
  };
  for (std::size_t i = 0; i < boxes.size(); ++i)
    report.boxes[boxes[i]] = sum_of(4 + static_cast<int>(i));
  return report;
}

void add_sales(std::vector<Report>& all) {
  all.push_back(bill_view());
  all.push_back(item_sales());
  all.push_back(daily_items());
  all.push_back(returned_lines());
  all.push_back(filtered_sales("FrmCatagorysale", "Catagory"));
  all.push_back(filtered_sales("frmSupplierSales", "Supplier"));
  all.push_back(mobile_payments());
  Report till =
      counter_sales("MSHF", {"tTotalAmount", "Text1", "Text2", "Text3", "tMobilePay", "Text4"},
                    false, [](const Row& bill) { return !on_credit(bill); });
  till.boxes["tCreditPaid"] = reckoned([](const Rows& shop, const Asked& asked) {
    const Rows paid = where(asked_of(shop, "Cust_Trans", asked, "TransDate"),
                            [](const Row& row) { return row.number("TransType") == 2; });
    return -sum(paid, cell("Amount"));
  });
  all.push_back(till);
  all.push_back(counter_sales(
      "MSHF1", {"Text9", "Text5", "Text6", "Text7", "tCrMobilePay", "Text8"}, true,
      [](const Row& bill) {
        return !bill.is("BillType", "CASH/CREDIT") && !bill.is("BillType", "POINTS SALES");
      }));
}

// ---- profit ----

double percent(const Row& line) {
  const double quantity = line.number("Qty"), bought = line.number("PurRate");
  const double cost = quantity * bought;
  const double on_cost = (quantity * line.number("SaleRate") - cost) * 100 / cost;
  if (quantity < 0 && bought > 0) return -on_cost;
  if (quantity < 0 && bought == 0) return -100;
  return quantity > 0 && bought == 0 ? 100 : on_cost;
}
// A line of no quantity has no percentage, and the screens refuse to list it. One without a cost
// has none either, but that is a null.
bool has_no_percent(const Rows& lines) {
  return std::any_of(lines.begin(), lines.end(), [](const Row& line) {
    return line.number("Qty") == 0 && !line.is_null("PurRate");
  });
}

double profit(const Row& line) {
  return line.number("Qty") * line.number("SaleRate") - line.number("Qty") * line.number("PurRate");
}

const Reckonings& profit_sums() {
  static const Reckonings kSums = {{"Qty", cell("Qty")},
                                   {"Sales", amount_at_rate("SaleRate")},
                                   {"Purchase", amount_at_rate("PurRate")},
                                   {"Profit", profit}};
  return kSums;
}

Rows item_profit(const Rows& lines) {
  return grouped(lines, {"iCode", "iName", "mrp", "SaleRate", "PurRate"}, profit_sums(),
                 {{"Percent", percent}});
}

Box stock_value() {
  return reckoned([](const Rows& shop, const Asked&) {
    const Rows items = of(shop, "Items");
    return fitted(
        sum(items, [](const Row& item) { return item.number("Stock") * item.number("PurRate"); }),
        12);
  });
}

using Lines = std::function<Rows(const Rows& shop, const Asked&)>;

Report item_profit_list(const std::string& screen, const Lines& lines) {
  return {
      .screen = screen,
      .columns = figures({number(1, "iCode"), text(2, "iName"), number(3, "mrp"),
                          number(4, "SaleRate"), number(5, "PurRate")},
                         6, {"Qty", "Sales", "Purchase", "Profit", "Percent"}),
      .rows = [=](const Rows& shop, const Asked& asked) { return item_profit(lines(shop, asked)); },
      .boxes = {{"tTotalSales", sum_of(7)},
                {"tTotalPurchase", sum_of(8)},
                {"tTotalProfit", difference("tTotalSales", "tTotalPurchase")},
                {"tMargin", mean_of(10)},
                {"tTotalRows", count()},
                {"tStock", stock_value()}},
      .refuses = [=](const Rows& shop,
                     const Asked& asked) { return has_no_percent(lines(shop, asked)); }};
}

Rows all_lines(const Rows& shop, const Asked& asked) {
  return asked_of(shop, "Sales", asked);
}

// The percentage is reckoned on the rates, with the sign of what was sold on balance.
Report percent_band() {
  Report report = item_profit_list("frmProfitPercent", all_lines);
  report.inputs = "set Text1 -999999999999999\nset Text2 999999999999999\n";
  report.refuses = {};
  report.rows = [](const Rows& shop, const Asked& asked) {
    const Rows rows = with(item_profit(all_lines(shop, asked)), "Percent", [](const Row& row) {
      const double bought = row.number("PurRate"), sign = row.number("Qty") < 0 ? -1 : 1;
      return bought == 0 ? sign * 100 : (row.number("SaleRate") - bought) * 100 / bought * sign;
    });
    return where(rows, [](const Row& row) { return !row.is_null("Percent"); });
  };
  report.boxes.erase("tTotalRows");
  report.boxes["tMargin"] = {[](const Shown& shown) {
    const auto& boxes = shown.state["controls"];
    const double bought = shown_number(boxes["tTotalPurchase"]);
    return bought == 0 ? kNone : shown_number(boxes["tTotalProfit"]) / bought * 100;
  }};
  return report;
}

Report bill_profit() {
  return {.screen = "frmBillWiseProfit",
          .columns = figures({number(1, "BillNo"),
                              date(2, "S.BillDate"),
                              {3, "S.BillTime", Written::long_time},
                              number(4, "S.Counter"),
                              text(5, "S.Staff")},
                             6, {"Sales", "Purchase", "Profit", "Percent"}),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                const Rows lines =
                    joined(all_lines(shop, asked), "BillNo", of(shop, "SalesTemp"), "BillNo", "S.");
                return grouped(lines,
                               {"BillNo", "S.BillDate", "S.BillTime", "S.Counter", "S.Staff"},
                               profit_sums(), {{"Percent", percent}});
              },
          .boxes = {{"tTotalSales", sum_of(6)},
                    {"tTotalPurchase", sum_of(7)},
                    {"tTotalProfit", difference("tTotalSales", "tTotalPurchase")},
                    {"tMargin", mean_of(9)},
                    {"tTotalRows", count()}},
          .refuses = [](const Rows& shop,
                        const Asked& asked) { return has_no_percent(all_lines(shop, asked)); }};
}

double percent_on_rates(const Row& line) {
  const double bought = line.number("PurRate");
  const double cost = line.number("Qty") * bought;
  if (cost == 0) return 100;
  const double on_cost = (line.number("SaleRate") - bought) / bought * 100;
  return cost < 0 ? -on_cost : on_cost;
}

Report profit_of_bill() {
  return {.screen = "frmProfitView",
          .view = "",
          .choose = "",
          .choices = [](const Rows& shop) { return single(of(shop, "SalesTemp"), "BillNo"); },
          .opens_bill = true,
          .columns = {number(1, "iCode"), text(2, "iName"), number(3, "mrp"), number(4, "SaleRate"),
                      number(5, "PurRate"), figure(6, "Qty"), figure(7, "Percent")},
          .rows =
              [](const Rows& shop, const Asked& asked) {
                return with(numbered(of(shop, "Sales"), "BillNo", asked), "Percent",
                            percent_on_rates);
              },
          .boxes = {{"tTotal", of_header("SalesTemp", "BillNo", "NetAmount")},
                    {"tPercent", mean_of(7)},
                    {"tTotalRows", count()}}};
}

Report profit_summary() {
  const auto of_lines = [](const Number& value) {
    return reckoned([value](const Rows& shop, const Asked& asked) {
      return sum(all_lines(shop, asked), value);
    });
  };
  const auto of_table = [](const std::string& table, const std::string& name,
                           const std::string& day = "BillDate") {
    return reckoned([=](const Rows& shop, const Asked& asked) {
      return sum(asked_of(shop, table, asked, day), cell(name));
    });
  };
  Report report;
  report.screen = "FrmSaleProfit";
  report.grid = "";
  report.view = "press CmdView";
  report.boxes = {{"Text1", of_lines(amount_at_rate("SaleRate"))},
                  {"Text2", of_lines(amount_at_rate("PurRate"))},
                  {"tDiscount", of_table("SalesTemp", "DiscAmount")},
                  {"Text5", of_table("SalesTemp", "Total")},
                  {"Text6", of_table("PurchaseTemp", "NetAmount")},
                  {"Lstock", stock_value()}};
  report.boxes["Text3"] = reckoned([](const Rows& shop, const Asked& asked) {
    return sum(asked_of(shop, "Journal", asked, "TransDate"), [](const Row& entry) {
      return entry.number("LedgerType") == 10 ? entry.number("TransAmount") : 0;
    });
  });
  report.boxes["Text4"] = {[](const Shown& shown) {
    const auto& boxes = shown.state["controls"];
    return shown_number(boxes["Text1"]) - shown_number(boxes["Text2"]) -
           shown_number(boxes["Text3"]) - shown_number(boxes["tDiscount"]);
  }};
  return report;
}

Report exempt_sales() {
  return {.screen = "frmTotSales",
          .columns = item_columns(1),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                Rows lines =
                    joined(all_lines(shop, asked), "BillNo", of(shop, "SalesTemp"), "BillNo", "S.");
                lines = joined(lines, "iCode", of(shop, "Items"), "iCode", "I.");
                lines = joined(lines, "I.Supplier", of(shop, "Supplier"), "Sname", "Su.");
                lines = where(lines, [](const Row& row) { return row.is("Su.TaxType", "TOT"); });
                return sold_items(chosen(lines, "S.BillType", asked));
              },
          .boxes = {{"tTotal", sum_of(6)}}};
}

void add_profit(std::vector<Report>& all) {
  all.push_back(item_profit_list("frmMonthlyProfit", all_lines));
  all.push_back(item_profit_list("frmCatagoryProfit", [](const Rows& shop, const Asked& asked) {
    return chosen(joined(all_lines(shop, asked), "iCode", of(shop, "Items"), "iCode", "I."),
                  "I.Catagory", asked);
  }));
  all.push_back(percent_band());
  all.push_back(bill_profit());
  all.push_back(profit_of_bill());
  all.push_back(profit_summary());
  all.push_back(exempt_sales());
}

// ---- purchases ----

Report bills_of_type(const std::string& screen, const std::string& type, int gst_no,
                     const std::vector<std::string>& cells, std::map<std::string, Box> boxes) {
  const int first = gst_no + 3;
  std::vector<Column> columns = {text(gst_no, "GstNo"), text(gst_no + 1, "BillNo"),
                                 date(gst_no + 2, "BillDate")};
  if (gst_no == 2) columns.push_back(number(1, "GrnNo"));
  const int supplier = first + static_cast<int>(cells.size());
  columns.push_back(text(supplier, "Sname"));
  return {.screen = screen,
          .columns = figures(std::move(columns), first, cells),
          .rows =
              [type](const Rows& shop, const Asked& asked) {
                return where(asked_of(shop, "PurchaseTemp", asked),
                             [&](const Row& note) { return note.is("TaxType", type); });
              },
          .boxes = std::move(boxes)};
}

// Notes with lines; one whose lines are gone is not listed.
Rows notes_with_margin(const Rows& shop, const Asked& asked) {
  const Rows notes = chosen(asked_of(shop, "PurchaseTemp", asked), "Sname", asked);
  return grouped(joined(notes, "GrnNo", of(shop, "Purchase"), "GrnNo", "T."),
                 {"GrnNo", "BillNo", "BillDate", "Sname", "GrossAmount", "SplDiscount",
                  "SplDiscAmt", "NetAmount"},
                 {}, {{"Margin", cell("T.MarginPer")}});
}

Report purchase_notes(const std::string& screen) {
  Report report;
  report.screen = screen;
  report.columns =
      figures({number(1, "GrnNo"), text(2, "BillNo"), date(3, "BillDate"), text(4, "Sname")}, 5,
              {"GrossAmount", "SplDiscount", "SplDiscAmt", "NetAmount", "Margin"});
  report.rows = notes_with_margin;
  report.boxes = {{"Text1", sum_of(8)}};
  if (screen == "frmMPreport")
    report.boxes["tMargin"] = {[](const Shown& shown) {
      if (shown.reckoned.empty()) return kNone;
      return sum(shown.reckoned, cell("Margin")) / static_cast<double>(shown.reckoned.size());
    }};
  return report;
}

double line_tax(const Row& line) {
  return line.number("iCGstAmt") + line.number("iSGstAmt") + line.number("iIGstAmt");
}

Report bought_items() {
  return {
      .screen = "frmItemPurchaseReport",
      .columns = figures({number(1, "iCode"), text(2, "iName"), figure(3, "Qty"), figure(4, "FQty"),
                          figure(5, "All"), number(6, "mrp"), number(7, "PurRate")},
                         8, {"Value", "DiscAmt", "Amount", "Tax", "Total"}),
      .rows = [](const Rows& shop, const Asked& asked) {
        const Rows lines = chosen(asked_of(shop, "Purchase", asked), "sname", asked);
        Rows rows = grouped(lines, {"iCode", "iName", "mrp", "PurRate"},
                            {{"Qty", cell("Qty")},
                             {"FQty", cell("FQty")},
                             {"DiscAmt", cell("DiscAmt")},
                             {"Amount", cell("Amount")},
                             {"Tax", line_tax},
                             {"Total", cell("Total")}});
        rows = with(rows, "Value", amount_at_rate("PurRate"));
        return with(rows, "All",
                    [](const Row& row) { return row.number("Qty") + row.number("FQty"); });
      }};
}

// The rate and the amount are texts of 8 and 10 characters.
Report bought_items_at_rate() {
  return {.screen = "frmIWPurRep",
          .columns = {number(0, "iCode"), text(1, "iName"), figure(2, "Qty"), figure(3, "FQty"),
                      figure(4, "All"), figure(5, "Rate"), figure(6, "Amount")},
          .rows =
              [](const Rows& shop, const Asked& asked) {
                Rows rows =
                    grouped(asked_of(shop, "Purchase", asked), {"iCode", "iName", "PurRate"},
                            {{"Qty", cell("Qty")}, {"FQty", cell("FQty")}});
                rows = with(rows, "All",
                            [](const Row& row) { return row.number("Qty") + row.number("FQty"); });
                rows = with(rows, "Rate",
                            [](const Row& row) { return fitted(row.number("PurRate"), 8, 3); });
                return with(rows, "Amount", [](const Row& row) {
                  return fitted(row.number("Qty") * row.number("PurRate"), 10);
                });
              },
          .boxes = {{"LTotal", sum_of(6)}}};
}

Report bought_of_suppliers() {
  return {.screen = "frmTotalPurchase",
          .columns = {number(1, "Scode"), text(2, "Sname"), text(3, "GstNo"), text(4, "TaxType"),
                      figure(5, "NetAmount")},
          .rows =
              [](const Rows& shop, const Asked& asked) {
                return grouped(asked_of(shop, "PurchaseTemp", asked),
                               {"Scode", "Sname", "GstNo", "TaxType"},
                               {{"NetAmount", cell("NetAmount")}});
              },
          .boxes = {{"tTotal", sum_of(5)}}};
}

Report purchase_note(const std::string& screen) {
  Report report;
  report.screen = screen;
  report.choose = "set tGrnNo ";
  report.choices = [](const Rows& shop) { return single(of(shop, "PurchaseTemp"), "GrnNo"); };
  report.columns =
      figures({number(1, "iCode"), text(2, "iName"), text(18, "iHSNcode")}, 3,
              {"Qty", "FQty", "mrp", "PurRate", "DiscPer", "DiscAmt", "Amount", "iCGst", "iCGstAmt",
               "iSGst", "iSGstAmt", "iIGst", "iIGstAmt", "Total", "MarginPer"});
  report.rows = [](const Rows& shop, const Asked& asked) {
    return numbered(of(shop, "Purchase"), "GrnNo", asked);
  };
  const std::pair<const char*, const char*> kCells[] = {
      {"tSaleValue", "TotalValue"},        {"tSchemeAmount", "TotalDiscount"},
      {"tAfterDiscount", "AfterDiscount"}, {"tTotalCGST_Amt", "TotalCGST"},
      {"tTotalSGST_Amt", "TotalSGST"},     {"tTotalIGST_Amt", "TotalIGST"},
      {"LTotal", "GrossAmount"},           {"TSdiscper", "SplDiscount"},
      {"TsDiscAmt", "SplDiscAmt"},         {"LNetrate", "NetAmount"},
      {"lblTotalQty", "TotalQty"}};
  for (const auto& [box, cell] : kCells)
    report.boxes[box] = of_header("PurchaseTemp", "GrnNo", cell);
  if (screen == "frmPurBillView")
    report.boxes["tCessAmt"] = of_header("PurchaseTemp", "GrnNo", "CessAmount");
  report.boxes["tTotalMargin"] = mean_of(17);
  return report;
}

void add_purchases(std::vector<Report>& all) {
  all.push_back(bills_of_type("frmTotPurchaseReport", "TOT", 2,
                              {"NetAmount", "TotalValue", "TotalCGST", "TotalSGST"},
                              {{"tTotal", sum_of(5)},
                               {"tBasicAmount", sum_of(6)},
                               {"tCgst", sum_of(7)},
                               {"tSgst", sum_of(8)}}));
  all.push_back(bills_of_type("frmSgstPurchase", "SGST", 1,
                              {"NetAmount", "TotalValue", "TotalCGST", "TotalSGST"},
                              {{"tTotal", sum_of(4)},
                               {"tBasicAmount", sum_of(5)},
                               {"tCgst", sum_of(6)},
                               {"tSgst", sum_of(7)}}));
  all.push_back(
      bills_of_type("frmIgstPurchase", "IGST", 1, {"NetAmount", "TotalValue", "TotalIGST"},
                    {{"tTotal", sum_of(4)}, {"tBasicAmount", sum_of(5)}, {"tCgst", sum_of(6)}}));
  all.push_back(purchase_notes("frmMPreport"));
  all.push_back(purchase_notes("frmmonthlyPR"));
  all.push_back(bought_items());
  all.push_back(bought_items_at_rate());
  all.push_back(bought_of_suppliers());
  all.push_back(purchase_note("frmPurBillView"));
  all.push_back(purchase_note("frmPurchaseView"));
}

// ---- stock ----

// What moved of an item over some days.
double moved(const Rows& movements, const Row& item, const Number& quantity) {
  return sum(
      where(movements, [&](const Row& row) { return row.number("iCode") == item.number("iCode"); }),
      quantity);
}

// Free goods count for the stock at the start of the period, and not within it.
Rows stock(const Rows& shop, const Asked& asked) {
  const std::string before = later(asked.period.first, -1);
  const auto of_days = [&](const std::string& table, const std::string& day, bool earlier) {
    return earlier ? within(of(shop, table), day, "", before) : asked_of(shop, table, asked, day);
  };
  Rows rows;
  for (Row item : of(shop, "Items")) {
    if (item.is_null("CreatedDate")) continue;
    double opening = 0, sold = 0, bought = 0, adjusted = 0;
    if (item.text("CreatedDate") < asked.period.last) {
      const auto with_free = [](const Row& row) { return row.number("Qty") + row.number("FQty"); };
      opening = item.number("OpStock") +
                moved(of_days("Purchase", "BillDate", true), item, with_free) +
                moved(of_days("StockAdjust", "AdjustDate", true), item, cell("AdjustQty")) -
                moved(of_days("Sales", "BillDate", true), item, cell("Qty"));
      sold = moved(of_days("Sales", "BillDate", false), item, cell("Qty"));
      bought = moved(of_days("Purchase", "BillDate", false), item, cell("Qty"));
      adjusted = moved(of_days("StockAdjust", "AdjustDate", false), item, cell("AdjustQty"));
    }
    item.cells["Opening"] = opening;
    item.cells["Sold"] = sold;
    item.cells["Bought"] = bought;
    item.cells["Adjusted"] = adjusted;
    item.cells["Closing"] = opening + bought + adjusted - sold;
    rows.push_back(std::move(item));
  }
  return rows;
}

Report optimum_stock() {
  return {.screen = "frmOptimumStock",
          .columns = {number(1, "iCode"), text(2, "iName"), number(3, "mrp"), figure(4, "Qty"),
                      text(5, "I.Supplier"), figure(6, "Level")},
          .rows = [](const Rows& shop, const Asked& asked) {
            const Rows sold = all_lines(shop, asked);
            const Rows items = of(shop, "Items");
            Rows lines = chosen(joined(sold, "iCode", items, "iCode", "I."), "I.Supplier", asked);
            if (asks_for_all(asked))
              for (const Row& line : unmatched(sold, "iCode", items, "iCode"))
                lines.push_back(line);
            return with(
                grouped(lines, {"iCode", "iName", "mrp", "I.Supplier"}, {{"Qty", cell("Qty")}}),
                "Level", [](const Row& row) { return std::round(row.number("Qty") * 30 / 100); });
          }};
}

Report rate_differences() {
  return {.screen = "frmSaleRateDiff",
          .columns = {number(0, "BillNo"),
                      date(1, "BillDate"),
                      {2, "S.BillTime", Written::time},
                      number(3, "Counter"),
                      text(4, "Staff"),
                      number(5, "iCode"),
                      text(6, "iName"),
                      figure(7, "Mrp"),
                      figure(8, "SaleRate"),
                      figure(9, "SaleRateA"),
                      figure(10, "Difference")},
          .rows =
              [](const Rows& shop, const Asked& asked) {
                const Rows changed = of_counter(asked_of(shop, "BillRateChanged", asked), asked);
                return with(joined(changed, "BillNo", of(shop, "SalesTemp"), "BillNo", "S."),
                            "Difference", [](const Row& row) {
                              return row.number("SaleRateA") - row.number("SaleRate");
                            });
              },
          .boxes = {{"tTotal", sum_of(10)}}};
}

void add_stock(std::vector<Report>& all) {
  all.push_back({.screen = "frmStockReport",
                 .columns = figures({number(1, "iCode"), text(2, "iName")}, 3,
                                    {"Opening", "Sold", "Bought", "Adjusted", "Closing"}),
                 .rows = stock});
  all.push_back(optimum_stock());
  all.push_back({.screen = "frmStockZero",
                 .columns = figures({number(0, "iCode"), text(1, "iName")}, 2,
                                    {"mrp", "SaleRate", "OpStock", "ministock", "Stock"}),
                 .rows =
                     [](const Rows& shop, const Asked&) {
                       return where(of(shop, "Items"),
                                    [](const Row& item) { return item.number("Stock") <= 0; });
                     },
                 .boxes = {{"tTotal", {[](const Shown& shown) {
                              double value = 0;
                              for (const auto& row : shown.rows)
                                value += shown_number(row[3]) * shown_number(row[6]);
                              return value;
                            }}}}});
  all.push_back({.screen = "frmStockAdjustReport",
                 .columns = {number(1, "iCode"), text(2, "iName"), figure(3, "OpStock"),
                             figure(4, "AdjustQty"), figure(5, "ClStock"), date(6, "AdjustDate")},
                 .rows = [](const Rows& shop, const Asked& asked) {
                   Rows rows = asked_of(shop, "StockAdjust", asked, "AdjustDate");
                   for (const char* cell : {"OpStock", "AdjustQty", "ClStock"})
                     rows = with(rows, cell, fitted(cell));
                   return rows;
                 }});
  all.push_back({.screen = "frmProductEditReport",
                 .columns = {number(1, "iCode"),
                             text(2, "iLongName"),
                             text(3, "barcode"),
                             figure(4, "mrp"),
                             figure(5, "OldRate"),
                             figure(6, "SaleRate"),
                             date(7, "ModifiedDate"),
                             {8, "ModifiedTime", Written::long_time}},
                 .rows = [](const Rows& shop, const Asked& asked) {
                   return asked_of(shop, "ProductEdit", asked, "ModifiedDate");
                 }});
  all.push_back(rate_differences());
  all.push_back({.screen = "frmGiftAndPoints",
                 .view = "",
                 .columns = {number(0, "GiftCode"), text(1, "GiftName"), figure(2, "NoOfPoints")},
                 .rows = [](const Rows& shop, const Asked&) { return of(shop, "GiftPoints"); }});
}

Report category_lines(const std::string& screen, const std::string& amount_box,
                      const std::string& quantity_box, bool through_text) {
  return {
      .screen = screen,
      .columns = {number(0, "BillNo"), date(1, "BillDate"), number(2, "iCode"), text(3, "iName"),
                  figure(4, "Amount"), figure(5, "Qty"), text(6, "I.Catagory")},
      .rows =
          [=](const Rows& shop, const Asked& asked) {
            const Rows lines =
                joined(all_lines(shop, asked), "iCode", of(shop, "Items"), "iCode", "I.");
            const Rows rows =
                grouped(chosen(lines, "I.Catagory", asked),
                        {"BillNo", "BillDate", "iCode", "iName", "Amount", "I.Catagory"},
                        {{"Qty", cell("Qty")}});
            return through_text ? with(rows, "Amount", fitted("Amount")) : rows;
          },
      .boxes = {{amount_box, sum_of(4)}, {quantity_box, sum_of(5)}}};
}

// ---- charts ----

Report chart(const std::string& screen, Column label, double slack, const Lines& rows) {
  Report report;
  report.screen = screen;
  report.grid = "chart";
  report.choices = [](const Rows&) { return std::vector<std::string>(); };
  report.columns = {std::move(label), figure(1, "Value", slack)};
  report.rows = rows;
  return report;
}

Rows sales_by(const std::string& key, const Rows& shop, const Asked& asked) {
  return grouped(asked_of(shop, "SalesTemp", asked), {key}, {{"Value", cell("NetAmount")}});
}

// The last day of a year's chart is left out.
Rows sales_by_month(const Rows& shop, const Asked& asked) {
  static const char* const kMonths[] = {"January",   "February", "March",    "April",
                                        "May",       "June",     "July",     "August",
                                        "September", "October",  "November", "December"};
  Rows bills =
      within(of(shop, "SalesTemp"), "BillDate", asked.period.first, later(asked.period.last, -1));
  for (Row& bill : bills) {
    const std::string& day = bill.text("BillDate");
    const auto month = static_cast<std::size_t>(std::stoi(day.substr(5, 2)) - 1);
    bill.cells["Month"] = std::string(kMonths[month]) + " " + day.substr(0, 4);
  }
  return grouped(bills, {"Month"}, {{"Value", cell("NetAmount")}});
}

// The thirty of which most was sold; a small shop has no more.
Rows categories_sold(const Rows& shop, const Asked& asked) {
  return grouped(joined(all_lines(shop, asked), "iCode", of(shop, "Items"), "iCode", "I."),
                 {"I.Catagory"}, {{"Value", cell("Qty")}});
}

Rows rates_of_item(const Rows& shop, const Asked& asked) {
  const Rows rates = grouped(numbered(all_lines(shop, asked), "iCode", asked), {"SaleRate"}, {});
  return with(rates, "Value", cell("SaleRate"));
}

void add_charts(std::vector<Report>& all) {
  const auto by = [](const std::string& key) {
    return [key](const Rows& shop, const Asked& asked) { return sales_by(key, shop, asked); };
  };
  all.push_back(chart("frmBarChart", text(0, "Month"), 0.0051, sales_by_month));
  all.push_back(chart("frmBarChartDay", date(0, "BillDate"), 0.0051, by("BillDate")));
  all.push_back(chart("frmBarChartCatagory", text(0, "I.Catagory"), kWholeNumber, categories_sold));
  all.push_back(chart("frmBarChartUser", text(0, "Staff"), kWholeNumber, by("Staff")));
  all.push_back(chart("frmBarChartCounter", text(0, "Label"), kWholeNumber,
                      [](const Rows& shop, const Asked& asked) {
                        Rows rows = sales_by("Counter", shop, asked);
                        for (Row& row : rows)
                          row.cells["Label"] = "Counter _ " + plain_number(row.number("Counter"));
                        return rows;
                      }));
  Report costs = chart("frmBarChartCost", number(0, "SaleRate"), kWholeNumber, rates_of_item);
  costs.choose = "set Text1 ";
  costs.choices = [](const Rows& shop) { return single(of(shop, "Items"), "iCode"); };
  all.push_back(costs);
}

// ---- taxes ----

Number taxable_at(std::vector<std::string> rates) {
  return [rates = std::move(rates)](const Row& line) {
    double percent = 100;
    for (const std::string& rate : rates) percent += line.number(rate);
    return line.number("Amount") / percent * 100;
  };
}
Number share(const Number& of, const std::string& rate) {
  return [=](const Row& line) { return of(line) * line.number(rate) / 100; };
}
const Number& basic() {
  static const Number kBasic = taxable_at({"iCGst", "iSGst"});
  return kBasic;
}
Number at_rate(double rate, const Number& of) {
  return [=](const Row& line) { return line.number("iIGst") == rate ? of(line) : 0; };
}

// Days with the first and the last of their bills.
Rows days(const Rows& lines, const Reckonings& sums) {
  Rows rows = grouped(lines, {"BillDate"}, sums);
  const auto of_day = [&](const Row& day) {
    return where(lines, [&](const Row& line) { return line.is("BillDate", day.text("BillDate")); });
  };
  const auto by_number = [](const Row& one, const Row& other) {
    return one.number("BillNo") < other.number("BillNo");
  };
  for (Row& row : rows) {
    const Rows bills = of_day(row);
    const auto [first, last] = std::minmax_element(bills.begin(), bills.end(), by_number);
    row.cells["First"] = first->number("BillNo");
    row.cells["Last"] = last->number("BillNo");
  }
  return rows;
}

Report days_of_tax() {
  return {
      .screen = "frmDateWise",
      .columns = figures({figure(1, "First"), figure(2, "Last"), date(3, "BillDate")}, 4,
                         {"Amount", "Taxable", "Central", "State"}),
      .rows =
          [](const Rows& shop, const Asked& asked) {
            return days(all_lines(shop, asked), {{"Amount", cell("Amount")},
                                                 {"Taxable", basic()},
                                                 {"Central", share(basic(), "iCGst")},
                                                 {"State", share(basic(), "iSGst")}});
          },
      .boxes = {
          {"Text2", sum_of(4)}, {"Text3", sum_of(5)}, {"Text4", sum_of(6)}, {"Text5", sum_of(7)}}};
}

Report rates_below_the_days() {
  Report report;
  report.screen = "frmDateWise";
  report.grid = "MSHFlexGrid1";
  // The tax is what two cells differ by, as they are shown.
  report.columns = {figure(1, "Amount"), number(2, "iIGst"), figure(3, "Taxable"),
                    figure(4, "Tax", 0.0101)};
  report.rows = [](const Rows& shop, const Asked& asked) {
    const Rows rows = grouped(all_lines(shop, asked), {"iIGst"},
                              {{"Amount", cell("Amount")}, {"Taxable", taxable_at({"iIGst"})}});
    return with(rows, "Tax",
                [](const Row& row) { return row.number("Amount") - row.number("Taxable"); });
  };
  return report;
}

// A line at none of the five rates stands in no column, but its day has a row.
Report days_at_five_rates() {
  std::vector<std::string> cells = {"Sales0"};
  Reckonings sums = {{"Sales0", at_rate(0, cell("Amount"))}};
  for (const int rate : {5, 12, 18, 28}) {
    const Number taxable = at_rate(
        rate, [rate](const Row& line) { return line.number("Amount") / (100 + rate) * 100; });
    const std::string name = std::to_string(rate);
    sums.emplace_back("Sales" + name, taxable);
    sums.emplace_back("Tax" + name, share(taxable, "iIGst"));
    cells.push_back("Sales" + name);
    cells.push_back("Tax" + name);
  }
  return {
      .screen = "frmDateWiseGst",
      .columns = figures({figure(1, "First"), figure(2, "Last"), date(3, "BillDate")}, 4, cells),
      .rows = [sums](const Rows& shop, const Asked& asked) {
        return days(all_lines(shop, asked), sums);
      }};
}

Report sales_by_hsn() {
  return {.screen = "frmHsnSalesReport",
          .columns = figures({text(1, "iHSNcode")}, 2,
                             {"Qty", "Amount", "Taxable", "None", "Central", "State"}),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                return grouped(all_lines(shop, asked), {"iHSNcode"},
                               {{"Qty", cell("Qty")},
                                {"Amount", cell("Amount")},
                                {"Taxable", basic()},
                                {"Central", share(basic(), "iCGst")},
                                {"State", share(basic(), "iSGst")}});
              },
          .boxes = {{"tBasicAmount", sum_of(4)},
                    {"tIgst", sum_of(5)},
                    {"tCgst", sum_of(6)},
                    {"tSgst", sum_of(7)}}};
}

Report sales_by_rate() {
  static const Number kTaxable = taxable_at({"iIGst", "CessPercent"});
  return {
      .screen = "frmRateOfTax",
      .columns = {figure(1, "Amount"), number(2, "iIGst"), figure(3, "Taxable"), figure(4, "Tax")},
      .rows =
          [](const Rows& shop, const Asked& asked) {
            return grouped(all_lines(shop, asked), {"iIGst"},
                           {{"Amount", cell("Amount")},
                            {"Taxable", kTaxable},
                            {"Tax", share(kTaxable, "iIGst")}});
          },
      .boxes = {{"tTotalSales", sum_of(3)},
                {"tTotalSalesGst", sum_of(4)},
                {"tCess", reckoned([](const Rows& shop, const Asked& asked) {
                   return sum(all_lines(shop, asked), share(kTaxable, "CessPercent"));
                 })},
                {"tCessAmount", reckoned([](const Rows& shop, const Asked& asked) {
                   return sum(asked_of(shop, "PurchaseTemp", asked), cell("CessAmount"));
                 })}}};
}

Report stored_tax(const std::string& screen, const std::string& grid, const std::string& table,
                  const std::string& type, const std::string& amount_box,
                  const std::string& tax_box) {
  return {.screen = screen,
          .grid = grid,
          .columns = {figure(1, "Amount"), number(2, "iIGst"), figure(3, "Tax")},
          .rows =
              [=](const Rows& shop, const Asked& asked) {
                const Rows lines = where(asked_of(shop, table, asked),
                                         [&](const Row& line) { return line.is("TaxType", type); });
                return grouped(lines, {"iIGst"}, {{"Amount", cell("Amount")}, {"Tax", line_tax}});
              },
          .boxes = {{amount_box, sum_of(1)}, {tax_box, sum_of(3)}}};
}

// Goods at rate 0 are exempt: they count as value, not as taxable value.
Report business_by_hsn() {
  return {.screen = "frmHsnB2B",
          .columns = figures({text(1, "iHSNcode")}, 2,
                             {"Qty", "Amount", "Taxable", "iIGstAmt", "iCGstAmt", "iSGstAmt"}),
          .rows =
              [](const Rows& shop, const Asked& asked) {
                const Rows rows = grouped(asked_of(shop, "Sales1", asked), {"iHSNcode", "iIGst"},
                                          {{"Qty", cell("Qty")},
                                           {"Amount", cell("Amount")},
                                           {"iIGstAmt", cell("iIGstAmt")},
                                           {"iCGstAmt", cell("iCGstAmt")},
                                           {"iSGstAmt", cell("iSGstAmt")}});
                return with(rows, "Taxable", [](const Row& row) {
                  return row.number("iIGst") == 0 ? 0 : row.number("Amount");
                });
              },
          .boxes = {{"tBasicAmount", sum_of(4)},
                    {"tIgst", sum_of(5)},
                    {"tCgst", sum_of(6)},
                    {"tSgst", sum_of(7)}}};
}

Report bills_by_rate(const std::string& screen, const std::vector<std::string>& shown,
                     const Lines& lines, const std::vector<std::string>& keys) {
  return {.screen = screen,
          .columns = {text(1, shown[0]), text(2, shown[1]), date(3, shown[2]), figure(4, shown[3]),
                      figure(5, "iIGst", kWholeNumber), figure(6, "Amount"), figure(7, "Tax"),
                      text(8, shown[4])},
          .rows =
              [=](const Rows& shop, const Asked& asked) {
                return grouped(lines(shop, asked), keys,
                               {{"Amount", cell("Amount")}, {"Tax", line_tax}});
              },
          .boxes = {{"tIgst", sum_of(6)}, {"tCgst", sum_of(7)}}};
}

Rows business_lines(const Rows& shop, const Asked& asked) {
  return joined(of(shop, "Sales1"), "BillNo", asked_of(shop, "SalesTemp1", asked), "BillNo", "ST.");
}

// Lines of which the note is gone are listed without what the note says.
Rows taxed_purchases(const Rows& shop, const Asked& asked) {
  const Rows lines = where(asked_of(shop, "Purchase", asked),
                           [](const Row& line) { return !line.is("TaxType", "TOT"); });
  const Rows notes = of(shop, "PurchaseTemp");
  Rows all = joined(lines, "GrnNo", notes, "GrnNo", "T.");
  for (const Row& line : unmatched(lines, "GrnNo", notes, "GrnNo")) all.push_back(line);
  return all;
}

Report changed_rates() {
  return {.screen = "frmGstModifySales",
          .columns = {number(1, "iCode"), text(2, "iHSNcode"), text(3, "iName"), number(4, "mrp"),
                      number(5, "SaleRate"), number(6, "iCGst"), number(7, "iSGst"),
                      number(8, "iIGst")},
          .rows = [](const Rows& shop, const Asked& asked) {
            return grouped(
                numbered(all_lines(shop, asked), "iIGst", asked),
                {"iCode", "iHSNcode", "iName", "mrp", "SaleRate", "iCGst", "iSGst", "iIGst"}, {});
          }};
}

void add_taxes(std::vector<Report>& all) {
  all.push_back(days_of_tax());
  all.push_back(rates_below_the_days());
  all.push_back(days_at_five_rates());
  all.push_back(sales_by_hsn());
  all.push_back(sales_by_rate());
  all.push_back(
      stored_tax("frmRateOfTax", "MSHF1", "Purchase", "SGST", "tTotalPurchase", "tTotalPurGst"));
  all.push_back(
      stored_tax("frmRateOfGstI", "MSHF1", "Purchase", "IGST", "tTotalPurchase", "tTotalPurGst"));
  all.push_back(
      stored_tax("frmRateOfGstB2B", "MSHF", "Sales1", "SGST", "tTotalSales", "tTotalSalesGst"));
  all.push_back(business_by_hsn());
  all.push_back(bills_by_rate(
      "frmBtoB", {"ST.GstNo", "BillNoText", "ST.BillDate", "ST.NetAmount", "ST.Cname"},
      [](const Rows& shop, const Asked& asked) {
        Rows lines = business_lines(shop, asked);
        for (Row& line : lines) line.cells["BillNoText"] = plain_number(line.number("BillNo"));
        return lines;
      },
      {"ST.GstNo", "BillNoText", "ST.BillDate", "ST.NetAmount", "iIGst", "ST.Cname"}));
  all.push_back(bills_by_rate("frmPurchaseReport",
                              {"T.GstNo", "BillNo", "BillDate", "T.AfterDiscount", "T.Sname"},
                              taxed_purchases,
                              {"GrnNo", "BillNo", "BillDate", "iIGst", "TaxType", "T.AfterDiscount",
                               "T.GstNo", "T.Sname"}));
  all.push_back(changed_rates());
}

}  // namespace

const std::vector<Report>& all_reports() {
  static const std::vector<Report> kReports = [] {
    std::vector<Report> all;
    add_bill_lists(all);
    add_sales(all);
    add_profit(all);
    add_purchases(all);
    add_stock(all);
    all.push_back(category_lines("frmCatSaleDelete", "tTotal", "tTotalQty", false));
    all.push_back(category_lines("frmCatWSaleDelete", "ltotsales", "ltotprofit", true));
    add_charts(all);
    add_taxes(all);
    return all;
  }();
  return kReports;
}

}  // namespace tela::testing
