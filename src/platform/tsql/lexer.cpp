#include "platform/tsql/lexer.h"

#include <algorithm>
#include <array>

#include "platform/text/ascii.h"

namespace tela::tsql {
namespace {

enum CharClass : unsigned char { other, blank, digit, letter };

// Every byte above ASCII counts as a letter, so names in any script pass.
constexpr std::array<CharClass, 256> char_classes() {
  std::array<CharClass, 256> classes{};
  for (const unsigned char c : {' ', '\t', '\r', '\n', '\v', '\f'}) classes[c] = blank;
  for (unsigned c = '0'; c <= '9'; ++c) classes[c] = digit;
  for (unsigned c = 'a'; c <= 'z'; ++c) classes[c] = letter;
  for (unsigned c = 'A'; c <= 'Z'; ++c) classes[c] = letter;
  for (unsigned c = 128; c < 256; ++c) classes[c] = letter;
  for (const unsigned char c : {'_', '#', '@', '$'}) classes[c] = letter;
  return classes;
}
constexpr auto classes = char_classes();

CharClass class_of(char c) {
  return classes[static_cast<unsigned char>(c)];
}
bool is_word(char c) {
  return class_of(c) >= digit;
}

constexpr std::string_view largest_int = "2147483647";

// Whether digits without sign are more than an int holds.
bool beyond_int(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits.size() > largest_int.size() ||
         (digits.size() == largest_int.size() && digits > largest_int);
}

// The text between the first `lead` characters and the last, with doubled closing quotes made
// single.
std::string unquote(std::string_view quoted, std::size_t lead) {
  const char quote = quoted.back();
  const std::string_view inner = quoted.substr(lead, quoted.size() - lead - 1);
  std::string plain;
  plain.reserve(inner.size());
  for (std::size_t i = 0; i < inner.size(); ++i) {
    plain += inner[i];
    if (inner[i] == quote) ++i;
  }
  return plain;
}

}  // namespace

void Lexer::skip_blanks() {
  while (position_ < sql_.size()) {
    if (class_of(sql_[position_]) == blank) {
      ++position_;
    } else if (sql_.substr(position_, 2) == "--") {
      position_ = std::min(sql_.find('\n', position_), sql_.size());
    } else if (sql_.substr(position_, 2) == "/*") {
      const std::size_t close = sql_.find("*/", position_ + 2);
      if (close == std::string_view::npos) {
        throw CompileError(CompileError::Kind::syntax, "Missing end comment mark '*/'.", position_);
      }
      position_ = close + 2;
    } else {
      return;
    }
  }
}

Token Lexer::take(TokenKind kind, std::size_t length) {
  const Token token{kind, sql_.substr(position_, length), position_};
  position_ += length;
  sign_allowed_ = kind == TokenKind::symbol && token.text != ")" && token.text != ".";
  return token;
}

Token Lexer::take_quoted(TokenKind kind, std::size_t quote) {
  const char close = sql_[quote] == '[' ? ']' : sql_[quote];
  for (std::size_t i = quote + 1; (i = sql_.find(close, i)) != std::string_view::npos; i += 2) {
    if (at(i + 1) == close) continue;
    const Token token = take(kind, i + 1 - position_);
    if (token.text.find('\0') == std::string_view::npos) return token;
    throw CompileError(CompileError::Kind::syntax, "Incorrect syntax near a null character.",
                       token.position);
  }
  throw CompileError(CompileError::Kind::syntax,
                     "Unclosed quotation mark after the character string '" +
                         std::string(sql_.substr(quote + 1)) + "'.",
                     position_);
}

bool Lexer::at_number(std::size_t position) const {
  return is_digit(at(position)) || (at(position) == '.' && is_digit(at(position + 1)));
}

Token Lexer::take_number() {
  const std::size_t first_digit = position_ + (sql_[position_] == '-' ? 1 : 0);
  std::size_t end = first_digit;
  while (is_digit(at(end))) ++end;
  TokenKind kind = beyond_int(sql_.substr(first_digit, end - first_digit)) ? TokenKind::decimal
                                                                           : TokenKind::integer;
  if (at(end) == '.') {
    kind = TokenKind::decimal;
    ++end;
    while (is_digit(at(end))) ++end;
  }
  if (to_lower(at(end)) == 'e') {
    std::size_t exponent = end + 1;
    if (at(exponent) == '+' || at(exponent) == '-') ++exponent;
    if (is_digit(at(exponent))) {
      kind = TokenKind::real;
      end = exponent;
      while (is_digit(at(end))) ++end;
    }
  }
  return take(kind, end - position_);
}

Token Lexer::take_symbol() {
  const std::string_view pair = sql_.substr(position_, 2);
  const bool is_pair =
      pair == "<>" || pair == "!=" || pair == "<=" || pair == ">=" || pair == "!<" || pair == "!>";
  if (!is_pair &&
      std::string_view("()+-*/%,.=<>;").find(sql_[position_]) == std::string_view::npos) {
    throw CompileError(CompileError::Kind::syntax,
                       "Incorrect syntax near '" + std::string(sql_.substr(position_, 1)) + "'.",
                       position_);
  }
  return take(TokenKind::symbol, is_pair ? 2 : 1);
}

Token Lexer::next() {
  skip_blanks();
  if (position_ == sql_.size()) return take(TokenKind::end, 0);
  const char first = sql_[position_];
  if (first == '\'') return take_quoted(TokenKind::text, position_);
  if ((first == 'N' || first == 'n') && at(position_ + 1) == '\'') {
    return take_quoted(TokenKind::text, position_ + 1);
  }
  if (first == '"' || first == '[') return take_quoted(TokenKind::quoted_name, position_);
  if (at_number(position_) || (first == '-' && sign_allowed_ && at_number(position_ + 1))) {
    return take_number();
  }
  if (class_of(first) != letter) return take_symbol();
  std::size_t end = position_ + 1;
  while (is_word(at(end)) && end < sql_.size()) ++end;
  return take(first == '@' ? TokenKind::variable : TokenKind::word, end - position_);
}

bool is_literal(TokenKind kind) {
  return kind == TokenKind::text || kind == TokenKind::integer || kind == TokenKind::decimal ||
         kind == TokenKind::real;
}

Literal literal_of(const Token& token) {
  switch (token.kind) {
    case TokenKind::integer:
      return {LiteralKind::integer, std::string(token.text)};
    case TokenKind::decimal:
      return {LiteralKind::decimal, std::string(token.text)};
    case TokenKind::real:
      return {LiteralKind::real, std::string(token.text)};
    default:
      return {LiteralKind::text, unquote(token.text, token.text.find('\'') + 1)};
  }
}

std::string name_of(const Token& token) {
  return token.kind == TokenKind::quoted_name ? unquote(token.text, 1) : std::string(token.text);
}

std::string lower(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), to_lower);
  return folded;
}

bool same_name(std::string_view left, std::string_view right) {
  return equal_ignoring_case(left, right);
}

}  // namespace tela::tsql
