// Connection strings: "KEY=value;KEY={value};…", their keys, and the secrets that stay in them.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tela::odbc {

/// The entries of a connection string. A key compares without regard to case; braces around a value
/// are taken off.
class ConnectionText {
 public:
  explicit ConnectionText(std::string_view text);

  /// The value of `key`; empty if the string has no such key.
  std::string value(std::string_view key) const;
  bool has(std::string_view key) const;
  const std::vector<std::pair<std::string, std::string>>& entries() const { return entries_; }

 private:
  std::vector<std::pair<std::string, std::string>> entries_;
};

/// `odbc_text` with "DATABASE=catalogue" behind it, unless it names a data source or a database
/// itself.
std::string with_catalogue(std::string odbc_text, std::string_view catalogue);

/// Takes the passwords of a connection string out of messages: drivers echo what they were given.
class PasswordScrubber {
 public:
  explicit PasswordScrubber(std::string_view odbc_text);

  /// `message` with every password, and the value of every "PWD=" or "Password=", as "***".
  std::string scrub(std::string message) const;

 private:
  std::vector<std::string> passwords_;
};

}  // namespace tela::odbc
