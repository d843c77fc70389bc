// Which sums of which screens must come out alike, and by what rule roundings may part them.
#include "shops/reports.h"

namespace tela::testing {

namespace {

// The month's list writes an amount of more than eight characters as none.
constexpr std::size_t kEight = 8;

Side box(double factor, std::string screen, std::string name, Over over = Over::all) {
  return {.factor = factor, .screen = std::move(screen), .box = std::move(name), .over = over};
}
Side column(double factor, std::string screen, int column, std::size_t fitting = 99,
            Over over = Over::all) {
  return {.factor = factor,
          .screen = std::move(screen),
          .column = column,
          .fitting = fitting,
          .over = over};
}
Side in_grid(Side side, std::string grid) {
  side.grid = std::move(grid);
  return side;
}
// A chart shows whole numbers.
Side bars(double factor, std::string screen, double slack = 0.51) {
  Side side = in_grid(column(factor, std::move(screen), 1), "chart");
  side.slack = slack;
  return side;
}

void add_sales(std::vector<Relation>& all) {
  for (const int amount : {3, 4, 5, 7, 8, 10})
    all.push_back(
        {"cash and credit make the month",
         {column(1, "frmmonthlySR", amount), column(-1, "frmMonthlyCashSales", amount, kEight),
          column(-1, "frmMonthlyCreditSales", amount, kEight)}});
  for (const char* total : {"tTotalAmount", "Text1", "Text2", "Text3", "tMobilePay", "Text4"}) {
    all.push_back({"the days make the month",
                   {box(1, "frmmonthlySR", total), box(-1, "frmDailyS_R", total, Over::each_day)}});
    all.push_back(
        {"the counters make the month",
         {box(1, "frmmonthlySR", total), box(-1, "frmmonthlySR", total, Over::each_choice)}});
    all.push_back(
        {"the users make the month",
         {box(1, "frmmonthlySR", total), box(-1, "frmUserReport", total, Over::each_choice)}});
    all.push_back({"the days make the cash sales of the month",
                   {box(1, "frmMonthlyCashSales", total),
                    box(-1, "frmDailyCashsales", total, Over::each_day)}});
    all.push_back({"the counters' cash sales are those of the month",
                   {box(1, "frmMonthlyCashSales", total), box(-1, "frmDetailSales1", total)}});
  }
  all.push_back(
      {"mobile payments by kind are those of the month",
       {box(1, "frmMobilePayDetails", "tTotalAmount"), box(-1, "frmmonthlySR", "tMobilePay")}});
  for (const char* chart : {"frmBarChartCounter", "frmBarChartUser"})
    all.push_back({"the bars of a chart make the bills",
                   {bars(1, chart), column(-1, "frmMonthlyCashSales", 3),
                    column(-1, "frmMonthlyCreditSales", 3)}});
  all.push_back({"the bars of the days make the bills",
                 {bars(1, "frmBarChartDay", 0.0051), column(-1, "frmMonthlyCashSales", 3),
                  column(-1, "frmMonthlyCreditSales", 3)}});
  all.push_back({"the discount of the summary is that of the bills",
                 {box(1, "FrmSaleProfit", "tDiscount"), column(-1, "frmMonthlyCashSales", 4),
                  column(-1, "frmMonthlyCreditSales", 4)}});
  all.push_back({"the sales of the summary are those of the bills",
                 {box(1, "FrmSaleProfit", "Text5"), box(-1, "frmMonthlyCashSales", "tTotalAmount"),
                  box(-1, "frmMonthlyCreditSales", "tTotalAmount")}});
}

void add_lines(std::vector<Relation>& all) {
  all.push_back(
      {"the items of the days are the items of the month",
       {column(1, "frmItemSalesReport", 5), column(-1, "frmdailyIwiseSR", 4, 99, Over::each_day)}});
  all.push_back({"the quantity of the items is that of the profit list",
                 {box(1, "frmItemSalesReport", "tTotalQty"), column(-1, "frmMonthlyProfit", 6)}});
  all.push_back({"what there was, came and went is what there is",
                 {column(1, "frmStockReport", 3), column(-1, "frmStockReport", 4),
                  column(1, "frmStockReport", 5), column(1, "frmStockReport", 6),
                  column(-1, "frmStockReport", 7)}});
  for (const auto& [summary, list] : {std::pair("Text1", 7), std::pair("Text2", 8)})
    all.push_back({"the summary is the profit list",
                   {box(1, "FrmSaleProfit", summary), column(-1, "frmMonthlyProfit", list)}});
}

void add_taxes(std::vector<Relation>& all) {
  const Side sold = box(1, "frmDateWise", "Text2");
  all.push_back({"days and rates hold the same sales",
                 {sold, in_grid(column(-1, "frmDateWise", 1), "MSHFlexGrid1")}});
  all.push_back(
      {"days and HSN codes hold the same sales", {sold, column(-1, "frmHsnSalesReport", 3)}});
  all.push_back(
      {"days and rates of tax hold the same sales", {sold, column(-1, "frmRateOfTax", 1)}});
  all.push_back({"taxable value, tax and cess are the sales",
                 {sold, box(-1, "frmRateOfTax", "tTotalSales"),
                  box(-1, "frmRateOfTax", "tTotalSalesGst"), box(-1, "frmRateOfTax", "tCess")}});
  all.push_back({"taxable value and tax by day are the sales",
                 {sold, box(-1, "frmDateWise", "Text3"), box(-1, "frmDateWise", "Text4"),
                  box(-1, "frmDateWise", "Text5")}});
  for (const auto& [day, code] : {std::pair("Text3", "tBasicAmount"), std::pair("Text4", "tCgst"),
                                  std::pair("Text5", "tSgst")})
    all.push_back({"days and HSN codes hold the same tax",
                   {box(1, "frmDateWise", day), box(-1, "frmHsnSalesReport", code)}});
}

void add_purchases(std::vector<Relation>& all) {
  all.push_back({"the three tax types make the purchases",
                 {box(1, "frmTotalPurchase", "tTotal"), box(-1, "frmTotPurchaseReport", "tTotal"),
                  box(-1, "frmSgstPurchase", "tTotal"), box(-1, "frmIgstPurchase", "tTotal")}});
  all.push_back({"the purchases of the summary are those of the suppliers",
                 {box(1, "FrmSaleProfit", "Text6"), box(-1, "frmTotalPurchase", "tTotal")}});
  all.push_back({"the lines within and without the state are the purchases by bill and rate",
                 {box(1, "frmPurchaseReport", "tIgst"), box(-1, "frmRateOfTax", "tTotalPurchase"),
                  box(-1, "frmRateOfGstI", "tTotalPurchase")}});
  all.push_back({"so is their tax",
                 {box(1, "frmPurchaseReport", "tCgst"), box(-1, "frmRateOfTax", "tTotalPurGst"),
                  box(-1, "frmRateOfGstI", "tTotalPurGst")}});
}

}  // namespace

const std::vector<Relation>& all_relations() {
  static const std::vector<Relation> kRelations = [] {
    std::vector<Relation> all;
    add_sales(all);
    add_lines(all);
    add_taxes(all);
    add_purchases(all);
    return all;
  }();
  return kRelations;
}

}  // namespace tela::testing
