#include "screens/purchase/purchase_list.h"

#include <utility>

#include "platform/text/number_text.h"
#include "report_framework/report_preview.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

PurchaseListReport::PurchaseListReport(AppState& app, PurchaseList list)
    : Screen(app, list.screen, list.caption, std::move(list.controls)),
      list_(std::move(list)),
      grid_(form(), list_.columns, list_.look) {
  key_walk(list_.walk);
  for (std::size_t order = 0; order < list_.orders.size(); ++order)
    on_press(list_.orders[order], [this, order] { this->list(order); });
  if (!list_.enter_lists.empty()) on_key(list_.enter_lists, Key::enter, [this] { this->list(0); });
  if (list_.preview) on_press(list_.preview->button, [this] { preview(); });
  refresh_on("cmdRefresh");
  if (form().has("cmdClose")) close_on("cmdClose");
  if (list_.opens_notes) drill_down_on("MSHF", 1, &AppState::PurBillNo, "frmPurBillView");
}

void PurchaseListReport::fill_lists() {
  if (!list_.list_sql.empty()) fill_combo("Combo1", list_.list_sql);
  if (!list_.all_entry.empty()) form().at("Combo1").items.push_back(list_.all_entry);
  if (list_.opens_notes) grid_.TotalAll();
}

PurchaseInputs PurchaseListReport::take_inputs() {
  PurchaseInputs inputs{take_period(), {}};
  if (!list_.list_sql.empty() && (list_.all_entry.empty() || filter() != list_.all_entry))
    inputs.supplier = filter();
  return inputs;
}

void PurchaseListReport::list(std::size_t order) {
  for (const Refusal& refusal : list_.refusals)
    if (refused(refusal)) return;
  grid_.show(app(), list_.sql(take_inputs(), order), [this](Recordset& rs) {
    if (!list_.average_box.empty()) write_average(rs);
  });
}

// Each row counts once, whatever its size. A list without rows leaves the box as it was.
void PurchaseListReport::write_average(Recordset& rs) {
  if (rs.record_count() == 0) return;
  app().ProfitSum = 0;
  for (rs.move_first(); !rs.eof(); rs.move_next())
    app().ProfitSum += field_number(rs.field(rs.field_count() - 1));
  form().set_text(list_.average_box,
                  format_number(app().ProfitSum / rs.record_count(), "########0.00"));
}

void PurchaseListReport::preview() {
  const PurchasePreview& preview = *list_.preview;
  for (const Refusal& refusal : preview.refusals)
    if (refused(refusal)) return;
  const Period period = take_period();
  const auto values = [&](const GridRow& row) {
    std::vector<std::string> all = {sql_text(period.from), sql_text(period.to)};
    for (std::string& value : preview.values(row)) all.push_back(std::move(value));
    return all;
  };
  stage_rows(app(), grid_,
             {.clear = "Delete from " + preview.table,
              .insert = "Insert into " + preview.table + " values(",
              .counted_by = 1,
              .values = values});
  if (!preview.question.empty() && !ask(preview.question)) return;
  open_preview(app(), preview.report_file, "SELECT * FROM " + preview.table);
}

}  // namespace tela
