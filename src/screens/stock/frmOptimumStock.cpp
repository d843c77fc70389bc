#include "screens/stock/frmOptimumStock.h"

#include <map>
#include <memory>

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "report_framework/staging.h"
#include "report_framework/way_back.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

const char* const kAllSuppliers = "ALL SUPPLIER";
const char* const kStagedQuantities = "Select iCode,iName,OpStock from OptimumStockTemp";

constexpr int kCode = 1;
constexpr int kName = 2;
constexpr int kQuantity = 4;
constexpr int kLevel = 6;

std::vector<Control> controls() {
  return tab_order(date_picker("DTP1", "FROM"), date_picker("DTP2", "TO"),
                   text_box("Text1", "Level %").numeric().selected_on_focus().with_text("30"),
                   combo("Combo1", "SUPPLIER NAME"), text_box("Text2", "Cr Days"),
                   button("cmdView", "&View"), button("cmdUpdate", "Update"), grid("MSHF", 7));
}

GridColumns columns() {
  const std::string mask = "#######0.00";
  return {
      {"S.No", 800, row_number()},
      {"CODE", 900, field(0)},
      {"PRODUCT NAME", 3800, trimmed_field(1)},
      {"MRP", 1000, number_field(2, mask)},
      {" QTY", 1200, number_field(3, mask)},
      {"SUPPLIER NAME", 3800, trimmed_field(4)},
      {"LEVEL", 1000, number_field(5, mask)},
  };
}

}  // namespace

frmOptimumStock::frmOptimumStock(AppState& app)
    : Screen(app, "frmOptimumStock", "OPTIMUM STOCK", controls()),
      grid_(form(), columns(), {.bands = RowBands{1, 6}, .size = FillSize::blank_row_behind}) {
  key_walk({"DTP1", "DTP2", "Text1", "Combo1", "cmdView"});
  on_key("Text1", Key::up, [this] { focus("DTP2"); });
  on_pick("Combo1", [this] { show_credit_days(); });
  on_press("cmdView", [this] { view(); });
  on_press("cmdUpdate", [this] { update(); });
}

void frmOptimumStock::fill_lists() {
  fill_combo("Combo1", "Select sname from supplier group by sname order by sname");
  form().at("Combo1").items.emplace_back(kAllSuppliers);
}

void frmOptimumStock::show_credit_days() {
  app().Rs2 = std::make_unique<Recordset>();
  Recordset& rs = *app().Rs2;
  rs.open("Select CreditDays from supplier where sname=" + sql_text(filter()), *app().Con);
  form().set_text("Text2", rs.eof() ? "" : field_text(rs.field(0)));
  app().Rs2.reset();
}

std::string frmOptimumStock::sql(const Inputs& inputs) {
  return "Select S.icode,S.iname,S.mrp,sum(S.qty),I.supplier,round(sum(S.qty) * " +
         sql_number(inputs.level) +
         "/100,0) from sales S Left join items I On S.Icode=I.ICode where S.billdate>=" +
         sql_text(inputs.period.from) + " and S.billdate<=" + sql_text(inputs.period.to) +
         (inputs.supplier == kAllSuppliers ? "" : " and I.Supplier=" + sql_text(inputs.supplier)) +
         " group by S.icode,S.iname,S.mrp,I.supplier order by S.icode";
}

bool frmOptimumStock::refused_view() {
  const auto is_no_level = [](const Form& form) { return Val(form.text("Text1")) <= 0; };
  return refused(reversed("DTP1", "DTP2", "The From Date is Greater Than the To Date")) ||
         refused(blank("Text1", "Please Enter The Level %")) ||
         refused({is_no_level, "Plese Enter The Level", Icon::critical, "Text1"}) ||
         refused(blank("Combo1", "Please Select The Supplier Name"));
}

void frmOptimumStock::view() {
  const Period period = take_period();
  if (refused_view()) return;
  grid_.show(app(), sql({period, form().text("Text1"), filter()}));
}

