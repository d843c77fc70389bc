#include "report_framework/bill_reprint.h"

namespace tela {

PrintedBill bill_on_show(const Form& form) {
  PrintedBill bill;
  bill.tBillNo = form.text("tBillNo");
  bill.tDate = form.text("tDate");
  bill.tTime = form.text("tTime");
  bill.tCounterNo = form.text("tCounterNo");
  bill.tCustomerCode = form.text("tCustomerCode");
  bill.tBillTo = form.text("tBillTo");
  bill.tBillType = form.text("tBillType");
  bill.tTotal = form.text("tTotal");
  bill.tTotalQty = form.text("tTotalQty");
  bill.tCashPaid = form.text("tCashPaid");
  bill.tCardPaid = form.text("tCardPaid");
  bill.tMealsPass = form.text("tMealsPass");
  bill.tPointsUsed = form.text("tPointsUsed");
  bill.tCashReturned = form.text("tCashReturned");
  bill.tSaved = form.text("tSaved");
  const Grid& grid = form.grid("MSHF");
  for (int row = 1; row < grid.Rows(); ++row)
    bill.rows.push_back({grid.TextMatrix(row, 1), grid.TextMatrix(row, 2), grid.TextMatrix(row, 3),
                         grid.TextMatrix(row, 4), grid.TextMatrix(row, 5),
                         grid.TextMatrix(row, 6)});
  return bill;
}

void reprint_bill(AppState& app, const Form& form) {
  const BillPrintSettings settings{app.PrintTop, app.PrintEnd, app.BillLine1, app.BillLine2,
                                   app.BillLine3};
  const auto bytes = bill_bytes(app.PrintNo, bill_on_show(form), settings);
  if (!bytes) return;
  const auto port = app.platform.open_port(app.PortNo);
  port->write(*bytes);
  port->close();
}

}  // namespace tela
