// The parser's inside: one method a rule of the grammar, spread over parser.cpp (statements),
// parse_select.cpp and parse_expression.cpp.
#pragma once

#include <string_view>

#include "platform/tsql/ast.h"
#include "platform/tsql/parser.h"
#include "platform/tsql/token_cursor.h"

namespace tela::tsql {

class Parser {
 public:
  explicit Parser(std::string_view sql) : cursor_(sql) {}

  /// The whole text as one statement.
  Parsed parse_statement();

 private:
  /// Counts how deep the rules call each other, and throws where the stack would be at risk.
  class Nesting {
   public:
    explicit Nesting(Parser& parser);
    ~Nesting() { --parser_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    Parser& parser_;
  };

  // Statements.
  Statement parse_any();
  Insert parse_insert();
  std::vector<ExprPtr> parse_row();
  Update parse_update();
  Assignment parse_assignment();
  Delete parse_delete();
  Execute parse_execute();
  Statement parse_create();
  CreateTable parse_create_table();
  ColumnDefinition parse_column_definition();
  CreateIndex parse_create_index(bool unique);
  CreateProcedure parse_create_procedure();
  Statement parse_drop();
  std::vector<std::string> parse_name_list(std::string_view what);
  /// name, or schema.name; the schema is passed over.
  std::string parse_object_name(std::string_view what);
  /// A type as it is written: name, name(10), name(18,0).
  std::string parse_type();

  // Selects.
  SelectPtr parse_select();
  SelectPtr parse_select_core();
  LiteralRef parse_top();
  SelectItem parse_select_item();
  void parse_alias(SelectItem& item);
  std::vector<TableRef> parse_from();
  TableRef parse_table();
  void pass_lock_hints();
  bool accept_join(JoinKind& join);
  std::vector<OrderItem> parse_order_by();

  // Expressions, loosest first.
  ExprPtr parse_expression();
  ExprPtr parse_and();
  ExprPtr parse_not();
  ExprPtr parse_predicate();
  ExprPtr parse_in(ExprPtr left);
  ExprPtr parse_sum();
  ExprPtr parse_product();
  ExprPtr parse_sign();
  ExprPtr parse_primary();
  ExprPtr parse_parenthesis();
  ExprPtr parse_case();
  ExprPtr parse_cast();
  ExprPtr parse_convert();
  ExprPtr parse_call();
  ExprPtr parse_column();
  std::vector<ExprPtr> parse_expression_list();

  ExprPtr make(ExprKind kind) const;
  ExprPtr make_operation(ExprKind kind, Operator op, ExprPtr left, ExprPtr right);
  void add_arg(Expr& expr, ExprPtr arg) const;
  ExprPtr hold_select(ExprPtr holder, SelectPtr select) const;
  /// Notes that `expr` stands over a tree of so many levels; throws if they are too many.
  void deepen(Expr& expr, int levels_below) const;

  TokenCursor cursor_;
  int nesting_ = 0;
};

}  // namespace tela::tsql
