#include "platform/chart/amount_text.h"

#include <algorithm>
#include <cmath>

#include "platform/text/number_text.h"

namespace tela {

namespace {

constexpr double kLakh = 1e5;
constexpr double kCrore = 1e7;
constexpr double kLongest = 10 * kLakh;  // from here on the digits are too many to be read at once

bool all_digits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](char digit) { return digit >= '0' && digit <= '9'; });
}

// Without the zeros behind its point, and without the point if nothing is left behind it.
std::string shortened(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace

std::string grouped_amount(std::string_view text) {
  const std::size_t start = text.starts_with('-') ? 1 : 0;
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view rest = text.substr(point);
  if (!all_digits(text.substr(start, point - start))) return std::string(text);
  if (!rest.empty() && !all_digits(rest.substr(1))) return std::string(text);
  std::string grouped(text);
  // The last three digits stand together, the ones ahead of them in pairs.
  for (auto place = static_cast<int>(point) - 3; place > static_cast<int>(start); place -= 2)
    grouped.insert(static_cast<std::size_t>(place), 1, ',');
  return grouped;
}

AmountUnit amount_unit(double largest) {
  const double size = std::abs(largest);
  if (size < kLongest) return {};
  if (size < kCrore) return {kLakh, "L"};
  return {kCrore, "Cr"};
}

std::string amount_in(AmountUnit unit, double value, int places) {
  const std::string number = grouped_amount(shortened(fixed_decimal(value / unit.size, places)));
  return unit.name.empty() || number == "0" ? number : number + " " + std::string(unit.name);
}

std::string short_amount(double value) {
  const double size = std::abs(value);
  if (size < kLakh) return amount_in({}, value, size < 100 ? 2 : 0);
  return amount_in(size < kCrore ? AmountUnit{kLakh, "L"} : AmountUnit{kCrore, "Cr"}, value, 2);
}

}  // namespace tela
