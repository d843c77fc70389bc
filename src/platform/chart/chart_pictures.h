// A chart's picture, by way of the clipboard into a file.
#pragma once

#include <functional>
#include <string>

#include "platform/chart/chart.h"

namespace tela {

/// What a screen asks of whatever draws charts. Both are empty where nothing can.
struct ChartPictures {
  /// Copies the chart's picture to the clipboard: as its window shows it now, and where no window
  /// shows it, in a size of the painter's own.
  std::function<void(const Chart& chart)> copy;
  /// Saves the picture that is on the clipboard as a bitmap file, which takes the place of a file
  /// of that name. Throws std::runtime_error, saying why, and then that file is untouched.
  std::function<void(const std::string& path)> save_copied;
};

}  // namespace tela
