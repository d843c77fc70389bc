// Texts that are equal without being the same (other case, blanks at the end), in every place where
// the engine compares, hashes or looks them up: the rows are those that plain C++ finds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <random>
#include <set>

#include "embedded/shop.h"
#include "platform/embedded/sql_functions.h"
#include "platform/embedded/sqlite_handles.h"

namespace tela::testing {
namespace {

constexpr int rows_a_table = 60;

// What a text is equal by: the server's rule for plain letters.
std::string folded(std::string text) {
  while (text.ends_with(' ')) text.pop_back();
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

struct Row {
  int number;
  std::string name;
};
using Rows = std::vector<Row>;

/// A statement that gives one number, and the number over two tables of names, L and R.
struct Question {
  const char* sql;
  std::int64_t (*answer)(const Rows& left, const Rows& right);
};

template <typename Condition>
std::int64_t count_pairs(const Rows& left, const Rows& right, Condition condition) {
  std::int64_t count = 0;
  for (const Row& l : left) {
    for (const Row& r : right) count += condition(l, r) ? 1 : 0;
  }
  return count;
}

template <typename Condition>
std::int64_t count_rows(const Rows& rows, Condition condition) {
  return std::ranges::count_if(rows, condition);
}

std::set<std::string> names(const Rows& rows) {
  std::set<std::string> names;
  for (const Row& row : rows) names.insert(folded(row.name));
  return names;
}

std::int64_t count_equal_pairs(const Rows& left, const Rows& right) {
  return count_pairs(left, right,
                     [](const Row& l, const Row& r) { return folded(l.name) == folded(r.name); });
}

std::int64_t count_known(const Rows& left, const Rows& right) {
  return count_rows(left, [&](const Row& l) { return names(right).contains(folded(l.name)); });
}

std::int64_t count_soap_or_rice(const Rows& left, const Rows&) {
  return count_rows(
      left, [](const Row& l) { return folded(l.name) == "soap" || folded(l.name) == "rice"; });
}

const Question questions[] = {
    {"select count(*) from L join R on L.Name=R.Name", count_equal_pairs},
    {"select count(*) from R, L where L.Name=R.Name", count_equal_pairs},
    {"select count(*) from L left join R on R.Name=L.Name",
     [](const Rows& left, const Rows& right) {
       return count_equal_pairs(left, right) + rows_a_table - count_known(left, right);
     }},
    {"select count(*) from L join (select distinct Name from R) D on D.Name=L.Name", count_known},
    {"select sum(D.Rows) from L join (select Name,count(*) as Rows from R group by Name) D on "
     "D.Name=L.Name",
     count_equal_pairs},
    {"select count(*) from L join R on L.Number=R.Number and L.Name=R.Name and R.Name='SOAP'",
     [](const Rows& left, const Rows& right) {
       return count_pairs(left, right, [](const Row& l, const Row& r) {
         return l.number == r.number && folded(l.name) == "soap" && folded(r.name) == "soap";
       });
     }},
    {"select count(*) from L join R on L.Number=R.Number where R.Name='RICE' or R.Name='soap  '",
     [](const Rows& left, const Rows& right) {
       return count_pairs(left, right, [](const Row& l, const Row& r) {
         return l.number == r.number && (folded(r.name) == "rice" || folded(r.name) == "soap");
       });
     }},
    {"select count(*) from L join R on left(L.Name,2)=left(R.Name,2)",
     [](const Rows& left, const Rows& right) {
       return count_pairs(left, right, [](const Row& l, const Row& r) {
         return folded(l.name.substr(0, 2)) == folded(r.name.substr(0, 2));
       });
     }},
    {"select count(*) from L where Name='SOAP' or Name='Rice  '", count_soap_or_rice},
    {"select count(*) from L where 'SOAP '=Name or 'RICE'=Name", count_soap_or_rice},
    {"select count(*) from L where Name in ('SOAP','RICE')", count_soap_or_rice},
    {"select count(*) from L where Name='soap' or Number=1",
     [](const Rows& left, const Rows&) {
       return count_rows(left,
                         [](const Row& l) { return folded(l.name) == "soap" || l.number == 1; });
     }},
    {"select count(*) from L where Name in (select Name from R)", count_known},
    {"select count(*) from L where Name not in (select Name from R)",
     [](const Rows& left, const Rows& right) { return rows_a_table - count_known(left, right); }},
    {"select count(*) from L where exists (select 1 from R where R.Name=L.Name)", count_known},
    {"select sum(D.Rows) from (select (select count(*) from R where R.Name=L.Name) as Rows from L) "
     "D",
     count_equal_pairs},
    {"select count(*) from (select distinct Name from L) D",
     [](const Rows& left, const Rows&) { return std::ssize(names(left)); }},
    {"select count(distinct Name) from L",
     [](const Rows& left, const Rows&) { return std::ssize(names(left)); }},
    {"select count(*) from (select Name from L group by Name having count(*)>1) G",
     [](const Rows& left, const Rows&) {
       std::map<std::string, int> counts;
       for (const Row& row : left) ++counts[folded(row.name)];
       return std::int64_t{std::ranges::count_if(counts, [](auto& c) { return c.second > 1; })};
     }},
    {"select count(*) from (select Name from L union select Name from R) U",
     [](const Rows& left, const Rows& right) {
       std::set<std::string> all = names(left);
       all.merge(names(right));
       return std::ssize(all);
     }},
    {"select count(*) from L where case Name when 'SOAP' then 1 else 0 end=1 or "
     "nullif(Name,'RICE') is null",
     count_soap_or_rice},
    {"select count(*) from L where Name between 'rice' and 'RICE '",
     [](const Rows& left, const Rows&) {
       return count_rows(left, [](const Row& l) { return folded(l.name) == "rice"; });
     }},
};

class EqualTexts : public ::testing::TestWithParam<unsigned> {
 protected:
  std::string random_name() {
    static constexpr std::array names{"soap", "rice", "dal", "toor dal", "", "soap 2", "ric"};
    std::string name = names[random_() % names.size()];
    for (char& c : name) {
      if (random_() % 2 == 0) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return name.append(random_() % 3, ' ');
  }

  Rows fill(Connection& connection, const std::string& table) {
    Rows rows;
    for (int i = 0; i < rows_a_table; ++i) {
      const Row row{static_cast<int>(random_() % 8), random_name()};
      rows.push_back(row);
      connection.execute("insert into " + table + " values(" + std::to_string(row.number) + ",'" +
                         row.name + "')");
    }
    return rows;
  }

  std::mt19937 random_{GetParam()};
};

TEST_P(EqualTexts, AreEqualEverywhere) {
  const Shop shop;
  const auto connection = shop.connect();
  connection->execute("create table L (Number int, Name varchar(20))");
  connection->execute("create table R (Number int, Name varchar(20))");
  connection->execute("create index L_Name on L (Name)");
  connection->begin_trans();
  const Rows left = fill(*connection, "L");
  const Rows right = fill(*connection, "R");
  connection->commit_trans();
  for (const Question& question : questions) {
    SCOPED_TRACE(question.sql);
    const RowSet answer = connection->execute(question.sql);
    EXPECT_EQ(std::get<std::int64_t>(answer.rows.at(0).at(0)), question.answer(left, right));
  }
}

INSTANTIATE_TEST_SUITE_P(Random, EqualTexts, ::testing::Range(1U, 6U));

TEST(TextJoins, LookRowsUpAllTheSame) {
  embedded::Database database(":memory:", SQLITE_OPEN_READWRITE);
  register_sql_functions(database.handle());
  database.run("CREATE TABLE l(x TEXT); CREATE TABLE r(y TEXT)");
  embedded::Statement plan(
      database, "EXPLAIN QUERY PLAN SELECT 1 FROM l JOIN r ON x COLLATE TELA = y COLLATE TELA");
  std::string steps;
  while (plan.step()) steps += plan.text(3) + ";";
  EXPECT_THAT(steps, ::testing::HasSubstr("AUTOMATIC"));
}

}  // namespace
}  // namespace tela::testing
