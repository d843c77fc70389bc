// Groups that the client makes by hashing are the groups that the engine makes by sorting: the same
// rows in the same order, to the last digit, over catalogues of random rows.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <random>

#include "platform/embedded/catalogue_schema.h"
#include "platform/embedded/sql_functions.h"
#include "platform/embedded/stored_values.h"

namespace tela {
namespace {

using embedded::Statement;
using tsql::Grouping;
using tsql::TypeKind;

// Each text in several spellings that are one text, and texts that only look alike.
constexpr std::array<const char*, 8> texts{"Soap", "SOAP ", "soap  ", "Rice",
                                           "rice", "",      "  ",     "O'Neil"};
constexpr std::array<double, 6> numbers{0, 0.1, 0.2, 2, 1e9 + 0.01, -0.3};

/// Few values a type, so that groups form; one in eight is null.
class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : random_(seed) {}

  tsql::StoredValue operator()(const tsql::Type& type) {
    if (below(8) == 0) return {};
    switch (type.kind) {
      case TypeKind::text:
        return texts[below(texts.size())];
      case TypeKind::real:
        return numbers[below(numbers.size())];
      case TypeKind::date:
        return static_cast<std::int64_t>(20240101 + below(4));
      default:
        return static_cast<std::int64_t>(below(4));
    }
  }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  std::mt19937 random_;
};

class RandomShop {
 public:
  explicit RandomShop(unsigned seed) : values_(seed), schema_(database_) {
    register_sql_functions(database_.handle());
    for (const char* table : {"Sales", "Items"}) {
      const std::string columns =
          " (BillNo numeric(18,0), BillDate date, Counter int, iName varchar(60), Qty float, "
          "Rate float)";
      run(tsql::compile("create table " + std::string(table) + columns, schema_).sqlite_sql);
      schema_.forget();
      fill(table);
    }
  }

  /// The rows of a select, or of the select of an insert, each field with its type and to the last
  /// bit; or the error.
  std::vector<std::string> rows(const std::string& sql, Grouping grouping) {
    const tsql::Compiled compiled = tsql::compile(sql, schema_, grouping);
    const bool inserts = !compiled.source_sql.empty();
    Statement statement(database_, inserts ? compiled.source_sql : compiled.sqlite_sql);
    const auto literals = tsql::normalize(sql).literals;
    std::vector<tsql::StoredValue> values;
    for (const auto& parameter : compiled.parameters) {
      values.push_back(tsql::convert_literal(literals[parameter.literal], parameter));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
      embedded::bind_stored(statement, static_cast<int>(i) + 1, values[i]);
    }
    return read(statement);
  }

  bool is_hashed(const std::string& sql) const {
    return tsql::compile(sql, schema_).sqlite_sql.find("tela_groups") != std::string::npos;
  }

 private:
  static std::vector<std::string> read(Statement& statement) {
    std::vector<std::string> rows;
    try {
      while (statement.step()) {
        std::string& row = rows.emplace_back();
        const int columns = sqlite3_column_count(statement.handle());
        for (int i = 0; i < columns; ++i) row += field(statement, i) + "|";
      }
    } catch (const DatabaseError& error) {
      rows = {error.what()};
    }
    return rows;
  }

  static std::string field(const Statement& row, int column) {
    if (sqlite3_column_type(row.handle(), column) != SQLITE_FLOAT) {
      const bool is_null = sqlite3_column_type(row.handle(), column) == SQLITE_NULL;
      return is_null ? "null" : "'" + row.text(column) + "'";
    }
    std::array<char, 40> bits{};
    std::snprintf(bits.data(), bits.size(), "%a", sqlite3_column_double(row.handle(), column));
    return bits.data();
  }

  void run(const std::string& sql) { database_.run(sql.c_str()); }

