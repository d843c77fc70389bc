// Reads a shop through the screens and says where its reports do not tie out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shops/reports.h"

namespace tela::testing {

/// What does not tie out: which report or relation, and how.
struct Fault {
  std::string of;  ///< a screen, or what a relation says
  std::string how;
};

/// The faults of a shop, which is stocked first.
/// @param seed chooses what the Views are asked
/// @param only one screen or relation alone; empty for all
std::vector<Fault> faults(Shop& shop, const InventedShop& invented, unsigned seed,
                          const std::string& only = {});

/// As few of the rows as still fail: no single one of them can be left out.
Rows shrunk(Rows rows, const std::function<bool(const Rows&)>& fails);

}  // namespace tela::testing
