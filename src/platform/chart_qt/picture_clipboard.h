// A chart's picture on the real clipboard, and from there in a bitmap file.
#pragma once

#include "platform/chart/chart_pictures.h"

namespace tela {

/// The pictures of the running application, which must be one with widgets. A chart that a window
/// shows is copied as it is there, any other one in a size of its own.
ChartPictures make_chart_pictures();

}  // namespace tela
