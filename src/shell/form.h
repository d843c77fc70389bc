// The named controls of a screen, with their values. They are plain data: a window mirrors them, a
// script and a test set and read them, and none of the three owns a value.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/chart/chart.h"
#include "platform/text/calendar.h"
#include "shell/grid.h"

namespace tela {

enum class ControlKind {
  date,            ///< a date picker
  combo,           ///< a list with free text
  text,            ///< a text box
  label,           ///< a text that the program writes
  check,           ///< a check box; its text is "0" or "1"
  button,          ///< a button with a caption
  picture_button,  ///< a button with a picture; its caption says in words what the picture shows
  list,            ///< a list box
  grid,
  chart,
};

/// One control: what it is, and what it shows now. Made by the functions below.
struct Control {
  std::string name;
  ControlKind kind = ControlKind::text;
  /// The caption on the control, or the label beside it. '&' marks the short-cut letter.
  std::string caption;
  /// The value: a box's text, a label's text, the check's "0" or "1". A picker's is `date`.
  std::string text;
  Date date{};
  std::vector<std::string> items = {};  ///< entries of a combo or a list
  std::unique_ptr<Grid> grid = nullptr;
  std::unique_ptr<Chart> chart = nullptr;

  /// Neighbours of one group stand together in a frame that bears its title; empty: no frame.
  std::string group = {};
  /// What a window says about it on demand.
  std::string hint = {};

  bool enabled = true;
  bool visible = true;
  bool locked = false;           ///< typing has no effect
  bool password = false;         ///< shown as a row of "*"
  bool numeric_only = false;     ///< ClearIfNotNumeric on every change
  bool select_on_focus = false;  ///< SelectAllText when it gets the focus

  Control with_text(std::string value) &&;
  Control numeric() &&;
  Control selected_on_focus() &&;
  Control hinted(std::string words) &&;
};

Control date_picker(std::string name, std::string label);
Control combo(std::string name, std::string label);
Control text_box(std::string name, std::string label = {});
/// A text box that the program alone writes and that starts as "0.00".
Control total_box(std::string name, std::string label);
Control label(std::string name, std::string caption = {});
Control check_box(std::string name, std::string caption);
Control button(std::string name, std::string caption);
Control picture_button(std::string name, std::string words);
Control list_box(std::string name);
Control grid(std::string name, int cols, int fixed_cols = 0);
Control chart(std::string name);

/// The controls as a list. They cannot be copied, so no braces make one.
template <class... Each>
std::vector<Control> tab_order(Each... controls) {
  std::vector<Control> all;
  all.reserve(sizeof...(controls));
  (all.push_back(std::move(controls)), ...);
  return all;
}

/// The controls as one group.
std::vector<Control> group(const std::string& title, std::vector<Control> controls);

/// Appends `more` to a list of controls.
void append(std::vector<Control>& controls, std::vector<Control> more);

/// If the box's text is not numeric as a whole, empties it.
void ClearIfNotNumeric(Control& box);

/// All controls of a screen, in tab order.
class Form {
 public:
  /// Throws std::logic_error if two controls share a name.
  explicit Form(std::vector<Control> controls);

  const std::vector<Control>& controls() const { return controls_; }
  bool has(std::string_view name) const { return find(name) != nullptr; }
  /// Throws std::logic_error naming the control that is not there: names are part of the
  /// definition.
  const Control& at(std::string_view name) const;
  Control& at(std::string_view name);

  const std::string& text(std::string_view name) const { return at(name).text; }
  /// Writes a control's text. A text that differs from the old one is a change, as if typed.
  void set_text(std::string_view name, std::string text);
  Date date(std::string_view name) const { return at(name).date; }
  void set_date(std::string_view name, Date date);
  Grid& grid(std::string_view name);
  const Grid& grid(std::string_view name) const;
  Chart& chart(std::string_view name);

  /// Called after every change of a control's text or date, by whomever.
  void on_change(std::function<void(Control&)> observer) { changed_ = std::move(observer); }

 private:
  const Control* find(std::string_view name) const;
  void announce(Control& control);

  std::vector<Control> controls_;
  std::function<void(Control&)> changed_;
};

}  // namespace tela
