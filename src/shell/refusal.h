// Checks ahead of an action: what must not be, what the user is told then, and where the focus
// goes.
#pragma once

#include <functional>
#include <string>

#include "shell/display.h"
#include "shell/form.h"

namespace tela {

struct Refusal {
  std::function<bool(const Form&)> applies;
  std::string text;
  Icon icon = Icon::critical;
  std::string focus = {};  ///< empty: the focus stays
};

/// The control's text is empty or nothing but blanks.
Refusal blank(const std::string& control, std::string text, Icon icon = Icon::critical);
/// The control's text is empty; blanks count as a text.
Refusal empty(const std::string& control, std::string text, Icon icon = Icon::critical);
/// The first picker is later than the second. The focus goes to the first.
Refusal reversed(const std::string& first, const std::string& second, std::string text);

}  // namespace tela
