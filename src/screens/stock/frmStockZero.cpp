#include "screens/stock/frmStockZero.h"

#include "platform/text/number_text.h"
#include "report_framework/busy_pointer.h"
#include "report_framework/sheet_export.h"
#include "report_framework/way_back.h"
#include "shell/app_state.h"

namespace tela {

namespace {

const char* const kByName = "iName";

std::vector<Control> controls() {
  return tab_order(button("cmdView", "&View"), button("cmdByCode", "By Code"),
                   button("Command1", "By Asc"), button("Command2", "By Dec"),
                   button("cmdUpdate", "&Update to 0"), button("cmdprint", "&Excel Export"),
                   button("cmdRefresh", "&Refresh"), button("cmdClose", "E&xit"), grid("MSHF", 7),
                   total_box("tTotal", "VALUE"));
}

constexpr int kSaleRate = 3;
constexpr int kStock = 6;

GridColumns columns() {
  const std::string mask = "########0.00";
  return {
      {"CODE", 800, field(0)},
      {"ITEM NAME", 5400, trimmed_field(1)},
      {"M.R.P", 1200, number_field(2, mask)},
      {"SALE RATE", 1200, number_field(kSaleRate, mask)},
      {"Optimum", 1000, number_field(4, mask)},
      {"Minimum", 1100, number_field(5, mask)},
      {"Stock", 1100, number_field(kStock, mask)},
  };
}

}  // namespace

frmStockZero::frmStockZero(AppState& app)
    : Screen(app, "frmStockZero", "STOCK ZERO OR LESS THAN ZERO", controls()),
      grid_(form(), columns(), {.bands = RowBands{1, 6}}) {
  on_press("cmdView", [this] { list(kByName); });
  on_press("cmdByCode", [this] { list_slowly("icode"); });
  on_press("Command1", [this] { list_slowly("STOCK asc"); });
  on_press("Command2", [this] { list_slowly("STOCK Desc"); });
  on_press("cmdUpdate", [this] { reset_negative_stock(); });
  on_press("cmdprint",
           [this] { export_sheet(this->app(), form(), sheet_layouts::frmStockZero()); });
  refresh_on("cmdRefresh");
  close_on("cmdClose");
}

void frmStockZero::load() {
  Screen::load();
  list(kByName);
}

std::string frmStockZero::sql(const std::string& order) {
  return "Select icode,iname,mrp,SALERATE,opstock,MINISTOCK,STOCK from itemS where STOCK<=0 ORDER "
         "BY " +
         order;
}

void frmStockZero::list(const std::string& order) {
  grid_.show(app(), sql(order));
  write_value();
}

void frmStockZero::list_slowly(const std::string& order) {
  const BusyPointer busy(app().display);
  list(order);
}

void frmStockZero::write_value() {
  std::string value = "0";
  for (int row = 1; row < grid_.cells().Rows(); ++row) {
    if (grid_.number(row, 0) <= 0) continue;
    const double worth = grid_.number(row, kSaleRate) * grid_.number(row, kStock);
    value = format_number(Val(plain_number(worth)) + Val(value), "########0.00");
  }
  form().set_text("tTotal", value);
}

// Of all items, whatever the grid shows.
void frmStockZero::reset_negative_stock() {
  const std::string negative = "where stock<0";
  WayBack way_back(app(), name());
  way_back.begin();
  way_back.keep_changed("Items", {{"Stock", "0"}}, negative, {"iCode"});
  app().Con->execute("Update Items set Stock=0 " + negative);
  way_back.commit();
  tell("Stock Less than 0 Updated", Icon::information);
  list(kByName);
}

}  // namespace tela
