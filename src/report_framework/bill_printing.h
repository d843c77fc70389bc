// The printed bill: the exact bytes that go to the receipt printer or the line printer, as a
// function of what the bill view shows. Nothing here opens a port or reads the catalogue.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tela {

/// The texts of the bill view's boxes, as they are shown, and of its grid.
struct PrintedBill {
  /// One grid row, by its columns. The serial number is the row's place in `rows`, from 1.
  struct Row {
    std::string code;
    std::string name;
    std::string mrp;
    std::string sale_rate;
    std::string qty;
    std::string net_amount;
  };

  std::string tBillNo;
  std::string tDate;  ///< day first; any other text is printed as it is
  std::string tTime;  ///< likewise
  std::string tCounterNo;
  std::string tCustomerCode;
  std::string tBillTo;
  std::string tBillType;
  std::string tTotal;
  std::string tTotalQty;
  std::string tCashPaid;
  std::string tCardPaid;
  std::string tMealsPass;
  std::string tPointsUsed;
  std::string tCashReturned;
  std::string tSaved;
  std::vector<Row> rows;
};

/// What the program's state says about printing. The shop's own lines are fixed in the layouts.
struct BillPrintSettings {
  int PrintTop = 0;  ///< blank lines ahead of a receipt
  int PrintEnd = 0;  ///< blank lines behind a bill of either layout
  /// Trailer lines. One of fewer than two characters is left out.
  std::string BillLine1;
  std::string BillLine2;
  std::string BillLine3;
};

/// The bill in 48 columns for an ESC/POS receipt printer with a cutter.
std::string receipt_layout(const PrintedBill& bill, const BillPrintSettings& settings);

/// The bill under 70 dashes for a line printer.
std::string wide_layout(const PrintedBill& bill, const BillPrintSettings& settings);

/// The layout that `PrintNo` chooses: 1 the receipt, 2 the wide one, anything else none.
std::optional<std::string> bill_bytes(int PrintNo, const PrintedBill& bill,
                                      const BillPrintSettings& settings);

}  // namespace tela
