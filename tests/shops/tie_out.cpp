#include "shops/tie_out.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "platform/text/number_text.h"
#include "platform/text/strings.h"

namespace tela::testing {

namespace {

using Key = std::vector<std::string>;
using Cells = std::vector<std::vector<std::string>>;

std::string day_first(const std::string& day) {
  return day.empty() ? "" : day.substr(8, 2) + "/" + day.substr(5, 2) + "/" + day.substr(0, 4);
}
std::string shown_day(const std::string& day, Written written) {
  if (day.empty()) return "";
  const std::string full = day_first(day);
  return written == Written::date ? full : full.substr(0, 6) + full.substr(8, 2);
}
std::string shown_time(const std::string& time, Written written) {
  if (time.empty()) return "";
  const int hour = std::stoi(time.substr(0, 2));
  char text[16];
  std::snprintf(text, sizeof text, "%02d%s %s", (hour + 11) % 12 + 1,
                time.substr(2, written == Written::time ? 3 : 6).c_str(), hour < 12 ? "AM" : "PM");
  return text;
}
std::string plain_key(const std::string& text) {
  return text_key(std::string(trimmed(text)));
}

std::string reckoned_key(const Row& row, const Column& column) {
  switch (column.written) {
    case Written::number:
      return row.is_null(column.cell) ? "" : format_number(row.number(column.cell), "0.00");
    case Written::date:
    case Written::short_date:
      return shown_day(row.text(column.cell), column.written);
    case Written::time:
    case Written::long_time:
      return shown_time(row.text(column.cell), column.written);
    default:
      return plain_key(row.text(column.cell));
  }
}
std::string shown_key(const std::string& cell, Written written) {
  if (written == Written::number)
    return cell.empty() ? "" : format_number(shown_number(cell), "0.00");
  return written == Written::text ? plain_key(cell) : cell;
}

// Rows that cannot be told apart.
struct Tally {
  int rows = 0;
  std::vector<double> sums;
};
using Tallies = std::map<Key, Tally>;

void count(Tallies& tallies, const Key& key, const std::vector<double>& figures) {
  Tally& tally = tallies[key];
  ++tally.rows;
  tally.sums.resize(figures.size());
  for (std::size_t i = 0; i < figures.size(); ++i)
    if (!std::isnan(figures[i])) tally.sums[i] += figures[i];
}

Tallies reckoned_tallies(const Report& report, const Rows& rows) {
  Tallies tallies;
  for (const Row& row : rows) {
    Key key;
    std::vector<double> figures;
    for (const Column& column : report.columns)
      if (column.written == Written::figure)
        figures.push_back(row.number(column.cell));
      else
        key.push_back(reckoned_key(row, column));
    count(tallies, key, figures);
  }
  return tallies;
}

Tallies shown_tallies(const Report& report, const Cells& rows) {
  Tallies tallies;
  for (const auto& row : rows) {
    Key key;
    std::vector<double> figures;
    for (const Column& column : report.columns) {
      const std::string& cell = row.at(static_cast<std::size_t>(column.at));
      if (column.written == Written::figure)
        figures.push_back(shown_number(cell));
      else
        key.push_back(shown_key(cell, column.written));
    }
    count(tallies, key, figures);
  }
  return tallies;
}

// Numbers of sixteen digits are as fine as a double is.
bool near(double one, double other, double slack) {
  return std::abs(one - other) <= slack + 1e-12 * std::max(std::abs(one), std::abs(other));
}

std::string in_words(const Key& key) {
  std::string words;
  for (const std::string& part : key) words += "[" + part + "]";
  return words.empty() ? "[all]" : words;
}

std::string number(double value) {
  char text[48];
  std::snprintf(text, sizeof text, "%.4f", value);
  return text;
}

// The rows under the heads, but those in which nothing stands.
Cells shown_rows(const Json& state, const std::string& grid) {
  if (grid.empty()) return {};
  Cells rows;
  if (grid == "chart") return state["chart"]["rows"].get<Cells>();
  rows = state["grids"][grid]["cells"].get<Cells>();
  if (!rows.empty()) rows.erase(rows.begin());
  const auto is_blank = [](const std::vector<std::string>& row) {
    return std::all_of(row.begin(), row.end(), [](const auto& cell) { return cell.empty(); });
  };
  rows.erase(std::remove_if(rows.begin(), rows.end(), is_blank), rows.end());
  return rows;
}

class TieOut {
 public:
  TieOut(Shop& shop, const InventedShop& invented, unsigned seed)
      : shop_(shop), rows_(invented.rows), season_(invented.season), seed_(seed) {
    stock_shop(shop, rows_);
  }

  void check(const Report& report) {
    report_ = report.screen;
    for (const Season& period : periods(report.one_day))
      for (const std::string& choice : chosen(report)) check(report, {period, choice});
  }

