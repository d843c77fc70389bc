#include "apps/tela_catalogue/demo/back_office.h"

#include <array>

namespace tela::demo {
namespace {

constexpr std::int64_t ledger_expense = 10;
constexpr std::int64_t customer_payment = 2;

std::size_t any_index(std::size_t count, Random& random) {
  return static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(count) - 1));
}

TimeOfDay before_opening(Random& random) {
  return {7, static_cast<int>(random.between(0, 59)), static_cast<int>(random.between(0, 59))};
}

void edit_rates(Shop& shop, Date date, Random& random, RowSink& sink) {
  const auto edits = random.between(0, 4);
  for (std::int64_t i = 0; i < edits; ++i) {
    Item& item = shop.items[any_index(shop.items.size(), random)];
    if (item.created > date) continue;
    const Paise old_rate = item.sale_rate;
    change_rates(item, random);
    if (item.sale_rate == old_rate) continue;
    sink.add("ProductEdit",
             {item.code, item.long_name, item.barcode, in_rupees(item.mrp), in_rupees(old_rate),
              in_rupees(item.sale_rate), date, before_opening(random)});
  }
}

void adjust_stock(Shop& shop, Date date, Random& random, RowSink& sink) {
  if (!random.chance(600)) return;
  Item& item = shop.items[any_index(shop.items.size(), random)];
  const Milli found = item.by_weight ? random.between(-900, 300) * 5 : random.between(-4, 2) * unit;
  if (item.created > date || found == 0) return;
  sink.add("StockAdjust", {item.code, item.name, in_units(item.stock), in_units(found),
                           in_units(item.stock + found), date});
  sink.add("stockledger", {item.code, date, in_units(found), std::string("STOCK ADJUST")});
  item.stock += found;
}

void write_expense(Shop& shop, Date date, Paise amount, RowSink& sink) {
  sink.add("Journal", {++shop.voucher, date, in_rupees(amount), ledger_expense});
}

// Tea and carriage most days, wages on the first, rent on the fifth, electricity on the tenth.
void pay_expenses(Shop& shop, Date date, Random& random, RowSink& sink) {
  if (random.chance(700)) write_expense(shop, date, random.between(150, 900) * rupee, sink);
  switch (static_cast<unsigned>(date.day())) {
    case 1:
      return write_expense(shop, date, random.between(90, 110) * 1000 * rupee, sink);
    case 5:
      return write_expense(shop, date, 45'000 * rupee, sink);
    case 10:
      return write_expense(shop, date, random.between(18'000, 27'000) * rupee, sink);
    default:
      return;
  }
}

void take_payments(Shop& shop, Date date, Random& random, RowSink& sink) {
  for (Customer& customer : shop.customers) {
    if (customer.owed <= 0 || !random.chance(60)) continue;
    const Paise paid = random.chance(650) ? customer.owed : divided(customer.owed, 2);
    sink.add("Cust_Trans", {date, customer_payment, in_rupees(-paid)});
    customer.owed -= paid;
  }
}

struct Gift {
  const char* name;
  int points;
};
constexpr std::array<Gift, 8> gifts{{{"Steel Spoon Set", 100},
                                     {"Water Bottle", 150},
                                     {"Lunch Box", 250},
                                     {"Farmer's Gold Rice 5 kg", 400},
                                     {"Wall Clock", 600},
                                     {"Bed Sheet", 800},
                                     {"Pressure Cooker 3 L", 1500},
                                     {"Mixer Grinder", 4000}}};

void write_item(const Item& item, const Supplier& supplier, RowSink& sink) {
  const Milli week = 7 * item.daily_demand;
  sink.add("Items", {item.code, item.name, item.long_name, in_rupees(item.mrp),
                     in_rupees(item.sale_rate), in_rupees(item.cost), in_units(item.opening_stock),
                     in_units(week / 2 / unit * unit), in_units(item.stock), item.category,
                     supplier.name, item.hsn, static_cast<double>(item.gst), item.created});
  // Half of the items have had their level worked out.
  if (item.code % 2 == 0) {
    sink.add("OptimumStock", {item.code, item.name, in_units(week / unit * unit)});
  }
}

}  // namespace

void do_office_work(Shop& shop, Date date, Random& random, RowSink& sink) {
  edit_rates(shop, date, random, sink);
  adjust_stock(shop, date, random, sink);
  pay_expenses(shop, date, random, sink);
  take_payments(shop, date, random, sink);
}

void write_masters(const Shop& shop, RowSink& sink) {
  for (const Supplier& supplier : shop.suppliers) {
    sink.add("Supplier",
             {supplier.code, supplier.name, supplier.ledger_code, supplier.mobile,
              supplier.tax_type, std::int64_t{supplier.credit_days}, supplier.gst_number});
  }
  for (const Item& item : shop.items) write_item(item, shop.suppliers[item.supplier], sink);
  for (std::size_t i = 0; i < gifts.size(); ++i) {
    sink.add("GiftPoints", {static_cast<std::int64_t>(i) + 1, std::string(gifts[i].name),
                            static_cast<double>(gifts[i].points)});
  }
}

}  // namespace tela::demo
