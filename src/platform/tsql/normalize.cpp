// The key of a statement: its tokens without blanks and comments, a placeholder for each literal.
// Names keep their case, since a result column is named as the statement writes it.
#include "platform/tsql/lexer.h"

namespace tela::tsql {
namespace {

char placeholder(LiteralKind kind) {
  switch (kind) {
    case LiteralKind::integer:
      return '\2';
    case LiteralKind::decimal:
      return '\3';
    case LiteralKind::real:
      return '\4';
    case LiteralKind::text:
      break;
  }
  return '\1';
}

bool is_wordlike(TokenKind kind) {
  return kind == TokenKind::word || kind == TokenKind::variable || kind == TokenKind::quoted_name;
}

}  // namespace

Normalized normalize(std::string_view sql) {
  Normalized result;
  result.key.reserve(sql.size());
  result.literals.reserve(16);
  Lexer lexer(sql);
  bool behind_word = false;
  for (Token token = lexer.next(); token.kind != TokenKind::end; token = lexer.next()) {
    if (is_literal(token.kind)) {
      result.literals.push_back(literal_of(token));
      result.key += placeholder(result.literals.back().kind);
      behind_word = false;
      continue;
    }
    // A blank keeps words apart, and symbols that would read as one ("< >", "- -").
    if (is_wordlike(token.kind) == behind_word) result.key += ' ';
    behind_word = is_wordlike(token.kind);
    result.key += token.text;
  }
  return result;
}

}  // namespace tela::tsql
