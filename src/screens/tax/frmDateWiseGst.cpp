// Sales day by day, with a pair of columns for each of the rates 5, 12, 18 and 28 and one column
// for rate 0. A line at another rate shows in no column, but its day has a row.
#include <string_view>

#include "screens/tax/tax_list.h"

namespace tela {

namespace {

constexpr std::string_view kList =
    "select min(billno),max(BillNo),BillDate,sum(Sales0),sum(Sales5),sum(Sales5)*5/100,"
    "sum(Sales12),sum(Sales12)*12/100,sum(Sales18),sum(Sales18)*18/100,sum(Sales28),"
    "sum(Sales28)*28/100 from SalesGst group by Billdate ORDER BY Billdate";

std::vector<Statements> staging(const Period& period) {
  return {{"Delete from SalesGst"},
          {"Insert Into SalesGst select sales.billno,sales.billdate,"
           "(case when iigst=0 then sum(amount) else 0 end) as Amount_0,"
           "(case when iigst=5 then Sum(Amount/105)*100 else 0 end) as Amount_5,"
           "(case when iigst=12 then Sum(Amount/112)*100 else 0 end) as Amount_12,"
           "(case when iigst=18 then Sum(Amount/118)*100 else 0 end) as Amount_18,"
           "(case when iigst=28 then Sum(Amount/128)*100 else 0 end) as Amount_28 from sales "
           "where " +
           within("sales.billdate", period) +
           " group by sales.billno,sales.billdate,sales.iigst order by sales.billno"}};
}

GridColumns columns() {
  const std::string money = "#########0.00";
  return {
      {"S.No.", 800, row_number()},
      {"Start No", 1000, field(0)},
      {"End No.", 1000, field(1)},
      {"Bill Date", 1200, date_field(2, "dd/mm/yyyy")},
      {"Sales 0%", 1100, number_field(3, money)},
      {"Sales 5%", 1100, number_field(4, money)},
      {"Tax 5%", 1000, number_field(5, money)},
      {"Sales 12%", 1100, number_field(6, money)},
      {"Tax 12%", 1000, number_field(7, money)},
      {"Sales 18%", 1100, number_field(8, money)},
      {"Tax 18%", 1000, number_field(9, money)},
      {"Sales 28%", 1100, number_field(10, money)},
      {"Tax 28%", 1000, number_field(11, money)},
  };
}

}  // namespace

TaxList frmDateWiseGst() {
  return {
      .screen = "frmDateWiseGst",
      .caption = "DATE WISE GST REPORT",
      .words = {.from = " FROM", .to = " TO"},
      .columns = columns(),
      .look = {.bands = RowBands{1, 12}, .size = FillSize::blank_row_behind},
      .after_dates = "",
      .staging = staging,
      .sql = [](const Period&) { return std::string(kList); },
      .sheet = sheet_layouts::frmDateWiseGst,
  };
}

}  // namespace tela
