#include "display/scripted/scripted_display.h"

#include <nlohmann/json.hpp>

#include "shell/report_window.h"
#include "shell/screen.h"

namespace tela {

namespace {

std::string icon_name(Icon icon) {
  switch (icon) {
    case Icon::critical:
      return "critical";
    case Icon::information:
      return "information";
    case Icon::none:
      break;
  }
  return "none";
}

}  // namespace

Answer ScriptedDisplay::message(const Message& message) {
  Answer answer = Answer::ok;
  if (message.buttons == Buttons::ok_cancel) {
    answer = answers_.empty() ? Answer::cancel : answers_.front();
    if (!answers_.empty()) answers_.pop_front();
  }
  sink_({{"message",
          {{"text", message.text},
           {"icon", icon_name(message.icon)},
           {"buttons", message.buttons == Buttons::ok ? "ok" : "okcancel"},
           {"title", message.title},
           {"answer", answer == Answer::ok ? "ok" : "cancel"}}}});
  return answer;
}

void ScriptedDisplay::focus(const Screen&, const std::string& control) {
  sink_({{"focus", control}});
}

void ScriptedDisplay::pointer(Pointer shape) {
  sink_({{"pointer", shape == Pointer::busy ? "busy" : "normal"}});
}

void ScriptedDisplay::opened(Screen& screen) {
  sink_({{"opened", screen.name()}});
}
void ScriptedDisplay::front(Screen& screen) {
  sink_({{"front", screen.name()}});
}
void ScriptedDisplay::closed(Screen& screen) {
  sink_({{"closed", screen.name()}});
}

void ScriptedDisplay::preview_opened(const ReportWindow& preview) {
  const ReportDocument* document = preview.document.get();
  sink_({{"preview",
          {{"report", preview.report_file},
           {"query", preview.query},
           {"rows", document ? document->record_count() : 0},
           {"pages", document ? document->page_count() : 0}}}});
}

std::optional<std::string> ScriptedDisplay::save_file(const SaveRequest&) {
  if (files_.empty()) return std::nullopt;
  std::string path = std::move(files_.front());
  files_.pop_front();
  return path;
}

void ScriptedDisplay::exit_program() {
  exited_ = true;
  sink_({{"exit", true}});
}

}  // namespace tela
