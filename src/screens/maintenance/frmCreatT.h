// A window that once made tables. It holds no table definition, and no menu offers it.
#pragma once

#include "shell/screen.h"

namespace tela {

class frmCreatT : public Screen {
 public:
  explicit frmCreatT(AppState& app);
};

}  // namespace tela
