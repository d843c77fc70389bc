// A tree written out node by node, all that the parser found in it, so that two trees are equal if
// and only if their dumps are.
#pragma once

#include <sstream>
#include <string>

#include "platform/tsql/ast.h"

namespace tela::test {

class TreeDump {
 public:
  std::string of(const tsql::Statement& statement) {
    out_ << statement.index();
    std::visit([this](const auto& content) { dump(content); }, statement);
    return out_.str();
  }

 private:
  template <typename... Parts>
  void put(const Parts&... parts) {
    ((out_ << ' ' << parts), ...);
  }
  void text(const std::string& value) { put('<' + value + '>'); }

  template <typename T>
  void dump(const std::unique_ptr<T>& pointer) {
    if (pointer) return dump(*pointer);
    put("-");
  }
  template <typename T>
  void dump(const std::vector<T>& list) {
    put("[");
    for (const T& element : list) dump(element);
    put("]");
  }
  void dump(const std::string& value) { text(value); }
  void dump(const tsql::LiteralRef& literal) {
    put(static_cast<int>(literal.value.kind));
    text(literal.value.text);
  }
  void dump(const tsql::Expr& expr) {
    put("(", static_cast<int>(expr.kind), static_cast<int>(expr.op), expr.negated, expr.distinct,
        expr.has_else);
    text(expr.qualifier);
    text(expr.name);
    dump(expr.literal);
    dump(expr.args);
    dump(expr.select);
    put(")");
  }
  void dump(const tsql::SelectItem& item) {
    dump(item.value);
    text(item.alias);
  }
  void dump(const tsql::OrderItem& item) {
    dump(item.value);
    put(item.descending);
  }
  void dump(const tsql::TableRef& table) {
    put(static_cast<int>(table.join));
    text(table.table);
    text(table.alias);
    dump(table.derived);
    dump(table.on);
  }
  void dump(const tsql::Select& select) {
    put("select", select.distinct, select.union_all, select.top.has_value());
    if (select.top) dump(*select.top);
    dump(select.items);
    dump(select.from);
    dump(select.where);
    dump(select.group_by);
    dump(select.having);
    dump(select.order_by);
    dump(select.union_with);
  }
  void dump(const tsql::Insert& insert) {
    text(insert.table);
    dump(insert.columns);
    dump(insert.rows);
    dump(insert.select);
    if (insert.execute) dump(*insert.execute);
  }
  void dump(const tsql::Assignment& assignment) {
    text(assignment.qualifier);
    text(assignment.column);
    dump(assignment.value);
  }
  void dump(const tsql::Update& update) {
    text(update.table);
    dump(update.assignments);
    dump(update.from);
    dump(update.where);
  }
  void dump(const tsql::Delete& deletion) {
    text(deletion.table);
    dump(deletion.from);
    dump(deletion.where);
  }
  void dump(const tsql::Execute::Argument& argument) {
    text(argument.parameter);
    dump(argument.value);
  }
  void dump(const tsql::Execute& execute) {
    text(execute.procedure);
    dump(execute.arguments);
  }
  void dump(const tsql::ColumnDefinition& column) {
    text(column.name);
    text(column.type);
    put(column.not_null, column.primary_key, column.unique);
  }
  void dump(const tsql::CreateTable& create) {
    text(create.table);
    dump(create.columns);
    dump(create.primary_key);
  }
  void dump(const tsql::CreateIndex::Column& column) {
    text(column.name);
    put(column.descending);
  }
  void dump(const tsql::CreateIndex& create) {
    put(create.unique);
    text(create.name);
    text(create.table);
    dump(create.columns);
  }
  void dump(const tsql::DropTable& drop) { text(drop.table); }
  void dump(const tsql::CreateProcedure::Parameter& parameter) {
    text(parameter.name);
    text(parameter.type);
  }
  void dump(const tsql::CreateProcedure& create) {
    text(create.name);
    dump(create.parameters);
    dump(create.body);
  }
  void dump(const tsql::DropProcedure& drop) { text(drop.procedure); }

  std::ostringstream out_;
};

inline std::string dump(const tsql::Statement& statement) {
  return TreeDump().of(statement);
}

}  // namespace tela::test
