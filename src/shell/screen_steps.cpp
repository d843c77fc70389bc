// What the handlers of screens share: load, lists, questions, refusals, dates, and the ways out of
// a screen.
#include <stdexcept>

#include "platform/text/date_text.h"
#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/screen.h"
#include "shell/windows.h"

namespace tela {

Date Screen::today() const {
  return app_.platform.today();
}

void Screen::load() {
  for (const Control& control : form_.controls())
    if (control.kind == ControlKind::date) form_.set_date(control.name, today());
  fill_lists();
}

void Screen::fill_combo(std::string_view combo, std::string_view sql) {
  for (Recordset& rs = OpenRs(app_, sql); !rs.eof(); rs.move_next())
    form_.at(combo).items.push_back(field_text(rs.field(0)));
  CloseRs(app_);
}

void Screen::focus(std::string_view control) {
  app_.display.focus(*this, form_.at(control).name);
}

void Screen::say_in_lists(const std::string& words) {
  for (const Control& control : form_.controls())
    if (control.grid) control.grid->SetEmptyWords(words);
}

void Screen::tell(const std::string& text, Icon icon) {
  say_in_lists(text);
  app_.display.message({text, icon, Buttons::ok, app_.ShopName});
}

bool Screen::ask(const std::string& question) {
  return app_.display.message({question, Icon::none, Buttons::ok_cancel, app_.ShopName}) ==
         Answer::ok;
}

bool Screen::refused(const Refusal& refusal) {
  if (!refusal.applies(form_)) return false;
  tell(refusal.text, refusal.icon);
  if (!refusal.focus.empty()) focus(refusal.focus);
  return true;
}

std::string Screen::picked_day(std::string_view picker) const {
  return format_date(form_.date(picker), kSqlDateMask);
}

Period Screen::take_period(std::string_view first, std::string_view second) {
  app_.FromDate = picked_day(first);
  app_.ToDate = picked_day(second);
  return {app_.FromDate, app_.ToDate};
}

Period Screen::take_day(std::string_view picker) {
  return take_period(picker, picker);
}

std::string Screen::filter() const {
  return std::string(trimmed(form_.text("Combo1")));
}

void Screen::refresh_on(std::string_view button) {
  on_press(button, [this] { app_.windows.refresh(app_, name_); });
}

void Screen::close_on(std::string_view button) {
  on_press(button, [this] { app_.windows.close(app_, name_); });
}

namespace {

std::optional<std::int32_t> document_number(const std::string& cell) {
  if (!is_numeric(cell)) return std::nullopt;
  return whole_number<std::int32_t>(Val(cell));
}

}  // namespace

void Screen::drill_down_on(std::string_view grid_name, int column, std::int32_t AppState::*number,
                           const std::string& target) {
  if (!app_.windows.knows(target)) throw std::logic_error(name_ + ": there is no screen " + target);
  on_double_click(grid_name, [this, grid = &form_.grid(grid_name), column, number, target] {
    app_.RowNo = grid->Row();
    const std::string& cell = grid->TextMatrix(app_.RowNo, column);
    if (Val(cell) <= 0) return;
    if (const auto key = document_number(cell))
      app_.*number = *key;
    else
      app_.display.hint(cell + " cannot be shown: it is no number that a bill can have.");
    guarded([&] { app_.windows.open(app_, target); },
            [&](const std::runtime_error& failure) { app_.display.hint(failure.what()); });
  });
}

}  // namespace tela
