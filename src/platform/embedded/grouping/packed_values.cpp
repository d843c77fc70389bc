#include "platform/embedded/grouping/packed_values.h"

#include <cstring>
#include <exception>
#include <string>
#include <string_view>

namespace tela::embedded {
namespace {

using tsql::StoredValue;

// A value is a letter with eight bytes behind it: the number, or how many bytes of text follow.
constexpr char null = 'n';
constexpr char whole = 'w';
constexpr char real = 'r';
constexpr char text = 't';

template <typename T>
void append(std::string& packed, char letter, T content) {
  static_assert(sizeof content == 8);
  packed += letter;
  packed.append(reinterpret_cast<const char*>(&content), sizeof content);
}

std::string_view bytes_of(sqlite3_value* value) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  return {bytes, bytes == nullptr ? 0 : static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void append(std::string& packed, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return append(packed, null, std::int64_t{0});
    case SQLITE_INTEGER:
      return append(packed, whole, std::int64_t{sqlite3_value_int64(value)});
    case SQLITE_FLOAT:
      return append(packed, real, sqlite3_value_double(value));
    case SQLITE_BLOB:  // nothing else makes one
      packed += bytes_of(value);
      return;
    default:
      append(packed, text, std::uint64_t{bytes_of(value).size()});
      packed += bytes_of(value);
  }
}

template <typename T>
T take(std::string_view& packed) {
  T content{};
  std::memcpy(&content, packed.data(), sizeof content);
  packed.remove_prefix(sizeof content);
  return content;
}

std::string take_text(std::string_view& packed) {
  const auto size = static_cast<std::size_t>(take<std::uint64_t>(packed));
  std::string content(packed.substr(0, size));
  packed.remove_prefix(size);
  return content;
}

StoredValue take_value(std::string_view& packed) {
  const char letter = packed.front();
  packed.remove_prefix(1);
  switch (letter) {
    case whole:
      return take<std::int64_t>(packed);
    case real:
      return take<double>(packed);
    case text:
      return take_text(packed);
    default:
      take<std::int64_t>(packed);
      return {};
  }
}

void pack(sqlite3_context* context, int count, sqlite3_value** values) {
  try {
    std::string packed;
    for (int i = 0; i < count; ++i) append(packed, values[i]);
    sqlite3_result_blob64(context, packed.data(), packed.size(), SQLITE_TRANSIENT);
  } catch (const std::exception&) {  // nothing but memory can be short
    sqlite3_result_error_nomem(context);
  }
}

}  // namespace

int register_packing(sqlite3* database) {
  return sqlite3_create_function_v2(database, "tela_values", -1, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                    nullptr, pack, nullptr, nullptr, nullptr);
}

std::vector<StoredValue> unpack_values(sqlite3_value* packed) {
  std::vector<StoredValue> values;
  std::string_view rest = bytes_of(packed);
  while (!rest.empty()) values.push_back(take_value(rest));
  return values;
}

}  // namespace tela::embedded
