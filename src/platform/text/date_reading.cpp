// The readers of dates and times: small recursive-descent readers over one cursor.
#include <algorithm>
#include <charconv>

#include "platform/text/ascii.h"
#include "platform/text/date_text.h"

namespace tela {
namespace {

// Reads a text from left to right. What a `take` does not find, it leaves where it is.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool at_end() const { return rest_.empty(); }
  bool at_letter() const { return !at_end() && is_letter(rest_.front()); }

  std::string_view take_digits() { return take_while(is_digit); }
  std::string_view take_letters() { return take_while(is_letter); }
  bool take_blanks() { return !take_while(is_blank).empty(); }

  bool take_one_of(std::string_view characters) {
    if (at_end() || characters.find(rest_.front()) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    return true;
  }

  // One of / - . with blanks around it, or blanks alone; `extra` characters do as well.
  bool take_separator(std::string_view extra = {}) {
    const bool blanks = take_blanks();
    const bool sign = take_one_of("/-.") || take_one_of(extra);
    take_blanks();
    return blanks || sign;
  }

 private:
  template <typename Predicate>
  std::string_view take_while(Predicate belongs) {
    const auto stop = std::find_if_not(rest_.begin(), rest_.end(), belongs);
    const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(stop - rest_.begin()));
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

// The digits' value; nullopt if there are none or more than `most`.
std::optional<int> number(std::string_view digits, std::size_t most) {
  if (digits.empty() || digits.size() > most) return std::nullopt;
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

std::optional<int> month_of_name(std::string_view name) {
  for (unsigned month = 1; month <= 12; ++month) {
    const std::string_view full = month_name(month);
    if (equal_ignoring_case(name, full) || equal_ignoring_case(name, full.substr(0, 3)))
      return static_cast<int>(month);
  }
  return std::nullopt;
}

std::optional<int> year_of(std::string_view digits) {
  if (digits.size() == 4) return number(digits, 4);
  if (digits.size() != 2) return std::nullopt;
  const int year = *number(digits, 2);
  return year < 50 ? 2000 + year : 1900 + year;
}

// The day that exists under these numbers. Year 0 is none of the server's.
std::optional<Date> checked(std::optional<int> year, std::optional<int> month,
                            std::optional<int> day) {
  if (!year || !month || !day || *year < 1) return std::nullopt;
  const Date date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                  std::chrono::day(static_cast<unsigned>(*day))};
  return date.ok() ? std::optional(date) : std::nullopt;
}

// time = digits ":" digits [":" digits ["." digits]] [blanks] ["AM" | "PM"]
std::optional<TimeOfDay> take_time(Reader& reader) {
  const auto hour = number(reader.take_digits(), 2);
  if (!hour || !reader.take_one_of(":")) return std::nullopt;
  const auto minute = number(reader.take_digits(), 2);
  std::optional<int> second = 0;
  if (reader.take_one_of(":")) {
    second = number(reader.take_digits(), 2);
    if (reader.take_one_of(".") && reader.take_digits().empty()) return std::nullopt;
  }
  if (!minute || !second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;

  TimeOfDay time{*hour, *minute, *second};
  reader.take_blanks();
  const std::string_view half = reader.take_letters();
  if (half.empty()) return time;
  if (equal_ignoring_case(half, "AM") && time.hour <= 12) {
    time.hour %= 12;
    return time;
  }
  if (equal_ignoring_case(half, "PM") && time.hour >= 1) {
    if (time.hour < 12) time.hour += 12;
    return time;
  }
  return std::nullopt;
}

// Behind a server's date: nothing, or a time of day.
bool ends_with_time_or_nothing(Reader& reader, bool iso) {
  const bool blanks = reader.take_blanks();
  if (reader.at_end()) return true;
  const bool separated = blanks || (iso && reader.take_one_of("Tt"));
  if (!separated || !take_time(reader)) return false;
  reader.take_blanks();
  return reader.at_end();
}

// name day ["," ] year
std::optional<Date> take_name_first(Reader& reader) {
  const auto month = month_of_name(reader.take_letters());
  reader.take_separator();
  const auto day = number(reader.take_digits(), 2);
  if (!reader.take_separator(",")) return std::nullopt;
  return checked(year_of(reader.take_digits()), month, day);
}

// day name year, or year-month-day, or yyyymmdd
std::optional<Date> take_digits_first(Reader& reader) {
  const std::string_view first = reader.take_digits();
  if (first.size() == 8)
    return checked(number(first.substr(0, 4), 4), number(first.substr(4, 2), 2),
                   number(first.substr(6), 2));
  reader.take_separator();
  if (reader.at_letter()) {
    const auto month = month_of_name(reader.take_letters());
    reader.take_separator(",");
    return checked(year_of(reader.take_digits()), month, number(first, 2));
  }
  if (first.size() != 4) return std::nullopt;
  const auto month = number(reader.take_digits(), 2);
  if (!reader.take_separator()) return std::nullopt;
  return checked(number(first, 4), month, number(reader.take_digits(), 2));
}

// Four digits, or two of this century; this year where none stand.
std::optional<int> typed_year(std::string_view digits, Date today) {
  if (digits.empty()) return static_cast<int>(today.year());
  if (digits.size() == 2) return 2000 + *number(digits, 2);
  return digits.size() == 4 ? number(digits, 4) : std::nullopt;
}

// ddmm, ddmmyy, ddmmyyyy
std::optional<Date> date_of_digits(std::string_view digits, Date today) {
  if (digits.size() < 4) return std::nullopt;
  return checked(typed_year(digits.substr(4), today), number(digits.substr(2, 2), 2),
                 number(digits.substr(0, 2), 2));
}

// digits | day separator (digits | name) [separator [year]]
std::optional<Date> take_typed_date(Reader& reader, Date today) {
  const std::string_view first = reader.take_digits();
  if (!reader.take_separator()) return date_of_digits(first, today);
  const auto month =
      reader.at_letter() ? month_of_name(reader.take_letters()) : number(reader.take_digits(), 2);
  reader.take_separator();
  return checked(typed_year(reader.take_digits(), today), month, number(first, 2));
}

}  // namespace

std::optional<Date> read_typed_date(std::string_view text, Date today) {
  Reader reader(text);
  reader.take_blanks();
  const bool is_today = equal_ignoring_case(reader.take_letters(), "T");
  const auto date = is_today ? today : take_typed_date(reader, today);
  reader.take_blanks();
  if (!reader.at_end() || !date) return std::nullopt;
  const int year = static_cast<int>(date->year());
  return year >= 1900 && year <= 2099 ? date : std::nullopt;
}

std::optional<Date> read_day_first(std::string_view text) {
  Reader reader(text);
  reader.take_blanks();
  const auto day = number(reader.take_digits(), 2);
  if (!reader.take_separator()) return std::nullopt;
  const auto month =
      reader.at_letter() ? month_of_name(reader.take_letters()) : number(reader.take_digits(), 2);
  if (!reader.take_separator()) return std::nullopt;
  const auto year = year_of(reader.take_digits());
  reader.take_blanks();
  return reader.at_end() ? checked(year, month, day) : std::nullopt;
}

std::optional<Date> read_sql_date(std::string_view text) {
  Reader reader(text);
  reader.take_blanks();
  const bool name_first = reader.at_letter();
  const auto date = name_first ? take_name_first(reader) : take_digits_first(reader);
  return ends_with_time_or_nothing(reader, !name_first) ? date : std::nullopt;
}

std::optional<TimeOfDay> read_time(std::string_view text) {
  Reader reader(text);
  reader.take_blanks();
  const auto time = take_time(reader);
  reader.take_blanks();
  return reader.at_end() ? time : std::nullopt;
}

}  // namespace tela
