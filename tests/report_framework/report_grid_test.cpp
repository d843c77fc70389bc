// The grid of a report and the staging of its rows, over a connection that is nothing but rows in
// memory.
#include "report_framework/report_grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "report_framework/lacking_amounts.h"
#include "report_framework/staging.h"
#include "shell/display.h"
#include "shell/sql_value.h"
#include "shell/windows.h"

namespace tela {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

// Answers every query with the rows that a test puts in, and keeps the statements.
class RowsInMemory : public Connection {
 public:
  void open(std::string_view) override {}
  void set_cursor_location(CursorLocation) override {}
  void set_command_timeout(std::chrono::seconds) override {}
  RowSet execute(std::string_view sql) override {
    statements.emplace_back(sql);
    return rows;
  }
  void begin_trans() override { statements.emplace_back("begin"); }
  void commit_trans() override { statements.emplace_back("commit"); }
  void rollback_trans() override { statements.emplace_back("rollback"); }
  bool in_transaction() const override { return false; }

  RowSet rows{std::vector<Field>(3), {}};
  std::vector<std::string> statements;
};

class ReportGridTest : public ::testing::Test {
 protected:
  ReportGridTest() {
    app.Con = std::make_unique<RowsInMemory>();
    database = static_cast<RowsInMemory*>(app.Con.get());
  }

  static GridColumns columns() {
    return {{"No", 500, field(0)},
            {"Name", 900, trimmed_field(1)},
            {"Amount", 700, number_field(2, "0.00"), {"tTotal", "0.00"}}};
  }
  ReportGrid make(GridLook look = {}) { return {form, columns(), std::move(look)}; }
  void add_rows(int count) {
    for (int row = 1; row <= count; ++row)
      database->rows.rows.push_back({std::int64_t{row}, "x", 1.0});
  }
  std::vector<std::string> staged(const ReportGrid& grid) {
    const auto values = [](const GridRow& row) -> std::vector<std::string> {
      return {row.number(0), row.text(1), row.number(2)};
    };
    database->statements.clear();
    stage_rows(app, grid,
               {.clear = "delete from T", .insert = "insert into T values(", .values = values});
    return database->statements;
  }

