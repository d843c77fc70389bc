// One control of a screen as a widget: what the user sees and works, and how it mirrors the
// control.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "display/qt/desktop_settings.h"
#include "shell/form.h"

namespace tela {

/// Where a field tells what the user did with it. A text comes as the control's text would be:
/// "dd/mm/yyyy" for a picker, "0" or "1" for a check.
struct FieldActions {
  std::function<void(const QString& text)> set;
  std::function<void(const QString& entry)> pick;
  std::function<void()> press;
  std::function<void(int row)> double_click;
  /// Words about what the user has typed, for the line at the window's foot.
  std::function<void(const QString& words)> hint;
  std::function<Date()> today;
};

struct ScreenField {
  std::string name;
  ControlKind kind;
  /// What takes the keys and the focus; carries the control's name as its object name.
  QWidget* input;
  /// Shows the control's present state.
  std::function<void(const Control&)> mirror;
  /// What the widget holds, told to the screen or not; empty function for fields without input.
  std::function<QString()> held;
  /// Reads what was typed, at Enter and ahead of a button. False if it cannot be understood. Empty
  /// for fields that take any text.
  std::function<bool()> settle = {};
};

/// The text of a control as a widget holds it.
QString shown_text(const Control& control);

/// Makes the widget of a control. `key` names the screen in the settings.
ScreenField make_field(const Control& control, const FieldActions& actions,
                       DesktopSettings& settings, const QString& key);

}  // namespace tela
