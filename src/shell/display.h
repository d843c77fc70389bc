// The Display port: the whole of what the logic asks of a window. A desktop shows it; a script
// answers and records it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tela {

class Screen;
struct ReportWindow;

enum class Icon { none, critical, information };
enum class Buttons { ok, ok_cancel };
enum class Answer { ok, cancel };
enum class Pointer { normal, busy };

struct Message {
  std::string text;
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
  std::string title;
  std::string reason = {};  ///< why it came to this, in small print; a script tells the text alone
};

/// What a dialog for a file to save to is asked for.
struct SaveRequest {
  std::string filter;             ///< "Pictures (*.bmp)|*.bmp": words, a bar, the pattern
  std::string default_extension;  ///< without the point; added to a name that has none
};

class Display {
 public:
  virtual ~Display() = default;

  /// Shows a message box and waits for its answer; a box with OK alone answers OK.
  virtual Answer message(const Message& message) = 0;
  /// Moves the focus to a control of a screen.
  virtual void focus(const Screen& screen, const std::string& control) = 0;
  virtual void pointer(Pointer shape) = 0;
  /// A remark beside the work, such as why a double click opened nothing new. It waits for no
  /// answer, and a script does not tell it.
  virtual void hint(const std::string& text) = 0;
  /// How far a long run of statements has come. It waits for nothing, and a script does not tell
  /// it.
  virtual void progress(const std::string& work, int done, int total) = 0;

  /// Asked while a statement runs, many times a second, with the rows that it has given so far;
  /// false cancels the action. A script never does.
  virtual bool keep_going(std::int64_t /*rows*/) { return true; }
  /// Whether the notes of a list are shown (`Grid::Note`). A script does not tell them, and nothing
  /// is read for them then.
  virtual bool shows_notes() const { return false; }

  /// A screen has been opened, brought to the front, or closed. `closed` comes while the screen
  /// still exists, for the last time.
  virtual void opened(Screen& screen) = 0;
  virtual void front(Screen& screen) = 0;
  virtual void closed(Screen& screen) = 0;

  /// The preview window has been shown, perhaps empty; or it has been closed by the program.
  virtual void preview_opened(const ReportWindow& preview) = 0;
  virtual void preview_closed() = 0;

  /// Asks for a file to save to; nothing if the user cancels.
  virtual std::optional<std::string> save_file(const SaveRequest& request) = 0;
  /// The program ends, at once and without a question.
  virtual void exit_program() = 0;
};

}  // namespace tela
