// The search through pages, which are made one by one as it goes.
#include "platform/report/report_search.h"

#include "platform/text/ascii.h"

namespace tela {

bool holds_text(std::string_view text, std::string_view wanted) {
  if (wanted.empty()) return false;
  for (std::size_t at = 0; at + wanted.size() <= text.size(); ++at) {
    if (equal_ignoring_case(text.substr(at, wanted.size()), wanted)) return true;
  }
  return false;
}

std::optional<TextHit> find_next(const ReportDocument& document, std::string_view wanted,
                                 const std::optional<TextHit>& after, int from_page) {
  if (wanted.empty()) return std::nullopt;
  const int pages = document.page_count();
  int number = after ? after->page : from_page;
  std::size_t text = after ? after->text + 1 : 0;
  // One page more than there are: the search ends on the first part of the page where it began.
  for (int visited = 0; visited <= pages; ++visited, text = 0) {
    const ReportPage page = document.page(number);
    for (; text < page.texts.size(); ++text) {
      if (holds_text(page.texts[text].text, wanted)) return TextHit{number, text};
    }
    number = number % pages + 1;
  }
  return std::nullopt;
}

}  // namespace tela
