// A LibreOffice of a test's own: unseen, with settings in a folder of its own, and gone with it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/sheet/office_sheets.h"
#include "support/temporary_folder.h"

namespace tela::testing {

class OfficeTest : public ::testing::Test {
 protected:
  OfficeTest();
  ~OfficeTest() override;

  /// What the program would use here, but for the test's own office.
  OfficeSettings settings() const;
  std::unique_ptr<SheetPort> sheets() const { return make_office_sheets(paths_, settings()); }

  /// Puts an empty workbook in place, and gives its path on the shop's machine.
  std::string put_workbook(const std::string& name) const;
  std::filesystem::path file_of(const std::string& workbook) const {
    return paths_.resolve(workbook);
  }

  /// All sheets of an open workbook, read through LibreOffice; the way it is printed stands in
  /// reader/main.cpp.
  std::string read_back(const std::string& workbook) const;
  /// Waits until an office listens on the pipe of that name.
  void wait_for_office(const std::string& pipe) const;

  /// The running programs whose command line has `word` and that belong to this test.
  std::vector<pid_t> running(const std::string& word = {}) const;
  /// Whether none of them runs any longer. One that was killed may need a moment to go.
  bool all_gone(const std::string& word = {}) const;
  void signal_office(int signal) const;

  TemporaryFolder folder_;
  Paths paths_{folder_.path()};
  std::string pipe_;
};

std::string file_text(const std::filesystem::path& file);

/// The words of the SheetError that `step` throws; "" if it throws none.
template <class Step>
std::string error_of(Step&& step) {
  try {
    step();
  } catch (const SheetError& error) {
    return error.what();
  }
  return {};
}

}  // namespace tela::testing
