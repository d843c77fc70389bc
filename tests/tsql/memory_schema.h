// A schema in memory, made from T-SQL scripts.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "platform/tsql/lexer.h"
#include "platform/tsql/parser.h"
#include "source_folder/source_folder.h"

namespace tela::test {

class MemorySchema : public tsql::Schema {
 public:
  /// Takes note of a statement that creates a table or a procedure; others change nothing.
  void run(std::string_view sql) {
    const tsql::Parsed parsed = tsql::parse(sql);
    if (const auto* table = std::get_if<tsql::CreateTable>(&parsed.statement)) {
      tsql::TableInfo info{table->table, {}};
      for (const auto& column : table->columns) {
        info.columns.push_back({column.name, tsql::parse_type_name(column.type)});
      }
      tables_[tsql::lower(table->table)] = info;
      table_statements_.emplace_back(sql);
    } else if (const auto* procedure = std::get_if<tsql::CreateProcedure>(&parsed.statement)) {
      procedures_[tsql::lower(procedure->name)] = std::string(sql);
    }
  }

  /// The catalogue's own schema.
  static MemorySchema of_catalogue() {
    MemorySchema schema;
    for (const char* name : {"schema", "staging", "procedures"}) {
      const auto path = source_folder() / "catalogue" / (std::string(name) + ".sql");
      std::ifstream file(path);
      const std::string script{std::istreambuf_iterator<char>(file), {}};
      for (const auto statement : tsql::split_batch(script)) schema.run(statement);
    }
    schema.run(
        "create table #TableProfit (iCode Numeric,iName varchar(60),mrp float,SaleRate float,"
        "PurRate float,Qty float,TotalSales Float,TotalPurchase Float,Profit float,"
        "ProfitPercent float)");
    schema.run(
        "create table #GstTable (Amount float,iIgst float,BasicRate float,TaxAmount float,"
        "CessPercent float)");
    schema.run("create table #CostCompare (SaleRate float)");
    return schema;
  }

  /// The statements that created the tables.
  const std::vector<std::string>& table_statements() const { return table_statements_; }

  const tsql::TableInfo* find_table(std::string_view name) const override {
    const auto found = tables_.find(tsql::lower(name));
    return found == tables_.end() ? nullptr : &found->second;
  }

  std::optional<std::string> find_procedure(std::string_view name) const override {
    const auto found = procedures_.find(tsql::lower(name));
    if (found == procedures_.end()) return std::nullopt;
    return found->second;
  }

 private:
  std::map<std::string, tsql::TableInfo> tables_;
  std::map<std::string, std::string> procedures_;
  std::vector<std::string> table_statements_;
};

}  // namespace tela::test
