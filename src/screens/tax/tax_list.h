// The family of tax lists: what a period came to, cut by day, rate, code or bill, with totals and
// an Excel button. Most are one value that says what is listed; a list with more than that (a
// second grid, a preview, a button of its own) derives from the family.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "report_framework/sheet_layouts.h"
#include "shell/screen.h"

namespace tela {

/// The words on the inputs and buttons that every tax list has.
struct TaxWords {
  std::string from = "FROM";
  std::string to = "TO";
  std::string view = "&VIEW";
  std::string refresh = "&REFRESH";
  std::string print = "&EXCEL";
  std::string close = "&CLOSE";
};

/// The same in mixed letters, as some of the screens write them.
TaxWords mixed_words(std::string print);

/// The statements of one transaction.
using Statements = std::vector<std::string>;

/// What a tax list is, apart from the family.
struct TaxList {
  std::string screen;
  std::string caption;
  TaxWords words = {};
  std::vector<Control> buttons = {};  ///< more of them, ahead of `cmdClose`
  GridColumns columns;
  GridLook look = {};
  std::vector<Control> results = {};    ///< behind the grid: totals, and what else is shown
  std::string after_dates = "cmdView";  ///< where Enter goes from `DTP2`; empty: it lists at once
  /// What fills the staging tables ahead of the list; each transaction is committed before the next
  /// begins.
  std::function<std::vector<Statements>(const Period&)> staging = {};
  std::function<std::string(const Period&)> sql;
  std::string refresh_opens = {};           ///< what Refresh shows instead of the screen itself
  std::function<SheetLayout()> sheet = {};  ///< what `cmdprint` exports; nothing: it is no export
};

class TaxListReport : public Screen {
 public:
  TaxListReport(AppState& app, TaxList list);

 protected:
  /// What View does with its period.
  virtual void list(const Period& period);

  const ReportGrid& rows() const { return grid_; }

 private:
  void refresh();

  TaxList list_;
  ReportGrid grid_;
};

/// "column>='from' and column<='to'".
std::string within(const std::string& column, const Period& period);

// The screens that are no more than a value.

TaxList frmDateWiseGst();
TaxList frmRateOfGstI();
TaxList frmSgstPurchase();
TaxList frmIgstPurchase();
TaxList frmPurchaseReport();
TaxList frmBtoB();
TaxList frmHsnB2B();
TaxList frmRateOfGstB2B();

}  // namespace tela
