#include "display/scripted/told_port.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace tela {

namespace {

class ToldPort : public PrinterPort {
 public:
  ToldPort(std::unique_ptr<PrinterPort> port, std::string name, ScriptedDisplay& display)
      : port_(std::move(port)), name_(std::move(name)), display_(display) {}

  void write(std::string_view bytes) override {
    port_->write(bytes);
    bytes_ += bytes.size();
  }

  void close() override {
    port_->close();
    display_.tell({{"printed", {{"port", name_}, {"bytes", bytes_}}}});
  }

 private:
  std::unique_ptr<PrinterPort> port_;
  std::string name_;
  ScriptedDisplay& display_;
  std::size_t bytes_ = 0;
};

}  // namespace

PrinterPortOpener tell_printed(PrinterPortOpener open, ScriptedDisplay& display) {
  return [open = std::move(open), &display](std::string_view name) -> std::unique_ptr<PrinterPort> {
    return std::make_unique<ToldPort>(open(name), std::string(name), display);
  };
}

}  // namespace tela
