// The parser's view of the tokens: the current one, a look ahead, and the words for what is
// missing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/ast.h"
#include "platform/tsql/lexer.h"

namespace tela::tsql {

class TokenCursor {
 public:
  explicit TokenCursor(std::string_view sql);

  const Token& current() const { return tokens_[index_]; }
  const Token& ahead(std::size_t count = 1) const;
  void advance();

  /// Whether the current token is this keyword or symbol. Keywords are given in lower case.
  bool at(std::string_view word_or_symbol) const;
  /// Passes over it if it is there.
  bool accept(std::string_view word_or_symbol);
  /// Passes over it, or throws.
  void expect(std::string_view word_or_symbol);

  bool at_name() const;
  /// Takes a name that is no reserved word, or throws. `what` tells what is expected.
  std::string expect_name(std::string_view what);
  /// Takes the current literal; the cursor counts the literals that it passes.
  LiteralRef take_literal();

  std::size_t literals_passed() const { return literals_passed_; }

  [[noreturn]] void fail(std::string_view expected) const;

 private:
  std::vector<Token> tokens_;
  std::size_t index_ = 0;
  std::size_t literals_passed_ = 0;
};

/// Whether a word is reserved, so that it is no name and no alias unless it is quoted.
bool is_reserved(std::string_view word);

}  // namespace tela::tsql
