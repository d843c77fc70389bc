// UTF-8 and UTF-16: the program's text and the text of ODBC's wide-character calls.
#pragma once

#include <string>
#include <string_view>

namespace tela::odbc {

/// The UTF-16 of a UTF-8 text. A byte that is no UTF-8 becomes U+FFFD.
std::u16string to_utf16(std::string_view utf8);

/// The UTF-8 of a UTF-16 text. Half a surrogate pair becomes U+FFFD.
std::string to_utf8(std::u16string_view utf16);

}  // namespace tela::odbc
