// Finding a text in the pages of a report.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/report/report_engine.h"

namespace tela {

/// A text of a page that holds what was looked for.
struct TextHit {
  int page = 1;
  std::size_t text = 0;  ///< its place in ReportPage::texts
  bool operator==(const TextHit&) const = default;
};

/// Whether `text` holds `wanted`, the case of letters (A to Z) aside. Nothing holds an empty text.
bool holds_text(std::string_view text, std::string_view wanted);

/// The next hit behind `after`, or the first at or behind the start of page `from_page` where there
/// is no hit yet; from the last page the search goes on at the first. Nothing if no page has one.
std::optional<TextHit> find_next(const ReportDocument& document, std::string_view wanted,
                                 const std::optional<TextHit>& after, int from_page);

}  // namespace tela
