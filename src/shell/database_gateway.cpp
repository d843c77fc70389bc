#include "shell/database_gateway.h"

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "shell/display.h"
#include "shell/failure.h"

namespace tela {

namespace {

constexpr std::string_view kConnectionString =
    "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
    "Initial Catalog=TelaData";

void set_shop_identity(AppState& app) {
  app.ShopName = "TELA MINI SUPER MARKET";
  app.ShopTitle = "TELA MINI SUPER MARKET ";
  app.ShopAddress = "No.38B, MARVOPALLI STREET, SUNVALE TOWN - 99001";
  app.DbName = "TelaData";
  app.DbUser = "sa";
  app.DbPassword = "zub";
  app.ReportDir = "D:\\Tela_Supermarket\\Report";
}

// An action is cancelled once and as a whole: not on its way out, nor when part of it is stored.
bool keeps_going(AppState& app, std::int64_t rows) {
  if (app.is_cancelled || app.has_stored) return true;
  app.is_cancelled = !app.display.keep_going(rows);
  return !app.is_cancelled;
}

}  // namespace

void ConnectDatabase(AppState& app) {
  guarded(
      [&] {
        app.Con = app.platform.make_connection();
        app.Con->set_keep_going([&app](std::int64_t rows) { return keeps_going(app, rows); });
        app.Con->open(kConnectionString);
        app.Con->set_cursor_location(CursorLocation::client);
        set_shop_identity(app);
        app.connection_failure.clear();
      },
      [&](const std::runtime_error& failure) {
        app.Con.reset();
        app.connection_failure = failure.what();
        // The shop's name is not known yet, so the title is a literal.
        app.display.message({"NET WORK PROBLEM OR DATABASE NOT CONNECTED", Icon::information,
                             Buttons::ok, "TELA MINI SUPER MARKET"});
      });
}

void NewRs(AppState& app) {
  app.Rs = std::make_unique<Recordset>();
}

void CloseRs(AppState& app) {
  if (!app.Rs) throw DatabaseError(DatabaseError::Kind::other, "The recordset is closed.");
  app.Rs->close();
  app.Rs.reset();
}

Recordset& OpenRs(AppState& app, std::string_view sql) {
  NewRs(app);
  app.Rs->open(sql, *app.Con);
  return *app.Rs;
}

Transaction::Transaction(Connection& connection) : connection_(connection) {
  connection_.begin_trans();
}

Transaction::~Transaction() {
  if (!open_) return;
  pass_over([&] {
    if (connection_.in_transaction()) connection_.rollback_trans();
  });
}

void Transaction::commit() {
  connection_.commit_trans();
  open_ = false;
}

std::string field_text(const Value& value) {
  struct Writer {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(double number) const { return plain_number(number); }
    std::string operator()(std::int64_t number) const { return plain_number(number); }
    std::string operator()(const Date& date) const { return format_date(date, "dd/mm/yyyy"); }
    std::string operator()(const TimeOfDay& time) const { return format_time(time, "HH:MM:SS"); }
  };
  return std::visit(Writer{}, value);
}

double field_number(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  return Val(field_text(value));
}

}  // namespace tela
