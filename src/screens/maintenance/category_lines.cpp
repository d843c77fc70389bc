#include "screens/maintenance/category_lines.h"

#include <utility>

#include "report_framework/report_preview.h"
#include "report_framework/staging.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls(CategoryLines& lines) {
  std::vector<Control> all =
      tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
                combo("Combo1", "SELECT THE CATAGORY"), button("cmdView", lines.list_caption));
  append(all, std::move(lines.buttons));
  append(all, tab_order(button("cmdRefresh", "&Refresh"), button("cmdprint", "Previe&w"),
                        button("cmdDelete", "&Delete"), grid("MSHF", 7)));
  append(all, std::move(lines.totals));
  return all;
}

GridColumns columns(const CategoryLines& lines) {
  return {
      {"Bill No", 1000, field(0)},
      {"Bill Date", 1200, trimmed_field(1)},
      {"Code", 900, field(2)},
      {"ITEM NAME", 3800, field(3)},
      {"Amount", 1000, field(4), {lines.amount_total, "########0.00"}},
      {"Qty", 800, field(5), {lines.quantity_total, "######0.00"}},
      {"Catagory", 2900, field(6)},
  };
}

}  // namespace

CategoryLinesScreen::CategoryLinesScreen(AppState& app, CategoryLines lines)
    : Screen(app, lines.screen, lines.caption, controls(lines)), grid_(form(), columns(lines)) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_press("cmdprint", [this] { preview(); });
  refresh_on("cmdRefresh");
}

void CategoryLinesScreen::fill_lists() {
  fill_combo("Combo1", "select distinct catagory from items order by catagory ");
}

// The report's M.R.P. and sale rate stay empty: a line shows its amount alone.
void CategoryLinesScreen::preview() {
  if (!ask("DO YOU WANT TO PRINT - (OK To Print, Cancel To Exit ) ")) return;
  const Period period = take_period();
  const auto values = [&](const GridRow& row) -> std::vector<std::string> {
    return {sql_text(period.from), sql_text(period.to), row.number(2), row.text(3), "null", "null",
            row.number(5),         row.number(4),       row.text(6)};
  };
  stage_rows(app(), grid_,
             {.clear = "Delete FROM  SalesCatagory",
              .insert = "Insert into SalesCatagory values(",
              .counted_by = 0,
              .values = values});
  open_preview(app(), "CatagoryReport.rpt", "SELECT * FROM SalesCatagory");
}

}  // namespace tela
