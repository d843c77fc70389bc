// A catalogue for the tests of the tax screens.
#pragma once

#include <string>
#include <vector>

#include "platform/text/number_text.h"
#include "support/shop.h"

namespace tela::testing {

/// A sale line as the tax reports read it.
struct TaxedLine {
  int bill = 0;
  int day = 1;  ///< of January 2024
  double amount = 0;
  double rate = 0;  ///< `iIGst`
  double half = 0;  ///< `iCGst`, and `iSGst` too
  double cess = 0;
  std::string hsn = "0401";
  double qty = 1;
  int code = 1;
};

/// A line whose central and state tax are half of its rate each.
inline TaxedLine taxed(int bill, int day, double amount, double rate, double cess = 0) {
  return {bill, day, amount, rate, rate / 2, cess};
}

class TaxShop : public Shop {
 public:
  TaxShop() { run("open frmDateWise"); }

  void sell(const std::vector<TaxedLine>& lines) {
    state().Con->begin_trans();
    for (const TaxedLine& line : lines)
      state().Con->execute(
          "insert into Sales (BillNo,BillDate,iCode,iName,mrp,SaleRate,Qty,Amount,iIGst,iCGst,"
          "iSGst,CessPercent,iHSNcode) values (" +
          std::to_string(line.bill) + ",'" + std::to_string(line.day) + "/Jan/2024'," +
          std::to_string(line.code) + ",'Item',10,9," + plain_number(line.qty) + "," +
          plain_number(line.amount) + "," + plain_number(line.rate) + "," +
          plain_number(line.half) + "," + plain_number(line.half) + "," + plain_number(line.cess) +
          ",'" + line.hsn + "')");
    state().Con->commit_trans();
  }

  /// The state of a screen after its View over January.
  Json viewed(const std::string& screen) {
    return show("open " + screen + "\nset DTP1 01/01/2024\nset DTP2 31/01/2024\npress cmdView");
  }
};

/// A row of a grid.
inline std::vector<std::string> row(const Json& state, std::size_t number,
                                    const std::string& grid = "MSHF") {
  return state["grids"][grid]["cells"][number];
}

/// The rows with a text in their first cell, without the headings.
inline std::vector<std::vector<std::string>> rows(const Json& state,
                                                  const std::string& grid = "MSHF") {
  std::vector<std::vector<std::string>> all = state["grids"][grid]["cells"];
  all.erase(all.begin());
  if (!all.empty() && all.back()[0].empty()) all.pop_back();
  return all;
}

}  // namespace tela::testing
