#include "apps/tela_catalogue/demo/trading_days.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace tela::demo {
namespace {

using std::chrono::sys_days;

// The day of Diwali follows the moon; outside these years it is taken for the end of October.
constexpr std::array<Date, 16> diwali_days{{
    {std::chrono::year(2015), std::chrono::November, std::chrono::day(11)},
    {std::chrono::year(2016), std::chrono::October, std::chrono::day(30)},
    {std::chrono::year(2017), std::chrono::October, std::chrono::day(19)},
    {std::chrono::year(2018), std::chrono::November, std::chrono::day(7)},
    {std::chrono::year(2019), std::chrono::October, std::chrono::day(27)},
    {std::chrono::year(2020), std::chrono::November, std::chrono::day(14)},
    {std::chrono::year(2021), std::chrono::November, std::chrono::day(4)},
    {std::chrono::year(2022), std::chrono::October, std::chrono::day(24)},
    {std::chrono::year(2023), std::chrono::November, std::chrono::day(12)},
    {std::chrono::year(2024), std::chrono::October, std::chrono::day(31)},
    {std::chrono::year(2025), std::chrono::October, std::chrono::day(20)},
    {std::chrono::year(2026), std::chrono::November, std::chrono::day(8)},
    {std::chrono::year(2027), std::chrono::October, std::chrono::day(29)},
    {std::chrono::year(2028), std::chrono::October, std::chrono::day(17)},
    {std::chrono::year(2029), std::chrono::November, std::chrono::day(5)},
    {std::chrono::year(2030), std::chrono::October, std::chrono::day(26)},
}};

Date diwali_of(std::chrono::year year) {
  const auto found = std::find_if(diwali_days.begin(), diwali_days.end(),
                                  [year](const Date& day) { return day.year() == year; });
  return found != diwali_days.end() ? *found : Date{year / std::chrono::October / 28};
}

int weekday_percent(sys_days day) {
  static constexpr std::array<int, 7> from_sunday{140, 85, 85, 90, 90, 105, 130};
  return from_sunday[std::chrono::weekday(day).c_encoding()];
}

int month_percent(unsigned day_of_month) {
  if (day_of_month <= 7) return 120;
  return day_of_month <= 20 ? 97 : 90;
}

int festival_percent(sys_days day) {
  const Date date(day);
  const auto days_to_diwali = (sys_days(diwali_of(date.year())) - day).count();
  if (days_to_diwali >= 0 && days_to_diwali <= 9) return 170 - static_cast<int>(days_to_diwali) * 5;
  const auto day_of_month = static_cast<unsigned>(date.day());
  const bool pongal =
      date.month() == std::chrono::January && day_of_month >= 9 && day_of_month <= 15;
  return pongal ? 150 : 100;
}

std::int64_t weight_of(sys_days day, Random& random) {
  const auto day_of_month = static_cast<unsigned>(Date(day).day());
  return std::int64_t{weekday_percent(day)} * month_percent(day_of_month) * festival_percent(day) *
         random.between(92, 108);
}

}  // namespace

std::vector<int> bills_of_days(Date last, int days, int bills_per_day, Random& random) {
  std::vector<std::int64_t> weights(static_cast<std::size_t>(days));
  sys_days day = sys_days(last) - std::chrono::days(days);
  for (std::int64_t& weight : weights) weight = weight_of(day += std::chrono::days(1), random);
  const auto sum = std::accumulate(weights.begin(), weights.end(), std::int64_t{0});

  // Each day gets the bills due up to its evening less those dealt out before: no bill is lost to
  // rounding. The weights are scaled down so that the products stay within 64 bits.
  const std::int64_t scale = std::max<std::int64_t>(sum / 1'000'000'000, 1);
  const std::int64_t total = std::int64_t{days} * bills_per_day;
  std::vector<int> bills;
  bills.reserve(weights.size());
  std::int64_t reached = 0;
  std::int64_t dealt = 0;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    reached += weights[i];
    const bool last_day = i + 1 == weights.size();
    const std::int64_t due =
        last_day ? total : std::min(total, total * (reached / scale) / (sum / scale));
    bills.push_back(static_cast<int>(due - dealt));
    dealt = due;
  }
  return bills;
}

std::vector<TimeOfDay> bill_times(int count, Random& random) {
  static constexpr int opening_hour = 8;
  static constexpr std::array<int, 14> hour_weights{3, 6, 9, 10, 7, 5, 3, 3, 5, 9, 13, 14, 9, 4};
  std::vector<TimeOfDay> times;
  times.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const int hour = opening_hour + static_cast<int>(random.weighted(hour_weights));
    const int minute = static_cast<int>(random.between(0, 59));
    times.push_back({hour, minute, static_cast<int>(random.between(0, 59))});
  }
  std::sort(times.begin(), times.end());
  return times;
}

TimeOfDay earlier(TimeOfDay time, int seconds) {
  const int left = time.hour * 3600 + time.minute * 60 + time.second - seconds;
  return {left / 3600, left / 60 % 60, left % 60};
}

}  // namespace tela::demo
