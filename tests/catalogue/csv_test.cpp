// CSV files: records as RFC 4180 has them, and their fields as values of columns.

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "platform/csv/csv_record.h"
#include "platform/csv/csv_value.h"

namespace tela {
namespace {

// The records of a text as "line:field|field", quoted fields in angle brackets, problems behind
// '!'.
std::vector<std::string> read_all(const std::string& text) {
  std::istringstream input(text);
  CsvReader reader(input);
  std::vector<std::string> records;
  CsvRecord record;
  while (reader.read(record)) {
    std::string told = std::to_string(record.line) + ":";
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
      const CsvField& field = record.fields[i];
      if (i > 0) told += '|';
      told += field.quoted ? "<" + field.text + ">" : field.text;
    }
    if (!record.problem.empty()) told += "!" + record.problem;
    records.push_back(told);
  }
  return records;
}

TEST(CsvReader, TakesRecordsApart) {
  struct Case {
    std::string text;
    std::vector<std::string> records;
  };
  const Case cases[] = {
      {"", {}},
      {"a,b\n1,2\n", {"1:a|b", "2:1|2"}},
      {"a,b\r\n1,2", {"1:a|b", "2:1|2"}},
      {"\xEF\xBB\xBFname\n", {"1:name"}},
      {"\n\n,\n", {"3:|"}},
      {"1,\"\",\n", {"1:1|<>|"}},
      {"\"a,\"\"b\"\"\",c\n", {"1:<a,\"b\">|c"}},
      {"\"two\nlines\",x\nnext,y\n", {"1:<two\nlines>|x", "3:next|y"}},
      {" a , b \n", {"1: a | b "}},
  };
  for (const Case& c : cases) EXPECT_EQ(read_all(c.text), c.records) << c.text;
}

TEST(CsvReader, NamesADamagedRecordAndGoesOnBehindIt) {
  EXPECT_EQ(
      read_all("a\"b,c\nnext\n"),
      (std::vector<std::string>{"1:a\"b|c!a quote stands inside an unquoted field", "2:next"}));
  EXPECT_EQ(read_all("\"a\"b,c\nnext\n"),
            (std::vector<std::string>{"1:<a>|c!text stands behind a closing quote", "2:next"}));
  EXPECT_EQ(read_all("x\n\"a\nb\n"),
            (std::vector<std::string>{"1:x", "2:<a\nb\n>!a quoted field has no closing quote"}));
}

TEST(CsvText, RefusesWhatIsNotUtf8) {
  EXPECT_TRUE(is_utf8("Sona Arisi - \u0B85\u0BB0\u0BBF\u0B9A\u0BBF \U0001F33E"));
  for (const char* text :
       {"\x80", "caf\xE9", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE0\xAE"}) {
    EXPECT_FALSE(is_utf8(text)) << text;
  }
}

constexpr CsvColumn text_column{FieldType::text, 5};
constexpr CsvColumn code_column{FieldType::whole_number, 0, -9999, 9999};
constexpr CsvColumn number_column{FieldType::number};
constexpr CsvColumn date_column{FieldType::date};
constexpr CsvColumn time_column{FieldType::time};

TEST(CsvValue, ReadsWhatItWrites) {
  using namespace std::chrono;
  struct Case {
    Value value;
    CsvColumn column;
    std::string text;
  };
  const Case cases[] = {
      {std::monostate{}, number_column, ""},
      {std::string(), text_column, "\"\""},
      {std::string("a\"b,"), text_column, "\"a\"\"b,\""},
      {std::string("  x  "), text_column, "  x  "},
      {std::int64_t{-12}, code_column, "-12"},
      {0.1, number_column, "0.1"},
      {437.5, number_column, "437.5"},
      {0.1 + 0.2, number_column, "0.30000000000000004"},
      {std::numeric_limits<double>::min(), number_column, "2.2250738585072014e-308"},
      {Date{year(2024), month(2), day(29)}, date_column, "2024-02-29"},
      {TimeOfDay{7, 5, 9}, time_column, "07:05:09"},
  };
  for (const Case& c : cases) {
    std::string written;
    append_csv_value(written, c.value);
    EXPECT_EQ(written, c.text);
    std::istringstream input(written + ",");
    CsvReader reader(input);
    CsvRecord record;
    ASSERT_TRUE(reader.read(record));
    EXPECT_EQ(csv_value(record.fields.front(), c.column), c.value) << c.text;
  }
}

TEST(CsvValue, SaysWhyAFieldDoesNotFit) {
  struct Case {
    std::string text;
    CsvColumn column;
    std::string reason;
  };
  const Case cases[] = {
      {"abcdef", text_column, "the text has 6 characters, at most 5 fit"},
      {"\xFF", text_column, "the text is not valid UTF-8"},
      {"12.5", code_column, "'12.5' is not a whole number"},
      {"10000", code_column, "'10000' is out of range"},
      {"99999999999999999999", code_column, "'99999999999999999999' is not a whole number"},
      {"1,5", number_column, "'1,5' is not a number"},
      {" 1", number_column, "' 1' is not a number"},
      {"inf", number_column, "'inf' is not a number"},
      {"2024-02-30", date_column, "'2024-02-30' is not a date of the form yyyy-mm-dd"},
      {"05/01/2024", date_column, "'05/01/2024' is not a date of the form yyyy-mm-dd"},
      {"24:00:00", time_column, "'24:00:00' is not a time of the form HH:MM:SS"},
      {"7:05:09", time_column, "'7:05:09' is not a time of the form HH:MM:SS"},
  };
  for (const Case& c : cases) {
    try {
      csv_value({c.text, true}, c.column);
      ADD_FAILURE() << c.text << " was taken";
    } catch (const CsvValueError& error) {
      EXPECT_EQ(error.what(), c.reason);
    }
  }
}

TEST(CsvValue, CountsCharactersAndNotBytes) {
  EXPECT_EQ(csv_value({"\u0B85\u0BB0\u0BBF\u0B9A\u0BBF", false}, text_column),
            Value(std::string("\u0B85\u0BB0\u0BBF\u0B9A\u0BBF")));
}

}  // namespace
}  // namespace tela
