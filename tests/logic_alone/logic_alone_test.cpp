// The logic stands alone: it links without Qt and without SQLite, and a report runs over a
// connection that is nothing but rows in memory.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "screens/registry.h"
#include "shell/app_state.h"
#include "shell/display.h"
#include "shell/main_window.h"
#include "shell/owner_login.h"
#include "shell/windows.h"

namespace tela {
namespace {

constexpr Date kToday{std::chrono::year(2024), std::chrono::month(1), std::chrono::day(5)};

class SilentDisplay : public Display {
 public:
  Answer message(const Message& message) override {
    messages += message.text + "\n";
    return Answer::ok;
  }
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

  std::string messages;
};

class RowsInMemory : public Connection {
 public:
  void open(std::string_view) override {}
  void set_cursor_location(CursorLocation) override {}
  void set_command_timeout(std::chrono::seconds) override {}
  RowSet execute(std::string_view sql) override {
    if (sql.find("salestemp") == std::string_view::npos) return settings();
    RowSet bills{std::vector<Field>(11), {}};
    bills.rows.push_back({std::int64_t{7}, kToday, TimeOfDay{14, 5, 0}, "  100.00", "    0.00",
                          "  100.00", 60.5, "   39.50", "    0.00", 0.0, "    0.00"});
    return bills;
  }
  void begin_trans() override {}
  void commit_trans() override {}
  void rollback_trans() override {}
  bool in_transaction() const override { return false; }

 private:
  // One row of blanks does for each of the settings tables.
  static RowSet settings() { return {std::vector<Field>(6), {std::vector<Value>(6)}}; }
};

TEST(LogicAlone, RunsAReportWithoutAWindowAndWithoutADatabase) {
  Platform platform;
  platform.make_connection = [] { return std::make_unique<RowsInMemory>(); };
  platform.today = [] { return kToday; };
  SilentDisplay display;
  Windows windows(all_screens());
  AppState app(platform, display, windows);
  windows.create_login(app).enter_at_full_level();
  windows.main()->click_menu("DailySalesReport");
  Screen& report = *windows.current();
  report.pick("Combo1", "ALL COUNTER");
  report.press("cmdView");
  EXPECT_EQ(display.messages, "");
  EXPECT_EQ(report.form().grid("MSHF").TextMatrix(1, 2), "02:05 PM");
  EXPECT_EQ(report.form().text("Text1"), "60.50");
}

TEST(LogicAlone, LoadsNoLibraryOfAWindowOrADatabase) {
  std::ifstream maps("/proc/self/maps");
  ASSERT_TRUE(maps);
  int libraries = 0;
  for (std::string line; std::getline(maps, line);) {
    libraries += line.find(".so") != std::string::npos;
    for (const char* foreign : {"libQt", "libsqlite", "libodbc"})
      EXPECT_EQ(line.find(foreign), std::string::npos) << line;
  }
  EXPECT_GT(libraries, 0);
}

}  // namespace
}  // namespace tela
