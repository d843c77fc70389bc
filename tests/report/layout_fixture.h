// Layouts written in a test, and the texts of their pages.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/report/banded_document.h"
#include "platform/report/layout_reader.h"

namespace tela {

/// Reads "test.rpt" from a test's own files.
inline Layout layout_from(const std::map<std::string, std::string>& files) {
  return read_layout("test.rpt", [&](const std::string& file) -> std::optional<std::string> {
    const auto found = files.find(file);
    return found == files.end() ? std::nullopt : std::optional(found->second);
  });
}

inline BandedDocument document_from(const std::string& layout_text, RowSet rows,
                                    std::map<std::string, std::string> formulas = {}) {
  Layout layout = layout_from({{"test.rpt", layout_text}});
  ReportData data(layout, std::move(rows), std::move(formulas));
  return {std::move(layout), std::move(data)};
}

inline std::vector<std::string> texts_of(const ReportDocument& document, int page) {
  std::vector<std::string> texts;
  for (const PageText& text : document.page(page).texts) texts.push_back(text.text);
  return texts;
}

}  // namespace tela
