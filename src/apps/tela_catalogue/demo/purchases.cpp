#include "apps/tela_catalogue/demo/purchases.h"

#include <algorithm>

namespace tela::demo {
namespace {

constexpr std::int64_t ledger_purchase = 1;
constexpr std::int64_t ledger_payment = 2;

struct PurchaseLine {
  const Item* item = nullptr;
  Milli quantity = 0;
  Milli free = 0;
  Paise rate = 0;  ///< before tax and discount
  int discount_hundredths = 0;
  Paise gst = 0;
  Paise cess = 0;

  Paise value() const { return value_of(rate, quantity); }
  Paise discount() const { return hundredths_of(value(), discount_hundredths); }
  Paise amount() const { return value() - discount(); }
  Paise total() const { return amount() + gst; }
};

bool runs_short(const Item& item, Date date) {
  return item.created <= date && item.stock < 7 * item.daily_demand;
}

// Goods for three weeks in whole cases.
Milli order_of(const Item& item) {
  const Milli packing = item.by_weight ? 5 * unit : 12 * unit;
  const Milli wanted = 21 * item.daily_demand - item.stock;
  return (wanted + packing - 1) / packing * packing;
}

// A dealer outside GST charges no tax, so that all of the cost is the price.
PurchaseLine order_line(const Item& item, const Supplier& supplier, Random& random) {
  const bool taxed = supplier.tax_type != "TOT";
  PurchaseLine line;
  line.item = &item;
  line.quantity = order_of(item);
  if (random.chance(100)) line.free = std::max(line.quantity / 12 / unit * unit, unit);
  line.rate = taxed ? divided(item.cost * 100, 100 + item.gst + item.cess) : item.cost;
  if (random.chance(200)) line.discount_hundredths = static_cast<int>(random.between(4, 20)) * 50;
  if (!taxed) return line;
  const bool two_halves = supplier.tax_type == "SGST";
  const Paise whole_tax = percent_of(line.amount(), item.gst);
  line.gst = two_halves ? 2 * divided(whole_tax, 2) : whole_tax;
  line.cess = percent_of(line.amount(), item.cess);
  return line;
}

double margin_of(const Item& item) {
  if (item.cost == 0) return 100;
  return static_cast<double>(divided((item.sale_rate - item.cost) * 10'000, item.cost)) / 100;
}

// The central and the state half go together, the integrated tax alone.
struct TaxSplit {
  double half_rate = 0;
  double whole_rate = 0;
  Paise half = 0;
  Paise integrated = 0;
};

TaxSplit split_tax(const PurchaseLine& line, const std::string& tax_type) {
  const double rate = line.item->gst;
  if (tax_type == "SGST") return {rate / 2, rate, line.gst / 2, 0};
  if (tax_type == "IGST") return {0, rate, 0, line.gst};
  return {};
}

void write_line(const PurchaseLine& line, std::int64_t note, const std::string& bill,
                const Supplier& supplier, Date date, RowSink& sink) {
  const Item& item = *line.item;
  const TaxSplit tax = split_tax(line, supplier.tax_type);
  sink.add("Purchase", {note,
                        bill,
                        date,
                        supplier.name,
                        item.code,
                        item.name,
                        in_units(line.quantity),
                        in_units(line.free),
                        in_rupees(item.mrp),
                        in_rupees(line.rate),
                        line.discount_hundredths / 100.0,
                        in_rupees(line.discount()),
                        in_rupees(line.amount()),
                        tax.half_rate,
                        in_rupees(tax.half),
                        tax.half_rate,
                        in_rupees(tax.half),
                        tax.whole_rate,
                        in_rupees(tax.integrated),
                        in_rupees(line.total()),
                        margin_of(item),
                        item.hsn,
                        supplier.tax_type});
}

struct PurchaseSums {
  Milli quantity = 0;
  Paise value = 0;
  Paise discount = 0;
  Paise half = 0;
  Paise integrated = 0;
  Paise cess = 0;
  Paise gross = 0;
};

PurchaseSums sums_of(const std::vector<PurchaseLine>& lines, const Supplier& supplier) {
  PurchaseSums sums;
  for (const PurchaseLine& line : lines) {
    const TaxSplit tax = split_tax(line, supplier.tax_type);
    sums.quantity += line.quantity;
    sums.value += line.value();
    sums.discount += line.discount();
    sums.half += tax.half;
    sums.integrated += tax.integrated;
    sums.cess += line.cess;
    sums.gross += line.total() + line.cess;
  }
  return sums;
}

// Enters the purchase in the journal and, where it was paid in cash, the payment.
void write_ledger(Shop& shop, const Supplier& supplier, Paise net, Date date, Random& random,
                  RowSink& sink) {
  sink.add("Journal", {++shop.voucher, date, in_rupees(net), ledger_purchase});
  if (supplier.credit_days > 0 && !random.chance(100)) return;
  sink.add("Journal", {++shop.voucher, date, in_rupees(net), ledger_payment});
  sink.add("SupplierCashPay", {shop.goods_received, shop.voucher});
}

void write_purchase(Shop& shop, const std::vector<PurchaseLine>& lines, const Supplier& supplier,
                    Date date, Random& random, RowSink& sink) {
  const std::int64_t note = ++shop.goods_received;
  const std::string bill = supplier.name.substr(0, 2) + "/" + std::to_string(note * 7 % 9973);
  for (const PurchaseLine& line : lines) write_line(line, note, bill, supplier, date, sink);

  const PurchaseSums sums = sums_of(lines, supplier);
  const int cash_discount = random.chance(150) ? static_cast<int>(random.between(1, 4)) * 50 : 0;
  const Paise cash_discount_amount = hundredths_of(sums.gross, cash_discount);
  const Paise net = divided(sums.gross - cash_discount_amount, rupee) * rupee;
  sink.add("PurchaseTemp", {shop.voucher + 1,
                            note,
                            bill,
                            date,
                            supplier.code,
                            supplier.name,
                            supplier.gst_number,
                            supplier.tax_type,
                            in_units(sums.quantity),
                            in_rupees(sums.value),
                            in_rupees(sums.discount),
                            in_rupees(sums.value - sums.discount),
                            in_rupees(sums.half),
                            in_rupees(sums.half),
                            in_rupees(sums.integrated),
                            in_rupees(sums.gross),
                            cash_discount / 100.0,
                            in_rupees(cash_discount_amount),
                            in_rupees(net),
                            in_rupees(sums.cess)});
  write_ledger(shop, supplier, net, date, random, sink);
}

bool delivers_on(const Supplier& supplier, Date date) {
  const auto day = std::chrono::sys_days(date).time_since_epoch().count();
  return (day + supplier.code) % 6 == 0;
}

}  // namespace

void receive_goods(Shop& shop, Date date, Random& random, RowSink& sink) {
  for (std::size_t index = 0; index < shop.suppliers.size(); ++index) {
    const Supplier& supplier = shop.suppliers[index];
    if (!delivers_on(supplier, date)) continue;
    std::vector<PurchaseLine> lines;
    for (Item& item : shop.items) {
      if (item.supplier != index || !runs_short(item, date)) continue;
      lines.push_back(order_line(item, supplier, random));
      item.stock += lines.back().quantity + lines.back().free;
    }
    if (!lines.empty()) write_purchase(shop, lines, supplier, date, random, sink);
  }
}

}  // namespace tela::demo
