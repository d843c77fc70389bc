// The family of the two viewers of a goods-received note: its header as it is stored, its lines,
// the supplier's details, and a walk to the neighbouring numbers. The one figure that is worked out
// is the average margin.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "report_framework/row_boxes.h"
#include "shell/screen.h"

namespace tela {

/// What a viewer is, apart from the family.
struct NoteViewer {
  std::string screen;
  std::string caption;
  std::vector<Control> buttons = {};  ///< behind those of the walk
  std::string cess_field = {};        ///< the header's last field, with its comma; empty: not shown
  std::string lines_order = {};       ///< the end of the statement for the lines
  std::optional<RowBands> bands = {};
  /// Whether the number in the supplier box is worth a look-up.
  std::function<bool(double code)> is_supplier = {};
};

class GoodsReceivedNote : public Screen {
 public:
  /// Reads the note that `PurBillNo` names.
  void load() override;

  static std::string header_sql(const NoteViewer& viewer, const std::string& note);
  static std::string lines_sql(const NoteViewer& viewer, const std::string& note);

 protected:
  GoodsReceivedNote(AppState& app, NoteViewer viewer);

 private:
  void view();
  void read_note();
  void read_header();
  void read_lines();
  void read_credit_days();
  void show_supplier();
  void read_supplier();
  void clear_supplier();
  void AverageMargin();
  void step(int by);
  void ClearAllT();

  NoteViewer viewer_;
  std::vector<RowBox> header_;
  ReportGrid grid_;
};

}  // namespace tela
