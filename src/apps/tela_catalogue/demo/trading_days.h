// How a supermarket's trade spreads: over the days of a year and over the hours of a day.
#pragma once

#include <cstdint>
#include <vector>

#include "apps/tela_catalogue/demo/random.h"
#include "platform/database/database_client.h"

namespace tela::demo {

/// Deals out `days` * `bills_per_day` bills to the `days` days that end on `last`: more at
/// weekends, at the start of a month when wages are paid, before Diwali and at Pongal.
std::vector<int> bills_of_days(Date last, int days, int bills_per_day, Random& random);

/// `count` times of day in opening hours, in order, with a peak before noon and one in the evening.
std::vector<TimeOfDay> bill_times(int count, Random& random);

/// `time`, so many seconds earlier. It must not reach into the day before.
TimeOfDay earlier(TimeOfDay time, int seconds);

}  // namespace tela::demo
