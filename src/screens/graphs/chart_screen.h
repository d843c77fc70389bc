// The family of charts: a period, a chart type and View, which draws what one query answers, a row
// of the chart for each of its records.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report_framework/grid_columns.h"
#include "shell/screen.h"

namespace tela {

/// How the records of a query become the rows of a chart.
struct ChartSeries {
  std::string column;  ///< the chart's column label
  std::function<std::string(const Recordset&)> label;
  CellSource value;
  bool upwards = false;  ///< the figures at the points are written upwards
};

/// A label that is one field.
std::function<std::string(const Recordset&)> labelled(CellSource source);

class ChartScreen : public Screen {
 protected:
  /// `first` are the controls ahead of the period, `last` those between View and the chart.
  ChartScreen(AppState& app, std::string name, std::string caption, std::vector<Control> first = {},
              std::vector<Control> last = {});

  /// What View does.
  virtual void view() = 0;

  Chart& chart() { return form().chart("MSChart1"); }
  /// Runs the query and shows its records; the chart keeps what it shows if the query fails.
  void draw(const std::string& sql, const ChartSeries& series);

 private:
  void fill_lists() override;
  void choose_type();
};

}  // namespace tela
