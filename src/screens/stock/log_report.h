// The family of log reports: the rows of a log that another program keeps, for a period, and a
// button that deletes the log's rows of a period. A screen of the family is one value that says
// which log it shows and how.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "report_framework/report_grid.h"
#include "report_framework/staging.h"
#include "shell/screen.h"

namespace tela {

/// What the delete button asks, removes and tells.
struct LogDeletion {
  std::string button = "cmdDelete";
  std::string question;
  std::string table;
  std::string date_column;
  std::string success;
};

/// What the preview of a log stages and opens. It asks when the rows are staged already.
struct LogPreview {
  std::string reversed_period;  ///< what it says when the period is reversed
  std::string question;
  std::string clear;  ///< see Staging, as the next
  std::string insert;
  std::function<std::vector<std::string>(const Period&, const GridRow&)> values;
  std::string report_file;
  std::string report_query;
};

/// What a screen of the family is, apart from the family.
struct LogReport {
  std::string screen;
  std::string caption;

  std::vector<Control> inputs;  ///< in tab order; `DTP1` and `DTP2` are the period
  std::vector<std::string> walk;
  std::vector<Control> buttons;  ///< `cmdView` and those named below, `cmdRefresh`, `cmdClose`
  GridColumns columns;
  std::string total_label = {};  ///< of the box `tTotal`; empty: the screen has none
  GridLook look;
  bool drills_down = false;  ///< a double click opens the bill that column 0 names

  std::optional<Refusal> refusal = {};  ///< ahead of a listing
  bool by_counter = false;              ///< `Combo1` offers the six counters and all of them
  /// The statement of View; `counter` is nothing for all counters.
  std::function<std::string(const Period&, const std::optional<std::string>& counter)> sql;

  LogDeletion deletion;
  std::string preview_button;
  std::optional<LogPreview> preview = {};
  std::string no_preview = {};  ///< what the button says where there is no preview
  bool keeps_period = false;    ///< Refresh only empties the grid, and the pickers stay
};

class LogReportScreen : public Screen {
 public:
  LogReportScreen(AppState& app, LogReport log);

  /// The rows of a period, as what follows the name of the log's table.
  static std::string deleted_rows(const LogDeletion& deletion, const Period& period);

 private:
  void fill_lists() override;
  void view();
  void delete_period();
  void preview();
  void refresh();

  LogReport log_;
  ReportGrid grid_;
};

// The screens.

LogReport frmStockAdjustReport();
LogReport frmProductEditReport();
LogReport frmSaleRateDiff();

}  // namespace tela
