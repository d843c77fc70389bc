// Parts a script into statements.
#include <algorithm>

#include "platform/tsql/lexer.h"

namespace tela::tsql {
namespace {

// Whether a word stands alone on its line.
bool is_alone(std::string_view script, const Token& token) {
  const auto is_space = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  std::size_t before = token.position;
  while (before > 0 && is_space(script[before - 1])) --before;
  std::size_t behind = token.position + token.text.size();
  while (behind < script.size() && is_space(script[behind])) ++behind;
  return (before == 0 || script[before - 1] == '\n') &&
         (behind == script.size() || script[behind] == '\n');
}

bool is_word(const Token& token, std::string_view word) {
  return token.kind == TokenKind::word && same_name(token.text, word);
}

}  // namespace

std::vector<std::string_view> split_batch(std::string_view script) {
  std::vector<std::string_view> statements;
  Lexer lexer(script);
  Token first;  // of the statement that is being read
  Token last;
  bool is_open = false;
  bool is_procedure = false;
  while (true) {
    const Token token = lexer.next();
    const bool is_go = is_word(token, "go") && is_alone(script, token);
    const bool is_end = token.kind == TokenKind::end;
    if (is_end || is_go || (token.text == ";" && !is_procedure)) {
      if (is_open) {
        statements.push_back(
            script.substr(first.position, last.position + last.text.size() - first.position));
      }
      is_open = is_procedure = false;
      if (is_end) return statements;
      continue;
    }
    if (!is_open) first = token;
    if (is_open && last.position == first.position && is_word(first, "create")) {
      is_procedure = is_word(token, "procedure") || is_word(token, "proc");
    }
    is_open = true;
    last = token;
  }
}

}  // namespace tela::tsql
