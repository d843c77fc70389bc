// Walks the words of one layout line and says in plain words what it missed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/report/layout_words.h"

namespace tela {

/// Every failure throws std::invalid_argument with the reason.
class WordCursor {
 public:
  explicit WordCursor(std::vector<LayoutWord> words) : words_(std::move(words)) {}

  bool at_end() const { return next_ == words_.size(); }
  /// Takes the next word if it is `keyword` (no quotes, any case).
  bool take(std::string_view keyword);
  /// The next word, unquoted; `what` names it in the message when it is missing.
  std::string word(std::string_view what);
  /// The next quoted text.
  std::string quoted(std::string_view what);
  /// The next word as a number of at least 0.
  double number(std::string_view what);
  /// Throws unless all words are taken.
  void expect_end() const;

 private:
  const LayoutWord& next(std::string_view what, bool quoted);

  std::vector<LayoutWord> words_;
  std::size_t next_ = 0;
};

}  // namespace tela
