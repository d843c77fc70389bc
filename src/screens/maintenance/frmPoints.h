// Sale points: the value of a point and the kinds of sale that earn points.
#pragma once

#include <string>

#include "shell/screen.h"

namespace tela {

class frmPoints : public Screen {
 public:
  /// The boxes as they stand.
  struct Inputs {
    std::string amount;
    std::string cash, credit, home;  ///< "0" or "1"
  };
  /// Throws ValueError if the amount is no number.
  static std::string sql(const Inputs& inputs);

  explicit frmPoints(AppState& app);

 private:
  void load() override;
  void modify();
};

}  // namespace tela
