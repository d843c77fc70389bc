#include "report_framework/bill_stream.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace tela {

void BillStream::empty_lines(int count) {
  for (; count > 0; --count) end_line();
}

void BillStream::put_one(std::string_view text) {
  bytes_ += to_latin1(text);
}

void BillStream::put_one(Control control) {
  bytes_ += control.bytes;
}

void BillStream::put_one(Tab tab) {
  const auto wanted = static_cast<std::size_t>(std::max(tab.column, 1)) - 1;
  if (bytes_.size() - line_start_ > wanted) end_line();
  bytes_.resize(line_start_ + wanted, ' ');
}

void BillStream::end_line() {
  bytes_ += "\r\n";
  line_start_ = bytes_.size();
}

}  // namespace tela
