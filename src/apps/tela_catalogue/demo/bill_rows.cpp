#include "apps/tela_catalogue/demo/bill_rows.h"

namespace tela::demo {
namespace {

std::int64_t whole(int number) {
  return number;
}

void write_header(const Bill& bill, const Shop& shop, RowSink& sink) {
  const Payment& payment = bill.payment;
  const Customer* customer = bill.customer ? &shop.customers[*bill.customer] : nullptr;
  const auto points_used = payment.points / rupee;
  sink.add("SalesTemp", {bill.number,
                         bill.date,
                         bill.time,
                         bill.opened,
                         whole(bill.counter),
                         bill.staff,
                         customer ? customer->code : std::string(),
                         customer ? customer->name : std::string(),
                         static_cast<double>(bill.points_before),
                         static_cast<double>(bill.points_earned),
                         static_cast<double>(bill.points_before + bill.points_earned - points_used),
                         in_rupees(bill.net),
                         in_rupees(bill.discount),
                         in_rupees(bill.total()),
                         in_rupees(payment.cash),
                         in_rupees(payment.card),
                         in_rupees(payment.meals),
                         in_rupees(payment.mobile),
                         payment.mobile_kind,
                         in_rupees(payment.points),
                         in_rupees(payment.change),
                         in_rupees(bill.mrp_value() - bill.total()),
                         bill.type});
}

void write_line(const Bill& bill, const BillLine& line, const Item& item, RowSink& sink) {
  const double half = item.gst / 2.0;
  sink.add("Sales", {bill.number, bill.date, whole(bill.counter), item.code, item.name,
                     in_rupees(line.mrp), in_rupees(line.rate), in_rupees(line.cost),
                     in_units(line.quantity), in_rupees(line.amount()), half, half,
                     static_cast<double>(item.gst), item.hsn, static_cast<double>(item.cess)});
}

void write_changed_rate(const Bill& bill, const BillLine& line, const Item& item, RowSink& sink) {
  if (line.rate == line.list_rate) return;
  sink.add("BillRateChanged",
           {bill.number, bill.date, whole(bill.counter), bill.staff, item.code, item.name,
            in_rupees(line.mrp), in_rupees(line.rate), in_rupees(line.list_rate)});
}

void write_return_note(const Bill& bill, Shop& shop, RowSink& sink) {
  Paise value = 0;
  for (const BillLine& line : bill.lines) {
    if (line.quantity >= 0) continue;
    sink.add("salesreturn",
             {shop.return_note + 1, bill.date, bill.number, shop.items[line.item].code,
              in_rupees(line.rate), in_units(-line.quantity), in_rupees(-line.amount())});
    value -= line.amount();
  }
  if (value == 0) return;
  sink.add("salesreturntemp",
           {++shop.return_note, bill.date, whole(bill.counter), in_rupees(value)});
}

}  // namespace

void write_bill(const Bill& bill, Shop& shop, RowSink& sink) {
  write_header(bill, shop, sink);
  for (const BillLine& line : bill.lines) {
    const Item& item = shop.items[line.item];
    write_line(bill, line, item, sink);
    write_changed_rate(bill, line, item, sink);
  }
  write_return_note(bill, shop, sink);
  if (bill.type == "CREDIT BILL" && bill.total() > 0) {
    const Paise unpaid = bill.total() - bill.payment.cash - bill.payment.card;
    sink.add("Cust_Trans", {bill.date, std::int64_t{1}, in_rupees(unpaid)});
  }
}

void write_wholesale_bill(const Bill& bill, const Shop& shop, RowSink& sink) {
  const Payment& payment = bill.payment;
  Paise saved = 0;
  for (const BillLine& line : bill.lines) {
    saved += value_of(line.mrp, line.quantity) - line.amount();
    sink.add("wsales", {bill.number, bill.date, shop.items[line.item].code, in_rupees(line.mrp),
                        in_rupees(line.rate), in_units(line.quantity), in_rupees(line.amount()),
                        in_rupees(bill.net)});
  }
  sink.add("wsalestemp",
           {bill.number, bill.date, in_rupees(bill.net), in_rupees(payment.cash),
            in_rupees(payment.card), in_rupees(payment.meals),
            in_rupees(payment.cash + payment.card + payment.meals - bill.net), in_rupees(saved)});
}

void write_business_bill(const std::vector<BillLine>& lines, Date date, Shop& shop, Random& random,
                         RowSink& sink) {
  const BusinessBuyer& buyer = random.pick<BusinessBuyer>(shop.buyers);
  const bool other_state = random.chance(60);
  const std::string tax_type = other_state ? "IGST" : "SGST";
  const std::int64_t number = ++shop.business_bill;
  Paise value = 0;
  for (const BillLine& line : lines) {
    const Item& item = shop.items[line.item];
    const Paise taxable = divided(line.amount() * 100, 100 + item.gst);
    const Paise whole_tax = percent_of(taxable, item.gst);
    const Paise half_tax = divided(whole_tax, 2);
    value += taxable + (other_state ? whole_tax : 2 * half_tax);
    sink.add("Sales1", {number, date, item.hsn, in_units(line.quantity), in_rupees(taxable),
                        static_cast<double>(item.gst), in_rupees(other_state ? 0 : half_tax),
                        in_rupees(other_state ? 0 : half_tax),
                        in_rupees(other_state ? whole_tax : 0), tax_type});
  }
  sink.add("SalesTemp1", {number, date, in_rupees(value), buyer.gst_number, buyer.name});
}

}  // namespace tela::demo
