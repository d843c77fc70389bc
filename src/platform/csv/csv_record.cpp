#include "platform/csv/csv_record.h"

#include <cstdint>

namespace tela {
namespace {

constexpr int end_of_input = std::istream::traits_type::eof();

bool ends_field(int character) {
  return character == ',' || character == '\n' || character == '\r' || character == end_of_input;
}

// How many bytes follow a first byte of UTF-8; -1 if none can begin with it.
int following_bytes(std::uint8_t first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first <= 0xDF) return 1;
  if (first >= 0xE0 && first <= 0xEF) return 2;
  if (first >= 0xF0 && first <= 0xF4) return 3;
  return -1;
}

// Overlong forms, surrogates and code points past the last show in the second byte.
bool second_byte_fits(std::uint8_t first, std::uint8_t second) {
  if (first == 0xE0) return second >= 0xA0;
  if (first == 0xED) return second <= 0x9F;
  if (first == 0xF0) return second >= 0x90;
  if (first == 0xF4) return second <= 0x8F;
  return true;
}

}  // namespace

// The buffer itself is read: the stream would look at its state for each character.
CsvReader::CsvReader(std::istream& input) : input_(*input.rdbuf()) {
  for (const char byte : std::string_view("\xEF\xBB\xBF")) {
    if (peek() != std::istream::traits_type::to_int_type(byte)) return;
    input_.sbumpc();
  }
}

int CsvReader::take() {
  const int character = input_.sbumpc();
  if (character == '\n') ++line_;
  return character;
}

bool CsvReader::read(CsvRecord& record) {
  while (!empty_lines_count_ && (peek() == '\n' || peek() == '\r')) take();
  record.line = line_;
  record.fields.clear();
  record.problem.clear();
  if (peek() == end_of_input) return false;
  do {
    read_field(record);
  } while (!at_end_of_record());
  return true;
}

// Takes the comma or the end of the line that stands behind a field.
bool CsvReader::at_end_of_record() {
  const int character = take();
  if (character == ',') return false;
  if (character == '\r' && peek() == '\n') take();
  return true;
}

void CsvReader::read_field(CsvRecord& record) {
  CsvField& field = record.fields.emplace_back();
  if (peek() == '"') {
    read_quoted(record, field);
    return;
  }
  while (!ends_field(peek())) {
    if (peek() == '"') record.problem = "a quote stands inside an unquoted field";
    field.text += static_cast<char>(take());
  }
}

void CsvReader::read_quoted(CsvRecord& record, CsvField& field) {
  field.quoted = true;
  take();
  for (;;) {
    const int character = take();
    if (character == end_of_input) {
      record.problem = "a quoted field has no closing quote";
      return;
    }
    if (character != '"') {
      field.text += static_cast<char>(character);
    } else if (peek() == '"') {
      field.text += static_cast<char>(take());
    } else {
      break;
    }
  }
  if (ends_field(peek())) return;
  record.problem = "text stands behind a closing quote";
  while (!ends_field(peek())) take();
}

void append_csv_text(std::string& out, std::string_view text) {
  if (!text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos) {
    out += text;
    return;
  }
  out += '"';
  for (const char character : text) {
    if (character == '"') out += '"';
    out += character;
  }
  out += '"';
}

bool is_utf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto first = static_cast<std::uint8_t>(text[i]);
    const int following = following_bytes(first);
    if (following < 0 || text.size() - i - 1 < static_cast<std::size_t>(following)) return false;
    for (int k = 1; k <= following; ++k) {
      const auto byte = static_cast<std::uint8_t>(text[++i]);
      if ((byte & 0xC0) != 0x80 || (k == 1 && !second_byte_fits(first, byte))) return false;
    }
  }
  return true;
}

}  // namespace tela
