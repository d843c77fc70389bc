// A walk through the program that saves a picture of each window: the user guide's pictures, and a
// look at the desktop where there is no screen.
#pragma once

#include <QDir>

#include "display/qt/qt_display.h"

namespace tela {

class PictureTour {
 public:
  /// `display` shows the login of `app`. The pictures go to `folder`, which must be there.
  PictureTour(QtDisplay& display, AppState& app, const QDir& folder);

  /// Logs in, lists the bills of the last day on which there are any, opens the last one of them,
  /// two charts and the preview, and then each screen of the program over the last month. Throws
  /// std::runtime_error where the way ends early.
  void run();

 private:
  void log_in();
  void list_last_day();
  void open_last_bill();
  void charts();
  void preview();
  void every_screen();
  void fill_inputs(Screen& screen);

  QtDisplay& display_;
  AppState& app_;
  QDir folder_;
};

}  // namespace tela
