#include "shell/usual_period.h"

namespace tela {

std::pair<Date, Date> usual_period(UsualPeriod period, Date today) {
  using namespace std::chrono;
  const year_month month = today.year() / today.month();
  const year_month previous = month - months(1);
  const year financial_year = today.month() < April ? today.year() - years(1) : today.year();
  switch (period) {
    case UsualPeriod::today:
      break;
    case UsualPeriod::this_month:
      return {month / 1, today};
    case UsualPeriod::last_month:
      return {previous / 1, previous / last};
    case UsualPeriod::financial_year:
      return {financial_year / April / 1, today};
  }
  return {today, today};
}

}  // namespace tela
