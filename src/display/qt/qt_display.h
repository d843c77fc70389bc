// The Display port on the desktop: message boxes, windows, pointer, dialogs. It keeps one window
// for each screen that the logic has open, and after each event lets them show what the logic
// holds.
#pragma once

#include <QElapsedTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "display/qt/desktop_settings.h"
#include "display/qt/long_work.h"
#include "display/qt/user_events.h"
#include "shell/app_state.h"
#include "shell/display.h"

class QMdiSubWindow;

namespace tela {

class ChildFrame;
class LoginWindow;
class MainFrame;
class MainWindow;
class OwnerLogin;
class PreviewWindow;
class ScreenView;

/// What the desktop asks of the program around it.
struct DesktopHooks {
  /// Ends the program.
  std::function<void()> exit;
  /// What a user needs to know before the first login; empty once there is a catalogue.
  std::function<std::string()> first_run_hint;
};

class QtDisplay : public Display {
 public:
  QtDisplay(DesktopSettings& settings, DesktopHooks hooks);
  ~QtDisplay() override;

  /// Shows the login of `app`, which is open and which shows itself on this display.
  void start(AppState& app);

  Answer message(const Message& message) override;
  void focus(const Screen& screen, const std::string& control) override;
  void pointer(Pointer shape) override;
  void hint(const std::string& words) override;
  void progress(const std::string& work, int done, int total) override;
  bool keep_going(std::int64_t rows) override;
  bool shows_notes() const override { return true; }
  void opened(Screen& screen) override;
  void front(Screen& screen) override;
  void closed(Screen& screen) override;
  void preview_opened(const ReportWindow& preview) override;
  void preview_closed() override;
  std::optional<std::string> save_file(const SaveRequest& request) override;
  void exit_program() override;

  // The windows, null where there is none.
  LoginWindow* login_window() const { return login_.get(); }
  MainFrame* main_frame() const { return main_.get(); }
  PreviewWindow* preview_window() const { return preview_.get(); }

 private:
  void open_login(OwnerLogin& login);
  void open_main(MainWindow& main);
  void open_child(Screen& screen);
  ScreenView* view_of(const Screen& screen) const;
  /// An event of the user has ended.
  void end_event();
  /// Lets every window show what the logic holds.
  void mirror();
  /// The user has brought a report screen to the front.
  void activated(QMdiSubWindow* window);
  void close_child(const std::string& screen);

  DesktopSettings& settings_;
  DesktopHooks hooks_;
  UserEvents events_;
  AppState* app_ = nullptr;
  std::unique_ptr<LoginWindow> login_;
  std::unique_ptr<MainFrame> main_;
  std::unique_ptr<PreviewWindow> preview_;
  QElapsedTimer last_progress_;
  LongWork work_;
  std::map<std::string, ChildFrame*> children_;  // by the screen's name; the frame's area owns them
};

}  // namespace tela
