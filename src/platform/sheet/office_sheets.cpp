#include "platform/sheet/office_sheets.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/process/program_run.h"
#include "platform/sheet/office_exit.h"
#include "platform/sheet/sheet_csv.h"
#include "platform/sheet/workbook_file.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

// The part of the office that draws windows is a package of its own.
bool draws_windows(const fs::path& folder) {
  std::error_code error;
  return std::any_of(fs::directory_iterator(folder, error), fs::directory_iterator(),
                     [](const fs::directory_entry& entry) {
                       return entry.path().filename().string().starts_with("libvclplug_");
                     });
}

// Ahead of each step: what the steps share until the deadline.
struct Step {
  fs::path folder;
  fs::path workbook;
  Clock::time_point deadline;

  std::chrono::milliseconds left() const {
    return std::max(std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()),
                    std::chrono::milliseconds(0));
  }
};

class OfficeSheets : public SheetPort {
 public:
  OfficeSheets(const Paths& paths, OfficeSettings settings)
      : paths_(paths), settings_(std::move(settings)) {}

  ~OfficeSheets() override {
    if (office_) office_->release();
  }

  void add_sheet(const std::string& workbook, const SheetBlock& block) override {
    in_words([&] { add(begin(workbook), sheet_csv(block)); });
  }

  void show(const std::string& workbook) override {
    in_words([&] {
      const Step step = begin(workbook);
      if (!draws_windows(step.folder)) return;
      if (!talk(step, "show", {})) throw SheetError("LibreOffice has been closed.");
    });
  }

 private:
  template <class Work>
  static void in_words(Work&& work) {
    try {
      work();
    } catch (const std::system_error& error) {
      throw SheetError(error.what());
    }
  }

  Step begin(const std::string& workbook) {
    const auto deadline = Clock::now() + settings_.limit;
    if (office_ && office_->exit_code()) office_.reset();
    fs::path file = require_workbook(paths_, workbook);
    if (settings_.link.empty()) throw SheetError("This program was built without LibreOffice.");
    return {office_folder(settings_.office), std::move(file), deadline};
  }

  void add(const Step& step, const std::string& cells) {
    if (talk(step, "add", cells)) return;
    ProgramRun office = start(step.folder);
    while (!talk(step, "add", cells)) {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      // An office that runs already takes the request over, and the one that was started ends well.
      if (office.exit_code().value_or(0) != 0)
        throw SheetError("LibreOffice does not start. " + office.words());
    }
    if (office_)
      office.release();
    else
      office_.emplace(std::move(office));
  }

  ProgramRun start(const fs::path& folder) const {
    std::vector<std::string> words = {(folder / "soffice").string(), "--norestore", "--nodefault",
                                      "--nologo", "--accept=pipe,name=" + settings_.pipe + ";urp"};
    if (environment("DISPLAY").empty() && environment("WAYLAND_DISPLAY").empty())
      words.push_back("--headless");
    words.insert(words.end(), settings_.options.begin(), settings_.options.end());
    return ProgramRun({std::move(words)});
  }

  // One step by the program that speaks to the office. False if no office listens.
  bool talk(const Step& step, const std::string& command, const std::string& cells) const {
    const File input = scratch_file(cells);
    ProgramRun link({{settings_.link.string(), settings_.pipe, command, step.workbook.string()},
                     input.get(),
                     {"LD_LIBRARY_PATH=" + step.folder.string(),
                      "URE_MORE_TYPES=file://" + (step.folder / "types/offapi.rdb").string()}});
    const auto code = link.wait(step.left());
    if (code == kOfficeDone || code == kOfficeNotListening) {
      if (code == kOfficeNotListening && step.left().count() == 0) too_late();
      return code == kOfficeDone;
    }
    if (!code) too_late();
    const std::string words = link.words();
    throw SheetError(words.empty() ? "The connection to LibreOffice failed." : words);
  }

  [[noreturn]] void too_late() const {
    throw SheetError("LibreOffice did not answer within " +
                     std::to_string(settings_.limit.count()) + " seconds.");
  }

  Paths paths_;
  OfficeSettings settings_;
  std::optional<ProgramRun> office_;  // the one that was started, if any
};

}  // namespace

fs::path office_folder(const std::string& office) {
  const bool is_path = office.find('/') != std::string::npos;
  const fs::path program = is_path ? fs::path(office) : find_program(office);
  std::error_code error;
  fs::path folder = fs::canonical(program, error).parent_path();
  if (program.empty() || error) throw SheetError("LibreOffice is not installed.");
  if (!fs::exists(folder / "types" / "offapi.rdb"))
    throw SheetError(program.string() + " is no LibreOffice that another program can drive.");
  return folder;
}

std::unique_ptr<SheetPort> make_office_sheets(const Paths& paths, OfficeSettings settings) {
  return std::make_unique<OfficeSheets>(paths, std::move(settings));
}

}  // namespace tela
