// Dates and times as text and back. Month names are English on every machine.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text/calendar.h"

namespace tela {

/// The English name of a month, 1 to 12, in full. Throws std::out_of_range for any other number.
std::string_view month_name(unsigned month);

/// `date` under a mask, in which case makes no difference: d, dd, m, mm, mmm (Jan), mmmm (January),
/// yy, yyyy; every other character stands for itself. "dd/mmm/yyyy" gives 05/Jan/2024.
std::string format_date(Date date, std::string_view mask);

/// `time` under a mask, in which case makes no difference: h, hh, m, mm, s, ss, and AM/PM, which
/// makes it the twelve-hour clock, noon and midnight being 12; every other character stands for
/// itself. "HH:MM AM/PM" gives 02:05 PM.
std::string format_time(TimeOfDay time, std::string_view mask);

/// Reads a date as the screens write it, the day first: 05/01/2024, 5-1-24, 05/Jan/2024, 5 January
/// 2024. Separators are / - . or blanks. Nullopt if it is no such date or the calendar has no such
/// day. A year of two digits lies in 1950 to 2049, as on the server.
std::optional<Date> read_day_first(std::string_view text);

/// Reads what was typed into a date field, the day first: 1/9/2026, 1.9.26, 1-9, 010926, 01092026,
/// 5 Jan 24. Two digits of a year are of this century, a year that is left out is that of `today`,
/// and T alone is `today`. Nullopt for what is no date between 1900 and 2099.
std::optional<Date> read_typed_date(std::string_view text, Date today);

/// Reads a date as the server accepts it between quotes, whatever its language: 05/Jan/2024, 5 Jan
/// 2024, Jan 5, 2024, 2024-01-05, 20240105, each with or without a time of day behind it, which a
/// day does not keep. Nullopt for anything else: 01/05/2024, say, has two readings.
std::optional<Date> read_sql_date(std::string_view text);

/// Reads HH:MM or HH:MM:SS, with or without a fraction of a second, which is cut off, and AM or PM.
/// The hours with AM and PM are those that the server takes: 00:30 AM and 13:30 PM are times too.
std::optional<TimeOfDay> read_time(std::string_view text);

/// The days from `from` to `to`, negative if `to` is the earlier one.
int days_between(Date from, Date to);

/// The month boundaries that lie between `from` and `to`: 31 January to 1 February is one.
int months_between(Date from, Date to);

}  // namespace tela
