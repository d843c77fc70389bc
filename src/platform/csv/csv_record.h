// Comma-separated records as RFC 4180 has them, in UTF-8.
//
// A quoted field is told from an unquoted one, since an empty unquoted field is a null and an empty
// quoted one a text without characters.
#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace tela {

struct CsvField {
  std::string text;
  bool quoted = false;
  bool operator==(const CsvField&) const = default;
};

struct CsvRecord {
  int line = 0;  ///< the line on which the record begins, from 1
  std::vector<CsvField> fields;
  std::string problem;  ///< why the record cannot be used; empty if it can
};

/// Reads records one after another. Lines end in LF or CRLF, a byte order mark ahead of the first
/// is passed over, and so are empty lines, unless they count. A damaged record is handed out with
/// its problem, and reading goes on behind it.
class CsvReader {
 public:
  explicit CsvReader(std::istream& input);

  /// From now on an empty line is a record with one empty field, as a file of one column has them.
  void count_empty_lines() { empty_lines_count_ = true; }

  /// Reads the next record. False at the end of the input.
  bool read(CsvRecord& record);

 private:
  void read_field(CsvRecord& record);
  void read_quoted(CsvRecord& record, CsvField& field);
  bool at_end_of_record();
  int take();
  int peek() { return input_.sgetc(); }

  std::streambuf& input_;
  int line_ = 1;
  bool empty_lines_count_ = false;
};

/// Appends `text` to `out` as one field, quoted where its characters or its emptiness need it.
void append_csv_text(std::string& out, std::string_view text);

/// Whether `text` is well-formed UTF-8.
bool is_utf8(std::string_view text);

}  // namespace tela
