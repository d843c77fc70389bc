#include "tsql/printer.h"

#include <span>
#include <string_view>

#include "platform/tsql/lexer.h"
#include "platform/tsql/token_cursor.h"

namespace tela::test {
namespace {

using namespace tsql;

// How tightly an expression holds together; one that stands where a tighter one is needed gets
// brackets.
enum Level { loosest, or_level, and_level, not_level, predicate, sum, product, sign, primary };

// A name bare if it reads as one, else in brackets. cast and convert have a grammar of their own.
std::string name(std::string_view text) {
  Lexer lexer(text);
  const bool is_bare = [&] {
    try {
      const Token token = lexer.next();
      return token.kind == TokenKind::word && token.text == text && !is_reserved(text) &&
             !same_name(text, "cast") && !same_name(text, "convert");
    } catch (const CompileError&) {
      return false;
    }
  }();
  if (is_bare) return std::string(text);
  std::string quoted = "[";
  for (const char c : text) {
    quoted += c;
    if (c == ']') quoted += c;
  }
  return quoted + ']';
}

std::string qualified(std::string_view qualifier, std::string_view text) {
  return qualifier.empty() ? name(text) : name(qualifier) + "." + name(text);
}

std::string literal(const Literal& value) {
  if (value.kind != LiteralKind::text) {
    return value.text.starts_with('-') ? "(" + value.text + ")" : value.text;
  }
  std::string quoted = "'";
  for (const char c : value.text) {
    quoted += c;
    if (c == '\'') quoted += c;
  }
  return quoted + '\'';
}

template <typename List, typename Write>
std::string joined(const List& list, Write write) {
  std::string text;
  for (const auto& element : list) {
    if (!text.empty()) text += ", ";
    text += write(element);
  }
  return text;
}

std::string print(const Select& select);
std::string print(const Expr& expr, Level least);

std::string expression(const ExprPtr& expr) {
  return print(*expr, loosest);
}

std::string clause(std::string_view words, const ExprPtr& condition) {
  return condition ? std::string(words) + expression(condition) : "";
}

struct OperatorText {
  Level level;
  std::string_view text;
};

OperatorText operator_text(Operator op) {
  switch (op) {
    case Operator::plus:
      return {sum, " + "};
    case Operator::minus:
      return {sum, " - "};
    case Operator::times:
      return {product, " * "};
    case Operator::divide:
      return {product, " / "};
    case Operator::modulo:
      return {product, " % "};
    case Operator::equal:
      return {predicate, " = "};
    case Operator::not_equal:
      return {predicate, " <> "};
    case Operator::less:
      return {predicate, " < "};
    case Operator::less_equal:
      return {predicate, " <= "};
    case Operator::greater:
      return {predicate, " > "};
    case Operator::greater_equal:
      return {predicate, " >= "};
    case Operator::logical_and:
      return {and_level, " and "};
    case Operator::logical_or:
      return {or_level, " or "};
    default:
      return {loosest, ""};
  }
}

Level level_of(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::unary:
      return expr.op == Operator::logical_not ? not_level : sign;
    case ExprKind::binary:
      return operator_text(expr.op).level;
    case ExprKind::is_null:
    case ExprKind::in_list:
    case ExprKind::in_select:
    case ExprKind::between:
    case ExprKind::like:
      return predicate;
    default:
      return primary;
  }
}

// Operators of one level group from the left; predicates do not chain.
std::string binary(const Expr& expr) {
  const auto [level, text] = operator_text(expr.op);
  const Level left = level == predicate ? sum : level;
  const Level right = static_cast<Level>(level + 1);
  return print(*expr.args[0], left) + std::string(text) + print(*expr.args[1], right);
}

std::string unary(const Expr& expr) {
  if (expr.op == Operator::logical_not) return "not " + print(*expr.args[0], not_level);
  // The blank keeps a sign apart from the digits behind it, which would make it the number's own.
  return (expr.op == Operator::minus ? "- " : "+ ") + print(*expr.args[0], sign);
}

std::string case_of(const Expr& expr) {
  std::string text = "case";
  std::size_t i = 0;
  if (expr.kind == ExprKind::simple_case) text += " " + expression(expr.args[i++]);
  const std::size_t behind_pairs = expr.args.size() - (expr.has_else ? 1 : 0);
  for (; i < behind_pairs; i += 2) {
    text += " when " + expression(expr.args[i]) + " then " + expression(expr.args[i + 1]);
  }
  if (expr.has_else) text += " else " + expression(expr.args.back());
  return text + " end";
}

std::string call(const Expr& expr) {
  const bool is_word = same_name(expr.name, "left") || same_name(expr.name, "right");
  return (is_word ? expr.name : name(expr.name)) + "(" + (expr.distinct ? "distinct " : "") +
         joined(expr.args, expression) + ")";
}

std::string cast(const Expr& expr) {
  std::string text = "convert(" + expr.name + ", " + expression(expr.args[0]);
  if (expr.args.size() > 1) text += ", " + expr.args[1]->literal.value.text;
  return text + ")";
}

std::string bare(const Expr& expr) {
  const std::string negation = expr.negated ? "not " : "";
  switch (expr.kind) {
    case ExprKind::literal:
      return literal(expr.literal.value);
    case ExprKind::null_value:
      return "null";
    case ExprKind::column:
      return qualified(expr.qualifier, expr.name);
    case ExprKind::star:
      return expr.qualifier.empty() ? "*" : name(expr.qualifier) + ".*";
    case ExprKind::variable:
      return expr.name;
    case ExprKind::unary:
      return unary(expr);
    case ExprKind::binary:
      return binary(expr);
    case ExprKind::is_null:
      return print(*expr.args[0], sum) + " is " + negation + "null";
    case ExprKind::in_list:
      return print(*expr.args[0], sum) + " " + negation + "in (" +
             joined(std::span(expr.args).subspan(1), expression) + ")";
    case ExprKind::in_select:
      return print(*expr.args[0], sum) + " " + negation + "in (" + print(*expr.select) + ")";
    case ExprKind::between:
      return print(*expr.args[0], sum) + " " + negation + "between " + print(*expr.args[1], sum) +
             " and " + print(*expr.args[2], sum);
    case ExprKind::like:
      return print(*expr.args[0], sum) + " " + negation + "like " + print(*expr.args[1], sum);
    case ExprKind::exists:
      return "exists (" + print(*expr.select) + ")";
    case ExprKind::subquery:
      return "(" + print(*expr.select) + ")";
    case ExprKind::simple_case:
    case ExprKind::searched_case:
      return case_of(expr);
    case ExprKind::call:
      return call(expr);
    case ExprKind::cast:
      return cast(expr);
    case ExprKind::conversion:
      return expression(expr.args[0]);
  }
  return "";
}

std::string print(const Expr& expr, Level least) {
  return level_of(expr) < least ? "(" + bare(expr) + ")" : bare(expr);
}

std::string_view join_words(JoinKind join) {
  switch (join) {
    case JoinKind::first:
      return "";
    case JoinKind::comma:
      return ", ";
    case JoinKind::inner:
      return " join ";
    case JoinKind::left:
      return " left join ";
    case JoinKind::right:
      return " right join ";
    case JoinKind::full:
      return " full join ";
    case JoinKind::cross:
      return " cross join ";
  }
  return "";
}

std::string from(const std::vector<TableRef>& tables) {
  std::string text = tables.empty() ? "" : " from ";
  for (const TableRef& table : tables) {
    text += join_words(table.join);
    text += table.derived ? "(" + print(*table.derived) + ")" : name(table.table);
    if (!table.alias.empty()) text += " as " + name(table.alias);
    text += clause(" on ", table.on);
  }
  return text;
}

// In brackets, an equation is none that names a column.
std::string item(const SelectItem& item) {
  return print(*item.value, sum) + (item.alias.empty() ? "" : " as " + name(item.alias));
}

std::string order(const OrderItem& item) {
  return expression(item.value) + (item.descending ? " desc" : "");
}

std::string core(const Select& select) {
  std::string text = select.distinct ? "select distinct " : "select ";
  if (select.top) text += "top " + select.top->value.text + " ";
  text += joined(select.items, item) + from(select.from) + clause(" where ", select.where);
  if (!select.group_by.empty()) text += " group by " + joined(select.group_by, expression);
  return text + clause(" having ", select.having);
}

std::string print(const Select& select) {
  std::string text = core(select);
  for (const Select* last = &select; last->union_with; last = last->union_with.get()) {
    text += (last->union_all ? " union all " : " union ") + core(*last->union_with);
  }
  if (!select.order_by.empty()) text += " order by " + joined(select.order_by, order);
  return text;
}

std::string names(const std::vector<std::string>& list) {
  return "(" + joined(list, [](const std::string& text) { return name(text); }) + ")";
}

struct PrintStatement {
  std::string operator()(const SelectPtr& select) const { return print(*select); }

