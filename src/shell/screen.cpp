#include "shell/screen.h"

#include <stdexcept>

#include "platform/text/date_text.h"
#include "platform/text/strings.h"
#include "shell/app_state.h"
#include "shell/display.h"
#include "shell/failure.h"
#include "shell/windows.h"

namespace tela {

Screen::Screen(AppState& app, std::string name, std::string caption, std::vector<Control> controls)
    : app_(app), name_(std::move(name)), caption_(std::move(caption)), form_(std::move(controls)) {
  form_.on_change([this](Control& control) { raise(control, Event::change); });
}

void Screen::define(std::string_view control, Event event, const Handler& handler) {
  const auto [place, fresh] = handlers_.try_emplace({form_.at(control).name, event}, handler);
  if (!fresh) throw std::logic_error(name_ + ": " + place->first.first + " has two handlers");
}

void Screen::on_press(std::string_view button, const Handler& handler) {
  define(button, Event::press, handler);
}
void Screen::on_key(std::string_view control, Key key, const Handler& handler) {
  define(control, key == Key::enter ? Event::enter : Event::up, handler);
}
void Screen::on_change(std::string_view control, const Handler& handler) {
  define(control, Event::change, handler);
}
void Screen::on_pick(std::string_view control, const Handler& handler) {
  define(control, Event::pick, handler);
}
void Screen::on_leave(std::string_view control, const Handler& handler) {
  define(control, Event::leave, handler);
}
void Screen::on_double_click(std::string_view grid, const Handler& handler) {
  define(grid, Event::double_click, handler);
}

void Screen::key_walk(const std::vector<std::string>& controls) {
  for (std::size_t i = 0; i + 1 < controls.size(); ++i)
    on_key(controls[i], Key::enter, [this, next = form_.at(controls[i + 1]).name] { focus(next); });
}

void Screen::raise(const Control& control, Event event) {
  const auto found = handlers_.find({control.name, event});
  if (found != handlers_.end()) found->second();
}

void Screen::run(const std::function<void()>& event) {
  run_event(app_, event);
  if (app_.is_cancelled) say_in_lists("Cancelled with Esc.");
  app_.windows.destroy_closed();
}

Control& Screen::usable(std::string_view control) {
  if (!form_.has(control))
    throw UserActionError("The screen " + name_ + " has no control " + std::string(control) + ".");
  Control& found = form_.at(control);
  if (!found.enabled || !found.visible) throw UserActionError(found.name + " is switched off.");
  return found;
}

void Screen::take_input(Control& control, std::string_view text) {
  switch (control.kind) {
    case ControlKind::date: {
      const auto date = read_day_first(text);
      if (!date) throw UserActionError("\"" + std::string(text) + "\" is no date dd/mm/yyyy.");
      form_.set_date(control.name, *date);
      return;
    }
    case ControlKind::check:
      if (text != "0" && text != "1") throw UserActionError("A check box takes 0 or 1.");
      form_.set_text(control.name, std::string(text));
      return;
    case ControlKind::combo:
    case ControlKind::text:
      if (!control.locked) form_.set_text(control.name, std::string(text));
      return;
    default:
      throw UserActionError(control.name + " takes no input.");
  }
}

void Screen::set(std::string_view control, std::string_view text) {
  Control& target = usable(control);
  run([&] { take_input(target, text); });
}

void Screen::type(std::string_view control, std::string_view text) {
  Control& target = usable(control);
  if (target.kind != ControlKind::text && target.kind != ControlKind::combo)
    return set(control, text);
  if (target.locked) return;
  run([&] {
    bool replaces = true;
    for (const std::string& character : characters(text)) {
      form_.set_text(target.name, (replaces ? std::string() : target.text) + character);
      replaces = false;
    }
  });
}

void Screen::pick(std::string_view control, std::string_view entry) {
  Control& target = usable(control);
  if (target.kind != ControlKind::combo && target.kind != ControlKind::list)
    throw UserActionError(target.name + " has no list.");
  const auto wanted = without_trailing_blanks(entry);
  for (const std::string& item : target.items) {
    if (without_trailing_blanks(item) != wanted) continue;
    run([&, chosen = item] {
      form_.set_text(target.name, chosen);
      raise(target, Event::pick);
    });
    return;
  }
  throw UserActionError("The list of " + target.name + " has no entry \"" + std::string(entry) +
                        "\".");
}

void Screen::press(std::string_view control) {
  Control& target = usable(control);
  if (target.kind != ControlKind::button && target.kind != ControlKind::picture_button)
    throw UserActionError(target.name + " is no button.");
  run([&] { raise(target, Event::press); });
}

void Screen::key(std::string_view control, Key key) {
  Control& target = usable(control);
  run([&] { raise(target, key == Key::enter ? Event::enter : Event::up); });
}

bool Screen::acts_on(std::string_view control, Key key) const {
  return handlers_.contains({std::string(control), key == Key::enter ? Event::enter : Event::up});
}

void Screen::leave(std::string_view control) {
  Control& target = usable(control);
  run([&] { raise(target, Event::leave); });
}

void Screen::double_click(std::string_view control, int row) {
  Control& target = usable(control);
  if (!target.grid) throw UserActionError(target.name + " is no grid.");
  if (row < 0 || row >= target.grid->Rows())
    throw UserActionError(target.name + " has no row " + std::to_string(row) + ".");
  run([&] {
    target.grid->SetRow(row);
    raise(target, Event::double_click);
  });
}

}  // namespace tela
