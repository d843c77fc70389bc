// Every screen of the registry is made and worked through on an empty and on a full catalogue.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "screens/registry.h"
#include "shell/main_menu.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

void add_trade(Shop& shop) {
  shop.add_item(1, "Rice", "GRAINS", "Amma's Kitchen", -2, 30);
  shop.add_item(2, "Soap 'Lily'", "SOAPS", "Farmer's Gold", 10, 8);
  for (int day = 1; day <= 5; ++day)
    shop.add({.number = day,
              .date = "2024-01-0" + std::to_string(day),
              .counter = day % 3 + 1,
              .net = 100,
              .total = 100,
              .card = 40,
              .lines = {{1, "Rice", 50, 45, 30, 2.125}, {2, "Soap 'Lily'", 12, 10, 8, -1}}});
}

// Fills the inputs with what a user would: the period, the first entry of each list, a number.
std::string fill_inputs(const Screen& screen) {
  std::string script;
  for (const Control& control : screen.form().controls()) {
    if (control.kind == ControlKind::date)
      script += "set " + control.name + (control.name.ends_with('1') ? " 01" : " 05") +
                std::string("/01/2024\n");
    if (control.kind == ControlKind::combo && !control.items.empty())
      script += "pick " + control.name + " " + control.items.back() + "\n";
    if (control.kind == ControlKind::text && control.numeric_only && !control.locked)
      script += "type " + control.name + " 1\n";
  }
  return script;
}

std::vector<std::string> buttons(const Screen& screen) {
  std::vector<std::string> names;
  for (const Control& control : screen.form().controls())
    if (control.kind == ControlKind::button || control.kind == ControlKind::picture_button)
      names.push_back(control.name);
  return names;
}

void expect_no_failure(const std::vector<std::string>& lines, const std::string& where) {
  for (const std::string& line : lines) {
    EXPECT_THAT(line, Not(HasSubstr("could not be completed"))) << where;
    EXPECT_THAT(line, Not(HasSubstr("\"error\""))) << where;
  }
}

// Every button and every key of every field, once without input and once filled in. A button may
// close or replace the screen, so the screen is opened anew before each.
void work_through(Shop& shop, const std::string& name) {
  shop.state().SaleBillNo = 2;
  shop.run("open " + name);
  const Screen* screen = shop.state().windows.find(name);
  ASSERT_TRUE(screen) << name;
  const std::string anew = "open " + name + "\nclose\nopen " + name;
  for (const std::string& button : buttons(*screen)) {
    expect_no_failure(shop.run(anew + "\nanswer ok\npress " + button), name + button);
    shop.run(anew);
    const std::string inputs = fill_inputs(*shop.state().windows.find(name));
    expect_no_failure(shop.run(inputs + "answer ok ok\npress " + button), name + "." + button);
  }
  shop.run("open " + name);
  for (const Control& control : shop.state().windows.find(name)->form().controls()) {
    if (!control.visible || !control.enabled) continue;
    if (control.grid)
      for (int row = 0; row < control.grid->Rows(); ++row)
        expect_no_failure(shop.run("switch " + name + "\ndoubleclick " + control.name + " " +
                                   std::to_string(row)),
                          name);
    else
      expect_no_failure(shop.run("switch " + name + "\nkey " + control.name + " enter\nkey " +
                                 control.name + " up\nleave " + control.name),
                        name);
  }
  shop.run("switch " + name + "\nclose");
}

using Case = std::tuple<ScreenEntry, bool, const char*>;  // a screen, a full catalogue, a password

class EveryScreen : public ::testing::TestWithParam<Case> {};

TEST_P(EveryScreen, WorksWhateverIsPressed) {
  const auto& [entry, full, password] = GetParam();
  Shop shop;
  if (full) add_trade(shop);
  shop.run(std::string("login KESTR ") + password);
  work_through(shop, std::string(entry.name));
}

std::string case_name(const ::testing::TestParamInfo<Case>& info) {
  const auto& [entry, full, password] = info.param;
  return std::string(entry.name) + (full ? "_full_" : "_empty_") + password;
}

INSTANTIATE_TEST_SUITE_P(Registry, EveryScreen,
                         ::testing::Combine(::testing::ValuesIn(all_screens()), ::testing::Bool(),
                                            ::testing::Values("KESTR", "KESTR472")),
                         case_name);

TEST(Registry, NamesEachScreenAsItNamesItself) {
  Shop shop;
  for (const ScreenEntry& entry : all_screens())
    EXPECT_EQ(entry.make(shop.state())->name(), entry.name);
}

TEST(Registry, TheMenuKnowsEveryScreenThatAPanelOpens) {
  std::vector<std::string> from_menus;
  for (const Menu& menu : main_menus())
    for (const MenuEntry& entry : menu.entries) from_menus.push_back(entry.opens);
  for (const Panel& panel : main_panels())
    for (const MenuEntry& button : panel.buttons)
      EXPECT_THAT(from_menus, ::testing::Contains(button.opens)) << button.name;
}

}  // namespace
}  // namespace tela::testing
