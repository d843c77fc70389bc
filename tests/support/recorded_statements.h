// The statements that screens run, as they run them: for tests that compare them and for benches
// that time them, so that neither holds copies of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/shop.h"

namespace tela::testing {

/// A statement and what it gave, as statement_script.h writes rows.
struct RecordedStatement {
  std::string sql;
  std::vector<std::string> rows;
  std::string error;  ///< empty if it did not fail
};

/// A shop with the rows of tests/embedded/rows.txt, whose statements are noted.
class RecordedShop {
 public:
  RecordedShop();

  /// Runs console commands (each prints no error, or this throws) and returns the statements that
  /// they made the program run, in order.
  std::vector<RecordedStatement> run(const std::string& script);
  /// Runs a statement of no screen, which is not noted. Its failure is passed over.
  void execute(std::string_view sql);

 private:
  std::vector<RecordedStatement> recorded_;
  Shop shop_;
};

/// The first statement beginning with `start` that these console commands make the program run.
/// Throws if there is none.
std::string screen_statement(const std::string& script, std::string_view start);

}  // namespace tela::testing
