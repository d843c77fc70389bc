// How long the period of a chart may be.
#pragma once

#include "shell/refusal.h"

namespace tela {

/// More than twelve month boundaries lie between the two dates; the days do not count.
Refusal longer_than_a_year();
/// The dates are more than 31 days apart.
Refusal longer_than_a_month();

}  // namespace tela