  // A side that cannot be asked (no supplier yet) sums to nothing; one that refuses is not
  // compared.
  void check(const Relation& relation) {
    report_ = relation.says;
    double sum = 0, slack = 0, most = 0;
    std::string parts;
    for (const Side& side : relation.sides) {
      const auto [total, cells] = read(side);
      if (cells == kRefused) return;
      sum += side.factor * total;
      slack += side.slack * cells;
      most = std::max(most, std::abs(total));
      parts += " " + side.screen + "." +
               (side.box.empty() ? std::to_string(side.column) : side.box) + "=" + number(total);
    }
    if (std::abs(sum) > slack + 1e-11 * most) fail("off by " + number(sum) + ":" + parts);
  }

  std::vector<Fault> faults;

 private:
  void fail(const std::string& how) { faults.push_back({report_, how}); }

  std::vector<Season> periods(bool one_day) const {
    const std::string within = later(season_.first, static_cast<int>(seed_ % 6));
    if (one_day) return {{season_.first, season_.first}, {within, within}};
    return {season_, {within, later(within, 2)}};
  }

  // What a screen offers, by its combo; nothing where it has none.
  const Json& offers(const std::string& screen) {
    const auto [found, is_new] = offers_.try_emplace(screen);
    if (is_new) {
      found->second = shop_.show("open " + screen)["items"];
      shop_.run("close");
    }
    return found->second;
  }
  std::vector<std::string> offered(const Report& report) {
    if (report.choices) return report.choices(rows_);
    auto items = offers(report.screen).value("Combo1", std::vector<std::string>());
    items.erase(std::remove_if(items.begin(), items.end(),
                               [](const auto& item) { return trimmed(item).empty(); }),
                items.end());
    return items;
  }
  bool takes_a_choice(const Report& report) {
    if (report.choices) return report.grid != "chart" || report.choose != "pick Combo1 ";
    return offers(report.screen).contains("Combo1");
  }
  // The last, which often is all of them, and one more.
  std::vector<std::string> chosen(const Report& report) {
    if (!takes_a_choice(report)) return {""};
    std::vector<std::string> all = offered(report);
    if (all.size() < 2) return all;
    return {all.back(), all[seed_ % (all.size() - 1)]};
  }

  // A View of the same inputs is not pressed twice.
  const Json& view(const Report& report, const Asked& asked) {
    const auto [found, is_new] =
        seen_.try_emplace({report.screen, asked.period.first, asked.period.last, asked.choice});
    if (is_new) found->second = press_view(report, asked);
    said_ = found->second.said;
    return found->second.state;
  }

  struct Seen {
    Json state;
    std::string said;  ///< messages and errors
  };

  Seen press_view(const Report& report, const Asked& asked) {
    if (report.opens_bill) shop_.state().SaleBillNo = std::stoi(asked.choice);
    shop_.run("open " + report.screen);
    const Form& form = shop_.state().windows.find(report.screen)->form();
    std::string script;
    for (const char* first : {"DTP", "DTP1", "DTPicker1"})
      if (form.has(first))
        script += std::string("set ") + first + " " + day_first(asked.period.first) + "\n";
    for (const char* last : {"DTP2", "DTPicker2"})
      if (form.has(last))
        script += std::string("set ") + last + " " + day_first(asked.period.last) + "\n";
    if (!asked.choice.empty() && !report.choose.empty())
      script += report.choose + asked.choice + "\n";
    const std::vector<std::string> printed =
        shop_.run(script + report.inputs + report.view + "\nshow\n");
    Seen seen;
    for (std::size_t i = 0; i + 1 < printed.size(); ++i)
      if (printed[i].find("\"message\"") != std::string::npos ||
          printed[i].find("\"error\"") != std::string::npos)
        seen.said += printed[i];
    shop_.run("close");
    seen.state = Json::parse(printed.back());
    return seen;
  }

  void check(const Report& report, const Asked& asked) {
    report_ = report.screen;
    const Json& state = view(report, asked);
    const std::string asked_for = asked.period.first + " to " + asked.period.last + " " +
                                  asked.choice + " " + report.grid + ": ";
    const Cells rows = shown_rows(state, report.grid);
    if (report.refuses && report.refuses(rows_, asked)) {
      if (said_.empty() || !rows.empty()) fail(asked_for + "lists what it has to refuse");
      return;
    }
    if (!said_.empty()) return fail(asked_for + "says " + said_);
    const Rows reckoned = report.rows ? report.rows(rows_, asked) : Rows();
    compare(report, asked_for, reckoned_tallies(report, reckoned), shown_tallies(report, rows));
    check_numbering(report, asked_for, rows);
    for (const auto& [name, box] : report.boxes) {
      const double wanted = box.reckoned({state, rows_, asked, reckoned, rows});
      const double shown = shown_number(state["controls"][name].get<std::string>());
      if (!std::isnan(wanted) && !near(wanted, shown, box.slack))
        fail(asked_for + name + " shows " + number(shown) + " in place of " + number(wanted));
    }
  }

