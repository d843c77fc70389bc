// The monthly purchase report: the goods-received notes of a period with their bill figures and the
// average margin of their lines, for one supplier or for all. And its form for one supplier.
#include "screens/purchase/purchase_list.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

// A note's margin is the plain average of its lines; a note without lines is not listed.
std::string notes_sql(const PurchaseInputs& inputs, std::size_t order) {
  static const std::string kNote =
      "P.GrnNo,P.BillNo,P.BillDate,P.Sname,P.GrossAmount,P.SplDiscount,P.SplDiscAmt,P.NetAmount";
  static const std::vector<std::string> kOrders = {"P.GrnNo", "Margin", "Margin Desc"};
  return "Select " + kNote + ",avg(T.MarginPer)" + (order == 0 ? "" : " as Margin") +
         " from PurchaseTemp P Join Purchase T On P.GrnNo=T.GrnNo where P.BILLDATE>=" +
         sql_text(inputs.period.from) + " and P.billdate<=" + sql_text(inputs.period.to) +
         (inputs.supplier ? " and P.Sname=" + sql_text(*inputs.supplier) : "") + " group by " +
         kNote + " Order By " + kOrders[order];
}

GridColumns columns(int discount_width) {
  const std::string mask = "##########0.00";
  return {
      {"S.No", 900, row_number()},
      {"Grn No", 900, field(0)},
      {"Bill No", 1200, trimmed_field(1)},
      {"Date", 1300, date_field(2, "dd/mm/yyyy")},
      {"Supplier Name", 4600, trimmed_field(3)},
      {"Amount", 1200, number_field(4, mask)},
      {"Spl Disc%", 1100, number_field(5, mask)},
      {"Disc Amt", discount_width, number_field(6, mask)},
      {"Net Amount", 1200, number_field(7, mask), {"Text1", "########0.00"}},
      {"Margin", 900, number_field(8, mask)},
  };
}

constexpr RowBands kBands{0, 9, 13421823, 16764057};

std::vector<std::string> staged(const GridRow& row) {
  return {row.numbers(0, 1), row.text(2), row.date(3), row.text(4), row.numbers(5, 8)};
}

PurchasePreview preview() {
  return {.button = "cmdpreview",
          .refusals = {reversed("DTP1", "DTP2", "The Start Date is Greater Than the End Date"),
                       blank("Combo1", "Please Select the Supplier")},
          .table = "SupPurRep",
          .values = staged,
          .question = "DO YOU WANT TO PRINT THE RECORD - (OK To PRINT PREVIEW, Cancel To EXIT) ",
          .report_file = "SupPurPrint.rpt"};
}

const std::string kSuppliers = "Select Sname from supplier group by Sname order by Sname";

}  // namespace

PurchaseList frmMPreport() {
  return {
      .screen = "frmMPreport",
      .caption = "MONTHLY PURCHASE REPORT",
      .controls =
          tab_order(combo("Combo1", "SELECT THE SUPPLIER"), date_picker("DTP1", "FROM"),
                    date_picker("DTP2", "TO"), button("cmdView", "&VIEW"),
                    picture_button("cmdAss", "ascending"), picture_button("CmdDesc", "descending"),
                    button("cmdpreview", "RPEVIE&W"), button("cmdRefresh", "&REFRESH"),
                    grid("MSHF", 10), total_box("Text1", "TOTAL"), total_box("tMargin", "MARGIN")),
      .walk = {"Combo1", "DTP1", "DTP2", "cmdView"},
      .orders = {"cmdView", "cmdAss", "CmdDesc"},
      .list_sql = kSuppliers,
      .all_entry = "ALL SUPPLIER",
      .refusals = {blank("Combo1", "Please Select The Supplier Name")},
      .sql = notes_sql,
      .columns = columns(1100),
      .look = {.bands = kBands, .counted_by = 1},
      .average_box = "tMargin",
      .opens_notes = true,
      .preview = preview(),
  };
}

PurchaseList frmmonthlyPR() {
  return {
      .screen = "frmmonthlyPR",
      .caption = "   MONTHLY PURCHASE REPORT",
      .controls =
          tab_order(combo("Combo1", "SELECT THE SUPPLIER"), date_picker("DTP1", "FROM"),
                    date_picker("DTP2", "TO"), button("cmdView", "&VIEW"),
                    button("cmdpreview", "RPEVIE&W"), button("cmdRefresh", "&REFRESH"),
                    button("cmdClose", "E&XIT"), grid("MSHF", 10), total_box("Text1", "TOTAL")),
      .walk = {"Combo1", "DTP1", "DTP2", "cmdView"},
      .orders = {"cmdView"},
      .list_sql = kSuppliers,
      .refusals = {blank("Combo1", "Please Select The Supplier Name")},
      .sql = notes_sql,
      .columns = columns(1200),
      .look = {.bands = kBands, .counted_by = 1},
      .opens_notes = true,
      .preview = preview(),
  };
}

}  // namespace tela
