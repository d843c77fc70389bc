#include "apps/tela_table/text_table/screen_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "apps/tela_table/text_table/text_table.h"
#include "platform/text/strings.h"

namespace tela {
namespace {

using Json = nlohmann::json;
using Rows = std::vector<std::vector<std::string>>;

bool is_blank_row(const std::vector<std::string>& row) {
  return std::all_of(row.begin(), row.end(), [](const std::string& cell) { return cell.empty(); });
}

// The columns that the screen shows, without the empty rows behind the last filled one.
Rows shown_rows(const Json& grid) {
  Rows rows;
  for (const Json& cells : grid.at("cells")) {
    std::vector<std::string>& row = rows.emplace_back();
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (grid.at("widths").at(i) != 0) row.emplace_back(trimmed(cells[i].get<std::string>()));
    }
  }
  while (rows.size() > 1 && is_blank_row(rows.back())) rows.pop_back();
  return rows;
}

Rows labelled_rows(const Json& screen, const std::vector<LabelledControl>& controls) {
  Rows rows;
  for (const LabelledControl& control : controls) {
    const auto found = screen.at("controls").find(control.name);
    if (found == screen.at("controls").end()) continue;
    rows.push_back({control.label, std::string(trimmed(found->get<std::string>()))});
  }
  return rows;
}

// A label and its value a line, the values in one column to the right.
std::string labelled_text(const Rows& rows) {
  std::size_t label_width = 0;
  std::size_t value_width = 0;
  for (const auto& row : rows) {
    label_width = std::max(label_width, row[0].size());
    value_width = std::max(value_width, row[1].size());
  }
  std::string text;
  for (const auto& row : rows) {
    text += row[0] + std::string(label_width - row[0].size() + 2, ' ') +
            std::string(value_width - row[1].size(), ' ') + row[1] + '\n';
  }
  return text;
}

std::string screen_text(const Json& screen, const std::vector<LabelledControl>& controls) {
  std::string text = '\n' + std::string(trimmed(screen.at("caption").get<std::string>())) + "\n\n";
  for (const auto& [name, grid] : screen.at("grids").items()) {
    text += text_table(shown_rows(grid)) + '\n';
  }
  return text + labelled_text(labelled_rows(screen, controls));
}

std::string value_text(const Json& value) {
  if (value.is_null()) return "";
  return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string query_text(const Json& query) {
  Rows rows{query.at("columns").get<std::vector<std::string>>()};
  for (const Json& values : query.at("rows")) {
    std::vector<std::string>& row = rows.emplace_back();
    for (const Json& value : values) row.push_back(value_text(value));
  }
  return text_table(rows);
}

}  // namespace

std::string console_text(std::string_view line, const std::vector<LabelledControl>& controls) {
  const Json event = Json::parse(line, nullptr, false);
  if (!event.is_object()) throw std::runtime_error("this is no JSON object: " + std::string(line));
  if (event.contains("error")) throw std::runtime_error(event["error"].get<std::string>());
  if (event.contains("screen")) return screen_text(event, controls);
  if (event.contains("message")) return event["message"].at("text").get<std::string>() + '\n';
  if (event.contains("columns")) return query_text(event);
  return {};
}

}  // namespace tela
