#include "shell/form.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include "platform/text/number_text.h"

namespace tela {

namespace {

Control make(ControlKind kind, std::string name, std::string caption) {
  Control control;
  control.name = std::move(name);
  control.kind = kind;
  control.caption = std::move(caption);
  return control;
}

}  // namespace

Control Control::with_text(std::string value) && {
  text = std::move(value);
  return std::move(*this);
}

Control Control::numeric() && {
  numeric_only = true;
  return std::move(*this);
}

Control Control::hinted(std::string words) && {
  hint = std::move(words);
  return std::move(*this);
}

Control Control::selected_on_focus() && {
  select_on_focus = true;
  return std::move(*this);
}

Control date_picker(std::string name, std::string label) {
  return make(ControlKind::date, std::move(name), std::move(label));
}

Control combo(std::string name, std::string label) {
  return make(ControlKind::combo, std::move(name), std::move(label));
}

Control text_box(std::string name, std::string label) {
  return make(ControlKind::text, std::move(name), std::move(label));
}

Control total_box(std::string name, std::string label) {
  Control box = make(ControlKind::text, std::move(name), std::move(label));
  box.text = "0.00";
  box.locked = true;
  return box;
}

Control label(std::string name, std::string caption) {
  return make(ControlKind::label, std::move(name), std::move(caption));
}

Control check_box(std::string name, std::string caption) {
  return make(ControlKind::check, std::move(name), std::move(caption)).with_text("0");
}

Control button(std::string name, std::string caption) {
  return make(ControlKind::button, std::move(name), std::move(caption));
}

Control picture_button(std::string name, std::string words) {
  return make(ControlKind::picture_button, std::move(name), std::move(words));
}

Control list_box(std::string name) {
  return make(ControlKind::list, std::move(name), {});
}

Control grid(std::string name, int cols, int fixed_cols) {
  Control control = make(ControlKind::grid, std::move(name), {});
  control.grid = std::make_unique<Grid>(cols, fixed_cols);
  return control;
}

Control chart(std::string name) {
  Control control = make(ControlKind::chart, std::move(name), {});
  control.chart = std::make_unique<Chart>();
  return control;
}

std::vector<Control> group(const std::string& title, std::vector<Control> controls) {
  for (Control& control : controls) control.group = title;
  return controls;
}

void append(std::vector<Control>& controls, std::vector<Control> more) {
  for (Control& control : more) controls.push_back(std::move(control));
}

void ClearIfNotNumeric(Control& box) {
  if (!is_numeric(box.text)) box.text.clear();
}

Form::Form(std::vector<Control> controls) : controls_(std::move(controls)) {
  std::set<std::string_view> names;
  for (const Control& control : controls_)
    if (!names.insert(control.name).second)
      throw std::logic_error("two controls are named " + control.name);
}

const Control* Form::find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Control& control) { return control.name == name; });
  return found == controls_.end() ? nullptr : &*found;
}

const Control& Form::at(std::string_view name) const {
  if (const Control* control = find(name)) return *control;
  throw std::logic_error("there is no control " + std::string(name));
}

Control& Form::at(std::string_view name) {
  return const_cast<Control&>(std::as_const(*this).at(name));
}

void Form::set_text(std::string_view name, std::string text) {
  Control& control = at(name);
  if (control.text == text) return;
  control.text = std::move(text);
  announce(control);
}

void Form::set_date(std::string_view name, Date date) {
  Control& control = at(name);
  if (control.date == date) return;
  control.date = date;
  announce(control);
}

void Form::announce(Control& control) {
  if (control.numeric_only) ClearIfNotNumeric(control);
  if (changed_) changed_(control);
}

Grid& Form::grid(std::string_view name) {
  return const_cast<Grid&>(std::as_const(*this).grid(name));
}

const Grid& Form::grid(std::string_view name) const {
  const Control& control = at(name);
  if (!control.grid) throw std::logic_error(control.name + " is not a grid");
  return *control.grid;
}

Chart& Form::chart(std::string_view name) {
  Control& control = at(name);
  if (!control.chart) throw std::logic_error(control.name + " is not a chart");
  return *control.chart;
}

}  // namespace tela