// The order of the steps matters: an item that OptimumStock holds is updated, all others are added
// behind. Each step can be done again, so an update that broke off is finished by the next one.
void frmOptimumStock::update() {
  if (refused(blank("Combo1", "No Supplier Name Found"))) return;
  WayBack way_back(app(), name());
  clear_staging();
  write_levels(way_back);
  stage_quantities();
  update_optimum_stock(way_back);
  add_optimum_stock(way_back);
  tell("Records Updated", Icon::information);
}

bool frmOptimumStock::is_stored(int row, int col) const {
  return grid_.number(row, kCode) > 0 && grid_.number(row, col) > 0;
}

void frmOptimumStock::clear_staging() {
  Transaction clearing(*app().Con);
  app().Con->execute("Delete from OptimumStockTemp");
  clearing.commit();
}

namespace {

/// Keeps the rows of the items in which `column` gets its new value.
void keep_values(WayBack& way_back, const std::string& table, const std::string& column,
                 const std::map<std::string, std::string>& values) {
  for (const auto& [code, value] : values)
    way_back.keep_changed(table, {{column, value}}, "where icode=" + code, {"iCode"});
}

}  // namespace

// An item of two rows is written twice, and the later level stays.
void frmOptimumStock::write_levels(WayBack& way_back) {
  std::map<std::string, std::string> levels;
  std::vector<std::string> updates;
  for (int row = 1; row < grid_.cells().Rows(); ++row) {
    if (!is_stored(row, kLevel)) continue;
    const GridRow values(grid_, row);
    levels[values.number(kCode)] = values.number(kLevel);
    updates.push_back("Update items set ministock=" + values.number(kLevel) +
                      " where icode=" + values.number(kCode));
  }
  way_back.begin();
  keep_values(way_back, "Items", "ministock", levels);
  execute_each("Storing the levels", updates);
  way_back.commit();
}

void frmOptimumStock::stage_quantities() {
  std::vector<std::string> inserts;
  for (int row = 1; row < grid_.cells().Rows(); ++row) {
    if (!is_stored(row, kQuantity)) continue;
    const GridRow values(grid_, row);
    inserts.push_back(
        "Insert into OptimumStockTemp values(" +
        sql_list({values.number(kCode), values.text(kName), values.number(kQuantity)}) + ")");
  }
  Transaction staging(*app().Con);
  execute_each("Staging the quantities", inserts);
  staging.commit();
}

// The updates stand outside any transaction, so that no till waits for more than one row.
void frmOptimumStock::update_optimum_stock(WayBack& way_back) {
  std::map<std::string, std::string> quantities;
  std::vector<std::string> updates;
  for (Recordset& rs = OpenRs(app(), kStagedQuantities + std::string(" order by icode")); !rs.eof();
       rs.move_next()) {
    const std::string code = field_text(rs.field(0));
    const std::string quantity = field_text(rs.field(2));
    quantities[code] = quantity;
    updates.push_back("Update OptimumStock set OpStock=" + quantity);
    updates.back() += " where icode=" + code;
  }
  CloseRs(app());
  way_back.begin();
  keep_values(way_back, "OptimumStock", "OpStock", quantities);
  way_back.commit();
  execute_each("Storing the quantities", updates);
}

void frmOptimumStock::add_optimum_stock(WayBack& way_back) {
  const std::string missing =
      kStagedQuantities + std::string(" where iCode not in (Select iCode from OptimumStock)");
  way_back.begin();
  way_back.keep_added("OptimumStock", missing);
  app().Con->execute("Insert into OptimumStock " + missing);
  way_back.commit();
}

void frmOptimumStock::execute_each(const std::string& work,
                                   const std::vector<std::string>& statements) {
  const int count = static_cast<int>(statements.size());
  for (int done = 0; done < count; ++done) {
    app().display.progress(work, done, count);
    app().Con->execute(statements[static_cast<std::size_t>(done)]);
  }
}

}  // namespace tela
