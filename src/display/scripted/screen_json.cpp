#include "display/scripted/screen_json.h"

#include <nlohmann/json.hpp>

#include <cmath>

#include "platform/text/date_text.h"

namespace tela {

namespace {

Json grid_json(const Grid& grid) {
  Json widths = Json::array();
  for (int col = 0; col < grid.Cols(); ++col) widths.push_back(grid.ColWidth(col));
  Json cells = Json::array();
  for (int row = 0; row < grid.Rows(); ++row) {
    Json texts = Json::array();
    for (int col = 0; col < grid.Cols(); ++col) texts.push_back(grid.TextMatrix(row, col));
    cells.push_back(std::move(texts));
  }
  Json colours = Json::object();
  for (const auto& [row, band] : grid.Bands())
    colours[std::to_string(row)] = Json::array({band.first_col, band.last_col, band.colour});
  return {{"rows", grid.Rows()},
          {"cols", grid.Cols()},
          {"widths", std::move(widths)},
          {"cells", std::move(cells)},
          {"colours", std::move(colours)}};
}

Json chart_json(const Chart& chart) {
  Json rows = Json::array();
  for (const ChartRow& row : chart.rows) rows.push_back(Json::array({row.label, row.value}));
  return {{"type", static_cast<int>(chart.type)},
          {"legend", chart.legend},
          {"column", chart.column},
          {"rows", std::move(rows)},
          {"labels", chart.label_location},
          {"orientation", chart.label_orientation}};
}

std::string shown_text(const Control& control) {
  switch (control.kind) {
    case ControlKind::date:
      return format_date(control.date, "dd/mm/yyyy");
    case ControlKind::button:
    case ControlKind::picture_button:
      return control.caption;
    default:
      return control.text;
  }
}

Json value_json(const Value& value) {
  struct Writer {
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(const std::string& text) const { return text; }
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(const Date& date) const { return format_date(date, "yyyy-mm-dd"); }
    Json operator()(const TimeOfDay& time) const { return format_time(time, "HH:MM:SS"); }
    Json operator()(double number) const {
      constexpr double kExact = 1e15;  // whole numbers below it are written without a point
      if (std::trunc(number) == number && std::abs(number) < kExact)
        return static_cast<std::int64_t>(number);
      return number;
    }
  };
  return std::visit(Writer{}, value);
}

std::string type_name(FieldType type) {
  switch (type) {
    case FieldType::text:
      return "text";
    case FieldType::number:
      return "number";
    case FieldType::whole_number:
      return "whole number";
    case FieldType::date:
      return "date";
    case FieldType::time:
      return "time";
  }
  return {};
}

}  // namespace

Json screen_json(const Screen& screen) {
  Json controls = Json::object();
  Json items = Json::object();
  Json disabled = Json::array();
  Json grids = Json::object();
  Json chart;
  for (const Control& control : screen.form().controls()) {
    if (control.grid)
      grids[control.name] = grid_json(*control.grid);
    else if (control.chart)
      chart = chart_json(*control.chart);
    else
      controls[control.name] = shown_text(control);
    if (control.kind == ControlKind::combo || control.kind == ControlKind::list)
      items[control.name] = control.items;
    if (!control.enabled) disabled.push_back(control.name);
  }
  Json state = {{"screen", screen.name()},         {"caption", screen.caption()},
                {"controls", std::move(controls)}, {"items", std::move(items)},
                {"disabled", std::move(disabled)}, {"grids", std::move(grids)}};
  if (!chart.is_null()) state["chart"] = std::move(chart);
  return state;
}

Json main_json(const MainWindow& main, const Windows& windows) {
  Json menus = Json::array();
  for (const Menu& menu : main.menus()) {
    Json entries = Json::array();
    for (const MenuEntry& entry : menu.entries)
      entries.push_back(
          {{"name", entry.name}, {"caption", entry.caption}, {"enabled", entry.enabled}});
    menus.push_back({{"name", menu.name},
                     {"caption", menu.caption},
                     {"enabled", menu.enabled},
                     {"entries", std::move(entries)}});
  }
  Json screens = Json::array();
  for (const Screen* screen : windows.stacking_order()) screens.push_back(screen->name());
  return {{"main",
           {{"caption", main.caption()},
            {"panel", main.visible_panel().empty() ? Json() : Json(main.visible_panel())},
            {"menus", std::move(menus)},
            {"screens", std::move(screens)}}}};
}

Json rows_json(const RowSet& rows) {
  if (rows.fields.empty()) return {{"done", true}};
  Json columns = Json::array();
  Json types = Json::array();
  for (const Field& field : rows.fields) {
    columns.push_back(field.name);
    types.push_back(type_name(field.type));
  }
  Json lines = Json::array();
  for (const auto& row : rows.rows) {
    Json values = Json::array();
    for (const Value& value : row) values.push_back(value_json(value));
    lines.push_back(std::move(values));
  }
  return {{"columns", std::move(columns)}, {"types", std::move(types)}, {"rows", std::move(lines)}};
}

}  // namespace tela
