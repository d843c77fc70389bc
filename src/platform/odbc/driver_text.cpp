#include "platform/odbc/driver_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/odbc/wide_text.h"

namespace tela::odbc {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

/// Longer than the longest message of the server, 2047 characters.
constexpr std::size_t kMessageRoom = 4096;
/// Characters of a value that one call fetches. Nearly all values come with the first.
constexpr std::size_t kChunk = 2048;

SQLWCHAR* wide(char16_t* text) {
  return reinterpret_cast<SQLWCHAR*>(text);
}
SQLCHAR* narrow(char* text) {
  return reinterpret_cast<SQLCHAR*>(text);
}

std::string to_program(std::u16string_view text) {
  return to_utf8(text);
}
std::string to_program(std::string_view text) {
  return std::string(text);
}

/// `text` without "[driver manager][driver][server]" in front.
std::string without_origin(std::string text) {
  while (!text.empty() && text.front() == '[') {
    const std::size_t end = text.find(']');
    if (end == std::string::npos) break;
    text.erase(0, end + 1);
  }
  return text;
}

/// Joins the chunks of one value. Each call goes on where the one before stopped; a chunk ends with
/// a terminator that does not count.
template <class Char>
SQLRETURN get_chunks(SQLHSTMT statement, SQLUSMALLINT position, SQLSMALLINT c_type,
                     std::basic_string<Char>& out, bool& is_null) {
  std::array<Char, kChunk> chunk;
  is_null = false;
  while (true) {
    SQLLEN length = 0;
    const SQLRETURN result =
        SQLGetData(statement, position, c_type, chunk.data(), sizeof chunk, &length);
    if (result == SQL_NO_DATA) return SQL_SUCCESS;
    if (!SQL_SUCCEEDED(result)) return result;
    is_null = length == SQL_NULL_DATA;
    if (is_null) return SQL_SUCCESS;
    const bool whole = length != SQL_NO_TOTAL && length < static_cast<SQLLEN>(sizeof chunk);
    out.append(chunk.data(), whole ? static_cast<std::size_t>(length) / sizeof(Char) : kChunk - 1);
    if (whole) return SQL_SUCCESS;
  }
}

}  // namespace

std::vector<Diagnostic> diagnostics(SQLSMALLINT handle_type, SQLHANDLE handle, DriverText form) {
  std::vector<Diagnostic> records;
  const auto read_all = [&](auto room, auto state, auto get) {
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT number = 1; SQL_SUCCEEDED(get(number, state, native, room, length));
         ++number) {
      const auto used =
          std::clamp<std::size_t>(static_cast<std::size_t>(length), 0, room.size() - 1);
      records.push_back({to_program({state.data(), 5}), static_cast<int>(native),
                         without_origin(to_program({room.data(), used}))});
    }
  };
  constexpr auto room = static_cast<SQLSMALLINT>(kMessageRoom);
  if (form == DriverText::wide) {
    read_all(std::u16string(kMessageRoom, u'\0'), std::array<char16_t, 6>{},
             [&](auto number, auto& state, auto& native, auto& text, auto& length) {
               return SQLGetDiagRecW(handle_type, handle, number, wide(state.data()), &native,
                                     wide(text.data()), room, &length);
             });
  } else {
    read_all(std::string(kMessageRoom, '\0'), std::array<char, 6>{},
             [&](auto number, auto& state, auto& native, auto& text, auto& length) {
               return SQLGetDiagRec(handle_type, handle, number, narrow(state.data()), &native,
                                    narrow(text.data()), room, &length);
             });
  }
  return records;
}

SQLRETURN driver_connect(SQLHDBC connection, const std::string& text, DriverText form) {
  if (form == DriverText::wide) {
    std::u16string given = to_utf16(text);
    return SQLDriverConnectW(connection, nullptr, wide(given.data()),
                             static_cast<SQLSMALLINT>(given.size()), nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT);
  }
  std::string given = text;
  return SQLDriverConnect(connection, nullptr, narrow(given.data()),
                          static_cast<SQLSMALLINT>(given.size()), nullptr, 0, nullptr,
                          SQL_DRIVER_NOPROMPT);
}

SQLRETURN execute_direct(SQLHSTMT statement, std::string_view sql, DriverText form) {
  if (form == DriverText::wide) {
    std::u16string text = to_utf16(sql);
    return SQLExecDirectW(statement, wide(text.data()), static_cast<SQLINTEGER>(text.size()));
  }
  std::string text(sql);
  return SQLExecDirect(statement, narrow(text.data()), static_cast<SQLINTEGER>(text.size()));
}

std::string column_text(SQLHSTMT statement, SQLUSMALLINT position, SQLUSMALLINT attribute,
                        DriverText form) {
  constexpr SQLSMALLINT bytes = 512;  // the server's names have up to 128 characters
  SQLSMALLINT length = 0;
  if (form == DriverText::wide) {
    std::array<char16_t, bytes / sizeof(char16_t)> room{};
    if (!SQL_SUCCEEDED(
            SQLColAttributeW(statement, position, attribute, room.data(), bytes, &length, nullptr)))
      return {};
    return to_utf8(room.data());
  }
  std::array<char, bytes> room{};
  if (!SQL_SUCCEEDED(
          SQLColAttribute(statement, position, attribute, room.data(), bytes, &length, nullptr)))
    return {};
  return room.data();
}

SQLRETURN get_text(SQLHSTMT statement, SQLUSMALLINT position, DriverText form, std::string& out,
                   bool& is_null) {
  if (form == DriverText::utf8) return get_chunks(statement, position, SQL_C_CHAR, out, is_null);
  std::u16string text;
  const SQLRETURN result = get_chunks(statement, position, SQL_C_WCHAR, text, is_null);
  out = to_utf8(text);
  return result;
}

}  // namespace tela::odbc
