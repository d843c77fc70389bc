// A shop for a test: an embedded catalogue in a folder of its own, and the whole program on it,
// driven by scripts as the console drives it.
#pragma once

#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/scripted/script_runner.h"
#include "platform/paths/paths.h"
#include "shell/app_state.h"
#include "shell/windows.h"
#include "support/temporary_folder.h"

namespace tela::testing {

/// The names of the tables whose rows differ.
std::vector<std::string> changed_tables(const std::map<std::string, std::string>& before,
                                        const std::map<std::string, std::string>& after);

/// Creates the embedded catalogue of a platform root from the project's own schema, with its
/// start-up rows and nothing else.
void create_catalogue(const Paths& paths);

/// A bill's header and lines as a test states them; what it leaves out is 0 or empty.
struct Line {
  int code = 0;
  std::string name;
  double mrp = 0, sale_rate = 0, pur_rate = 0, qty = 0;
};
struct Bill {
  int number = 0;
  std::string date = "2024-01-05";
  std::string time = "10:00:00";
  int counter = 1;
  std::string staff = "ANU";
  std::string type = "CASH/CREDIT";
  double net = 0, discount = 0, total = 0, cash = 0, card = 0, meals = 0, mobile = 0, points = 0;
  std::vector<Line> lines = {};
};

class Shop {
 public:
  /// In a folder of its own.
  Shop();
  /// On a platform root whose catalogue stands, and stays.
  explicit Shop(const std::filesystem::path& root);

  /// Runs a script and returns what it printed, one JSON object a line.
  std::vector<std::string> run(const std::string& script);
  /// Runs a script, then `show`, and returns that state.
  Json show(const std::string& script = {});
  /// Runs one statement and returns its rows, as `sql` prints them.
  Json sql(const std::string& statement);

  /// The names of the tables that the tills share.
  static std::vector<std::string> stored_tables();
  /// The rows of each of them, by its name.
  std::map<std::string, std::string> stored();

  void add(const Bill& bill);
  void add_item(int code, const std::string& name, const std::string& category,
                const std::string& supplier, double stock = 0, double pur_rate = 0);

  AppState& state() { return *state_; }
  /// What stands in for the outside world; a test may put a part of its own in.
  Platform& platform() { return platform_; }
  const Paths& paths() const { return paths_; }
  /// What has been written to the printer port of that name.
  const std::string& printed(const std::string& port) { return printed_bytes_[port]; }

  /// Puts an empty workbook in place ("SGST").
  void add_workbook(const std::string& name);
  /// The n-th sheet that was added to a workbook, as CSV; empty if there is none.
  std::string sheet(const std::string& workbook, int n = 1) const;

 private:
  void open();

  std::optional<TemporaryFolder> folder_;
  Paths paths_;
  Platform platform_;
  std::vector<std::string> printed_;
  std::map<std::string, std::string> printed_bytes_;
  ScriptedDisplay display_;
  std::unique_ptr<Windows> windows_;
  std::unique_ptr<AppState> state_;
};

}  // namespace tela::testing
