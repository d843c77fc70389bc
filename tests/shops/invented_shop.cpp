#include "shops/invented_shop.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>

#include "platform/text/number_text.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela::testing {

namespace {

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}
  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  bool once_in(int times) { return below(times) == 0; }
  template <class List>
  auto one_of(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }
  // Mostly whole paise; also nothing, a third decimal, and too wide for eight characters.
  double amount() {
    const int kind = below(24);
    if (kind < 2) return 0;
    if (kind == 2) return 100000 + below(100000000) / 100.0;
    if (kind == 3) return 1e9 + below(1000);
    return kind == 4 ? below(1000000) / 1000.0 : below(100000) / 100.0;
  }
  Cell payment() { return once_in(10) ? Cell() : Cell(once_in(2) ? amount() : 0.0); }

 private:
  std::mt19937 random_;
};

const char* const kSeasons[] = {"2023-12-27", "2024-02-26", "2020-02-27", "2000-02-28",
                                "2024-03-29", "1999-12-29", "2026-06-12"};
constexpr int kDays = 8;
// Each of several spellings is one text to the catalogue.
const char* const kItemNames[] = {"Rice", "RICE ", "Soap 'Lily'", "Tea \"Best\"", "தேநீர்",
                                  "Чай",  "味噌",  "  leading",   "100% [a_b]",   "back\\slash",
                                  "",     "Crème"};
const char* const kCategories[] = {"GROCERY", "Grocery ", "TOYS & 'FUN'", "சமையல்", "Напитки"};
const char* const kStaff[] = {"ANU", "anu ", "O'Neil", "Mary Ann", "Żaneta"};
const char* const kBillTypes[] = {"CASH/CREDIT",  "cash/credit ",  "POINTS SALES", "CREDIT BILL",
                                  "Credit Bill ", "HOME DELIVERY", "STAFF BILL"};
const char* const kMobile[] = {"UPI", "upi ", "QUICKPAY", ""};
const char* const kTaxTypes[] = {"SGST", "IGST", "TOT"};
const char* const kSuppliers[] = {"Sri Traders", "SRI TRADERS ", "D'Souza & Sons", "Базар",
                                  "Gone & Co"};
const char* const kHsn[] = {"0401", "0401 ", "1006", "", "3'4"};
const double kRates[] = {0, 5, 12, 18, 28, 3, 40, 0.25};

class Maker {
 public:
  explicit Maker(unsigned seed) : chance_(seed) {}

  InventedShop make() {
    const std::string first = chance_.one_of(kSeasons);
    shop_.season = {first, later(first, kDays)};
    zero_quantities_ = chance_.once_in(6);
    for (int i = 0; i < 5; ++i) trade_days_.push_back(later(first, chance_.below(kDays + 1)));
    trade_days_.push_back(later(first, -chance_.below(60)));
    add_masters();
    const int start = chance_.one_of(std::vector{1, 999990, 12345678});
    const int bills = chance_.below(13);
    for (int bill = 0; bill < bills; ++bill) add_bill(start + bill);
    const int notes = chance_.below(6);
    for (int note = 1; note <= notes; ++note) add_note(note);
    const int business = chance_.below(4);
    for (int bill = 1; bill <= business; ++bill) add_business_bill(bill);
    add_logs();
    return shop_;
  }

