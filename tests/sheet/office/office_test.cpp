#include "sheet/office/office_test.h"

#include <signal.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

#include "platform/sheet/empty_workbook.h"

namespace tela::testing {

namespace fs = std::filesystem;

namespace {

// What the reader prints, and its exit code.
std::pair<std::string, int> run_reader(const std::string& pipe, const std::string& workbook) {
  const fs::path folder = office_folder("soffice");
  const std::string command = "LD_LIBRARY_PATH=" + folder.string() + " URE_MORE_TYPES=file://" +
                              (folder / "types/offapi.rdb").string() + " " TELA_SHEET_READER " " +
                              pipe + " " + workbook;
  std::string text;
  std::FILE* const reader = popen(command.c_str(), "r");
  for (int c = std::fgetc(reader); c != EOF; c = std::fgetc(reader)) text += static_cast<char>(c);
  return {text, WEXITSTATUS(pclose(reader))};
}

}  // namespace

OfficeTest::OfficeTest() : pipe_(folder_.path().filename().string()) {
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
}

OfficeTest::~OfficeTest() {
  signal_office(SIGKILL);
  all_gone();  // they write into the folder until then
}

OfficeSettings OfficeTest::settings() const {
  return {.link = TELA_OFFICE_PROGRAM,
          .options = {"-env:UserInstallation=file://" + (folder_ / "profile").string()},
          .pipe = pipe_};
}

std::string OfficeTest::put_workbook(const std::string& name) const {
  static const std::string bytes = empty_workbook("soffice");
  std::string workbook = "D:\\Tela_Supermarket\\" + name + ".xls";
  const fs::path file = file_of(workbook);
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
  return workbook;
}

std::string OfficeTest::read_back(const std::string& workbook) const {
  return run_reader(pipe_, file_of(workbook).filename().string()).first;
}

void OfficeTest::wait_for_office(const std::string& pipe) const {
  constexpr int nobody_listens = 3;
  while (run_reader(pipe, "no-workbook").second == nobody_listens) continue;
}

std::vector<pid_t> OfficeTest::running(const std::string& word) const {
  std::vector<pid_t> found;
  for (const auto& entry : fs::directory_iterator("/proc")) {
    const pid_t id = std::atoi(entry.path().filename().c_str());
    if (id == 0) continue;
    const std::string line = file_text(entry.path() / "cmdline");
    if (line.find(folder_.path()) != std::string::npos && line.find(word) != std::string::npos)
      found.push_back(id);
  }
  return found;
}

bool OfficeTest::all_gone(const std::string& word) const {
  for (int tries = 0; tries < 500 && !running(word).empty(); ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return running(word).empty();
}

void OfficeTest::signal_office(int signal) const {
  for (const pid_t id : running()) kill(id, signal);
}

std::string file_text(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace tela::testing
