// The fields of a CSV file as values of a catalogue's columns, and back.
//
// Dates are written yyyy-mm-dd, times HH:MM:SS, numbers with a decimal point and as many digits as
// bring the same number back; a null is an empty field, an empty text a pair of quotes.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/csv/csv_record.h"
#include "platform/database/database_client.h"

namespace tela {

/// What a column takes.
struct CsvColumn {
  FieldType type = FieldType::text;
  int max_length = 0;         ///< the most characters of a text; 0: no limit
  std::int64_t smallest = 0;  ///< the range of a whole number
  std::int64_t largest = 0;
};

/// A field that does not fit its column. Its text names the field and the reason.
struct CsvValueError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The value of `field` for `column`. Throws CsvValueError.
Value csv_value(const CsvField& field, const CsvColumn& column);

/// Appends `value` as one field. A number that is not finite has no form in the file and cannot
/// come out of a catalogue.
void append_csv_value(std::string& out, const Value& value);

}  // namespace tela