 private:
  void add(const std::string& table, std::map<std::string, Cell> cells) {
    shop_.rows.push_back({table, std::move(cells)});
  }
  std::string day() { return chance_.one_of(trade_days_); }
  std::string time() {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", chance_.below(24), chance_.below(60),
                  chance_.below(60));
    return text;
  }
  template <class List>
  Cell text(const List& list) {
    return std::string(chance_.one_of(list));
  }
  template <class List>
  Cell text_or_null(const List& list) {
    return chance_.once_in(8) ? Cell() : text(list);
  }
  // Of an item that the shop has, or now and then of one that is gone.
  double item_code() { return 1.0 + chance_.below(items_ + (chance_.once_in(5) ? 2 : 0)); }
  double quantity() { return (1 + chance_.below(20)) * 0.25; }

  void add_masters() {
    items_ = 2 + chance_.below(5);
    for (int code = 1; code <= items_; ++code)
      add("Items", {{"iCode", 1.0 * code},
                    {"iName", text(kItemNames)},
                    {"iLongName", text(kCategories)},
                    {"mrp", chance_.amount()},
                    {"SaleRate", chance_.amount()},
                    {"PurRate", chance_.amount()},
                    {"OpStock", chance_.below(50) * 1.0},
                    {"ministock", chance_.payment()},
                    {"Stock", chance_.once_in(8) ? Cell() : Cell(chance_.below(20) - 8.0)},
                    {"Catagory", text_or_null(kCategories)},
                    {"Supplier", text_or_null(kSuppliers)},
                    {"iHSNcode", text(kHsn)},
                    {"iIGst", chance_.one_of(kRates)},
                    {"CreatedDate", chance_.once_in(9) ? Cell() : Cell(day())}});
    for (int code = 1; code <= 4; ++code)
      if (!chance_.once_in(5))
        add("Supplier", {{"Scode", 1.0 * code},
                         {"Sname", std::string(kSuppliers[code - 1])},
                         {"TaxType", text(kTaxTypes)},
                         {"CreditDays", chance_.below(60) * 1.0},
                         {"GstNo", std::string("33AA'") + std::to_string(code)}});
    for (int code = chance_.below(3); code > 0; --code)
      add("GiftPoints", {{"GiftCode", 1.0 * code},
                         {"GiftName", text(kItemNames)},
                         {"NoOfPoints", chance_.amount()}});
  }

  void add_bill(int number) {
    const std::string date = day();
    const double counter = 1.0 + chance_.below(5);
    if (!chance_.once_in(12)) add_header(number, date, counter);
    if (!chance_.once_in(40)) return add_lines(number, date, counter);
    add_header(number, day(), counter);  // the number comes a second time
    add_lines(number, date, counter);
  }
  void add_header(int number, const std::string& date, double counter) {
    add("SalesTemp", {{"BillNo", 1.0 * number},
                      {"BillDate", date},
                      {"BillTime", time()},
                      {"Counter", counter},
                      {"Staff", text(kStaff)},
                      {"CustCode", text(kHsn)},
                      {"CustName", text(kStaff)},
                      {"OpPoints", chance_.payment()},
                      {"BillPoints", chance_.amount()},
                      {"ClPoints", chance_.amount()},
                      {"NetAmount", chance_.amount()},
                      {"DiscAmount", chance_.payment()},
                      {"Total", chance_.amount()},
                      {"CashPaid", chance_.payment()},
                      {"CardPaid", chance_.payment()},
                      {"MealsPaid", chance_.payment()},
                      {"MobilePay", chance_.payment()},
                      {"MobilePayType", text_or_null(kMobile)},
                      {"PointsUsed", chance_.payment()},
                      {"cashret", chance_.payment()},
                      {"BillType", text(kBillTypes)}});
  }
  void add_lines(int number, const std::string& date, double counter) {
    const bool all_returned = chance_.once_in(8);
    for (int line = chance_.below(5); line > 0; --line) {
      double sold = quantity();
      if (all_returned || chance_.once_in(6)) sold = -sold;
      if (zero_quantities_ && chance_.once_in(6)) sold = 0;
      const double code = item_code();
      const double rate = chance_.once_in(3) ? chance_.amount() : 44.04;
      const double tax = chance_.one_of(kRates);
      const double half = chance_.once_in(10) ? chance_.below(15) : tax / 2;
      const double amount = std::round(sold * rate * 100) / 100;
      add("Sales", {{"BillNo", 1.0 * number},
                    {"BillDate", date},
                    {"Counter", counter},
                    {"iCode", code},
                    {"iName", text(kItemNames)},
                    {"mrp", chance_.once_in(3) ? chance_.amount() : 50.0},
                    {"SaleRate", rate},
                    {"PurRate", chance_.once_in(12) ? Cell() : Cell(chance_.once_in(4) ? 0 : 30.5)},
                    {"Qty", sold},
                    {"Amount", chance_.once_in(12) ? chance_.amount() : amount},
                    {"iCGst", half},
                    {"iSGst", chance_.once_in(8) ? half + 1 : half},
                    {"iIGst", tax},
                    {"iHSNcode", text_or_null(kHsn)},
                    {"CessPercent", chance_.below(4) * (chance_.once_in(3) ? 4.0 : 0)}});
    }
  }

  void add_note(int number) {
    const std::string date = day();
    const Cell supplier = text(kSuppliers);
    const Cell type = text(kTaxTypes);
    const Cell bill = std::string("B'") + std::to_string(number % 3);
    if (!chance_.once_in(10))
      add("PurchaseTemp", {{"InternalNo", 100.0 + number},
                           {"GrnNo", 1.0 * number},
                           {"BillNo", bill},
                           {"BillDate", date},
                           {"Scode", 1.0 + chance_.below(4)},
                           {"Sname", supplier},
                           {"GstNo", text(kHsn)},
                           {"TaxType", type},
                           {"TotalQty", chance_.amount()},
                           {"TotalValue", chance_.payment()},
                           {"TotalDiscount", chance_.amount()},
                           {"AfterDiscount", chance_.amount()},
                           {"TotalCGST", chance_.payment()},
                           {"TotalSGST", chance_.amount()},
                           {"TotalIGST", chance_.amount()},
                           {"GrossAmount", chance_.amount()},
                           {"SplDiscount", chance_.below(10) * 1.0},
                           {"SplDiscAmt", chance_.amount()},
                           {"NetAmount", chance_.amount()},
                           {"CessAmount", chance_.payment()}});
    for (int line = chance_.below(4); line > 0; --line)
      add("Purchase", {{"GrnNo", 1.0 * number},
                       {"BillNo", bill},
                       {"BillDate", date},
                       {"sname", supplier},
                       {"iCode", item_code()},
                       {"iName", text(kItemNames)},
                       {"Qty", quantity()},
                       {"FQty", chance_.below(3) * 1.0},
                       {"mrp", chance_.amount()},
                       {"PurRate", chance_.once_in(2) ? 30.5 : chance_.amount()},
                       {"DiscPer", chance_.below(10) * 1.0},
                       {"DiscAmt", chance_.payment()},
                       {"Amount", chance_.amount()},
                       {"iCGst", 2.5},
                       {"iCGstAmt", chance_.payment()},
                       {"iSGst", 2.5},
                       {"iSGstAmt", chance_.amount()},
                       {"iIGst", chance_.one_of(kRates)},
                       {"iIGstAmt", chance_.amount()},
                       {"Total", chance_.amount()},
                       {"MarginPer", chance_.below(4000) / 100.0 - 5},
                       {"iHSNcode", text(kHsn)},
                       {"TaxType", type}});
  }

  void add_business_bill(int number) {
    const std::string date = day();
    if (!chance_.once_in(8))
      add("SalesTemp1", {{"BillNo", 1.0 * number},
                         {"BillDate", date},
                         {"NetAmount", chance_.amount()},
                         {"GstNo", text(kHsn)},
                         {"Cname", text(kStaff)}});
    for (int line = chance_.below(4); line > 0; --line)
      add("Sales1", {{"BillNo", 1.0 * number},
                     {"BillDate", date},
                     {"iHSNcode", text_or_null(kHsn)},
                     {"Qty", quantity()},
                     {"Amount", chance_.amount()},
                     {"iIGst", chance_.one_of(kRates)},
                     {"iCGstAmt", chance_.payment()},
                     {"iSGstAmt", chance_.amount()},
                     {"iIGstAmt", chance_.amount()},
                     {"TaxType", text(kTaxTypes)}});
  }

  void add_logs() {
    for (int i = chance_.below(4); i > 0; --i)
      add("StockAdjust", {{"iCode", item_code()},
                          {"iName", text(kItemNames)},
                          {"OpStock", chance_.amount()},
                          {"AdjustQty", quantity() - 2},
                          {"ClStock", chance_.amount()},
                          {"AdjustDate", day()}});
    for (int i = chance_.below(4); i > 0; --i)
      add("ProductEdit", {{"iCode", item_code()},
                          {"iLongName", text(kItemNames)},
                          {"barcode", text(kHsn)},
                          {"mrp", chance_.amount()},
                          {"OldRate", chance_.amount()},
                          {"SaleRate", chance_.amount()},
                          {"ModifiedDate", day()},
                          {"ModifiedTime", time()}});
    const Rows bills = of(shop_.rows, "SalesTemp");
    for (const Row& bill : bills)
      if (chance_.once_in(3))
        add("BillRateChanged", {{"BillNo", bill.number("BillNo") + chance_.below(2)},
                                {"BillDate", bill.text("BillDate")},
                                {"Counter", bill.number("Counter")},
                                {"Staff", bill.text("Staff")},
                                {"iCode", item_code()},
                                {"iName", text(kItemNames)},
                                {"Mrp", chance_.amount()},
                                {"SaleRate", chance_.amount()},
                                {"SaleRateA", chance_.amount()}});
    for (int i = chance_.below(4); i > 0; --i) {
      add("Journal", {{"InternalNo", 500.0 + i},
                      {"TransDate", day()},
                      {"TransAmount", chance_.amount()},
                      {"LedgerType", chance_.once_in(2) ? 10.0 : 4.0}});
      add("Cust_Trans", {{"TransDate", day()},
                         {"TransType", chance_.once_in(3) ? 1.0 : 2.0},
                         {"Amount", -chance_.amount()}});
    }
  }

  Chance chance_;
  InventedShop shop_;
  std::vector<std::string> trade_days_;
  int items_ = 0;
  bool zero_quantities_ = false;
};

