#include "platform/odbc/connection_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/text/ascii.h"

namespace tela::odbc {
namespace {

constexpr std::array<std::string_view, 2> kPasswordKeys = {"pwd", "password"};
constexpr std::string_view kMask = "***";

std::string_view trim(std::string_view text) {
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  return text;
}

/// The length of the value at the start of `text`, up to its ';' or the end. In braces a ';'
/// belongs to the value, and "}}" is one '}'.
std::size_t value_length(std::string_view text) {
  const std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos || text[start] != '{')
    return std::min(text.find(';'), text.size());
  for (std::size_t at = start + 1; at < text.size(); ++at) {
    if (text[at] != '}') continue;
    if (at + 1 == text.size() || text[at + 1] != '}') return at + 1;
    ++at;
  }
  return text.size();
}

std::string without_braces(std::string_view value) {
  if (value.size() < 2 || value.front() != '{' || value.back() != '}') return std::string(value);
  std::string out;
  value = value.substr(1, value.size() - 2);
  for (std::size_t at = 0; at < value.size(); ++at) {
    out += value[at];
    if (value.substr(at, 2) == "}}") ++at;
  }
  return out;
}

void replace_all(std::string& text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
}

void mask_values(std::string& text, std::string_view key) {
  for (std::size_t at = text.find('='); at != std::string::npos; at = text.find('=', at + 1)) {
    if (at < key.size() ||
        !equal_ignoring_case(std::string_view(text).substr(at - key.size(), key.size()), key))
      continue;
    text.replace(at + 1, value_length(std::string_view(text).substr(at + 1)), kMask);
  }
}

}  // namespace

ConnectionText::ConnectionText(std::string_view text) {
  while (!text.empty()) {
    const std::size_t equals = text.find_first_of("=;");
    const std::string_view key = trim(text.substr(0, equals));
    text.remove_prefix(std::min(equals, text.size()));
    if (text.empty()) return;
    const bool has_value = text.front() == '=';
    text.remove_prefix(1);
    if (!has_value) continue;
    const std::size_t length = value_length(text);
    entries_.emplace_back(key, without_braces(trim(text.substr(0, length))));
    text.remove_prefix(std::min(text.find(';', length), text.size()));
    if (!text.empty()) text.remove_prefix(1);
  }
}

std::string ConnectionText::value(std::string_view key) const {
  for (const auto& [name, value] : entries_)
    if (equal_ignoring_case(name, key)) return value;
  return {};
}

bool ConnectionText::has(std::string_view key) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [&](const auto& entry) { return equal_ignoring_case(entry.first, key); });
}

std::string with_catalogue(std::string odbc_text, std::string_view catalogue) {
  const ConnectionText given(odbc_text);
  const bool named = given.has("DSN") || given.has("FILEDSN") || given.has("DATABASE");
  if (named || catalogue.empty()) return odbc_text;
  if (!odbc_text.empty() && odbc_text.back() != ';') odbc_text += ';';
  return odbc_text.append("DATABASE=").append(catalogue);
}

PasswordScrubber::PasswordScrubber(std::string_view odbc_text) {
  const ConnectionText given(odbc_text);
  for (const std::string_view key : kPasswordKeys) {
    std::string password = given.value(key);
    if (!password.empty()) passwords_.push_back(std::move(password));
  }
}

std::string PasswordScrubber::scrub(std::string message) const {
  for (const std::string_view key : kPasswordKeys) mask_values(message, key);
  for (const std::string& password : passwords_) replace_all(message, password, kMask);
  return message;
}

}  // namespace tela::odbc
