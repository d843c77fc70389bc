#include "platform/printer/queue_port.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <system_error>

#include "platform/process/program_run.h"
#include "platform/text/ascii.h"

namespace tela {
namespace {

// A queue on another machine may take its time; one that takes longer is out of order.
constexpr std::chrono::minutes kLimit{2};

// Runs `lp -d QUEUE -o raw` on the bill. Gives the reason of its failure, or "".
std::string run_lp(const std::string& queue, const std::string& bill) {
  const File input = scratch_file(bill);
  ProgramRun lp({{"lp", "-d", queue, "-o", "raw"}, input.get()});
  const auto code = lp.wait(kLimit);
  if (code == 0) return "";
  if (!code) return "lp does not come to an end";
  const std::string words = lp.words();
  return words.empty() ? "lp failed without a word" : words;
}

class QueuePort : public PrinterPort {
 public:
  explicit QueuePort(std::string_view name) : name_(name) {}

  void write(std::string_view bytes) override { bill_ += bytes; }

  void close() override {
    std::string reason;
    try {
      reason = run_lp(name_, bill_);
    } catch (const std::system_error& error) {
      reason = error.what();
    }
    if (!reason.empty()) refuse(reason);
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw PrinterError(PrinterError::Kind::cannot_open,
                       "The print queue \"" + name_ + "\" did not take the bill (" + reason + ").");
  }

  std::string name_;
  std::string bill_;
};

}  // namespace

bool is_queue_name(std::string_view name) {
  const auto belongs = [](char c) {
    return c > ' ' && c < 0x7F && std::string_view("/\\#'\"").find(c) == std::string_view::npos;
  };
  return !name.empty() && name.front() != '-' && std::all_of(name.begin(), name.end(), belongs);
}

std::unique_ptr<PrinterPort> open_queue_port(std::string_view name) {
  return std::make_unique<QueuePort>(name);
}

}  // namespace tela
