// The Display without a window: it answers from a queue and tells each thing that happens as one
// JSON object. The console and the tests share it.
#pragma once

#include <deque>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "shell/display.h"

namespace tela {

/// JSON objects keep the order in which their members were written.
using Json = nlohmann::ordered_json;

class ScriptedDisplay : public Display {
 public:
  using Sink = std::function<void(const Json&)>;

  /// `sink` gets every event as it happens.
  explicit ScriptedDisplay(Sink sink) : sink_(std::move(sink)) {}

  /// Queues the answer to a coming question. A question that finds none queued gets Cancel.
  void queue_answer(Answer answer) { answers_.push_back(answer); }
  /// Queues the result of a coming file dialog. A dialog that finds none queued is cancelled.
  void queue_file(std::string path) { files_.push_back(std::move(path)); }

  bool exited() const { return exited_; }
  void tell(const Json& event) { sink_(event); }

  Answer message(const Message& message) override;
  void focus(const Screen& screen, const std::string& control) override;
  void pointer(Pointer shape) override;
  void hint(const std::string&) override {}
  void progress(const std::string&, int, int) override {}
  void opened(Screen& screen) override;
  void front(Screen& screen) override;
  void closed(Screen& screen) override;
  void preview_opened(const ReportWindow& preview) override;
  void preview_closed() override {}
  std::optional<std::string> save_file(const SaveRequest& request) override;
  void exit_program() override;

 private:
  Sink sink_;
  std::deque<Answer> answers_;
  std::deque<std::string> files_;
  bool exited_ = false;
};

}  // namespace tela
