#include "display_qt/desktop_fixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>

#include "platform/chart_qt/picture_clipboard.h"
#include "shell/main_window.h"

namespace tela::testing {

namespace {

constexpr Date kToday{std::chrono::year(2024), std::chrono::month(1), std::chrono::day(5)};

class FakeConnection : public Connection {
 public:
  explicit FakeConnection(const Shop& shop) : shop_(shop) {}

  void open(std::string_view) override {
    if (!shop_.reachable)
      throw DatabaseError(DatabaseError::Kind::connection, "there is no such catalogue");
  }
  void set_cursor_location(CursorLocation) override {}
  void set_command_timeout(std::chrono::seconds) override {}
  void begin_trans() override { in_transaction_ = true; }
  void commit_trans() override { in_transaction_ = false; }
  void rollback_trans() override { in_transaction_ = false; }
  bool in_transaction() const override { return in_transaction_; }

  void set_keep_going(const KeepGoing& keep_going) override { keep_going_ = keep_going; }

  RowSet execute(std::string_view sql) override {
    if (shop_.is_slow && sql.find("salestemp where billdate") != sql.npos) wait_for_cancel();
    RowSet rows;
    rows.fields.resize(30);
    rows.rows.resize(1);  // one row of nulls, where nothing else is known
    if (sql.find("from tword") != sql.npos) rows.rows = {{"THANK YOU", "VISIT AGAIN", ""}};
    if (sql.find("from CrPath") != sql.npos) rows.rows = {{"C:\\Reports"}};
    if (sql.find("from PrinterSet") != sql.npos) rows.rows = {{1.0, "", "LPT1", "", 0.0, 0.0}};
    if (sql.find("Select iLongName") != sql.npos) rows.rows = {{"BASMATI RICE OF THE FIRST CROP"}};
    if (sql.find("from BarChartYear order") != sql.npos) rows.rows = months();
    if (sql.find("salestemp where billdate") != sql.npos) rows.rows = bills(sql);
    for (auto& row : rows.rows) row.resize(rows.fields.size());
    return rows;
  }

 private:
  void wait_for_cancel() const {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 5000)
      if (!keep_going_(1234)) throw Cancelled();
  }

  static std::vector<std::vector<Value>> months() {
    return {{"January", std::int64_t{1}, std::int64_t{2024}, 100000.0},
            {"February", std::int64_t{2}, std::int64_t{2024}, 200000.0},
            {"March", std::int64_t{3}, std::int64_t{2024}, 50000.0}};
  }

  std::vector<std::vector<Value>> bills(std::string_view sql) const {
    std::vector<std::vector<Value>> rows;
    for (int number = 1; number <= shop_.bills; ++number) {
      const double amount = number;
      rows.push_back({std::int64_t{number}, kToday, TimeOfDay{10, 30, 0}, amount, 0.0, amount,
                      amount, 0.0, 0.0, 0.0, 0.0});
    }
    if (!shop_.is_second_huge) return rows;
    const bool has_room = sql.find("str(Total,8,2)") == sql.npos;
    rows[1][5] = has_room ? Value("      250000.00") : Value("********");
    return rows;
  }

  const Shop& shop_;
  KeepGoing keep_going_;
  bool in_transaction_ = false;
};

}  // namespace

Desktop::Desktop(std::span<const ScreenEntry> registry)
    : settings_(std::make_unique<DesktopSettings>(folder_.filePath("desktop.ini"))),
      display_(*settings_, {[this] { ended = true; }, [this] { return first_run_hint; }}),
      windows_(registry),
      app_(platform_, display_, windows_) {
  platform_.make_connection = [this] { return std::make_unique<FakeConnection>(shop); };
  platform_.chart_pictures = make_chart_pictures();
  platform_.today = [] { return kToday; };
  platform_.make_report_engine = []() -> std::unique_ptr<ReportEngine> {
    throw ReportError("there is no report engine here");
  };
  windows_.create_login(app_);
  display_.start(app_);
  EXPECT_TRUE(QTest::qWaitForWindowActive(login()));
}

void Desktop::log_in(const QString& password) {
  QTest::keyClicks(&child<QLineEdit>(*login(), "Text1"), "kestr");
  QTest::keyClick(&child<QLineEdit>(*login(), "Text1"), Qt::Key_Return);
  QTest::keyClicks(&child<QLineEdit>(*login(), "Text2"), password);
  QTest::keyClick(&child<QLineEdit>(*login(), "Text2"), Qt::Key_Return);
  if (!display_.main_frame()) return;
  EXPECT_TRUE(QTest::qWaitForWindowActive(&frame()));
}

ScreenView& Desktop::open(const std::string& screen) {
  if (!windows_.main()) log_in();
  windows_.main()->open_screen(screen);
  return *view(screen);
}

ScreenView* Desktop::view(const std::string& screen) {
  for (ScreenView* view : frame().findChildren<ScreenView*>())
    if (view->screen() && view->screen()->name() == screen) return view;
  return nullptr;
}

SeenBox Desktop::box_of(const std::function<void()>& action, QMessageBox::StandardButton answer) {
  SeenBox seen;
  int boxes = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    ++boxes;
    seen = {box->text(), box->windowTitle(), box->icon(),
            box->standardButtons().testFlag(QMessageBox::Cancel)};
    box->button(answer)->click();
  });
  watch.start(1);
  action();
  EXPECT_EQ(boxes, 1) << seen.text.toStdString();
  return seen;
}

}  // namespace tela::testing
