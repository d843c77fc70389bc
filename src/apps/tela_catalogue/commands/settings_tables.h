// The tables that hold one row from the start: the shop's settings and the tills' bill counter.
#pragma once

#include <array>
#include <string_view>

namespace tela {

inline constexpr std::array<std::string_view, 5> settings_tables{"tword", "CrPath", "PrinterSet",
                                                                 "PointsSet", "bill_no"};

}  // namespace tela
