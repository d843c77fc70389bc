// Splits T-SQL text into tokens. It knows no grammar but one rule: a minus directly before a digit
// belongs to the number where a subtraction is impossible, so that a row of values is the same
// statement whatever the signs of its numbers.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/tsql/compiler.h"

namespace tela::tsql {

enum class TokenKind {
  end,
  word,         ///< an identifier or keyword; temporary tables begin with '#'
  quoted_name,  ///< [name] or "name"; the text holds the quotes
  variable,     ///< @name
  text,         ///< 'text' or N'text'; the text holds the quotes
  integer,
  decimal,
  real,
  symbol  ///< an operator or a punctuation mark, of one or two characters
};

struct Token {
  TokenKind kind = TokenKind::end;
  std::string_view text;     ///< as it stands in the statement
  std::size_t position = 0;  ///< of its first byte
};

class Lexer {
 public:
  explicit Lexer(std::string_view sql) : sql_(sql) {}

  /// The next token; blanks and comments are passed over. Throws CompileError.
  Token next();

 private:
  void skip_blanks();
  Token take(TokenKind kind, std::size_t length);
  Token take_quoted(TokenKind kind, std::size_t quote);
  Token take_number();
  Token take_symbol();
  bool at_number(std::size_t position) const;
  char at(std::size_t position) const { return position < sql_.size() ? sql_[position] : '\0'; }

  std::string_view sql_;
  std::size_t position_ = 0;
  bool sign_allowed_ = false;  ///< whether the last token leaves room for a signed number
};

/// Whether the token is a literal.
bool is_literal(TokenKind kind);

/// The literal that such a token stands for.
Literal literal_of(const Token& token);

/// The name in a word or a quoted name, without its quotes.
std::string name_of(const Token& token);

/// Letters of ASCII in lower case; the form in which names are compared.
std::string lower(std::string_view text);

/// Whether two names are the same without regard to case.
bool same_name(std::string_view left, std::string_view right);

}  // namespace tela::tsql