  // A report grid needs no display and no window.
  struct NoDisplay : Display {
    Answer message(const Message&) override { return Answer::cancel; }
    void focus(const Screen&, const std::string&) override {}
    void pointer(Pointer) override {}
    void hint(const std::string&) override {}
    void progress(const std::string&, int, int) override {}
    void opened(Screen&) override {}
    void front(Screen&) override {}
    void closed(Screen&) override {}
    void preview_opened(const ReportWindow&) override {}
    void preview_closed() override {}
    std::optional<std::string> save_file(const SaveRequest&) override { return std::nullopt; }
    void exit_program() override {}
  } display;
  Platform platform;
  Windows windows{{}};
  AppState app{platform, display, windows};
  RowsInMemory* database = nullptr;
  Form form{tab_order(grid("MSHF", 3), total_box("tTotal", "TOTAL"))};
};

TEST_F(ReportGridTest, HoldsAsManyRowsAsItsCountersReachAndNoMore) {
  const ReportGrid grid = make();
  add_rows(kLastGridRow);
  grid.show(app, "select");
  EXPECT_EQ(grid.cells().Rows(), kLastGridRow + 1);
  EXPECT_EQ(grid.cell(kLastGridRow, 0), "32767");
  EXPECT_EQ(app.RowNo, kLastGridRow + 1);
  add_rows(1);
  EXPECT_THROW(grid.show(app, "select"), GridError);
  EXPECT_EQ(grid.cells().Rows(), 2);
  EXPECT_EQ(grid.cell(0, 0), "") << "a list that was not shown leaves an empty grid";
}

TEST_F(ReportGridTest, CountsOnlyTheRowsThatItsLookCounts) {
  const ReportGrid grid = make({.size = FillSize::blank_row_behind, .counted_by = 0});
  database->rows.rows = {{std::int64_t{0}, "a", 5.0}, {std::int64_t{7}, " b ", 2.5}};
  grid.show(app, "select");
  EXPECT_EQ(form.text("tTotal"), "2.50");
  EXPECT_EQ(grid.cells().Rows(), 4) << "one blank row stands behind the last";
  EXPECT_EQ(grid.cell(2, 1), "b");
  EXPECT_TRUE(grid.cells().Bands().empty());
}

TEST_F(ReportGridTest, WithoutARecordTheBlankRowIsNoRow) {
  const ReportGrid grid = make({.size = FillSize::blank_row_behind, .headed_at_load = false});
  EXPECT_EQ(grid.cell(0, 0), "");
  grid.show(app, "select");
  EXPECT_EQ(grid.cell(0, 0), "No");
  EXPECT_EQ(grid.cells().Rows(), 2);
  EXPECT_EQ(form.text("tTotal"), "0");
}

TEST_F(ReportGridTest, StagesEveryRowWithAText) {
  const ReportGrid grid = make();
  database->rows.rows = {{std::int64_t{-1}, "b", 1.0}, {Value{}, "a", 1.0}};
  grid.show(app, "select");
  database->statements.clear();
  stage_rows(app, grid,
             {.clear = "delete from T",
              .insert = "insert into T values(",
              .any_text_counts = true,
              .values = [](const GridRow& row) { return std::vector{row.text(1)}; }});
  EXPECT_THAT(database->statements,
              ElementsAre("begin", "delete from T", "insert into T values('b')", "commit"));
}

TEST_F(ReportGridTest, StagesCellsAsValues) {
  const ReportGrid grid = make();
  database->rows.rows = {{std::int64_t{1}, "Amma's", 2.5},
                         {std::int64_t{0}, "passed over", 1.0},
                         {std::int64_t{3}, Value{}, Value{}}};
  grid.show(app, "select");
  EXPECT_THAT(staged(grid),
              ElementsAre("begin", "delete from T", "insert into T values(1,'Amma''s',2.50)",
                          "insert into T values(3,'',null)", "commit"));
}

TEST_F(ReportGridTest, RefusesToStageWhatIsNoNumber) {
  const ReportGrid grid = make();
  for (const char* cell : {"********", "12 or 1=1"}) {
    database->rows.rows = {{std::int64_t{1}, "x", 1.0}, {std::int64_t{2}, "x", cell}};
    grid.show(app, "select");
    EXPECT_THAT([&] { staged(grid); },
                ThrowsMessage<ValueError>(
                    ::testing::AllOf(HasSubstr("Row 2, column \"Amount\""), HasSubstr(cell))));
  }
}

TEST_F(ReportGridTest, ChecksItsDefinition) {
  GridColumns unknown_box = columns();
  unknown_box[0].total.box = "tMissing";
  EXPECT_THROW(ReportGrid(form, unknown_box), std::logic_error);
  GridColumns short_of_one = columns();
  short_of_one.pop_back();
  EXPECT_THROW(ReportGrid(form, short_of_one), std::logic_error);
  EXPECT_THROW(make({.name = "MSHF1"}), std::logic_error);
}

TEST(LackingAmounts, GetRoomInTheStatementAndNowhereElse) {
  EXPECT_EQ(with_room_for_amounts("select STR(mrp,8,2)'M,P',substr(a,1,2),str(sum(q) * (r),8,3) "
                                  "from t where n='str(x,8,2)' or n='it''s'"),
            "select STR(mrp,40,2)'M,P',substr(a,1,2),str(sum(q) * (r),40,3) "
            "from t where n='str(x,8,2)' or n='it''s'");
  EXPECT_EQ(with_room_for_amounts("select str(a),mystr(b,8,2),str(left(c,2),9,1"),
            "select str(a),mystr(b,8,2),str(left(c,2),9,1");
}

TEST_F(ReportGridTest, TheAmountsThatATotalLacksAreReadOnceMore) {
  const ReportGrid grid = make();
  database->rows.rows = {{std::int64_t{7}, "x", "********"}, {std::int64_t{8}, "y", "    1.50"}};
  Recordset narrow;
  narrow.open("", *database);
  grid.fill(app, narrow);
  EXPECT_THAT(grid.cells().WideCells(), ElementsAre(std::pair(1, 2)));
  const auto lacking = [&](std::vector<std::vector<Value>> rows) {
    database->rows.rows = std::move(rows);
    Recordset wide;
    wide.open("", *database);
    return lacking_amounts(grid.cells(), grid.columns(), wide);
  };
  EXPECT_THAT(lacking({{std::int64_t{7}, "x", " 123456.789"}, {std::int64_t{8}, "y", "1.50"}}),
              ElementsAre(std::pair(2, 123456.79)));
  // Other rows than those of the list tell nothing.
  EXPECT_THAT(lacking({{std::int64_t{6}, "x", "5"}, {std::int64_t{7}, "x", "123456.78"}}),
              ElementsAre());
  EXPECT_THAT(lacking({}), ElementsAre());
}

}  // namespace
}  // namespace tela
