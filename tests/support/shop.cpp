#include "support/shop.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "display/scripted/told_sheets.h"
#include "platform/catalogue/catalogue_client.h"
#include "platform/embedded/embedded_catalogue.h"
#include "platform/report/banded_engine.h"
#include "platform/sheet/csv_sheets.h"
#include "platform/text/number_text.h"
#include "platform/way_back/kept_folder.h"
#include "report_framework/sheet_layouts.h"
#include "screens/registry.h"
#include "shell/sql_value.h"
#include "source_folder/source_folder.h"

namespace tela::testing {

namespace {

std::string file_text(const std::filesystem::path& file) {
  std::ifstream in(file);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string list(std::initializer_list<double> numbers) {
  std::string text;
  for (const double number : numbers) text += "," + plain_number(number);
  return text;
}

std::filesystem::path catalogue_texts() {
  return source_folder() / "catalogue";
}

class MemoryPort : public PrinterPort {
 public:
  explicit MemoryPort(std::string& bytes) : bytes_(bytes) {}
  void write(std::string_view bytes) override { bytes_ += bytes; }
  void close() override {}

 private:
  std::string& bytes_;
};

}  // namespace

std::vector<std::string> changed_tables(const std::map<std::string, std::string>& before,
                                        const std::map<std::string, std::string>& after) {
  std::vector<std::string> changed;
  for (const auto& [table, rows] : before)
    if (after.at(table) != rows) changed.push_back(table);
  return changed;
}

void create_catalogue(const Paths& paths) {
  const std::filesystem::path texts = catalogue_texts();
  std::vector<std::string> scripts;
  for (const char* name :
       {"schema.sql", "staging.sql", "procedures.sql", "start_rows.sql", "indexes.sql"})
    scripts.push_back(file_text(texts / name));
  const std::vector<std::string_view> views(scripts.begin(), scripts.end());
  create_embedded_catalogue(paths.embedded_catalogue("TelaData"), views);
}

Shop::Shop()
    : folder_(std::in_place),
      paths_(folder_->path()),
      display_([this](const Json& event) { printed_.push_back(event.dump()); }) {
  create_catalogue(paths_);
  open();
}

Shop::Shop(const std::filesystem::path& root)
    : paths_(root), display_([this](const Json& event) { printed_.push_back(event.dump()); }) {
  open();
}

void Shop::open() {
  platform_.make_connection = make_catalogue_factory(paths_);
  platform_.today = [] {
    return Date{std::chrono::year(2024), std::chrono::month(1), std::chrono::day(5)};
  };
  platform_.make_report_engine = [this] {
    return std::make_unique<BandedReportEngine>(
        ReportEngineParts{platform_.make_connection,
                          [this](std::string_view folder) { return paths_.resolve(folder); },
                          source_folder() / "reports",
                          {}});
  };
  platform_.open_port = [this](std::string_view name) {
    return std::make_unique<MemoryPort>(printed_bytes_[std::string(name)]);
  };
  platform_.sheets = tell_sheets(make_csv_sheets(paths_, paths_.root() / "sheets"), display_);
  platform_.keep_rows = [this](std::string_view screen) {
    return keep_in_folder(paths_.way_back(), screen);
  };
  windows_ = std::make_unique<Windows>(all_screens(), all_actions());
  state_ = std::make_unique<AppState>(platform_, display_, *windows_);
  windows_->create_login(*state_);
}

std::vector<std::string> Shop::run(const std::string& script) {
  printed_.clear();
  std::istringstream lines(script);
  ScriptRunner(*state_, display_).run(lines);
  return printed_;
}

Json Shop::show(const std::string& script) {
  return Json::parse(run(script + "\nshow\n").back());
}

Json Shop::sql(const std::string& statement) {
  const Json printed = Json::parse(run("sql " + statement).back());
  if (printed.contains("error")) throw std::runtime_error(printed["error"].get<std::string>());
  return printed.contains("rows") ? printed["rows"] : printed;
}

std::vector<std::string> Shop::stored_tables() {
  const std::string_view create = "create table ";
  std::vector<std::string> tables;
  std::istringstream schema(file_text(catalogue_texts() / "schema.sql"));
  for (std::string line; std::getline(schema, line);) {
    if (line.starts_with(create))
      tables.push_back(line.substr(create.size(), line.find(" (") - create.size()));
  }
  return tables;
}

std::map<std::string, std::string> Shop::stored() {
  std::map<std::string, std::string> all;
  for (const std::string& table : stored_tables())
    all[table] = sql("select * from " + table).dump();
  return all;
}

void Shop::add_workbook(const std::string& name) {
  const auto file = paths_.resolve(workbook_path(name));
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << "an empty workbook";
}

std::string Shop::sheet(const std::string& workbook, int n) const {
  const auto file = paths_.root() / "sheets" / (workbook + "-" + std::to_string(n) + ".csv");
  return std::filesystem::exists(file) ? file_text(file) : "";
}

void Shop::add(const Bill& bill) {
  sql("insert into SalesTemp (BillNo,BillDate,BillTime,Counter,Staff,BillType,NetAmount,DiscAmount,"
      "Total,CashPaid,CardPaid,MealsPaid,MobilePay,PointsUsed) values (" +
      std::to_string(bill.number) + ",'" + bill.date + "','" + bill.time + "'," +
      std::to_string(bill.counter) + ",'" + sql_quoted(bill.staff) + "','" + bill.type + "'" +
      list({bill.net, bill.discount, bill.total, bill.cash, bill.card, bill.meals, bill.mobile,
            bill.points}) +
      ")");
  for (const Line& line : bill.lines)
    sql("insert into Sales (BillNo,BillDate,Counter,iCode,iName,mrp,SaleRate,PurRate,Qty,Amount) "
        "values (" +
        std::to_string(bill.number) + ",'" + bill.date + "'," + std::to_string(bill.counter) + "," +
        std::to_string(line.code) + ",'" + sql_quoted(line.name) + "'" +
        list({line.mrp, line.sale_rate, line.pur_rate, line.qty, line.qty * line.sale_rate}) + ")");
}

void Shop::add_item(int code, const std::string& name, const std::string& category,
                    const std::string& supplier, double stock, double pur_rate) {
  sql("insert into Items (iCode,iName,Catagory,Supplier,Stock,PurRate) values (" +
      std::to_string(code) + ",'" + sql_quoted(name) + "','" + sql_quoted(category) + "','" +
      sql_quoted(supplier) + "'" + list({stock, pur_rate}) + ")");
}

}  // namespace tela::testing
