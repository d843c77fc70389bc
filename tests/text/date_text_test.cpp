// Dates and times as text: the masks of the screens, and what the readers take and refuse.
#include "platform/text/date_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tela {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

constexpr Date kFifthOfJanuary = 2024y / 1 / 5;

TEST(FormatDate, FollowsTheMaskInAnyCase) {
  struct Case {
    Date date;
    std::string_view mask;
    std::string_view text;
  };
  const Case cases[] = {{kFifthOfJanuary, "dd/mm/yyyy", "05/01/2024"},
                        {kFifthOfJanuary, "DD/mm/yyyy", "05/01/2024"},
                        {kFifthOfJanuary, "DD/MMM/YYYY", "05/Jan/2024"},
                        {kFifthOfJanuary, "d.m.yy", "5.1.24"},
                        {2009y / 12 / 31, "DD/MM/YY", "31/12/09"},
                        {2009y / 9 / 1, "d mmmm yyyy", "1 September 2009"},
                        {2009y / 9 / 1, "yyyymmdd", "20090901"}};
  for (const auto& [date, mask, text] : cases) EXPECT_EQ(format_date(date, mask), text);
}

TEST(FormatTime, HasBothClocks) {
  struct Case {
    TimeOfDay time;
    std::string_view mask;
    std::string_view text;
  };
  const Case cases[] = {{{14, 5, 9}, "HH:MM AM/PM", "02:05 PM"},
                        {{14, 5, 9}, "HH:MM:SS", "14:05:09"},
                        {{2, 5, 9}, "hh:mm am/pm", "02:05 AM"},
                        {{0, 0, 0}, "HH:MM AM/PM", "12:00 AM"},
                        {{12, 0, 0}, "HH:MM AM/PM", "12:00 PM"},
                        {{23, 59, 59}, "HH:MM:SS AM/PM", "11:59:59 PM"},
                        {{0, 7, 0}, "h:mm", "0:07"}};
  for (const auto& [time, mask, text] : cases) EXPECT_EQ(format_time(time, mask), text);
}

// The texts that give one result; an empty result stands for a refusal.
template <typename Value>
struct Reading {
  std::optional<Value> result;
  std::vector<std::string_view> texts;
};

template <typename Value>
void expect_readings(std::optional<Value> read(std::string_view),
                     const std::vector<Reading<Value>>& readings) {
  for (const auto& [result, texts] : readings)
    for (const auto text : texts) EXPECT_EQ(read(text), result) << '"' << text << '"';
}

TEST(ReadDayFirst, TakesTheDayFirstAndChecksTheCalendar) {
  expect_readings<Date>(
      read_day_first,
      {{kFifthOfJanuary,
        {"05/01/2024", " 5-1-24 ", "05/Jan/2024", "5.1.2024", "5 january 2024", "5 / 1 / 2024"}},
       {2024y / 2 / 29, {"29/02/2024"}},
       {2049y / 1 / 1, {"1/1/49"}},
       {1950y / 1 / 1, {"1/1/50"}},
       {{}, {"29/02/2023", "31/04/2024", "01/13/2024", "0/1/2024", "1/1/0000"}},
       {{}, {"05/01", "05/01/", "05012024", "05/01/2024x", "05/01/024", "05/Janu/2024", ""}},
       {{}, {"05//01/2024", "/05/01/2024", "2024-01-05"}}});
}

TEST(ReadTypedDate, TakesWhatPeopleTypeAndNoOtherDay) {
  const auto read = [](std::string_view text) { return read_typed_date(text, kFifthOfJanuary); };
  expect_readings<Date>(
      read, {{2026y / 9 / 1, {"1/9/2026", "1/9/26", "01.09.2026", "1-9-26", " 1 9 26 "}},
             {2026y / 9 / 1, {"010926", "01092026", "1 Sep 26", "1/september/2026"}},
             {2024y / 9 / 1, {"1-9", "1/9/", "0109", "1 Sep"}},
             {2099y / 12 / 31, {"31.12.99", "311299", "31122099"}},
             {kFifthOfJanuary, {"t", "T", " T "}},
             {{}, {"", "5", "45132026", "31/02/2026", "29/2/2025", "1/13/26", "1/9/226"}},
             {{}, {"1//9", "1/9/2026x", "x", "tt", "T1", "010920260", "1/9/1899", "00/01/26"}}});
}

