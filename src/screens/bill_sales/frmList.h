// A small window with a list of all bills. No menu offers it.
#pragma once

#include "shell/screen.h"

namespace tela {

class frmList : public Screen {
 public:
  explicit frmList(AppState& app);

 private:
  void list_bills();
};

}  // namespace tela
