#include "apps/tela_catalogue/demo/demo_catalogue.h"

#include <algorithm>

#include "apps/tela_catalogue/demo/back_office.h"
#include "apps/tela_catalogue/demo/bill_rows.h"
#include "apps/tela_catalogue/demo/purchases.h"
#include "apps/tela_catalogue/demo/shop.h"
#include "apps/tela_catalogue/demo/trading_days.h"

namespace tela::demo {
namespace {

using std::chrono::sys_days;

constexpr int lines_per_bill = 6;
constexpr int bills_per_business_bill = 60;

Shop open_shop(const DemoOptions& options, Date first_day, Random& random) {
  Shop shop;
  shop.suppliers = make_suppliers(std::max(options.items / 25, 10), random);
  shop.customers = make_customers(std::max(options.bills_per_day / 2, 20), random);
  shop.buyers = make_business_buyers(25, random);
  shop.items = make_items(options.items, shop.suppliers.size(), first_day, options.days,
                          options.bills_per_day * lines_per_bill, random);
  return shop;
}

void sell(Shop& shop, Date date, int bills, Random& random, RowSink& sink, DemoSummary& summary) {
  const ItemPicker picker(shop.items, date);
  for (const TimeOfDay time : bill_times(bills, random)) {
    const Bill bill = make_bill(shop, picker, date, time, random);
    write_bill(bill, shop, sink);
    if (random.chance(10)) write_wholesale_bill(bill, shop, sink);
    summary.lines += static_cast<std::int64_t>(bill.lines.size());
  }
  const auto business_bills = random.between(0, 2 * bills / bills_per_business_bill);
  for (std::int64_t i = 0; i < business_bills; ++i) {
    const auto count = static_cast<int>(random.between(2, 9));
    write_business_bill(make_lines(shop, picker, count, random), date, shop, random, sink);
  }
}

}  // namespace

DemoSummary make_demo(const DemoOptions& options, RowSink& sink, const Progress& progress) {
  Random random(options.seed);
  DemoSummary summary;
  const auto bills = bills_of_days(options.last_day, options.days, options.bills_per_day, random);
  sys_days day = sys_days(options.last_day) - std::chrono::days(options.days - 1);
  Shop shop = open_shop(options, day, random);
  for (int i = 0; i < options.days; ++i, day += std::chrono::days(1)) {
    do_office_work(shop, day, random, sink);
    receive_goods(shop, day, random, sink);
    sell(shop, day, bills[static_cast<std::size_t>(i)], random, sink, summary);
    progress(i + 1);
  }
  write_masters(shop, sink);
  summary.bills = shop.bill;
  return summary;
}

}  // namespace tela::demo