TEST(ReadSqlDate, TakesWhatHasOneReading) {
  expect_readings<Date>(
      read_sql_date,
      {{kFifthOfJanuary, {"05/Jan/2024", "5/JANUARY/2024", "5 Jan 2024", "5-jan-24"}},
       {kFifthOfJanuary, {"Jan 5 2024", "january 5, 2024", "2024-01-05", "20240105"}},
       {kFifthOfJanuary, {" 2024-01-05 ", "2024-01-05 00:00:00", "2024-01-05T00:00:00.000"}},
       {kFifthOfJanuary, {"05/Jan/2024 12:00:00 AM", "20240105 00:00"}},
       {{}, {"01/05/2024", "5-1-2024", "2023-02-29", "20240230", "30/Feb/2024", "00000105"}},
       {{}, {"05/Jam/2024", "05/Jan", "Jan", "2024", "202401051", "2024-01-5x", "", "today"}},
       {{}, {"2024-01-05 25:00", "2024-01-0500:00", "05/Jan/2024T00:00:00x"}}});
}

TEST(ReadTime, TakesBothClocks) {
  expect_readings<TimeOfDay>(
      read_time, {{TimeOfDay{14, 5, 0}, {"14:05", "14:05:00", "2:05 PM"}},
                  {TimeOfDay{14, 5, 9}, {"2:05:09 PM", "02:05:09pm", " 14:05:09.9990000 "}},
                  {TimeOfDay{0, 0, 0}, {"12:00 AM", "00:00"}},
                  {TimeOfDay{12, 0, 0}, {"12:00 PM"}},
                  {TimeOfDay{13, 30, 0}, {"13:30 PM"}},
                  {TimeOfDay{0, 30, 0}, {"00:30 AM"}},
                  {{}, {"13:30 AM", "00:30 PM", "24:00", "10:60", "10:00:60"}},
                  {{}, {"14", "14:", "14:05:", "14:05:09.", "14:05 XM", "14:05 PM x", ""}}});
}

TEST(DateText, EveryDayOfACenturyRoundTrips) {
  for (sys_days day = 1950y / 1 / 1; day < sys_days(2050y / 1 / 1); day += std::chrono::days(1)) {
    const Date date = day;
    ASSERT_EQ(read_day_first(format_date(date, "dd/mm/yy")), date);
    ASSERT_EQ(read_sql_date(format_date(date, "dd/mmm/yyyy")), date);
    ASSERT_EQ(read_sql_date(format_date(date, "mmmm d, yyyy")), date);
    ASSERT_EQ(read_sql_date(format_date(date, "yyyymmdd")), date);
  }
}

TEST(DateText, TimesOfTheDayRoundTrip) {
  for (int second = 0; second < 24 * 60 * 60; second += 7) {
    const TimeOfDay time{second / 3600, second / 60 % 60, second % 60};
    ASSERT_EQ(read_time(format_time(time, "HH:MM:SS AM/PM")), time);
    ASSERT_EQ(read_time(format_time(time, "HH:MM:SS")), time);
  }
}

TEST(Calendar, CountsDaysAndMonthBoundaries) {
  EXPECT_EQ(days_between(2024y / 2 / 28, 2024y / 3 / 1), 2);
  EXPECT_EQ(days_between(2024y / 1 / 1, 2023y / 12 / 31), -1);
  EXPECT_EQ(months_between(2024y / 1 / 31, 2024y / 2 / 1), 1);
  EXPECT_EQ(months_between(2024y / 1 / 1, 2024y / 1 / 31), 0);
  EXPECT_EQ(months_between(2024y / 3 / 1, 2023y / 11 / 30), -4);
  EXPECT_EQ(month_name(1), "January");
  EXPECT_EQ(month_name(12), "December");
  EXPECT_THROW(month_name(0), std::out_of_range);
  EXPECT_THROW(month_name(13), std::out_of_range);
}

}  // namespace
}  // namespace tela
