// A screen: named controls with values, and what happens on each event. A window, a script and a
// test drive it through the same calls; it decides everything, and the window mirrors it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/form.h"
#include "shell/period.h"
#include "shell/refusal.h"

namespace tela {

struct AppState;

/// The keys that screens act on. All others have their ordinary meaning.
enum class Key { enter, up };

/// The user tried what the screen does not allow: a control that is not there, a disabled button,
/// an entry that the list lacks.
class UserActionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Screen {
 public:
  /// `name` is the form's name, `caption` the window's.
  Screen(AppState& app, std::string name, std::string caption, std::vector<Control> controls);
  virtual ~Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  const Form& form() const { return form_; }
  Form& form() { return form_; }

  /// Runs when the window is created, before it is shown: today in the pickers, and the screen's
  /// `fill_lists`. A failure in it closes the screen.
  virtual void load();

  /// The present day, as the program takes it.
  Date today() const;

  // What the user does. Each runs one event to its end; a failure inside the event is told to the
  // user and goes no further. All throw UserActionError for what cannot be done.

  /// Types the whole text, picks the date ("dd/mm/yyyy") or sets the check ("0", "1").
  void set(std::string_view control, std::string_view text);
  /// Selects what the box holds and types the text over it, character by character.
  void type(std::string_view control, std::string_view text);
  /// Chooses an entry of a combo's or a list's entries; trailing blanks do not count.
  void pick(std::string_view control, std::string_view entry);
  void press(std::string_view control);
  void key(std::string_view control, Key key);
  /// Whether the key means something to the screen in that control.
  bool acts_on(std::string_view control, Key key) const;
  void leave(std::string_view control);
  /// Selects a row of a grid and double-clicks it.
  void double_click(std::string_view control, int row);

 protected:
  using Handler = std::function<void()>;

  AppState& app() const { return app_; }

  // The definition of what happens. Each throws std::logic_error if the control is not declared, so
  // that a wrong name shows as soon as the screen is made.
  void on_press(std::string_view button, const Handler& handler);
  void on_key(std::string_view control, Key key, const Handler& handler);
  /// The control's text or date has changed, by the user or by the program.
  void on_change(std::string_view control, const Handler& handler);
  /// The user has chosen an entry of the control's list.
  void on_pick(std::string_view control, const Handler& handler);
  void on_leave(std::string_view control, const Handler& handler);
  void on_double_click(std::string_view grid, const Handler& handler);
  /// Enter in each control moves the focus to the next one.
  void key_walk(const std::vector<std::string>& controls);

  /// The button closes the screen and shows it as new, or closes it.
  void refresh_on(std::string_view button);
  void close_on(std::string_view button);
  /// A double click on a row with a number above 0 in `column` hands the number over in
  /// `app().*number` and opens `target`. A number that the hand-over value cannot hold leaves it as
  /// it was, and the user is told. Throws std::logic_error too if there is no screen `target`.
  void drill_down_on(std::string_view grid, int column, std::int32_t AppState::*number,
                     const std::string& target);

  void set_caption(std::string caption) { caption_ = std::move(caption); }

  // What the handlers do. They throw std::logic_error for a control that is not declared.

  /// Fills the screen's lists at load.
  virtual void fill_lists() {}
  /// Adds the first field of every row of a query to a combo, as read.
  void fill_combo(std::string_view combo, std::string_view sql);

  /// Moves the focus to a control.
  void focus(std::string_view control);
  void tell(const std::string& text, Icon icon);
  /// Asks a question with OK and Cancel; true for OK.
  bool ask(const std::string& question);
  /// If the refusal applies, says so, moves the focus and returns true.
  bool refused(const Refusal& refusal);

  /// A picker's day under the mask of statements.
  std::string picked_day(std::string_view picker) const;
  /// The period of two pickers, which also goes into `FromDate` and `ToDate`.
  Period take_period(std::string_view first = "DTP1", std::string_view second = "DTP2");
  /// The same of one picker, for both ends.
  Period take_day(std::string_view picker);
  /// The text of the filter box `Combo1`, without the blanks around it.
  std::string filter() const;

 private:
  enum class Event { press, enter, up, change, pick, leave, double_click };

  void define(std::string_view control, Event event, const Handler& handler);
  void raise(const Control& control, Event event);
  Control& usable(std::string_view control);
  void run(const std::function<void()>& event);
  /// The words that the screen's lists show while they have no rows.
  void say_in_lists(const std::string& words);
  void take_input(Control& control, std::string_view text);

  AppState& app_;
  std::string name_;
  std::string caption_;
  Form form_;
  std::map<std::pair<std::string, Event>, Handler> handlers_;
};

/// Makes a screen of its kind.
using ScreenFactory = std::unique_ptr<Screen> (*)(AppState&);

/// One line of the registry: a screen's name and how it is made.
struct ScreenEntry {
  std::string_view name;
  ScreenFactory make;
};

/// The factory of a screen class.
template <class T>
std::unique_ptr<Screen> make_screen(AppState& app) {
  return std::make_unique<T>(app);
}

/// The factory of a screen that is one value of its family.
template <class Family, auto definition>
std::unique_ptr<Screen> make_sister(AppState& app) {
  return std::make_unique<Family>(app, definition());
}

}  // namespace tela
