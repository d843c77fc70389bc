// The server's rules for stored days and times of day.
#include <algorithm>
#include <array>
#include <chrono>

#include "platform/text/date_text.h"
#include "platform/tsql/values.h"

namespace tela::tsql {
namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::weekday;
using std::chrono::year_month_day;
using std::chrono::years;

constexpr std::array<std::string_view, 7> weekday_names{
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

// The styles of convert that a day has, and their masks.
struct Style {
  int number;
  std::string_view mask;
};
constexpr std::array<Style, 21> styles{{
    {0, "yyyy-mm-dd"},   {1, "mm/dd/yy"},     {3, "dd/mm/yy"},      {4, "dd.mm.yy"},
    {5, "dd-mm-yy"},     {6, "dd mmm yy"},    {10, "mm-dd-yy"},     {11, "yy/mm/dd"},
    {20, "yyyy-mm-dd"},  {23, "yyyy-mm-dd"},  {101, "mm/dd/yyyy"},  {103, "dd/mm/yyyy"},
    {104, "dd.mm.yyyy"}, {105, "dd-mm-yyyy"}, {106, "dd mmm yyyy"}, {107, "mmm dd, yyyy"},
    {110, "mm-dd-yyyy"}, {111, "yyyy/mm/dd"}, {112, "yyyymmdd"},    {120, "yyyy-mm-dd"},
    {121, "yyyy-mm-dd"},
}};

[[noreturn]] void throw_no_date() {
  throw CompileError(CompileError::Kind::value,
                     "Conversion failed when converting date and/or time from character string.");
}

year_month_day date_of(std::int64_t stored) {
  return {std::chrono::year(static_cast<int>(stored / 10000)),
          std::chrono::month(static_cast<unsigned>(stored / 100 % 100)),
          std::chrono::day(static_cast<unsigned>(stored % 100))};
}

std::int64_t stored(year_month_day date) {
  return std::int64_t{static_cast<int>(date.year())} * 10000 +
         std::int64_t{static_cast<unsigned>(date.month())} * 100 +
         static_cast<unsigned>(date.day());
}

unsigned weekday_index(year_month_day date) {
  return weekday(sys_days(date)).c_encoding();
}

std::int64_t day_of_year(year_month_day date) {
  const sys_days first = date.year() / std::chrono::January / 1;
  return (sys_days(date) - first).count() + 1;
}

std::int64_t week_of_year(year_month_day date) {
  const unsigned first = weekday_index(date.year() / std::chrono::January / 1);
  return (day_of_year(date) - 1 + first) / 7 + 1;
}

std::int64_t quarter(year_month_day date) {
  return (static_cast<unsigned>(date.month()) - 1) / 3 + 1;
}

// Weeks since a Sunday long ago, so that a difference counts the Sundays between.
std::int64_t week_number(year_month_day date) {
  return (sys_days(date).time_since_epoch().count() - static_cast<int>(weekday_index(date)) + 4) /
         7;
}

std::int64_t month_number(year_month_day date) {
  return std::int64_t{static_cast<int>(date.year())} * 12 + static_cast<unsigned>(date.month()) - 1;
}

// The same day of another month, or the last day of it where it is shorter.
year_month_day shifted_months(year_month_day date, std::int64_t count) {
  const std::int64_t number = month_number(date) + count;
  const auto year = std::chrono::year(static_cast<int>(number / 12));
  const auto month = std::chrono::month(static_cast<unsigned>(number % 12 + 1));
  const year_month_day same_day{year, month, date.day()};
  return same_day.ok() ? same_day : year_month_day(year / month / std::chrono::last);
}

year_month_day shifted_days(year_month_day date, std::int64_t count) {
  return year_month_day(sys_days(date) + days(count));
}

}  // namespace

std::int64_t to_date(std::string_view text) {
  const auto date = read_sql_date(text);
  if (!date) throw_no_date();
  return stored(*date);
}

std::int64_t to_time(std::string_view text) {
  const auto time = read_time(text);
  if (!time) throw_no_date();
  return time->hour * 10000 + time->minute * 100 + time->second;
}

std::string date_text(std::int64_t stored_date, int style) {
  const auto* found = std::ranges::find(styles, style, &Style::number);
  if (found == styles.end()) {
    throw CompileError(CompileError::Kind::value,
                       std::to_string(style) +
                           " is not a valid style number when converting from date to a character "
                           "string.");
  }
  return format_date(date_of(stored_date), found->mask);
}

std::string time_text(std::int64_t stored_time) {
  return format_time(
      {static_cast<int>(stored_time / 10000), static_cast<int>(stored_time / 100 % 100),
       static_cast<int>(stored_time % 100)},
      "HH:MM:SS");
}

std::int64_t date_part(std::string_view part, std::int64_t stored_date) {
  const year_month_day date = date_of(stored_date);
  if (part == "year") return static_cast<int>(date.year());
  if (part == "quarter") return quarter(date);
  if (part == "month") return static_cast<unsigned>(date.month());
  if (part == "dayofyear") return day_of_year(date);
  if (part == "week") return week_of_year(date);
  if (part == "weekday") return weekday_index(date) + 1;
  return static_cast<unsigned>(date.day());
}

std::string date_name(std::string_view part, std::int64_t stored_date) {
  const std::int64_t number = date_part(part, stored_date);
  if (part == "month") return std::string(month_name(static_cast<unsigned>(number)));
  if (part == "weekday") return std::string(weekday_names.at(static_cast<std::size_t>(number - 1)));
  return std::to_string(number);
}

std::int64_t date_add(std::string_view part, std::int64_t count, std::int64_t stored_date) {
  const year_month_day date = date_of(stored_date);
  // Far beyond any calendar, and far from the limits of the arithmetic.
  count = std::clamp<std::int64_t>(count, -10'000'000, 10'000'000);
  const year_month_day sum = part == "year"      ? shifted_months(date, count * 12)
                             : part == "quarter" ? shifted_months(date, count * 3)
                             : part == "month"   ? shifted_months(date, count)
                             : part == "week"    ? shifted_days(date, count * 7)
                                                 : shifted_days(date, count);
  if (sum.year() < std::chrono::year(1) || sum.year() > std::chrono::year(9999)) {
    throw CompileError(CompileError::Kind::value,
                       "Adding a value to a 'date' column caused an overflow.");
  }
  return stored(sum);
}

std::int64_t date_difference(std::string_view part, std::int64_t from, std::int64_t to) {
  const year_month_day first = date_of(from);
  const year_month_day last = date_of(to);
  if (part == "year") return static_cast<int>(last.year()) - static_cast<int>(first.year());
  if (part == "quarter") return month_number(last) / 3 - month_number(first) / 3;
  if (part == "month") return month_number(last) - month_number(first);
  if (part == "week") return week_number(last) - week_number(first);
  return (sys_days(last) - sys_days(first)).count();
}

}  // namespace tela::tsql