  void fill(const std::string& table) {
    const auto& columns = schema_.find_table(table)->columns;
    Statement insert(database_, "INSERT INTO " + table + " VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
    for (int i = 0; i < 200; ++i) {
      const embedded::Run done(insert);
      std::vector<tsql::StoredValue> row;
      for (const auto& column : columns) row.push_back(values_(column.type));
      for (std::size_t c = 0; c < row.size(); ++c) {
        embedded::bind_stored(insert, static_cast<int>(c) + 1, row[c]);
      }
      insert.step();
    }
  }

  embedded::Database database_{"", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
  RandomValues values_;
  embedded::CatalogueSchema schema_;
};

struct Shape {
  const char* sql;
  bool is_hashed = true;  ///< whether the client makes the groups
};

const Shape shapes[] = {
    // Keys: equal spellings, nulls, several, expressions, without any aggregate.
    {"select iName, count(*) from Sales group by iName"},
    {"select iName, BillDate, Counter, Rate from Sales group by iName, BillDate, Counter, Rate"},
    {"select upper(iName) + '!', sum(Qty) from Sales group by iName order by iName desc"},
    {"select BillNo * 2 + 1, sum(Qty) from Sales group by BillNo * 2"},
    {"select datename(mm, BillDate), month(BillDate), sum(Rate) from Sales "
     "group by datename(mm, BillDate), month(BillDate)"},
    {"select distinct iName 'NAME' from Sales order by iName"},
    {"select distinct Counter + 1, Counter + 2 from Sales"},
    // Aggregates.
    {"select Counter, sum(Qty), avg(Qty), min(Qty), max(Qty), count(Qty) from Sales "
     "group by Counter"},
    {"select Counter, sum(BillNo), avg(BillNo), avg(Counter + 1), min(iName), max(iName), "
     "min(BillDate) from Sales group by Counter"},
    {"select iName, sum(Qty * Rate) - sum(Qty) * 2, sum(Qty * 2), sum(Qty * 3) from Sales "
     "group by iName"},
    {"select Rate, sum(Qty) * Rate, case when Rate = 0 then sum(Qty) else 0 end from Sales "
     "group by Rate order by sum(Qty) desc"},
    // What is done with the groups.
    {"select top 3 iName, sum(Qty) from Sales where BillDate >= '02/Jan/2024' group by iName "
     "order by sum(Qty) desc"},
    {"select iName, sum(Qty) as Total from Sales group by iName having count(*) > 20 "
     "order by Total"},
    {"select distinct sum(Counter) from Sales group by iName"},
    {"insert into Items select BillNo, BillDate, 1, iName, sum(Qty), 0 from Sales "
     "group by BillNo, BillDate, iName order by BillDate"},
    // Where the rows come from.
    {"select S.iName, I.Rate, sum(S.Qty) from Sales S join Items I on S.iName = I.iName "
     "where I.Counter = 2 and S.Counter in (1, 2) group by S.iName, I.Rate"},
    {"select I.iName, count(S.Qty) from Items I left join Sales S on S.Rate = I.Rate "
     "group by I.iName"},
    {"select Total, count(*) from (select iName, sum(Counter) as Total from Sales group by iName) "
     "T "
     "group by Total"},
    {"select iName from Items where BillNo in (select BillNo from Sales group by BillNo "
     "having sum(Qty) > 1) and Counter = 1"},
    {"select iName, sum(Qty) from Sales group by iName union all "
     "select iName, sum(Qty) from Items group by iName"},
    {"select iName, (select max(Rate) from Items), sum(Qty) from Sales group by iName"},
    // Rows, keys and results that fail.
    {"select iName, sum(1 / Qty) from Sales group by iName"},
    {"select 1 / Counter from Sales group by 1 / Counter"},
    {"select iName, 1 / (min(Counter)) from Sales group by iName"},
    // What stays with the engine.
    {"select sum(Qty), min(iName), count(*) from Sales", false},
    {"select iName, sum(distinct Counter) from Sales group by iName", false},
    {"select iName, (select count(*) from Items I where I.iName = S.iName) from Sales S "
     "group by S.iName",
     false},
};

class GroupingShapes : public ::testing::TestWithParam<Shape> {};

TEST_P(GroupingShapes, GiveTheSameRowsHashedAndSorted) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    RandomShop shop(seed);
    const std::string sql = GetParam().sql;
    EXPECT_EQ(shop.is_hashed(sql), GetParam().is_hashed);
    const auto hashed = shop.rows(sql, Grouping::by_client);
    EXPECT_EQ(hashed, shop.rows(sql, Grouping::by_engine));
    EXPECT_FALSE(hashed.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Random, GroupingShapes, ::testing::ValuesIn(shapes));

}  // namespace
}  // namespace tela
