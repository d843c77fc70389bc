#include "platform/tsql/parser.h"

#include "platform/tsql/parser_impl.h"

namespace tela::tsql {
namespace {

constexpr int most_nesting = 100;

}  // namespace

Parsed parse(std::string_view sql) {
  return Parser(sql).parse_statement();
}

Parser::Nesting::Nesting(Parser& parser) : parser_(parser) {
  if (parser_.nesting_ >= most_nesting) {
    throw CompileError(CompileError::Kind::syntax, "The statement is nested too deeply.",
                       parser_.cursor_.current().position);
  }
  ++parser_.nesting_;
}

Parsed Parser::parse_statement() {
  Parsed parsed{parse_any()};
  while (cursor_.accept(";")) continue;
  if (cursor_.current().kind != TokenKind::end) cursor_.fail("the end of the statement");
  parsed.literal_count = cursor_.literals_passed();
  return parsed;
}

// statement := select | insert | update | delete | execute | create | drop
Statement Parser::parse_any() {
  if (cursor_.at("select")) return parse_select();
  if (cursor_.accept("insert")) return parse_insert();
  if (cursor_.accept("update")) return parse_update();
  if (cursor_.accept("delete")) return parse_delete();
  if (cursor_.accept("execute") || cursor_.accept("exec")) return parse_execute();
  if (cursor_.accept("create")) return parse_create();
  if (cursor_.accept("drop")) return parse_drop();
  cursor_.fail("a statement");
}

// insert := [into] table [(column, …)] (values row, … | select | execute)
Insert Parser::parse_insert() {
  cursor_.accept("into");
  Insert insert;
  insert.position = cursor_.current().position;
  insert.table = parse_object_name("a table");
  if (cursor_.at("(")) insert.columns = parse_name_list("a column");
  if (cursor_.accept("values")) {
    do {
      insert.rows.push_back(parse_row());
    } while (cursor_.accept(","));
  } else if (cursor_.accept("execute") || cursor_.accept("exec")) {
    insert.execute = parse_execute();
  } else if (cursor_.at("select")) {
    insert.select = parse_select();
  } else {
    cursor_.fail("values, a select or execute");
  }
  return insert;
}

std::vector<ExprPtr> Parser::parse_row() {
  cursor_.expect("(");
  std::vector<ExprPtr> row = parse_expression_list();
  cursor_.expect(")");
  return row;
}

// update := table set assignment, … [from …] [where condition]
Update Parser::parse_update() {
  Update update;
  update.position = cursor_.current().position;
  update.table = parse_object_name("a table");
  cursor_.expect("set");
  do {
    update.assignments.push_back(parse_assignment());
  } while (cursor_.accept(","));
  if (cursor_.accept("from")) update.from = parse_from();
  if (cursor_.accept("where")) update.where = parse_expression();
  return update;
}

// assignment := [table.]column = expression
Assignment Parser::parse_assignment() {
  Assignment assignment;
  assignment.position = cursor_.current().position;
  assignment.column = cursor_.expect_name("a column");
  if (cursor_.accept(".")) {
    assignment.qualifier = std::move(assignment.column);
    assignment.column = cursor_.expect_name("a column");
  }
  cursor_.expect("=");
  assignment.value = parse_expression();
  return assignment;
}

// delete := [from] table [from …] [where condition]
Delete Parser::parse_delete() {
  cursor_.accept("from");
  Delete deletion;
  deletion.position = cursor_.current().position;
  deletion.table = parse_object_name("a table");
  if (cursor_.accept("from")) deletion.from = parse_from();
  if (cursor_.accept("where")) deletion.where = parse_expression();
  return deletion;
}

// execute := procedure [[@name =] expression, …]
Execute Parser::parse_execute() {
  Execute execute;
  execute.position = cursor_.current().position;
  execute.procedure = parse_object_name("a procedure");
  if (cursor_.current().kind == TokenKind::end || cursor_.at(";")) return execute;
  do {
    Execute::Argument argument;
    if (cursor_.current().kind == TokenKind::variable) {
      argument.parameter = name_of(cursor_.current());
      cursor_.advance();
      cursor_.expect("=");
    }
    argument.value = parse_sign();
    const Expr& value =
        argument.value->kind == ExprKind::unary ? *argument.value->args[0] : *argument.value;
    if (value.kind != ExprKind::literal && value.kind != ExprKind::null_value) {
      cursor_.fail("a literal as argument");
    }
    execute.arguments.push_back(std::move(argument));
  } while (cursor_.accept(","));
  return execute;
}

std::vector<std::string> Parser::parse_name_list(std::string_view what) {
  cursor_.expect("(");
  std::vector<std::string> names;
  do {
    names.push_back(cursor_.expect_name(what));
  } while (cursor_.accept(","));
  cursor_.expect(")");
  return names;
}

std::string Parser::parse_object_name(std::string_view what) {
  std::string name = cursor_.expect_name(what);
  if (cursor_.accept(".")) name = cursor_.expect_name(what);
  return name;
}

}  // namespace tela::tsql
