// What the console paints, PDFs and pictures of charts: the desktop's painters, without a desktop.
#pragma once

#include "shell/app_state.h"

namespace tela {

/// Gives a platform the painters; none in a build without the desktop's. Their application starts
/// with the first picture, so that a script without one does not wait for it.
void add_painters(Platform& platform);

}  // namespace tela
