// The periods that are asked for every day.
#pragma once

#include <utility>

#include "platform/text/calendar.h"

namespace tela {

enum class UsualPeriod { today, this_month, last_month, financial_year };

/// The first and the last day of a period as seen from `today`. One that is not over ends today.
/// The financial year begins on 1 April.
std::pair<Date, Date> usual_period(UsualPeriod period, Date today);

}  // namespace tela
