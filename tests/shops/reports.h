// What every report shows of a shop, said a second time: row by row in plain C++, and as sums that
// must come out alike on several reports.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "shops/invented_shop.h"

namespace tela::testing {

/// What a View is asked: a period, and one of the entries that the screen offers.
struct Asked {
  Season period;
  std::string choice = {};
};

/// How a grid writes a cell.
enum class Written {
  text,        ///< compared as the catalogue compares texts
  number,      ///< part of what tells rows apart, with two decimals
  date,        ///< as "29/02/2024"
  short_date,  ///< as "29/02/24"
  time,        ///< as "02:30 PM"
  long_time,   ///< as "02:30:05 PM"
  figure,      ///< a number; rows that cannot be told apart are compared by its sum
};

struct Column {
  int at;            ///< in the grid
  std::string cell;  ///< of the rows reckoned from the shop
  Written written;
  double slack = 0.0051;  ///< how far roundings may part a figure from the reckoned one
};

/// What a screen shows after its View, beside the rows that it ought to show.
struct Shown {
  const Json& state;
  const Rows& shop;
  const Asked& asked;
  const Rows& reckoned;
  std::vector<std::vector<std::string>> rows;  ///< of the grid, without its heads and its blank row
};

/// A box reckoned anew; NaN where the box keeps whatever stood in it.
struct Box {
  std::function<double(const Shown&)> reckoned;
  double slack = 0.0051;
};

/// A grid, a chart or the boxes of a screen.
struct Report {
  std::string screen;
  std::string grid = "MSHF";  ///< "chart" for a chart; empty where boxes are all there is
  std::string inputs = {};    ///< further console lines ahead of the View
  std::string view = "press cmdView";
  bool one_day = false;                 ///< asks for a day, not for a period
  std::string choose = "pick Combo1 ";  ///< the console's words ahead of a choice
  /// The choices, where the screen's combo does not offer them; and where it does, none.
  std::function<std::vector<std::string>(const Rows& shop)> choices = {};
  bool opens_bill = false;  ///< shows the bill that another screen has chosen
  std::vector<Column> columns;
  std::function<Rows(const Rows& shop, const Asked&)> rows = {};
  std::map<std::string, Box> boxes = {};
  /// Whether the screen has to say why it lists nothing.
  std::function<bool(const Rows& shop, const Asked&)> refuses = {};
};

/// Every report; a grid beside another is a report of its own.
const std::vector<Report>& all_reports();

/// Which of a screen's answers a side of a relation sums.
enum class Over { all, each_choice, each_day };

/// A sum over one screen, as it stands in a relation.
struct Side {
  double factor;  ///< 1 or -1: the sides of a relation come to nothing together
  std::string screen;
  std::string box = {};  ///< a box; or else
  int column = -1;       ///< a column of the grid, without the cells of more letters than `fitting`
  std::string grid = "MSHF";
  std::size_t fitting = 99;
  Over over = Over::all;
  double slack = 0.0051;  ///< of one cell
};

/// Sums of several screens over one period that must tie out.
struct Relation {
  std::string says;
  std::vector<Side> sides;
};

const std::vector<Relation>& all_relations();

/// A number as a screen shows it; 0 for none, for asterisks too.
double shown_number(const std::string& text);

}  // namespace tela::testing
