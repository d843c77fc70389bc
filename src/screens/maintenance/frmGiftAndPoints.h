// Customer gifts: the gifts with the points that each costs. The mode of the window is the state of
// its buttons: a disabled ADD NEW means adding, a disabled EDIT means editing.
#pragma once

#include <string>

#include "report_framework/report_grid.h"
#include "shell/screen.h"

namespace tela {

class frmGiftAndPoints : public Screen {
 public:
  /// The boxes as they stand.
  struct Gift {
    std::string code, name, points;
  };
  // They throw ValueError if the code or the points are no number.
  static std::string insert_sql(const Gift& gift);
  static std::string update_sql(const Gift& gift);

  explicit frmGiftAndPoints(AppState& app);

 private:
  void load() override;
  void fill_grid();
  void clear_all();
  Gift gift() const;

  void show_gift();
  void start_adding();
  void start_editing();
  void save();
  /// False if the code is taken.
  bool insert();
  void update();
  void end_mode(const std::string& button);
  void remove();

  ReportGrid grid_;
};

}  // namespace tela
