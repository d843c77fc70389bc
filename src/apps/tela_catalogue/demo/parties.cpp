#include "apps/tela_catalogue/demo/parties.h"

#include <algorithm>

namespace tela::demo {
namespace {

constexpr std::string_view home_state = "37";
constexpr std::string_view other_states[] = {"27", "29", "33", "36"};

constexpr std::string_view firm_names[] = {
    "Velan",        "Kumaran's", "Golden Lotus", "Nethra",      "Bharani", "Sivam & Sons",
    "Maruthi Hill", "Vasantha",  "Green Leaf",   "Thirumal",    "Chola",   "Pandiyan Bros",
    "Sri Ponni",    "Annam",     "Coastal",      "New Star",    "Rising",  "Gowri",
    "Temple View",  "Lakshmi's", "Royal Crown",  "Five Rivers", "Kathir",  "Mullai",
};
constexpr std::string_view firm_kinds[] = {"Traders",      "Agencies",       "Enterprises",
                                           "Distributors", "Wholesale Mart", "Marketing"};
constexpr std::string_view shop_kinds[] = {"Hotel",  "Canteen", "Caterers",
                                           "Bakery", "Stores",  "Mess"};
constexpr std::string_view first_names[] = {
    "Anitha",  "Balaji", "Chitra", "Devaraj", "Ezhil", "Fathima", "Gopal",  "Hema",
    "Iniyan",  "Jothi",  "Kannan", "Lalitha", "Mani",  "Nandini", "Oviya",  "Prakash",
    "Queenie", "Rajan",  "Selvi",  "Thangam", "Uma",   "Vignesh", "Yamuna", "Zubeda",
};
constexpr std::string_view last_names[] = {"R.", "K", "D'Souza", "S.", "M", "D'Cruz", "P.", "V"};
constexpr std::string_view staff[] = {"Ravi",   "Meena",  "Suresh", "Kavitha",
                                      "Ramesh", "O'Neil", "Priya",  "Dinesh"};

char letter(Random& random) {
  return static_cast<char>('A' + random.between(0, 25));
}
char digit(Random& random) {
  return static_cast<char>('0' + random.between(0, 9));
}

// The check character of a GST number: each character's place in base 36 counts once and twice in
// turn, its two digits are summed, and the sum is filled up to a multiple of 36.
char check_character(std::string_view number) {
  static constexpr std::string_view alphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::size_t sum = 0;
  for (std::size_t i = 0; i < number.size(); ++i) {
    const std::size_t product = alphabet.find(number[i]) * (i % 2 + 1);
    sum += product / 36 + product % 36;
  }
  return alphabet[(36 - sum % 36) % 36];
}

std::string mobile_number(Random& random) {
  std::string number(1, static_cast<char>('6' + random.between(0, 3)));
  while (number.size() < 10) number += digit(random);
  return number;
}

// Each pair of names once before any comes again, then with a number behind it.
template <std::size_t N, std::size_t M>
std::string paired_name(const std::string_view (&firsts)[N], const std::string_view (&seconds)[M],
                        int index) {
  const auto i = static_cast<std::size_t>(index);
  std::string name(firsts[i % N]);
  name += ' ';
  name += seconds[(i / N + i) % M];
  if (i >= N * M) name += ' ' + std::to_string(i / (N * M) + 1);
  return name;
}

std::string_view tax_type_of(int index) {
  if (index % 10 == 4) return "TOT";
  return index % 5 == 2 ? "IGST" : "SGST";
}

}  // namespace

std::string gst_number(std::string_view state, Random& random) {
  std::string number(state);
  for (int i = 0; i < 5; ++i) number += letter(random);
  for (int i = 0; i < 4; ++i) number += digit(random);
  number += letter(random);
  number += "1Z";
  number += check_character(number);
  return number;
}

std::vector<Supplier> make_suppliers(int count, Random& random) {
  static constexpr int credit_days[] = {0, 7, 15, 21, 30};
  std::vector<Supplier> suppliers;
  for (int i = 0; i < count; ++i) {
    Supplier supplier;
    supplier.code = i + 1;
    supplier.name = paired_name(firm_names, firm_kinds, i);
    supplier.ledger_code = 5001 + i;
    supplier.mobile = mobile_number(random);
    supplier.tax_type = tax_type_of(i);
    supplier.credit_days = random.pick<int>(credit_days);
    const std::string_view state =
        supplier.tax_type == "IGST" ? random.pick<std::string_view>(other_states) : home_state;
    supplier.gst_number = gst_number(state, random);
    suppliers.push_back(std::move(supplier));
  }
  return suppliers;
}

std::vector<Customer> make_customers(int count, Random& random) {
  std::vector<Customer> customers;
  customers.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    customers.push_back({std::to_string(1001 + i), paired_name(first_names, last_names, i),
                         random.between(0, 300), 0});
  }
  return customers;
}

std::vector<BusinessBuyer> make_business_buyers(int count, Random& random) {
  std::vector<BusinessBuyer> buyers;
  buyers.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    buyers.push_back({paired_name(firm_names, shop_kinds, i), gst_number(home_state, random)});
  }
  return buyers;
}

std::span<const std::string_view> staff_names() {
  return staff;
}

std::string staff_entry(std::string_view name, Random& random) {
  std::string entry(name);
  if (random.chance(30)) {
    std::transform(entry.begin(), entry.end(), entry.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  }
  if (random.chance(20)) entry += "  ";
  return entry;
}

}  // namespace tela::demo
