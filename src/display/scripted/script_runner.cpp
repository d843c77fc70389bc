#include "display/scripted/script_runner.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <utility>

#include "display/scripted/screen_json.h"
#include "platform/text/strings.h"
#include "shell/database_gateway.h"
#include "shell/main_window.h"
#include "shell/owner_login.h"
#include "shell/windows.h"

namespace tela {

namespace {

// The first word and what follows the one blank behind it.
std::pair<std::string_view, std::string_view> first_word(std::string_view text) {
  const auto blank = text.find(' ');
  if (blank == std::string_view::npos) return {text, {}};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

// A command's one-word argument.
std::string_view word(std::string_view argument, std::string_view what) {
  const auto name = trimmed(argument);
  if (name.empty() || name.find(' ') != std::string_view::npos)
    throw UserActionError("The command takes " + std::string(what) + ".");
  return name;
}

}  // namespace

ScriptRunner::ScriptRunner(AppState& app, ScriptedDisplay& display)
    : app_(app), display_(display) {}

bool ScriptRunner::run(std::istream& script) {
  bool all_ran = true;
  std::string line;
  for (int number = 1; !display_.exited() && std::getline(script, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    try {
      command(line);
    } catch (const DatabaseError& failure) {
      display_.tell({{"error", failure.what()}});
      all_ran = false;
    } catch (const std::exception& failure) {
      display_.tell({{"error", "line " + std::to_string(number) + ": " + failure.what()}});
      all_ran = false;
    }
  }
  return all_ran;
}

const std::map<std::string, ScriptRunner::Command, std::less<>>& ScriptRunner::commands() {
  static const std::map<std::string, Command, std::less<>> kCommands = {
      {"login", &ScriptRunner::login},      {"open", &ScriptRunner::open},
      {"menu", &ScriptRunner::menu},        {"toolbar", &ScriptRunner::toolbar},
      {"panel", &ScriptRunner::panel},      {"set", &ScriptRunner::set},
      {"type", &ScriptRunner::type},        {"pick", &ScriptRunner::pick},
      {"press", &ScriptRunner::press},      {"key", &ScriptRunner::key},
      {"leave", &ScriptRunner::leave},      {"doubleclick", &ScriptRunner::double_click},
      {"answer", &ScriptRunner::answer},    {"savefile", &ScriptRunner::save_file},
      {"switch", &ScriptRunner::switch_to}, {"close", &ScriptRunner::close},
      {"show", &ScriptRunner::show},        {"main", &ScriptRunner::main},
      {"sql", &ScriptRunner::sql},          {"pdf", &ScriptRunner::pdf},
  };
  return kCommands;
}

void ScriptRunner::command(std::string_view line) {
  const auto start = line.find_first_not_of(" \t");
  if (start == std::string_view::npos || line[start] == '#') return;
  const auto [name, argument] = first_word(line.substr(start));
  const auto found = commands().find(name);
  if (found == commands().end())
    throw UserActionError("There is no command \"" + std::string(name) + "\".");
  (this->*found->second)(argument);
}

Screen& ScriptRunner::current() {
  if (Screen* screen = app_.windows.current()) return *screen;
  if (!app_.windows.main() && app_.windows.login()) return *app_.windows.login();
  throw UserActionError("No screen is open.");
}

MainWindow& ScriptRunner::main_window() {
  if (MainWindow* main = app_.windows.main()) return *main;
  throw UserActionError("Nobody has logged in.");
}

void ScriptRunner::login(std::string_view argument) {
  if (app_.windows.main()) throw UserActionError("Somebody has logged in already.");
  const auto [user, password] = first_word(argument);
  OwnerLogin& window = *app_.windows.login();
  window.set("Text1", user);
  window.key("Text1", Key::enter);
  window.set("Text2", password);
  window.key("Text2", Key::enter);
  if (!app_.connection_failure.empty()) throw UserActionError(app_.connection_failure);
}

void ScriptRunner::log_in_fully() {
  if (app_.windows.main()) return;
  app_.windows.login()->enter_at_full_level();
  if (app_.windows.main()) return;
  throw UserActionError(app_.connection_failure.empty() ? "The main window did not open."
                                                        : app_.connection_failure);
}

void ScriptRunner::open(std::string_view argument) {
  const auto screen = word(argument, "a screen's name");
  const bool is_action = app_.windows.find_action(screen) != nullptr;
  if (!is_action && !app_.windows.knows(screen))
    throw UserActionError("There is no screen " + std::string(screen) + ".");
  log_in_fully();
  main_window().open_screen(screen);
  if (!is_action && !app_.windows.find(screen))
    throw UserActionError("The screen " + std::string(screen) + " did not open.");
}

void ScriptRunner::menu(std::string_view argument) {
  main_window().click_menu(word(argument, "a menu entry's name"));
}

void ScriptRunner::toolbar(std::string_view argument) {
  main_window().click_toolbar(word(argument, "a toolbar button's key"));
}

void ScriptRunner::panel(std::string_view argument) {
  main_window().click_panel(word(argument, "a panel button's name"));
}

void ScriptRunner::set(std::string_view argument) {
  const auto [control, text] = first_word(argument);
  current().set(control, text);
}

void ScriptRunner::type(std::string_view argument) {
  const auto [control, text] = first_word(argument);
  current().type(control, text);
}

void ScriptRunner::pick(std::string_view argument) {
  const auto [control, entry] = first_word(argument);
  current().pick(control, entry);
}

void ScriptRunner::press(std::string_view argument) {
  current().press(word(argument, "a button's name"));
}

void ScriptRunner::key(std::string_view argument) {
  const auto [control, name] = first_word(argument);
  const auto pressed = trimmed(name);
  if (pressed != "enter" && pressed != "up") throw UserActionError("The keys are enter and up.");
  current().key(control, pressed == "enter" ? Key::enter : Key::up);
}

void ScriptRunner::leave(std::string_view argument) {
  current().leave(word(argument, "a control's name"));
}

void ScriptRunner::double_click(std::string_view argument) {
  const auto [grid, digits] = first_word(argument);
  const auto number = trimmed(digits);
  int row = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), row);
  if (error != std::errc() || end != number.data() + number.size())
    throw UserActionError("The command takes a grid's name and a row number.");
  current().double_click(grid, row);
}

void ScriptRunner::answer(std::string_view argument) {
  auto rest = trimmed(argument);
  if (rest.empty()) throw UserActionError("The answers are ok and cancel.");
  while (!rest.empty()) {
    const auto [answer, others] = first_word(rest);
    if (answer != "ok" && answer != "cancel")
      throw UserActionError("The answers are ok and cancel.");
    display_.queue_answer(answer == "ok" ? Answer::ok : Answer::cancel);
    rest = trimmed(others);
  }
}

void ScriptRunner::save_file(std::string_view argument) {
  if (argument.empty()) throw UserActionError("The command takes a path.");
  display_.queue_file(std::string(argument));
}

void ScriptRunner::switch_to(std::string_view argument) {
  const auto screen = word(argument, "a screen's name");
  if (!app_.windows.find(screen))
    throw UserActionError("The screen " + std::string(screen) + " is not open.");
  app_.windows.open(app_, screen);
}

void ScriptRunner::close(std::string_view) {
  Screen* screen = app_.windows.current();
  if (!screen) throw UserActionError("No screen is open.");
  app_.windows.close(app_, screen->name());
  app_.windows.destroy_closed();
}

void ScriptRunner::show(std::string_view) {
  display_.tell(screen_json(current()));
}

void ScriptRunner::main(std::string_view) {
  display_.tell(main_json(main_window(), app_.windows));
}

void ScriptRunner::sql(std::string_view argument) {
  if (!app_.Con) ConnectDatabase(app_);
  if (!app_.Con) throw UserActionError(app_.connection_failure);
  display_.tell(rows_json(app_.Con->execute(argument)));
}

void ScriptRunner::pdf(std::string_view argument) {
  if (argument.empty()) throw UserActionError("The command takes a path.");
  const ReportWindow* preview = app_.windows.preview();
  if (!preview || !preview->document) throw UserActionError("No preview is open.");
  if (!app_.platform.write_pdf) throw UserActionError("This program writes no PDF.");
  app_.platform.write_pdf(*preview->document, std::string(argument));
}

}  // namespace tela
