// The family of bill lists: one row a bill, with the way it was paid. Its columns, its payment
// split and its staging row stand here; a screen of the family adds which bills it lists.
#pragma once

#include <string>

#include "report_framework/grid_report.h"

namespace tela::bill_list {

/// The payment split of a bill in SQL. Of a bill paid at the till the cash part is not stored but
/// derived: what the bill came to, less the four other kinds of payment.
inline constexpr std::string_view kSelect =
    "select billno,billdate,BillTime,str(netamount,8,2)'NET AMT',str(DiscAmount,8,2)'Discount',"
    "str(Total,8,2),(case when BillType='CASH/CREDIT' or BillType='POINTS SALES' then "
    "Total-(CardPaid+MealsPaid+MobilePay+PointsUsed) else CashPaid end),str(CardPaid,8,2),"
    "str(MealsPaid,8,2),MobilePay,STR(PointsUsed,8,2) from salestemp where ";

/// The eleven columns, from "BILL NO" to "POINTS", with their total boxes.
GridColumns columns();

/// The total boxes and summary labels that go with the columns.
void add_results(std::vector<Control>& controls,
                 const std::string& mobile_pay_label = " TOTAL MOBILE PAY");

/// The bands cover the whole row.
inline constexpr BandSpan kBands{0, 10};

/// What a row of `SalesPrint` holds besides the bill.
struct Period {
  std::string from;    ///< under "DD/MMM/YYYY"
  std::string to;      ///< likewise
  std::string filter;  ///< the text of the counter or user combo, trimmed
};

/// The staging of the rows that have a bill number into `SalesPrint`.
Staging staging(const Grid& grid, const Period& period);

inline constexpr std::string_view kReportFile = "SalesReport.rpt";
inline constexpr std::string_view kReportQuery = "SELECT * FROM SalesPrint";

}  // namespace tela::bill_list
