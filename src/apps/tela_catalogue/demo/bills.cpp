#include "apps/tela_catalogue/demo/bills.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "apps/tela_catalogue/demo/trading_days.h"

namespace tela::demo {
namespace {

constexpr std::array<std::string_view, 4> bill_types{"CASH/CREDIT", "POINTS SALES", "CREDIT BILL",
                                                     "HOME DELIVERY"};
constexpr std::array<int, 4> bill_type_weights{86, 5, 5, 4};
constexpr std::array<int, 6> counter_weights{30, 24, 18, 14, 9, 5};
constexpr std::string_view mobile_kinds[] = {"UPI",      "UPI",       "UPI",
                                             "QuickPay", "QUICKPAY ", "Zip Wallet"};

int line_count(Random& random) {
  static constexpr std::array<int, 14> counts{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 15, 20, 25};
  static constexpr std::array<int, 14> weights{10, 12, 13, 12, 10, 9, 7, 6, 5, 4, 4, 3, 2, 2};
  return counts[random.weighted(weights)];
}

Milli quantity_of(const Item& item, Random& random) {
  if (item.by_weight) return random.between(20, 480) * 5;
  static constexpr std::array<int, 6> weights{75, 15, 4, 2, 2, 2};
  return (static_cast<Milli>(random.weighted(weights)) + 1) * unit;
}

// Now and then the cashier gives another rate than the item's, never above the printed price.
Paise rate_at_till(const Item& item, Random& random) {
  if (!random.chance(3)) return item.sale_rate;
  const Paise rate = divided(percent_of(item.sale_rate, random.between(90, 103)), 50) * 50;
  return std::clamp<Paise>(rate, 50, item.mrp);
}

BillLine make_line(const Shop& shop, std::size_t index, Random& random) {
  const Item& item = shop.items[index];
  return {index,          item.mrp,  rate_at_till(item, random),
          item.sale_rate, item.cost, quantity_of(item, random)};
}

// One line in some bills comes back, and a few bills hold nothing but returns.
void turn_into_returns(std::vector<BillLine>& lines, Random& random) {
  if (random.chance(2)) {
    for (BillLine& line : lines) line.quantity = -line.quantity;
  } else if (random.chance(12)) {
    lines.back().quantity = -lines.back().quantity;
  }
}

Paise discount_of(Paise net, Random& random) {
  if (net < 200 * rupee || !random.chance(80)) return 0;
  const Paise reduced = net - percent_of(net, random.between(1, 5));
  return net - reduced / rupee * rupee;
}

// The notes that a customer hands over for an amount due.
Paise notes_for(Paise due, Random& random) {
  static constexpr Paise notes[] = {rupee, 10 * rupee, 50 * rupee, 100 * rupee, 500 * rupee};
  const Paise note = random.pick<Paise>(notes);
  return (due + note - 1) / note * note;
}

void pay_cash(Payment& payment, Paise due, Random& random) {
  payment.cash = notes_for(due, random);
  payment.change = payment.cash - due;
}

void pay_mobile(Payment& payment, Paise due, Random& random) {
  payment.mobile = due;
  payment.mobile_kind = random.pick<std::string_view>(mobile_kinds);
}

// A part that is no cash, in whole rupees, and the rest in cash.
void pay_in_parts(Payment& payment, Paise due, Random& random) {
  const Paise part = percent_of(due, random.between(20, 80)) / rupee * rupee;
  switch (random.between(0, 2)) {
    case 0:
      payment.card = part;
      break;
    case 1:
      payment.meals = part;
      break;
    default:
      pay_mobile(payment, part, random);
  }
  pay_cash(payment, due - part, random);
}

void pay_at_till(Payment& payment, Paise due, Random& random) {
  static constexpr std::array<int, 5> weights{50, 17, 22, 3, 8};
  switch (random.weighted(weights)) {
    case 0:
      return pay_cash(payment, due, random);
    case 1:
      payment.card = due;
      return;
    case 2:
      return pay_mobile(payment, due, random);
    case 3:
      payment.meals = due;
      return;
    default:
      return pay_in_parts(payment, due, random);
  }
}

// Most credit bills leave the shop unpaid, some with a part in cash or on a card.
void pay_on_credit(Payment& payment, Paise due, Random& random) {
  const Paise part = percent_of(due, random.between(10, 60)) / rupee * rupee;
  if (random.chance(120))
    payment.cash = part;
  else if (random.chance(80))
    payment.card = part;
}

Payment make_payment(const Bill& bill, Random& random) {
  Payment payment;
  Paise due = bill.total();
  if (due <= 0) {
    payment.change = -due;
    return payment;
  }
  if (bill.type == "CREDIT BILL") {
    pay_on_credit(payment, due, random);
  } else if (bill.type == "HOME DELIVERY") {
    (random.chance(700) ? payment.cash : payment.card) = due;
  } else {
    if (bill.type == "POINTS SALES") {
      payment.points = std::min(bill.points_before * rupee, due / 2 / rupee * rupee);
      due -= payment.points;
    }
    pay_at_till(payment, due, random);
  }
  return payment;
}

void choose_customer(const Shop& shop, Bill& bill, Random& random) {
  if (bill.type == bill_types[0] && !random.chance(250)) return;
  const auto last = static_cast<std::int64_t>(shop.customers.size()) - 1;
  bill.customer = static_cast<std::size_t>(random.between(0, last));
  bill.points_before = shop.customers[*bill.customer].points;
}

// A point for each hundred rupees of a bill that a customer made.
void book_customer(Shop& shop, Bill& bill) {
  if (!bill.customer) return;
  bill.points_earned = std::max<Paise>(bill.total(), 0) / (100 * rupee);
  Customer& customer = shop.customers[*bill.customer];
  customer.points += bill.points_earned - bill.payment.points / rupee;
  if (bill.type == "CREDIT BILL" && bill.total() > 0) {
    customer.owed += bill.total() - bill.payment.cash - bill.payment.card;
  }
}

}  // namespace

Paise Bill::mrp_value() const {
  return std::accumulate(lines.begin(), lines.end(), Paise{0}, [](Paise sum, const BillLine& line) {
    return sum + value_of(line.mrp, line.quantity);
  });
}

std::vector<BillLine> make_lines(const Shop& shop, const ItemPicker& picker, int count,
                                 Random& random) {
  std::vector<BillLine> lines;
  lines.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) lines.push_back(make_line(shop, picker.pick(random), random));
  return lines;
}

Bill make_bill(Shop& shop, const ItemPicker& picker, Date date, TimeOfDay time, Random& random) {
  Bill bill;
  bill.number = ++shop.bill;
  bill.date = date;
  bill.time = time;
  bill.opened = earlier(time, static_cast<int>(random.between(20, 400)));
  bill.counter = static_cast<int>(random.weighted(counter_weights)) + 1;
  const auto day = static_cast<std::size_t>(std::chrono::sys_days(date).time_since_epoch().count());
  const auto staff = staff_names();
  bill.staff =
      staff_entry(staff[(day + static_cast<std::size_t>(bill.counter)) % staff.size()], random);
  bill.type = bill_types[random.weighted(bill_type_weights)];
  choose_customer(shop, bill, random);

  bill.lines = make_lines(shop, picker, line_count(random), random);
  turn_into_returns(bill.lines, random);
  for (const BillLine& line : bill.lines) {
    bill.net += line.amount();
    shop.items[line.item].stock -= line.quantity;
  }
  bill.discount = discount_of(bill.net, random);
  bill.payment = make_payment(bill, random);
  book_customer(shop, bill);
  return bill;
}

}  // namespace tela::demo
