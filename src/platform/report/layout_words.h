// The words of a layout file: a line is words and quoted texts, and a quoted text may hold places
// in braces that the report fills in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/report/layout.h"

namespace tela {

struct LayoutWord {
  std::string text;
  bool quoted = false;
};

/// The words of one line. A '#' outside quotes starts a comment; within quotes two quotes stand for
/// one. Throws std::invalid_argument for a quote that is not closed.
std::vector<LayoutWord> layout_words(std::string_view line);

/// Reads the places of a quoted text: {COLUMN}, {COLUMN:MASK}, {FORMULA}, {page}, {pages},
/// {records}, {sum COLUMN:MASK}, {percent COLUMN COLUMN:MASK}. A name that is none of `formulas`
/// and no word of this list is a column. Throws std::invalid_argument.
TextTemplate read_template(std::string_view text, const std::vector<std::string>& formulas);

}  // namespace tela
