#include "screens/tax/frmGstModifySales.h"

#include "platform/text/number_text.h"
#include "report_framework/way_back.h"
#include "screens/tax/tax_list.h"
#include "shell/app_state.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

std::vector<Control> controls() {
  return tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                   combo("Combo1", "GST TAX %").numeric(), combo("Combo2", "TO TAX %").numeric(),
                   button("cmdView", "&View"), button("Command1", "&Update"),
                   button("cmdRefresh", "&Refresh"), button("cmdClose", "&Close"), grid("MSHF", 9));
}

GridColumns columns() {
  const std::string rate = "#######0.00";
  return {
      {"S.No.", 800, row_number()},         {"Code", 800, field(0)},
      {"HSN Code", 1000, field(1)},         {"PRODUCT NAME", 4800, trimmed_field(2)},
      {"MRP", 1000, number_field(3, rate)}, {"Sale_Rate", 1000, number_field(4, rate)},
      {"CGST", 800, number_field(5, rate)}, {"SGST", 800, number_field(6, rate)},
      {"IGST", 800, number_field(7, rate)},
  };
}

}  // namespace

frmGstModifySales::frmGstModifySales(AppState& app)
    : Screen(app, "frmGstModifySales", "MODIFY GST IN SALE BILL", controls()),
      grid_(form(), columns(), {.size = FillSize::blank_row_behind}) {
  on_press("cmdView", [this] { view(); });
  on_press("Command1", [this] { update(); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void frmGstModifySales::fill_lists() {
  fill_combo("Combo1", "Select iIGst from Sales group by iIGst order by iIGst");
  fill_combo("Combo2", "Select iIGst from Items group by iIGst order by iIGst");
}

std::string frmGstModifySales::sql(const Inputs& inputs) {
  return "Select icode,iHSNcode,iname,mrp,saleRate,iCGst,iSGst,iIGst from sales where " +
         within("BillDate", inputs.period) + " and iIGst=" + sql_number(inputs.old_rate) +
         " group by icode,iHSNcode,iname,mrp,saleRate,iCGst,iSGst,iIGst order by iCode";
}

namespace {

// Central and state tax take half of the rate each.
std::string half(const std::string& rate) {
  return plain_number(Val(rate) / 2);
}

std::string lines(const frmGstModifySales::Inputs& inputs) {
  return "where iIGst=" + sql_number(inputs.old_rate) + " and " + within("BillDate", inputs.period);
}

}  // namespace

std::string frmGstModifySales::update_sql(const Inputs& inputs) {
  const std::string& rate = inputs.new_rate;
  return "Update Sales Set iIGst=" + sql_number(rate) + ",iCGst=" + half(rate) +
         ",iSGst=" + half(rate) + " " + lines(inputs);
}

void frmGstModifySales::view() {
  if (refused(blank("Combo1", "Please Select The Tax %"))) return;
  grid_.show(app(), sql({take_period(), form().text("Combo1"), {}}));
}

// The lines are chosen by the inputs, not by what the grid shows.
void frmGstModifySales::update() {
  const Inputs inputs{take_period(), form().text("Combo1"), form().text("Combo2")};
  if (refused(blank("Combo1", "Please Enter The Tax %"))) return;
  if (refused(blank("Combo2", "Please Emter the To Tax %"))) return;
  const std::string& rate = inputs.new_rate;
  WayBack way_back(app(), name());
  way_back.begin();
  way_back.keep_changed("Sales",
                        {{"iIGst", sql_number(rate)}, {"iCGst", half(rate)}, {"iSGst", half(rate)}},
                        lines(inputs));
  app().Con->execute(update_sql(inputs));
  way_back.commit();
  tell("IGST Tax in Sales - Records Updated", Icon::information);
  view();
}

}  // namespace tela