std::string sql(const Cell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) return plain_number(*number);
  if (const auto* text = std::get_if<std::string>(&cell)) return "'" + sql_quoted(*text) + "'";
  return "null";
}

}  // namespace

InventedShop invent_shop(unsigned seed) {
  return Maker(seed).make();
}

std::string insert_sql(const Row& row) {
  std::string names, values;
  for (const auto& [name, value] : row.cells) {
    names += (names.empty() ? "" : ",") + name;
    values += (values.empty() ? "" : ",") + sql(value);
  }
  return "insert into " + row.table + " (" + names + ") values (" + values + ")";
}

void stock_shop(Shop& shop, const Rows& rows) {
  static const std::vector<std::string> kTables = [] {
    std::vector<std::string> tables;
    for (const std::string& table : Shop::stored_tables())
      if (table != "CrPath" && table != "PrinterSet" && table != "PointsSet" && table != "tword")
        tables.push_back(table);
    return tables;
  }();
  if (!shop.state().Con) shop.run("open frmList\nclose");  // logs in
  Transaction stocking(*shop.state().Con);
  for (const std::string& table : kTables) shop.state().Con->execute("delete from " + table);
  for (const Row& row : rows) shop.state().Con->execute(insert_sql(row));
  stocking.commit();
}

std::string later(const std::string& day, int days) {
  using namespace std::chrono;
  const year_month_day from =
      year(std::stoi(day.substr(0, 4))) / std::stoi(day.substr(5, 2)) / std::stoi(day.substr(8, 2));
  const year_month_day to = sys_days(from) + std::chrono::days(days);
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(to.year()),
                static_cast<unsigned>(to.month()), static_cast<unsigned>(to.day()));
  return text;
}

}  // namespace tela::testing
