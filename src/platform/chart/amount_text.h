// Amounts as India writes them: three digits, then groups of two; lakhs (1,00,000) and crores
// (1,00,00,000) where the digits would be too many.
#pragma once

#include <string>
#include <string_view>

namespace tela {

/// The number that `text` is, with commas between the groups of its whole part and the rest as it
/// stands: "-1234567.50" is "-12,34,567.50". A text that is no plain decimal stays as it is.
std::string grouped_amount(std::string_view text);

/// What a scale counts in.
struct AmountUnit {
  double size = 1;
  std::string_view name = {};  ///< "L", "Cr", or nothing for single rupees or pieces
};

/// The unit for amounts of which the largest is `largest`, regardless of sign.
AmountUnit amount_unit(double largest);

/// `value` in that unit with at most `places` decimals: "1.2 L", "5,000", "0".
std::string amount_in(AmountUnit unit, double value, int places);

/// `value` in few characters, in the unit that it has by itself: "1.25 L", "12,340", "0.5".
std::string short_amount(double value);

}  // namespace tela
