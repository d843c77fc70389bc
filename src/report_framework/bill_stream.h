// The byte stream to a bill printer, line by line: texts, control bytes and columns to go to.
#pragma once

#include <string>
#include <string_view>

namespace tela {

/// Fills with blanks up to `column` of the line, the first being 1.
struct Tab {
  int column = 1;
};

/// Bytes for the printer itself, written as they are.
struct Control {
  std::string_view bytes;
};

/// Collects what print statements write. A text is UTF-8 and goes out one byte a character: those
/// of ISO 8859-1 as themselves, every other one as '?'. Lines end with CR LF.
class BillStream {
 public:
  /// Writes the items one after another and ends the line.
  template <typename... Items>
  void line(const Items&... items) {
    put(items...);
    end_line();
  }

  /// Writes the items and leaves the line open.
  template <typename... Items>
  void put(const Items&... items) {
    (put_one(items), ...);
  }

  /// Ends `count` lines with nothing on them; none if `count` is below 1.
  void empty_lines(int count);

  const std::string& bytes() const { return bytes_; }

 private:
  void put_one(std::string_view text);
  void put_one(Control control);
  /// Every byte on the line counts as a column, control bytes too. A line that is already past the
  /// column is ended first.
  void put_one(Tab tab);
  void end_line();

  std::string bytes_;
  std::size_t line_start_ = 0;
};

}  // namespace tela
