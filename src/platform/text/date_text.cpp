#include "platform/text/date_text.h"

#include <array>

#include "platform/text/ascii.h"

namespace tela {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

constexpr std::string_view kHalves = "am/pm";

std::string padded(int value, std::size_t width) {
  std::string text = std::to_string(value);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

// Writes `mask` with each run of a letter that `field` knows replaced by what it gives for that
// run's letter (lower case) and length; for any other character it gives nullopt.
template <typename FieldText>
std::string fill_mask(std::string_view mask, FieldText field) {
  std::string text;
  while (!mask.empty()) {
    const char letter = to_lower(mask.front());
    std::size_t run = 1;
    while (run < mask.size() && to_lower(mask[run]) == letter) ++run;
    if (const std::optional<std::string> value = field(letter, run))
      text += *value;
    else
      text += mask.substr(0, run);
    mask.remove_prefix(run);
  }
  return text;
}

std::string month_text(unsigned month, std::size_t run) {
  if (run <= 2) return padded(static_cast<int>(month), run);
  return std::string(run == 3 ? month_name(month).substr(0, 3) : month_name(month));
}

int on_twelve_hour_clock(int hour) {
  return hour % 12 == 0 ? 12 : hour % 12;
}

std::size_t find_halves(std::string_view mask) {
  for (std::size_t at = 0; at + kHalves.size() <= mask.size(); ++at) {
    if (equal_ignoring_case(mask.substr(at, kHalves.size()), kHalves)) return at;
  }
  return std::string_view::npos;
}

int month_index(Date date) {
  return static_cast<int>(date.year()) * 12 + static_cast<int>(static_cast<unsigned>(date.month()));
}

}  // namespace

std::string_view month_name(unsigned month) {
  return kMonths.at(std::size_t{month} - 1);
}

std::string format_date(Date date, std::string_view mask) {
  const int year = static_cast<int>(date.year());
  return fill_mask(mask, [&](char letter, std::size_t run) -> std::optional<std::string> {
    if (letter == 'd') return padded(static_cast<int>(static_cast<unsigned>(date.day())), run);
    if (letter == 'm') return month_text(static_cast<unsigned>(date.month()), run);
    if (letter == 'y') return run <= 2 ? padded(year % 100, 2) : padded(year, 4);
    return std::nullopt;
  });
}

std::string format_time(TimeOfDay time, std::string_view mask) {
  const std::size_t halves = find_halves(mask);
  if (halves != std::string_view::npos) {
    const std::string_view half = time.hour < 12 ? "AM" : "PM";
    time.hour = on_twelve_hour_clock(time.hour);
    return format_time(time, mask.substr(0, halves)) + std::string(half) +
           format_time(time, mask.substr(halves + kHalves.size()));
  }
  return fill_mask(mask, [&](char letter, std::size_t run) -> std::optional<std::string> {
    if (letter == 'h') return padded(time.hour, run);
    if (letter == 'm') return padded(time.minute, run);
    if (letter == 's') return padded(time.second, run);
    return std::nullopt;
  });
}

int days_between(Date from, Date to) {
  return static_cast<int>((std::chrono::sys_days(to) - std::chrono::sys_days(from)).count());
}

int months_between(Date from, Date to) {
  return month_index(to) - month_index(from);
}

}  // namespace tela
