#include "platform/text/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

#include "platform/text/ascii.h"

namespace tela {
namespace {

constexpr int kDigits = 15;

// No double has a digit of its decimal beyond these places.
constexpr int kMostPlaces = 400;

constexpr std::array<std::int64_t, kDigits + 1> kPowersOfTen = [] {
  std::array<std::int64_t, kDigits + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

std::string_view without_leading_blanks(std::string_view text) {
  const auto first = std::find_if_not(text.begin(), text.end(), is_blank);
  return text.substr(static_cast<std::size_t>(first - text.begin()));
}

// Takes the number that `text` starts with off it. Nullopt if there is none or no double holds it.
std::optional<double> take_number(std::string_view& text) {
  const bool plus = !text.empty() && text.front() == '+';
  const bool minus = !text.empty() && text.front() == '-';
  const std::string_view unsigned_part = text.substr(plus || minus ? 1 : 0);
  // Digits or a point must come next: the parser below would also read "inf", "nan" and a second
  // sign.
  const bool starts =
      !unsigned_part.empty() && (is_digit(unsigned_part.front()) || unsigned_part.front() == '.');
  if (!starts) return std::nullopt;

  const char* const end = text.data() + text.size();
  double value = 0;
  const auto [stop, error] = std::from_chars(unsigned_part.data(), end, value);
  if (error != std::errc{}) return std::nullopt;
  text = {stop, static_cast<std::size_t>(end - stop)};
  return minus ? -value : value;
}

// A decimal of at most 15 digits: `digits` x 10^`exponent`, with its sign apart.
struct Decimal {
  bool negative = false;
  std::int64_t digits = 0;
  int exponent = 0;
};

// The decimal of 15 significant digits that is nearest to `value`, which must be finite.
Decimal to_decimal(double value) {
  std::array<char, 32> text;  // d.dddddddddddddde+xxx
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                        std::chars_format::scientific, kDigits - 1)
                              .ptr;
  Decimal result{.negative = std::signbit(value)};
  const char* at = text.data();
  for (; *at != 'e'; ++at) {
    if (is_digit(*at)) result.digits = result.digits * 10 + (*at - '0');
  }
  const char* const exponent = at[1] == '+' ? at + 2 : at + 1;
  std::from_chars(exponent, end, result.exponent);
  result.exponent -= kDigits - 1;
  return result;
}

// Rounds half away from zero to `places` decimals. The exponent is then at least -`places`.
Decimal rounded(Decimal decimal, int places) {
  const int dropped = -places - decimal.exponent;
  if (dropped <= 0) return decimal;
  decimal.exponent = -places;
  if (dropped > kDigits) {
    decimal.digits = 0;
    return decimal;
  }
  const std::int64_t unit = kPowersOfTen[static_cast<std::size_t>(dropped)];
  decimal.digits = (decimal.digits + unit / 2) / unit;
  return decimal;
}

std::string not_finite_text(double value) {
  if (std::isnan(value)) return "nan";
  return value < 0 ? "-inf" : "inf";
}

// `decimal`, which is rounded to `places`, with that many decimals and `least_digits` ahead of
// them.
std::string fixed_text(const Decimal& decimal, int places, int least_digits) {
  const int trailing_zeros = decimal.digits == 0 ? 0 : decimal.exponent + std::max(places, 0);
  std::string text = std::to_string(decimal.digits);
  text.append(static_cast<std::size_t>(trailing_zeros), '0');
  const auto decimals = static_cast<std::size_t>(std::max(places, 0));
  const std::size_t least = decimals + static_cast<std::size_t>(std::max(least_digits, 1));
  if (text.size() < least) text.insert(0, least - text.size(), '0');
  if (decimals > 0) text.insert(text.size() - decimals, 1, '.');
  if (decimal.negative && decimal.digits != 0) text.insert(0, 1, '-');
  return text;
}

std::string fixed_text(double value, int places, int least_digits) {
  if (!std::isfinite(value)) return not_finite_text(value);
  places = std::clamp(places, -kMostPlaces, kMostPlaces);
  return fixed_text(rounded(to_decimal(value), places), places, least_digits);
}

}  // namespace

double Val(std::string_view text) {
  text = without_leading_blanks(text);
  return take_number(text).value_or(0);
}

bool is_numeric(std::string_view text) {
  text = without_leading_blanks(text);
  return take_number(text).has_value() && without_leading_blanks(text).empty();
}

std::string plain_number(double value) {
  if (!std::isfinite(value)) return not_finite_text(value);
  if (value == 0) return "0";
  std::array<char, 32> text;
  char* const end = std::to_chars(text.data(), text.data() + text.size(), value,
                                  std::chars_format::general, kDigits)
                        .ptr;
  std::replace(text.data(), end, 'e', 'E');
  return {text.data(), end};
}

std::string plain_number(std::int64_t value) {
  return std::to_string(value);
}

double round_decimal(double value, int places) {
  return std::isfinite(value) ? Val(fixed_decimal(value, places)) : value;
}

std::string fixed_decimal(double value, int places) {
  return fixed_text(value, places, 1);
}

std::string format_number(double value, std::string_view mask) {
  const std::size_t point = std::min(mask.find('.'), mask.size());
  const std::string_view whole = mask.substr(0, point);
  const std::string_view decimals = mask.substr(std::min(point + 1, mask.size()));
  const auto zeros = std::count(whole.begin(), whole.end(), '0');
  return fixed_text(value, static_cast<int>(decimals.size()), static_cast<int>(zeros));
}

std::string format_number(std::string_view text, std::string_view mask) {
  return is_numeric(text) ? format_number(Val(text), mask) : std::string(text);
}

}  // namespace tela