  std::string operator()(const Insert& insert) const {
    std::string text = "insert into " + name(insert.table);
    if (!insert.columns.empty()) text += " " + names(insert.columns);
    if (insert.execute) return text + " " + (*this)(*insert.execute);
    if (insert.select) return text + " " + print(*insert.select);
    return text + " values " +
           joined(insert.rows, [](const auto& row) { return "(" + joined(row, expression) + ")"; });
  }

  std::string operator()(const Update& update) const {
    return "update " + name(update.table) + " set " +
           joined(update.assignments,
                  [](const Assignment& assignment) {
                    return qualified(assignment.qualifier, assignment.column) + " = " +
                           expression(assignment.value);
                  }) +
           from(update.from) + clause(" where ", update.where);
  }

  std::string operator()(const Delete& deletion) const {
    return "delete from " + name(deletion.table) + from(deletion.from) +
           clause(" where ", deletion.where);
  }

  std::string operator()(const Execute& execute) const {
    return "execute " + name(execute.procedure) + (execute.arguments.empty() ? "" : " ") +
           joined(execute.arguments, [](const Execute::Argument& argument) {
             return (argument.parameter.empty() ? "" : argument.parameter + " = ") +
                    expression(argument.value);
           });
  }

  std::string operator()(const CreateTable& create) const {
    std::string text = "create table " + name(create.table) + " (" + joined(create.columns, column);
    if (!create.primary_key.empty()) text += ", primary key " + names(create.primary_key);
    return text + ")";
  }

  static std::string column(const ColumnDefinition& column) {
    return name(column.name) + " " + column.type + (column.not_null ? " not null" : "") +
           (column.primary_key ? " primary key" : "") + (column.unique ? " unique" : "");
  }

  std::string operator()(const CreateIndex& create) const {
    return std::string("create ") + (create.unique ? "unique " : "") + "index " +
           name(create.name) + " on " + name(create.table) + " (" +
           joined(create.columns,
                  [](const CreateIndex::Column& column) {
                    return name(column.name) + (column.descending ? " desc" : "");
                  }) +
           ")";
  }

  std::string operator()(const DropTable& drop) const { return "drop table " + name(drop.table); }

  std::string operator()(const CreateProcedure& create) const {
    return "create procedure " + name(create.name) + (create.parameters.empty() ? "" : " ") +
           joined(create.parameters,
                  [](const auto& parameter) { return parameter.name + " " + parameter.type; }) +
           " as " + print(*create.body);
  }

  std::string operator()(const DropProcedure& drop) const {
    return "drop procedure " + name(drop.procedure);
  }
};

}  // namespace

std::string print(const tsql::Statement& statement) {
  return std::visit(PrintStatement{}, statement);
}

}  // namespace tela::test