  void check_numbering(const Report& report, const std::string& asked_for, const Cells& rows) {
    const bool numbered =
        report.grid != "chart" && std::none_of(report.columns.begin(), report.columns.end(),
                                               [](const Column& column) { return column.at == 0; });
    for (std::size_t row = 0; numbered && row < rows.size(); ++row)
      if (rows[row][0] != std::to_string(row + 1)) return fail(asked_for + "misnumbers its rows");
  }

  void compare(const Report& report, const std::string& asked_for, const Tallies& reckoned,
               const Tallies& shown) {
    for (const auto& [key, tally] : reckoned)
      if (!shown.contains(key)) fail(asked_for + "lacks " + in_words(key));
    for (const auto& [key, tally] : shown) {
      const auto found = reckoned.find(key);
      if (found == reckoned.end())
        fail(asked_for + "has no business to show " + in_words(key));
      else
        compare(report, asked_for + in_words(key), found->second, tally);
    }
  }

  void compare(const Report& report, const std::string& row, const Tally& reckoned,
               const Tally& shown) {
    if (reckoned.rows != shown.rows)
      return fail(row + " stands " + std::to_string(shown.rows) + " times in place of " +
                  std::to_string(reckoned.rows));
    std::size_t i = 0;
    for (const Column& column : report.columns) {
      if (column.written != Written::figure) continue;
      if (!near(reckoned.sums[i], shown.sums[i], column.slack * shown.rows))
        fail(row + " " + column.cell + " shows " + number(shown.sums[i]) + " in place of " +
             number(reckoned.sums[i]));
      ++i;
    }
  }

  static constexpr int kRefused = -1;

  // The sum of a side and how many roundings went into it.
  std::pair<double, int> read(const Side& side) {
    const auto& reports = all_reports();
    const auto report = std::find_if(reports.begin(), reports.end(),
                                     [&](const Report& one) { return one.screen == side.screen; });
    double sum = 0;
    int cells = 0;
    for (const Asked& asked : asked_of(side, *report)) {
      if (report->refuses && report->refuses(rows_, asked)) return {0, kRefused};
      const Json& state = view(*report, asked);
      const Cells rows = shown_rows(state, side.box.empty() ? side.grid : report->grid);
      cells += static_cast<int>(rows.size()) + 1;
      if (!side.box.empty()) {
        sum += shown_number(state["controls"][side.box].get<std::string>());
        continue;
      }
      for (const auto& row : rows) {
        const std::string& cell = row.at(static_cast<std::size_t>(side.column));
        if (cell.size() <= side.fitting) sum += shown_number(cell);
      }
    }
    return {sum, cells};
  }

  std::vector<Asked> asked_of(const Side& side, const Report& report) {
    std::vector<Asked> all;
    const bool chooses = takes_a_choice(report);
    const std::vector<std::string> choices = chooses ? offered(report) : std::vector<std::string>();
    if (side.over == Over::each_choice) {
      for (const std::string& choice : choices)
        if (!choice.starts_with("ALL ")) all.push_back({season_, choice});
      return all;
    }
    const std::string choice = chooses && !choices.empty() ? choices.back() : "";
    if (side.over == Over::all) return {{season_, choice}};
    for (std::string day = season_.first; day <= season_.last; day = later(day, 1))
      all.push_back({{day, day}, choice});
    return all;
  }

  Shop& shop_;
  const Rows& rows_;
  const Season season_;
  const unsigned seed_;
  std::string report_;
  std::string said_;
  std::map<std::vector<std::string>, Seen> seen_;
  std::map<std::string, Json> offers_;
};

}  // namespace

std::vector<Fault> faults(Shop& shop, const InventedShop& invented, unsigned seed,
                          const std::string& only) {
  TieOut tie_out(shop, invented, seed);
  for (const Report& report : all_reports())
    if (only.empty() || only == report.screen) tie_out.check(report);
  for (const Relation& relation : all_relations())
    if (only.empty() || only == relation.says) tie_out.check(relation);
  return tie_out.faults;
}

Rows shrunk(Rows rows, const std::function<bool(const Rows&)>& fails) {
  for (std::size_t some = std::max<std::size_t>(rows.size() / 2, 1); some > 0;) {
    bool smaller = false;
    for (std::size_t first = 0; first < rows.size();) {
      Rows fewer = rows;
      const std::size_t last = std::min(first + some, rows.size());
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(first),
                  fewer.begin() + static_cast<std::ptrdiff_t>(last));
      if (fails(fewer)) {
        rows = std::move(fewer);
        smaller = true;
      } else {
        first += some;
      }
    }
    if (!smaller) some /= 2;
  }
  return rows;
}

}  // namespace tela::testing
