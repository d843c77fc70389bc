// Numbers as text and back, the same on every machine: no locale, a point as the decimal sign.
//
// Money is held in binary doubles, but people check it in decimal. So every rounding here works on
// the value's decimal of 15 significant digits, the most that a double keeps of any decimal: 1.005
// is then exactly 1.005 and rounds to 1.01, although the double lies a little below it.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tela {

/// The number that `text` starts with, else 0; never an error. Leading blanks are skipped, then the
/// longest part that forms a number counts (sign, digits, point, exponent): "12.50 Kg" is 12.5. A
/// number that no double can hold gives 0.
double Val(std::string_view text);

/// Whether the whole of `text` is a number: blanks around it, a sign, digits with or without a
/// point, an exponent. An empty text is none, nor is a sign or a point alone.
bool is_numeric(std::string_view text);

/// `value` in plain form: up to 15 significant digits, no trailing zeros, "0" for -0. From 1E+15 on
/// and below 0.0001 in exponent form.
std::string plain_number(double value);
std::string plain_number(std::int64_t value);

/// `value` as a whole number of the type, a half going to the even neighbour; nullopt if it is
/// beyond the type's limits.
template <class Whole>
std::optional<Whole> whole_number(double value) {
  const double nearest = std::nearbyint(value);
  const bool fits = nearest >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
                    nearest <= static_cast<double>(std::numeric_limits<Whole>::max());
  return fits ? std::optional<Whole>(static_cast<Whole>(nearest)) : std::nullopt;
}

/// `value` rounded to `places` decimals, half away from zero. Negative places round to tens and
/// more.
double round_decimal(double value, int places);

/// `value` with exactly `places` decimals, rounded as `round_decimal` does; never "-0.00". Negative
/// places give a whole number that ends in zeros.
std::string fixed_decimal(double value, int places);

/// `value` under a mask such as "########0.00": the decimals that stand behind the mask's point, at
/// least as many digits ahead of it as the mask has zeros there, no grouping, no padding, a minus
/// in front. The number of # makes no difference.
std::string format_number(double value, std::string_view mask);

/// The same for a text: one that is numeric as a whole is formatted, any other one (an empty text,
/// a row of asterisks) stays as it is.
std::string format_number(std::string_view text, std::string_view mask);

}  // namespace tela
