// A walk through the charts that saves a picture of every screen in every type, to be looked at
// when their drawing has changed.
#pragma once

#include <QDir>

#include "display/qt/qt_display.h"

namespace tela {

class ChartTour {
 public:
  /// `display` shows the login of `app`. The pictures go to `folder`, which must be there.
  ChartTour(QtDisplay& display, AppState& app, const QDir& folder);

  /// Logs in and draws the charts of the last month or year in which there are bills. Throws
  /// std::runtime_error where the way ends early.
  void run();

 private:
  void save_types(const std::string& screen, QDate first);

  QtDisplay& display_;
  AppState& app_;
  QDir folder_;
};

}  // namespace tela
