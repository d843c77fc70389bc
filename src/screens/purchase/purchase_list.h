// The family of purchase lists: what was bought in a period, by goods-received note, by item or by
// supplier, in three orders, with a preview. A screen of the family is one value that says what it
// lists, how it is ordered and what it stages.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "report_framework/staging.h"
#include "shell/screen.h"

namespace tela {

/// What the user asked for, as statements take it.
struct PurchaseInputs {
  Period period = {};
  std::optional<std::string> supplier = {};  ///< nothing: all suppliers
};

/// What the preview of a purchase list stages and opens. The staged rows begin with the period.
struct PurchasePreview {
  std::string button;
  std::vector<Refusal> refusals;
  std::string table;
  std::function<std::vector<std::string>(const GridRow&)> values;  ///< behind the period
  std::string question = {};  ///< asked when the rows are staged; empty: the preview does not ask
  std::string report_file;
};

/// What a screen of the family is, apart from the family.
struct PurchaseList {
  std::string screen;
  std::string caption;
  std::vector<Control> controls;    ///< in tab order, the grid `MSHF` and the boxes among them
  std::vector<std::string> walk;    ///< Enter goes from each to the next
  std::string enter_lists = {};     ///< the input in which Enter lists at once
  std::vector<std::string> orders;  ///< the buttons that list, the first being View

  std::string list_sql = {};   ///< the suppliers of `Combo1`; empty: there is no such combo
  std::string all_entry = {};  ///< the last entry of `Combo1`, for all suppliers; empty: none

  std::vector<Refusal> refusals = {};  ///< ahead of a listing
  std::function<std::string(const PurchaseInputs&, std::size_t order)> sql;
  GridColumns columns;
  GridLook look = {};
  std::string average_box = {};  ///< shows the average of each row's last field; empty: none
  bool opens_notes = false;      ///< a double click shows the note in column 1
  std::optional<PurchasePreview> preview = {};
};

class PurchaseListReport : public Screen {
 public:
  PurchaseListReport(AppState& app, PurchaseList list);

 private:
  void fill_lists() override;
  void list(std::size_t order);
  void write_average(Recordset& rs);
  void preview();
  PurchaseInputs take_inputs();

  PurchaseList list_;
  ReportGrid grid_;
};

// The screens.

PurchaseList frmMPreport();
PurchaseList frmmonthlyPR();
PurchaseList frmItemPurchaseReport();
PurchaseList frmTotalPurchase();

}  // namespace tela
