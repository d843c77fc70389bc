// The people and firms of a demo catalogue: suppliers, customers, business buyers and staff.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/tela_catalogue/demo/amounts.h"
#include "apps/tela_catalogue/demo/random.h"

namespace tela::demo {

struct Supplier {
  std::int64_t code = 0;
  std::string name;
  std::int64_t ledger_code = 0;
  std::string mobile;
  std::string tax_type;  ///< "SGST", "IGST" or "TOT"
  int credit_days = 0;
  std::string gst_number;
};

struct Customer {
  std::string code;
  std::string name;
  std::int64_t points = 0;
  Paise owed = 0;
};

struct BusinessBuyer {
  std::string name;
  std::string gst_number;
};

/// A GST identification number of the state with the two-digit code `state`, its check character
/// included.
std::string gst_number(std::string_view state, Random& random);

/// In ten suppliers seven are of this state, two of another and one is outside GST.
std::vector<Supplier> make_suppliers(int count, Random& random);
std::vector<Customer> make_customers(int count, Random& random);
std::vector<BusinessBuyer> make_business_buyers(int count, Random& random);

/// Who makes the bills at the counters. A name is also entered in capitals or with blanks behind
/// it.
std::span<const std::string_view> staff_names();
std::string staff_entry(std::string_view name, Random& random);

}  // namespace tela::demo
