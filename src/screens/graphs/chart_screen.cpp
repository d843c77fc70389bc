#include "screens/graphs/chart_screen.h"

#include <algorithm>
#include <utility>

#include "shell/app_state.h"
#include "shell/database_gateway.h"

namespace tela {

namespace {

struct TypeName {
  const char* name;
  ChartType type;
};

// In the order in which they are offered.
constexpr TypeName kTypes[] = {
    {"2dArea", ChartType::area_2d}, {"2dBar", ChartType::bar_2d},
    {"2dLine", ChartType::line_2d}, {"2dCombination", ChartType::combination_2d},
    {"2dPie", ChartType::pie_2d},   {"2dStep", ChartType::step_2d},
    {"2dXY", ChartType::xy_2d},     {"3dArea", ChartType::area_3d},
    {"3dBar", ChartType::bar_3d},   {"3dCombination", ChartType::combination_3d},
    {"3dLine", ChartType::line_3d}, {"3dStep", ChartType::step_3d},
};
constexpr const char* kFirstType = "2dBar";

std::vector<Control> controls(std::vector<Control> first, std::vector<Control> last) {
  std::vector<Control> all = std::move(first);
  append(all, tab_order(date_picker("DTP1", " FROM"), date_picker("DTP2", " TO"),
                        combo("Combo1", ""), button("cmdView", "&View")));
  append(all, std::move(last));
  append(all, tab_order(tela::chart("MSChart1")));
  return all;
}

}  // namespace

std::function<std::string(const Recordset&)> labelled(CellSource source) {
  return [source = std::move(source)](const Recordset& rs) {
    return cell_text(rs.field(source.field), source);
  };
}

ChartScreen::ChartScreen(AppState& app, std::string name, std::string caption,
                         std::vector<Control> first, std::vector<Control> last)
    : Screen(app, std::move(name), std::move(caption),
             controls(std::move(first), std::move(last))) {
  key_walk({"DTP1", "DTP2", "Combo1", "cmdView"});
  on_change("Combo1", [this] { choose_type(); });
  on_pick("Combo1", [this] { choose_type(); });
  on_press("cmdView", [this] { view(); });
}

void ChartScreen::fill_lists() {
  for (const TypeName& type : kTypes) form().at("Combo1").items.emplace_back(type.name);
  form().set_text("Combo1", kFirstType);
}

void ChartScreen::choose_type() {
  const std::string& chosen = form().text("Combo1");
  const auto* found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [&](const TypeName& type) { return type.name == chosen; });
  if (found != std::end(kTypes)) chart().type = found->type;
}

void ChartScreen::draw(const std::string& sql, const ChartSeries& series) {
  Recordset& rs = OpenRs(app(), sql);
  std::vector<ChartRow> rows;
  for (; !rs.eof(); rs.move_next())
    rows.push_back({series.label(rs), cell_text(rs.field(series.value.field), series.value)});
  CloseRs(app());
  Chart& shown = chart();
  shown.legend = true;
  shown.column = series.column;
  if (!rows.empty()) shown.label_location = kAbovePoint;
  if (!rows.empty() && series.upwards) shown.label_orientation = kTextUpwards;
  shown.rows = std::move(rows);
}

}  // namespace tela
