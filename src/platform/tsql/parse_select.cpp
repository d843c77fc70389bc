// The select statement.
#include "platform/tsql/parser_impl.h"

#include <algorithm>

namespace tela::tsql {
namespace {

constexpr int most_unions = 100;

constexpr std::string_view lock_hints[] = {"holdlock", "serializable", "updlock", "tablock",
                                           "tablockx"};

}  // namespace

// select := core [union [all] core]… [order by item, …]
SelectPtr Parser::parse_select() {
  const Nesting nesting(*this);
  SelectPtr first = parse_select_core();
  Select* last = first.get();
  for (int unions = 0; cursor_.accept("union"); ++unions) {
    if (unions == most_unions) cursor_.fail("at most 100 unions");
    last->union_all = cursor_.accept("all");
    last->union_with = parse_select_core();
    last = last->union_with.get();
  }
  if (cursor_.accept("order")) {
    cursor_.expect("by");
    first->order_by = parse_order_by();
  }
  return first;
}

// core := select [distinct | all] [top n] item, … [from …] [where …] [group by …] [having …]
SelectPtr Parser::parse_select_core() {
  cursor_.expect("select");
  auto select = std::make_unique<Select>();
  select->distinct = cursor_.accept("distinct");
  if (!select->distinct) cursor_.accept("all");
  if (cursor_.accept("top")) select->top = parse_top();
  do {
    select->items.push_back(parse_select_item());
  } while (cursor_.accept(","));
  if (cursor_.accept("from")) select->from = parse_from();
  if (cursor_.accept("where")) select->where = parse_expression();
  if (cursor_.accept("group")) {
    cursor_.expect("by");
    select->group_by = parse_expression_list();
  }
  if (cursor_.accept("having")) select->having = parse_expression();
  return select;
}

// top := top n | top (n)
LiteralRef Parser::parse_top() {
  const bool is_bracketed = cursor_.accept("(");
  const Token& number = cursor_.current();
  if (number.kind != TokenKind::integer || number.text[0] == '-') cursor_.fail("a number of rows");
  LiteralRef count = cursor_.take_literal();
  if (is_bracketed) cursor_.expect(")");
  return count;
}

// item := * | table.* | alias = expression | expression [[as] alias]
SelectItem Parser::parse_select_item() {
  SelectItem item;
  if (cursor_.at("*")) {
    item.value = make(ExprKind::star);
    cursor_.advance();
    return item;
  }
  if (cursor_.at_name() && cursor_.ahead().text == "." && cursor_.ahead(2).text == "*") {
    item.value = make(ExprKind::star);
    item.value->qualifier = cursor_.expect_name("a table");
    cursor_.expect(".");
    cursor_.expect("*");
    return item;
  }
  if (cursor_.at_name() && cursor_.ahead().text == "=") {
    item.alias = cursor_.expect_name("an alias");
    cursor_.expect("=");
    item.value = parse_expression();
    return item;
  }
  item.value = parse_expression();
  parse_alias(item);
  return item;
}

// alias := name | "name" | [name] | 'name'
void Parser::parse_alias(SelectItem& item) {
  const bool is_needed = cursor_.accept("as");
  if (cursor_.current().kind == TokenKind::text) {
    item.alias = cursor_.take_literal().value.text;
  } else if (is_needed || cursor_.at_name()) {
    item.alias = cursor_.expect_name("an alias");
  }
}

// from := table [, table | join table on condition]…
std::vector<TableRef> Parser::parse_from() {
  std::vector<TableRef> tables;
  tables.push_back(parse_table());
  for (JoinKind join{}; accept_join(join);) {
    tables.push_back(parse_table());
    TableRef& table = tables.back();
    table.join = join;
    if (join == JoinKind::comma || join == JoinKind::cross) continue;
    cursor_.expect("on");
    table.on = parse_expression();
  }
  return tables;
}

// table := name [[as] alias] [with (hint, …)] | (select) [as] alias
TableRef Parser::parse_table() {
  TableRef table;
  table.position = cursor_.current().position;
  if (cursor_.accept("(")) {
    table.derived = parse_select();
    cursor_.expect(")");
    cursor_.accept("as");
    table.alias = cursor_.expect_name("an alias");
    return table;
  }
  table.table = parse_object_name("a table");
  if (cursor_.accept("as") || cursor_.at_name()) table.alias = cursor_.expect_name("an alias");
  if (cursor_.accept("with")) pass_lock_hints();
  return table;
}

// A server locks rows as the hints say. Here a transaction that reads holds the right to write, and
// a reader sees one state throughout, so that there is nothing to ask for.
void Parser::pass_lock_hints() {
  cursor_.expect("(");
  do {
    const auto is_next = [&](std::string_view hint) { return cursor_.accept(hint); };
    if (std::ranges::none_of(lock_hints, is_next)) cursor_.fail("a lock hint");
  } while (cursor_.accept(","));
  cursor_.expect(")");
}

// join := , | [inner] join | (left | right | full) [outer] join | cross join
bool Parser::accept_join(JoinKind& join) {
  if (cursor_.accept(",")) {
    join = JoinKind::comma;
    return true;
  }
  if (cursor_.accept("join")) {
    join = JoinKind::inner;
    return true;
  }
  if (cursor_.accept("inner")) {
    join = JoinKind::inner;
  } else if (cursor_.accept("cross")) {
    join = JoinKind::cross;
  } else {
    if (cursor_.accept("left")) {
      join = JoinKind::left;
    } else if (cursor_.accept("right")) {
      join = JoinKind::right;
    } else if (cursor_.accept("full")) {
      join = JoinKind::full;
    } else {
      return false;
    }
    cursor_.accept("outer");
  }
  cursor_.expect("join");
  return true;
}

// order item := expression [asc | desc]
std::vector<OrderItem> Parser::parse_order_by() {
  std::vector<OrderItem> items;
  do {
    OrderItem item;
    item.value = parse_expression();
    item.descending = cursor_.accept("desc");
    if (!item.descending) cursor_.accept("asc");
    items.push_back(std::move(item));
  } while (cursor_.accept(","));
  return items;
}

// A select below an expression counts among the levels of its tree.
ExprPtr Parser::hold_select(ExprPtr holder, SelectPtr select) const {
  int depth = 0;
  for_each_expression(*select, [&](ExprPtr& expr) { depth = std::max(depth, expr->depth); });
  deepen(*holder, depth);
  holder->select = std::move(select);
  return holder;
}

}  // namespace tela::tsql
