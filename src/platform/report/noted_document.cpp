#include "platform/report/noted_document.h"

#include <string_view>
#include <utility>

namespace tela {
namespace {

// The lower margin of a report is 10 mm; the note stands in it, above the last 3 mm, which few
// printers reach.
constexpr double kSide = 12;
constexpr double kLineHeight = 3.2;
constexpr double kFoot = 3;
constexpr double kPoints = 7;
constexpr double kCharactersPerMillimetre = 0.8;  // of that size, at the widest

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  while (text.size() > width) {
    const std::size_t blank = text.rfind(' ', width);
    const std::size_t end = blank == std::string_view::npos || blank == 0 ? width : blank;
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + (end == blank ? 1 : 0));
  }
  lines.emplace_back(text);
  return lines;
}

}  // namespace

NotedDocument::NotedDocument(std::shared_ptr<const ReportDocument> report, const std::string& note)
    : report_(std::move(report)) {
  const double width = report_->paper().width - 2 * kSide;
  lines_ = wrapped(note, static_cast<std::size_t>(width * kCharactersPerMillimetre));
}

ReportPage NotedDocument::page(int number) const {
  ReportPage page = report_->page(number);
  const PaperSize paper = report_->paper();
  double y = paper.height - kFoot - kLineHeight * static_cast<double>(lines_.size());
  for (const std::string& line : lines_) {
    page.texts.push_back({{kSide, y, paper.width - 2 * kSide, kLineHeight},
                          line,
                          TextAlign::left,
                          {kPoints, true, false}});
    y += kLineHeight;
  }
  return page;
}

}  // namespace tela
