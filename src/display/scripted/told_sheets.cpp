#include "display/scripted/told_sheets.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <utility>

namespace tela {

namespace {

class ToldSheets : public SheetPort {
 public:
  ToldSheets(std::unique_ptr<SheetPort> sheets, ScriptedDisplay& display)
      : sheets_(std::move(sheets)), display_(display) {}

  void add_sheet(const std::string& workbook, const SheetBlock& block) override {
    logged([&] { sheets_->add_sheet(workbook, block); });
    const UsedArea area = used_area(block);
    display_.tell(
        {{"sheet",
          {{"workbook", workbook_name(workbook)}, {"rows", area.rows}, {"cols", area.cols}}}});
  }

  void show(const std::string& workbook) override {
    logged([&] { sheets_->show(workbook); });
  }

 private:
  template <class Step>
  static void logged(Step&& step) {
    try {
      step();
    } catch (const SheetError& error) {
      std::clog << error.what() << std::endl;
      throw;
    }
  }

  std::unique_ptr<SheetPort> sheets_;
  ScriptedDisplay& display_;
};

}  // namespace

std::unique_ptr<SheetPort> tell_sheets(std::unique_ptr<SheetPort> sheets,
                                       ScriptedDisplay& display) {
  return std::make_unique<ToldSheets>(std::move(sheets), display);
}

}  // namespace tela
