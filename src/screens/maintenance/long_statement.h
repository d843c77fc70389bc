// The time that the actions which delete bills give every statement from then on.
#pragma once

#include <chrono>

namespace tela {

/// A command time-out, set for the rest of the process.
inline constexpr std::chrono::seconds kLongStatement{800};

}  // namespace tela
