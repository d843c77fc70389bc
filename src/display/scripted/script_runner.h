// The console's language: commands, one a line, that drive the program as a user does.
#pragma once

#include <istream>
#include <map>
#include <string>
#include <string_view>

#include "display/scripted/scripted_display.h"
#include "shell/app_state.h"

namespace tela {

class MainWindow;

class ScriptRunner {
 public:
  /// Drives the program of `app`, whose display must be `display` and whose login must be open.
  ScriptRunner(AppState& app, ScriptedDisplay& display);

  /// Runs a script to its end or to the program's end. A failed command prints its error, which
  /// names the line, and the script goes on. True if every command ran.
  bool run(std::istream& script);

  /// Runs one command line; an empty line and a comment do nothing. Throws UserActionError or
  /// DatabaseError when the command fails.
  void command(std::string_view line);

 private:
  using Command = void (ScriptRunner::*)(std::string_view argument);

  static const std::map<std::string, Command, std::less<>>& commands();

  void login(std::string_view argument);
  void open(std::string_view argument);
  void menu(std::string_view argument);
  void toolbar(std::string_view argument);
  void panel(std::string_view argument);
  void set(std::string_view argument);
  void type(std::string_view argument);
  void pick(std::string_view argument);
  void press(std::string_view argument);
  void key(std::string_view argument);
  void leave(std::string_view argument);
  void double_click(std::string_view argument);
  void answer(std::string_view argument);
  void save_file(std::string_view argument);
  void switch_to(std::string_view argument);
  void close(std::string_view argument);
  void show(std::string_view argument);
  void main(std::string_view argument);
  void sql(std::string_view argument);
  void pdf(std::string_view argument);

  Screen& current();
  MainWindow& main_window();
  void log_in_fully();

  AppState& app_;
  ScriptedDisplay& display_;
};

}  // namespace tela
