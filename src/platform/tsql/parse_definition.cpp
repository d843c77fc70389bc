// Statements that create and drop tables, indexes and procedures.
#include "platform/tsql/parser_impl.h"

namespace tela::tsql {

// create := create (table … | [unique] index … | procedure …)
Statement Parser::parse_create() {
  if (cursor_.accept("table")) return parse_create_table();
  if (cursor_.accept("unique")) {
    cursor_.expect("index");
    return parse_create_index(true);
  }
  if (cursor_.accept("index")) return parse_create_index(false);
  if (cursor_.accept("procedure") || cursor_.accept("proc")) return parse_create_procedure();
  cursor_.fail("table, index or procedure");
}

// create table := name (column definition | primary key (column, …), …)
CreateTable Parser::parse_create_table() {
  CreateTable create;
  create.table = parse_object_name("a table name");
  cursor_.expect("(");
  do {
    if (cursor_.accept("primary")) {
      cursor_.expect("key");
      create.primary_key = parse_name_list("a column");
    } else {
      create.columns.push_back(parse_column_definition());
    }
  } while (cursor_.accept(","));
  cursor_.expect(")");
  return create;
}

// column definition := name type [null | not null | primary key | unique]…
ColumnDefinition Parser::parse_column_definition() {
  ColumnDefinition column;
  column.position = cursor_.current().position;
  column.name = cursor_.expect_name("a column");
  column.type = parse_type();
  while (true) {
    if (cursor_.accept("not")) {
      cursor_.expect("null");
      column.not_null = true;
    } else if (cursor_.accept("primary")) {
      cursor_.expect("key");
      column.primary_key = true;
    } else if (cursor_.accept("unique")) {
      column.unique = true;
    } else if (!cursor_.accept("null")) {
      return column;
    }
  }
}

// create index := name on table (column [asc | desc], …)
CreateIndex Parser::parse_create_index(bool unique) {
  CreateIndex create;
  create.unique = unique;
  create.position = cursor_.current().position;
  create.name = cursor_.expect_name("an index name");
  cursor_.expect("on");
  create.table = parse_object_name("a table");
  cursor_.expect("(");
  do {
    CreateIndex::Column column{cursor_.expect_name("a column")};
    column.descending = cursor_.accept("desc");
    if (!column.descending) cursor_.accept("asc");
    create.columns.push_back(std::move(column));
  } while (cursor_.accept(","));
  cursor_.expect(")");
  return create;
}

// create procedure := name [@parameter type, …] as [begin] select [end]
CreateProcedure Parser::parse_create_procedure() {
  CreateProcedure create;
  create.name = parse_object_name("a procedure name");
  if (cursor_.current().kind == TokenKind::variable) {
    do {
      if (cursor_.current().kind != TokenKind::variable) cursor_.fail("a parameter");
      CreateProcedure::Parameter parameter{
          cursor_.current().position, name_of(cursor_.current()), {}};
      cursor_.advance();
      parameter.type = parse_type();
      create.parameters.push_back(std::move(parameter));
    } while (cursor_.accept(","));
  }
  cursor_.expect("as");
  const bool is_block = cursor_.accept("begin");
  if (!cursor_.at("select")) cursor_.fail("a select");
  create.body = parse_select();
  if (is_block) {
    cursor_.accept(";");
    cursor_.expect("end");
  }
  return create;
}

// drop := drop (table | procedure) name
Statement Parser::parse_drop() {
  const bool is_table = cursor_.accept("table");
  if (!is_table && !cursor_.accept("procedure") && !cursor_.accept("proc")) {
    cursor_.fail("table or procedure");
  }
  const std::size_t position = cursor_.current().position;
  if (is_table) return DropTable{position, parse_object_name("a table")};
  return DropProcedure{position, parse_object_name("a procedure")};
}

// type := name [( number | max [, number] )]
std::string Parser::parse_type() {
  if (cursor_.current().kind != TokenKind::word) cursor_.fail("a type");
  std::string type = cursor_.expect_name("a type");
  if (!cursor_.accept("(")) return type;
  type += '(';
  do {
    if (type.back() != '(') type += ',';
    if (cursor_.current().kind != TokenKind::integer && !cursor_.at("max"))
      cursor_.fail("a length");
    type += cursor_.current().text;
    cursor_.advance();
  } while (cursor_.accept(","));
  cursor_.expect(")");
  return type + ')';
}

}  // namespace tela::tsql
