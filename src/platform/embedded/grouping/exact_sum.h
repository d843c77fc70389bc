// Sums that do not depend on the order of the rows.
#pragma once

#include <cstdint>
#include <optional>

namespace tela::embedded {

/// Adds up numbers. Whole numbers are added as such; others in two doubles, the second of which
/// keeps what the first one's rounding loses: some 32 digits together, enough for a shop's prices
/// and quantities to add up exactly, so that every order of the rows gives the same sum to the last
/// digit. The sum of amounts is that of their decimals: a double misses its decimal by a little,
/// and what the misses add up to is dropped in the end. A value of zero bytes is an empty sum.
struct ExactSum {
  std::int64_t count = 0;
  std::int64_t whole = 0;
  double high = 0;
  double low = 0;
  double largest = 0;  ///< of the values with decimals, without their signs
  bool has_fraction = false;
  bool overflowed = false;

  void add(std::int64_t value) {
    ++count;
    overflowed = __builtin_add_overflow(whole, value, &whole) || overflowed;
  }

  void add(double value) {
    ++count;
    has_fraction = true;
    add_fraction(value);
    note_size(value);
  }

  /// Adds all that another sum holds.
  void add(const ExactSum& other) {
    count += other.count;
    overflowed =
        __builtin_add_overflow(whole, other.whole, &whole) || overflowed || other.overflowed;
    has_fraction = has_fraction || other.has_fraction;
    add_fraction(other.high);
    add_fraction(other.low);
    note_size(other.largest);
  }

  /// The sum as a double, whatever was added: up to the last of the 15 digits that the largest
  /// value has as a decimal, and no more than 15 digits of its own.
  double real() const;
  /// The mean; only for a sum of at least one value.
  double mean() const { return real() / static_cast<double>(count); }

 private:
  void note_size(double value) {
    const double size = value < 0 ? -value : value;
    if (size > largest) largest = size;
  }

  void add_fraction(double value) {
    const double sum = high + value;
    const double part = sum - high;
    low += (high - (sum - part)) + (value - part);
    high = sum;
  }
};

/// What is said about whole numbers that add up to more than a whole number holds.
inline constexpr const char* sum_overflow =
    "Arithmetic overflow error converting expression to data type bigint.";

}  // namespace tela::embedded
