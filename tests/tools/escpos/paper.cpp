#include "tools/escpos/paper.h"

#include <stdexcept>
#include <string>

namespace tela {
namespace {

constexpr unsigned char kEmphasised = 8;
constexpr unsigned char kDoubleHeight = 16;
constexpr unsigned char kDoubleWidth = 32;

class Printer {
 public:
  Printer(std::string_view bytes, int columns) : bytes_(bytes), columns_(columns) {}

  std::vector<PrintedLine> run() {
    while (at_ < bytes_.size()) step(take());
    if (lines_.back().characters.empty()) lines_.pop_back();
    return std::move(lines_);
  }

 private:
  void step(unsigned char byte) {
    switch (byte) {
      case 0:     // ignored, as on the printer
      case '\r':  // the line feed behind it ends the line
        return;
      case '\n':
        return end_line();
      case 14:  // SO
        wide_line_ = true;
        return;
      case 18:  // DC2
        wide_line_ = false;
        return;
      case 27:
        expect('!');
        mode_ = take();
        return;
      case 29:
        expect('V');
        expect(48);
        lines_.back().cut_here = true;
        return;
      default:
        return print(byte);
    }
  }

  void print(unsigned char byte) {
    if (byte < ' ') fail();
    const int width = wide_line_ || (mode_ & kDoubleWidth) ? 2 : 1;
    if (column_ + width > columns_) end_line();
    lines_.back().characters.push_back({.character = static_cast<char>(byte),
                                        .column = column_,
                                        .width = width,
                                        .height = mode_ & kDoubleHeight ? 2 : 1,
                                        .emphasised = (mode_ & kEmphasised) != 0});
    column_ += width;
  }

  void end_line() {
    lines_.emplace_back();
    column_ = 0;
    wide_line_ = false;
  }

  unsigned char take() {
    if (at_ >= bytes_.size()) fail();
    return static_cast<unsigned char>(bytes_[at_++]);
  }

  void expect(unsigned char byte) {
    if (take() != byte) fail();
  }

  [[noreturn]] void fail() const {
    throw std::runtime_error("No layout writes the command at byte " + std::to_string(at_) + ".");
  }

  std::string_view bytes_;
  int columns_;
  std::size_t at_ = 0;
  std::vector<PrintedLine> lines_ = std::vector<PrintedLine>(1);
  int column_ = 0;
  unsigned char mode_ = 0;
  bool wide_line_ = false;
};

}  // namespace

std::vector<PrintedLine> read_escpos(std::string_view bytes, int columns) {
  return Printer(bytes, columns).run();
}

}  // namespace tela
