#include "platform/tsql/token_cursor.h"

#include <algorithm>
#include <array>

namespace tela::tsql {
namespace {

// Sorted, for a binary search.
constexpr std::array<std::string_view, 62> reserved_words{
    "all",    "and",    "as",     "asc",   "begin",   "between", "by",        "case",
    "check",  "column", "create", "cross", "default", "delete",  "desc",      "distinct",
    "drop",   "else",   "end",    "exec",  "execute", "exists",  "foreign",   "from",
    "full",   "group",  "having", "if",    "in",      "index",   "inner",     "insert",
    "into",   "is",     "join",   "key",   "left",    "like",    "not",       "null",
    "on",     "or",     "order",  "outer", "primary", "proc",    "procedure", "references",
    "return", "right",  "select", "set",   "table",   "then",    "top",       "union",
    "unique", "update", "values", "when",  "where",   "with"};
static_assert(std::ranges::is_sorted(reserved_words));

constexpr std::size_t longest_reserved_word = 10;

}  // namespace

bool is_reserved(std::string_view word) {
  return word.size() <= longest_reserved_word &&
         std::ranges::binary_search(reserved_words, std::string_view(lower(word)));
}

TokenCursor::TokenCursor(std::string_view sql) {
  tokens_.reserve(sql.size() / 4 + 8);
  Lexer lexer(sql);
  do {
    tokens_.push_back(lexer.next());
  } while (tokens_.back().kind != TokenKind::end);
}

const Token& TokenCursor::ahead(std::size_t count) const {
  return tokens_[std::min(index_ + count, tokens_.size() - 1)];
}

void TokenCursor::advance() {
  if (is_literal(current().kind)) ++literals_passed_;
  if (index_ + 1 < tokens_.size()) ++index_;
}

bool TokenCursor::at(std::string_view word_or_symbol) const {
  const Token& token = current();
  if (token.kind == TokenKind::symbol) return token.text == word_or_symbol;
  return token.kind == TokenKind::word && same_name(token.text, word_or_symbol);
}

bool TokenCursor::accept(std::string_view word_or_symbol) {
  if (!at(word_or_symbol)) return false;
  advance();
  return true;
}

void TokenCursor::expect(std::string_view word_or_symbol) {
  if (!accept(word_or_symbol)) fail("'" + std::string(word_or_symbol) + "'");
}

bool TokenCursor::at_name() const {
  const Token& token = current();
  if (token.kind == TokenKind::quoted_name) return token.text.size() > 2;
  return token.kind == TokenKind::word && !is_reserved(token.text);
}

std::string TokenCursor::expect_name(std::string_view what) {
  if (!at_name()) fail(what);
  std::string name = name_of(current());
  advance();
  return name;
}

LiteralRef TokenCursor::take_literal() {
  LiteralRef literal{literal_of(current()), literals_passed_};
  advance();
  return literal;
}

void TokenCursor::fail(std::string_view expected) const {
  const Token& token = current();
  const std::string found = token.kind == TokenKind::end
                                ? "Incorrect syntax at the end of the statement"
                                : "Incorrect syntax near '" + std::string(token.text) + "'";
  throw CompileError(CompileError::Kind::syntax,
                     found + " (position " + std::to_string(token.position + 1) + "): expected " +
                         std::string(expected) + ".",
                     token.position);
}

}  // namespace tela::tsql
