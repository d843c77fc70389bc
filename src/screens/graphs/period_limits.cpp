#include "screens/graphs/period_limits.h"

namespace tela {

Refusal longer_than_a_year() {
  const auto applies = [](const Form& form) {
    constexpr std::chrono::months kMost(12);
    const Date first = form.date("DTP1");
    const Date last = form.date("DTP2");
    return last.year() / last.month() - first.year() / first.month() > kMost;
  };
  return {applies, "Please Select Graph for One Year Only", Icon::information};
}

Refusal longer_than_a_month() {
  const auto applies = [](const Form& form) {
    constexpr std::chrono::days kMost(31);
    const std::chrono::sys_days first = form.date("DTP1");
    return std::chrono::sys_days(form.date("DTP2")) - first > kMost;
  };
  return {applies, "Please Select Graph for One Month", Icon::information};
}

}  // namespace tela
