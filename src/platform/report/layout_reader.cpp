// One method for each statement of a layout file, in the order of the documentation.
#include "platform/report/layout_reader.h"

#include <array>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/report/layout_columns.h"
#include "platform/report/report_engine.h"
#include "platform/report/word_cursor.h"
#include "platform/text/ascii.h"

namespace tela {
namespace {

TextAlign read_align(WordCursor& words) {
  if (words.take("left")) return TextAlign::left;
  if (words.take("centre")) return TextAlign::centre;
  if (words.take("right")) return TextAlign::right;
  throw std::invalid_argument("left, centre or right is wanted");
}

double read_size(WordCursor& words) {
  const double size = words.number("size in points");
  if (size < 1) throw std::invalid_argument("a text is at least 1 point high");
  return size;
}

/// Takes one word of a text's look, if the next word is one.
bool read_style(WordCursor& words, TextStyle& style) {
  if (words.take("bold")) return style.bold = true;
  if (words.take("italic")) return style.italic = true;
  if (!words.take("size")) return false;
  style.size = read_size(words);
  return true;
}

class LayoutReader {
 public:
  explicit LayoutReader(const LayoutSource& source) : source_(source) {}

  Layout read(const std::string& file) {
    layout_.file = file;
    const std::optional<std::string> text = source_(file);
    if (!text) throw ReportError(file + ": there is no such layout file");
    read_text(file, *text);
    end_columns();
    check_whole();
    return std::move(layout_);
  }

 private:
  struct Statement {
    std::string_view word;
    void (LayoutReader::*read)(WordCursor&);
  };
  static const std::array<Statement, 18> statements;

  void read_text(const std::string& file, const std::string& text) {
    const SourceLine includer = std::exchange(at_, {file, 0});
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
      ++at_.line;
      guarded(at_, [&] { read_line(line); });
    }
    at_ = includer;
  }

  /// Runs `read` and gives a failure its file and line.
  template <typename Read>
  static void guarded(const SourceLine& at, const Read& read) {
    try {
      read();
    } catch (const std::invalid_argument& reason) {
      throw ReportError(at.file + ":" + std::to_string(at.line) + ": " + reason.what());
    }
  }

  void read_line(const std::string& line) {
    WordCursor words(layout_words(line));
    if (words.at_end()) return;
    const std::string first = words.word("statement");
    if (!equal_ignoring_case(first, "column")) end_columns();
    for (const Statement& statement : statements) {
      if (!equal_ignoring_case(statement.word, first)) continue;
      (this->*statement.read)(words);
      words.expect_end();
      return;
    }
    throw std::invalid_argument("'" + first + "' is no statement");
  }

  void paper(WordCursor& words) {
    require_no_band();
    if (words.take("A4")) {
      layout_.paper = {210, 297};
    } else if (words.take("A5")) {
      layout_.paper = {148, 210};
    } else {
      throw std::invalid_argument("A4 or A5 is wanted");
    }
    if (words.take("landscape")) {
      std::swap(layout_.paper.width, layout_.paper.height);
    } else if (!words.take("portrait")) {
      throw std::invalid_argument("portrait or landscape is wanted");
    }
  }

  void margins(WordCursor& words) {
    require_no_band();
    Margins& margins = layout_.margins;
    for (double* side : {&margins.left, &margins.top, &margins.right, &margins.bottom}) {
      *side = words.number("margin");
    }
    if (layout_.body_width() <= 0) throw std::invalid_argument("the margins leave no paper");
  }

  void font(WordCursor& words) {
    layout_.font_family = words.quoted("font family");
    layout_.style.size = read_size(words);
  }

  void table(WordCursor& words) { layout_.tables.push_back(words.word("table")); }

  void formula(WordCursor& words) { layout_.formulas.push_back(words.word("formula name")); }

  void include(WordCursor& words) {
    const std::string file = words.quoted("file");
    constexpr int deepest = 4;
    if (depth_ == deepest) throw std::invalid_argument("files include each other too deeply");
    const std::optional<std::string> text = source_(file);
    if (!text) throw std::invalid_argument("there is no file '" + file + "'");
    ++depth_;
    read_text(file, *text);
    --depth_;
  }

  void group(WordCursor& words) {
    Group group;
    group.key.kind = TextPiece::Kind::column;
    group.key.name = words.word("column");
    if (words.take("when")) {
      if (!words.take("many")) throw std::invalid_argument("'when' goes with 'many'");
      group.only_if_many = true;
    }
    group.source = at_;
    layout_.groups.push_back(std::move(group));
    band_ = nullptr;
  }

  void page_header(WordCursor&) { band_ = &layout_.page_header; }
  void detail(WordCursor&) { band_ = &layout_.detail; }
  void report_footer(WordCursor&) { band_ = &layout_.report_footer; }
  void page_footer(WordCursor&) { band_ = &layout_.page_footer; }
  void group_header(WordCursor&) { band_ = &last_group().header; }
  void group_footer(WordCursor&) { band_ = &last_group().footer; }

