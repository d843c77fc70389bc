// Expressions, one method a level of precedence. A condition and a value share the grammar; the
// binder tells them apart.
#include "platform/tsql/parser_impl.h"

#include <algorithm>
#include <array>

namespace tela::tsql {
namespace {

// A tree is walked by recursion later on, and the engine bounds its own; a chain of operators grows
// the tree without nesting in the text.
constexpr int most_levels = 250;

Operator comparison(const Token& token) {
  if (token.kind != TokenKind::symbol) return Operator::none;
  const std::string_view text = token.text;
  if (text == "=") return Operator::equal;
  if (text == "<>" || text == "!=") return Operator::not_equal;
  if (text == "<") return Operator::less;
  if (text == "<=" || text == "!>") return Operator::less_equal;
  if (text == ">") return Operator::greater;
  if (text == ">=" || text == "!<") return Operator::greater_equal;
  return Operator::none;
}

}  // namespace

ExprPtr Parser::make(ExprKind kind) const {
  auto expr = std::make_unique<Expr>();
  expr->kind = kind;
  expr->position = cursor_.current().position;
  return expr;
}

void Parser::add_arg(Expr& expr, ExprPtr arg) const {
  deepen(expr, arg->depth);
  expr.args.push_back(std::move(arg));
}

void Parser::deepen(Expr& expr, int levels_below) const {
  expr.depth = std::max(expr.depth, levels_below + 1);
  if (expr.depth > most_levels) {
    throw CompileError(CompileError::Kind::syntax, "The expression is nested too deeply.",
                       expr.position);
  }
}

ExprPtr Parser::make_operation(ExprKind kind, Operator op, ExprPtr left, ExprPtr right) {
  ExprPtr expr = make(kind);
  expr->op = op;
  expr->position = left->position;
  add_arg(*expr, std::move(left));
  if (right) add_arg(*expr, std::move(right));
  return expr;
}

std::vector<ExprPtr> Parser::parse_expression_list() {
  std::vector<ExprPtr> list;
  do {
    list.push_back(parse_expression());
  } while (cursor_.accept(","));
  return list;
}

// expression := and [or and]…
ExprPtr Parser::parse_expression() {
  const Nesting nesting(*this);
  ExprPtr left = parse_and();
  while (cursor_.accept("or")) {
    left = make_operation(ExprKind::binary, Operator::logical_or, std::move(left), parse_and());
  }
  return left;
}

// and := not [and not]…
ExprPtr Parser::parse_and() {
  ExprPtr left = parse_not();
  while (cursor_.accept("and")) {
    left = make_operation(ExprKind::binary, Operator::logical_and, std::move(left), parse_not());
  }
  return left;
}

// not := not not | predicate
ExprPtr Parser::parse_not() {
  if (!cursor_.accept("not")) return parse_predicate();
  const Nesting nesting(*this);
  return make_operation(ExprKind::unary, Operator::logical_not, parse_not(), nullptr);
}

// predicate := sum [comparison sum | is [not] null | [not] (in … | between sum and sum | like sum)]
ExprPtr Parser::parse_predicate() {
  ExprPtr left = parse_sum();
  if (const Operator op = comparison(cursor_.current()); op != Operator::none) {
    cursor_.advance();
    return make_operation(ExprKind::binary, op, std::move(left), parse_sum());
  }
  if (cursor_.accept("is")) {
    const bool negated = cursor_.accept("not");
    cursor_.expect("null");
    ExprPtr test = make_operation(ExprKind::is_null, Operator::none, std::move(left), nullptr);
    test->negated = negated;
    return test;
  }
  const bool negated = cursor_.accept("not");
  ExprPtr test;
  if (cursor_.accept("in")) {
    test = parse_in(std::move(left));
  } else if (cursor_.accept("between")) {
    test = make_operation(ExprKind::between, Operator::none, std::move(left), parse_sum());
    cursor_.expect("and");
    add_arg(*test, parse_sum());
  } else if (cursor_.accept("like")) {
    test = make_operation(ExprKind::like, Operator::none, std::move(left), parse_sum());
  } else if (negated) {
    cursor_.fail("in, between or like");
  } else {
    return left;
  }
  test->negated = negated;
  return test;
}

// in := ( select ) | ( expression, … )
ExprPtr Parser::parse_in(ExprPtr left) {
  cursor_.expect("(");
  ExprPtr test;
  if (cursor_.at("select")) {
    test = make_operation(ExprKind::in_select, Operator::none, std::move(left), nullptr);
    test = hold_select(std::move(test), parse_select());
  } else {
    test = make_operation(ExprKind::in_list, Operator::none, std::move(left), nullptr);
    for (ExprPtr& member : parse_expression_list()) add_arg(*test, std::move(member));
  }
  cursor_.expect(")");
  return test;
}

// sum := product [(+ | -) product]…
ExprPtr Parser::parse_sum() {
  ExprPtr left = parse_product();
  while (cursor_.at("+") || cursor_.at("-")) {
    const Operator op = cursor_.at("+") ? Operator::plus : Operator::minus;
    cursor_.advance();
    left = make_operation(ExprKind::binary, op, std::move(left), parse_product());
  }
  return left;
}

// product := sign [(* | / | %) sign]…
ExprPtr Parser::parse_product() {
  ExprPtr left = parse_sign();
  while (cursor_.at("*") || cursor_.at("/") || cursor_.at("%")) {
    const Operator op = cursor_.at("*")   ? Operator::times
                        : cursor_.at("/") ? Operator::divide
                                          : Operator::modulo;
    cursor_.advance();
    left = make_operation(ExprKind::binary, op, std::move(left), parse_sign());
  }
  return left;
}

// sign := [+ | -] sign | primary
ExprPtr Parser::parse_sign() {
  if (!cursor_.at("+") && !cursor_.at("-")) return parse_primary();
  const Nesting nesting(*this);
  const Operator op = cursor_.at("+") ? Operator::plus : Operator::minus;
  cursor_.advance();
  return make_operation(ExprKind::unary, op, parse_sign(), nullptr);
}

// primary := literal | null | @variable | (…) | case | exists | cast | convert | call | column
ExprPtr Parser::parse_primary() {
  if (is_literal(cursor_.current().kind)) {
    ExprPtr literal = make(ExprKind::literal);
    literal->literal = cursor_.take_literal();
    return literal;
  }
  if (cursor_.current().kind == TokenKind::variable) {
    ExprPtr variable = make(ExprKind::variable);
    variable->name = name_of(cursor_.current());
    cursor_.advance();
    return variable;
  }
  if (cursor_.at("(")) return parse_parenthesis();
  if (cursor_.at("case")) return parse_case();
  if (cursor_.at("null")) {
    ExprPtr null = make(ExprKind::null_value);
    cursor_.advance();
    return null;
  }
  if (cursor_.at("exists")) {
    ExprPtr test = make(ExprKind::exists);
    cursor_.advance();
    cursor_.expect("(");
    test = hold_select(std::move(test), parse_select());
    cursor_.expect(")");
    return test;
  }
  const bool is_call = cursor_.ahead().text == "(" && cursor_.ahead().kind == TokenKind::symbol;
  if (is_call && cursor_.at("cast")) return parse_cast();
  if (is_call && cursor_.at("convert")) return parse_convert();
  if (is_call && (cursor_.at_name() || cursor_.at("left") || cursor_.at("right")))
    return parse_call();
  return parse_column();
}

// parenthesis := ( select ) | ( expression )
ExprPtr Parser::parse_parenthesis() {
  ExprPtr inner;
  if (cursor_.ahead().kind == TokenKind::word && same_name(cursor_.ahead().text, "select")) {
    inner = make(ExprKind::subquery);
    cursor_.advance();
    inner = hold_select(std::move(inner), parse_select());
  } else {
    cursor_.advance();
    inner = parse_expression();
  }
  cursor_.expect(")");
  return inner;
}

// case := case [expression] (when expression then expression)… [else expression] end
ExprPtr Parser::parse_case() {
  ExprPtr choice = make(ExprKind::searched_case);
  cursor_.expect("case");
  if (!cursor_.at("when")) {
    choice->kind = ExprKind::simple_case;
    add_arg(*choice, parse_expression());
  }
  if (!cursor_.at("when")) cursor_.fail("'when'");
  while (cursor_.accept("when")) {
    add_arg(*choice, parse_expression());
    cursor_.expect("then");
    add_arg(*choice, parse_expression());
  }
  choice->has_else = cursor_.accept("else");
  if (choice->has_else) add_arg(*choice, parse_expression());
  cursor_.expect("end");
  return choice;
}

// cast := cast ( expression as type )
ExprPtr Parser::parse_cast() {
  ExprPtr cast = make(ExprKind::cast);
  cursor_.advance();
  cursor_.expect("(");
  add_arg(*cast, parse_expression());
  cursor_.expect("as");
  cast->name = parse_type();
  cursor_.expect(")");
  return cast;
}

// convert := convert ( type , expression [, style] )
ExprPtr Parser::parse_convert() {
  ExprPtr cast = make(ExprKind::cast);
  cursor_.advance();
  cursor_.expect("(");
  cast->name = parse_type();
  cursor_.expect(",");
  add_arg(*cast, parse_expression());
  if (cursor_.accept(",")) {
    if (cursor_.current().kind != TokenKind::integer) cursor_.fail("a style number");
    add_arg(*cast, parse_primary());
  }
  cursor_.expect(")");
  return cast;
}

// call := name ( [* | [distinct] expression, …] )
ExprPtr Parser::parse_call() {
  ExprPtr call = make(ExprKind::call);
  call->name = name_of(cursor_.current());
  cursor_.advance();
  cursor_.expect("(");
  if (cursor_.accept(")")) return call;
  if (cursor_.at("*")) {
    add_arg(*call, make(ExprKind::star));
    cursor_.advance();
  } else {
    call->distinct = cursor_.accept("distinct");
    if (!call->distinct) cursor_.accept("all");
    for (ExprPtr& arg : parse_expression_list()) add_arg(*call, std::move(arg));
  }
  cursor_.expect(")");
  return call;
}

// column := [[schema.]table.]name
ExprPtr Parser::parse_column() {
  ExprPtr column = make(ExprKind::column);
  column->name = cursor_.expect_name("an expression");
  while (cursor_.accept(".")) {
    column->qualifier = std::move(column->name);
    column->name = cursor_.expect_name("a column");
  }
  return column;
}

}  // namespace tela::tsql
