// What the bill lists between two limits share: of bill numbers, or of the amount of a bill. The
// limits are the boxes `Text1` and `Text2`.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "screens/bill_sales/bill_list.h"

namespace tela::bills_between {

/// The box of a limit.
Control limit(std::string name, std::string label);
/// A limit below 1 is refused with `missing`, limits in falling order with `reversed`.
std::vector<Refusal> refusals(const std::string& missing, const std::string& reversed);
/// The payment split, up to the condition.
std::string select();
/// The boxes for cash, card, pass and points.
std::array<std::string, 4> boxes();
/// The preview by way of `BilltoBillRep`. It asks when the rows are staged already.
BillPreview preview();

}  // namespace tela::bills_between