  void row(WordCursor& words) {
    if (band_ == nullptr) throw std::invalid_argument("a row belongs to a band, and none is named");
    Row row;
    row.height = words.number("height");
    row_style_ = layout_.style;
    while (!words.at_end()) {
      if (read_style(words, row_style_)) continue;
      if (words.take("shaded")) {
        row.shaded = true;
      } else if (words.take("rule")) {
        const bool above = words.take("above");
        if (!above && !words.take("below")) throw std::invalid_argument("a rule is above or below");
        (above ? row.rule_above : row.rule_below) = true;
      } else {
        words.expect_end();
      }
    }
    band_->rows.push_back(std::move(row));
  }

  void cell(WordCursor& words) {
    if (band_ == nullptr || band_->rows.empty())
      throw std::invalid_argument("a cell belongs to a row");
    Cell cell;
    cell.align = read_align(words);
    cell.text = read_template(words.quoted("text"), layout_.formulas);
    cell.style = row_style_;
    cell.source = at_;
    while (!words.at_end()) {
      if (read_style(words, cell.style)) continue;
      if (words.take("at")) {
        cell.x = words.number("place");
      } else if (words.take("width")) {
        cell.width = words.number("width");
      } else {
        words.expect_end();
      }
    }
    if (cell.width == 0) cell.width = layout_.body_width() - cell.x;
    if (cell.width <= 0 || cell.x + cell.width > layout_.body_width() + 0.01) {
      throw std::invalid_argument("the cell reaches beyond the margin");
    }
    band_->rows.back().cells.push_back(std::move(cell));
  }

  void columns(WordCursor& words) {
    if (!columns_.empty()) throw std::invalid_argument("a layout has one table of columns");
    heading_height_ = words.number("height of the headings");
    record_height_ = words.number("height of a row");
    layout_.striped = words.take("striped");
    columns_open_ = true;
    columns_at_ = at_;
  }

  void column(WordCursor& words) {
    if (!columns_open_) throw std::invalid_argument("a column stands under 'columns'");
    LayoutColumn column;
    column.field = words.word("field");
    column.takes_rest = words.take("rest");
    if (!column.takes_rest) column.width = words.number("width");
    column.align = read_align(words);
    column.heading = words.quoted("heading");
    if (words.take("mask")) column.mask = words.quoted("mask");
    column.summed = words.take("sum");
    column.source = at_;
    columns_.push_back(std::move(column));
  }

  void totals(WordCursor& words) {
    if (band_ == nullptr) throw std::invalid_argument("totals belong to a band, and none is named");
    TextTemplate label = read_template(words.quoted("label"), layout_.formulas);
    constexpr double taller = 1.2;
    band_->rows.push_back(
        totals_row(columns_, record_height_ * taller, layout_.style, std::move(label), at_));
  }

  /// The columns are complete when another statement comes: give them their places and rows.
  void end_columns() {
    if (!std::exchange(columns_open_, false)) return;
    guarded(columns_at_, [&] { place_columns(columns_, layout_.body_width()); });
    layout_.column_header.rows.push_back(heading_row(columns_, heading_height_, layout_.style));
    layout_.detail.rows.push_back(record_row(columns_, record_height_, layout_.style));
  }

  Group& last_group() {
    if (layout_.groups.empty()) throw std::invalid_argument("no group is named yet");
    return layout_.groups.back();
  }

  /// Cells are measured by the paper, so the paper comes first.
  void require_no_band() const {
    if (band_ != nullptr || !columns_.empty()) {
      throw std::invalid_argument("paper and margins come ahead of the bands");
    }
  }

  void check_whole() const {
    const auto broken = [&](const std::string& reason) {
      throw ReportError(layout_.file + ": " + reason);
    };
    if (layout_.tables.empty()) broken("the layout names no table");
    double block = layout_.detail.height() + layout_.report_footer.height();
    for (const Group& group : layout_.groups)
      block += group.header.height() + group.footer.height();
    if (layout_.detail.height() <= 0) broken("the layout has no detail row");
    if (block > layout_.body_height()) broken("the bands are taller than the page");
  }

  const LayoutSource& source_;
  Layout layout_;
  SourceLine at_;
  int depth_ = 0;
  Band* band_ = nullptr;
  TextStyle row_style_;
  std::vector<LayoutColumn> columns_;
  bool columns_open_ = false;
  SourceLine columns_at_;
  double heading_height_ = 0;
  double record_height_ = 0;
};

const std::array<LayoutReader::Statement, 18> LayoutReader::statements{{
    {"paper", &LayoutReader::paper},
    {"margins", &LayoutReader::margins},
    {"font", &LayoutReader::font},
    {"table", &LayoutReader::table},
    {"formula", &LayoutReader::formula},
    {"include", &LayoutReader::include},
    {"group", &LayoutReader::group},
    {"page_header", &LayoutReader::page_header},
    {"group_header", &LayoutReader::group_header},
    {"detail", &LayoutReader::detail},
    {"group_footer", &LayoutReader::group_footer},
    {"report_footer", &LayoutReader::report_footer},
    {"page_footer", &LayoutReader::page_footer},
    {"row", &LayoutReader::row},
    {"cell", &LayoutReader::cell},
    {"columns", &LayoutReader::columns},
    {"column", &LayoutReader::column},
    {"totals", &LayoutReader::totals},
}};

}  // namespace

Layout read_layout(const std::string& file, const LayoutSource& source) {
  return LayoutReader(source).read(file);
}

}  // namespace tela
