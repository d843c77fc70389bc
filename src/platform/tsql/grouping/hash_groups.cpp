// Grouping by the client: select … group by becomes a select over finished groups.
//
//   select iName, sum(Qty) * 2 from Sales where BillDate = @d group by iName having count(*) > 1
//   select g.c0, g.c1 * 2 from groups of (select iName, Qty from Sales where BillDate = @d) as g
//     where g.c2 > 1
#include <algorithm>

#include "platform/tsql/functions.h"
#include "platform/tsql/grouping/group_plan.h"
#include "platform/tsql/grouping/rewrites.h"

namespace tela::tsql {
namespace {

constexpr int most_levels = 8;

// The expressions that are computed from finished groups.
void for_each_result(Select& select, const std::function<void(ExprPtr&)>& visit) {
  for (SelectItem& item : select.items) visit(item.value);
  if (select.having) visit(select.having);
  for (OrderItem& order : select.order_by) visit(order.value);
}

// A result may hold what the client computes, and no select that looks at the group's rows.
bool can_finish(ExprPtr& result) {
  bool can = true;
  for_each_own_node(result, [&](ExprPtr& node) {
    can = can && (!node->select || !reads_outer_columns(*node->select)) &&
          (!is_aggregate(*node) || is_simple_aggregate(*node));
  });
  return can;
}

std::size_t count_columns(Select& select) {
  std::size_t count = select.group_by.size();
  for_each_result(select, [&](ExprPtr& result) {
    for_each_own_node(result, [&](ExprPtr& node) { count += is_aggregate(*node) ? 1 : 0; });
  });
  return count;
}

// How many sources stand in one another, each a text within the next one's text, where every quote
// is doubled.
int count_levels(Select& select) {
  int levels = 0;
  for (const TableRef& table : select.from) {
    if (!table.derived) continue;
    levels = std::max(levels, count_levels(*table.derived) + (table.group_plan.empty() ? 0 : 1));
  }
  for_each_expression(select, [&](ExprPtr& root) {
    for_each_own_node(root, [&](ExprPtr& node) {
      if (node->select) levels = std::max(levels, count_levels(*node->select));
    });
  });
  return select.union_with ? std::max(levels, count_levels(*select.union_with)) : levels;
}

bool can_hash(Select& select) {
  // Without a key there is one group, and the engine sorts nothing.
  if (!select.is_grouped || select.group_by.empty() || select.from.empty()) return false;
  const auto has_type = [](const ExprPtr& key) { return key->type.kind != TypeKind::null; };
  bool can = std::ranges::all_of(select.group_by, has_type) && !reads_outer_columns(select) &&
             count_columns(select) <= most_group_columns && count_levels(select) < most_levels;
  for_each_result(select, [&](ExprPtr& result) { can = can && can_finish(result); });
  return can;
}

std::vector<std::size_t> literal_places(ExprPtr& expr) {
  std::vector<std::size_t> places;
  for_each_node(expr, [&](ExprPtr& node) {
    if (node->kind == ExprKind::literal) places.push_back(node->literal.index);
  });
  return places;
}

GroupColumn column_of(const Expr& aggregate) {
  const std::string_view name = aggregate.function->name;
  if (name == "count") {
    const bool of_rows = aggregate.args[0]->kind == ExprKind::star;
    return of_rows ? GroupColumn::count_rows : GroupColumn::count;
  }
  if (name == "sum") return GroupColumn::sum;
  if (name == "min") return GroupColumn::least;
  if (name == "max") return GroupColumn::greatest;
  const bool is_whole = aggregate.type.kind == TypeKind::integer;
  return is_whole ? GroupColumn::whole_average : GroupColumn::average;
}

// Splits one select.
class Split {
 public:
  explicit Split(Select& select) : select_(select), keys_(std::move(select.group_by)) {}

  void run() {
    plan_.assign(keys_.size(), static_cast<char>(GroupColumn::key));
    for_each_result(select_, [this](ExprPtr& result) {
      for_each_own_node(result, [this](ExprPtr& node) { replace(node); });
    });
    read_groups(make_source());
  }

 private:
  void replace(ExprPtr& node) {
    if (is_aggregate(*node)) {
      replace_by_column(node, aggregate_column(node));
    } else if (node->is_group_key) {
      replace_by_column(node, key_column(node));
    }
  }

  // Literals that are equal here may differ in the next statement that shares the compilation: the
  // same places first.
  std::size_t key_column(ExprPtr& node) {
    std::size_t equal = keys_.size();
    for (std::size_t i = keys_.size(); i-- > 0;) {
      if (!same_meaning(*keys_[i], *node)) continue;
      if (literal_places(keys_[i]) == literal_places(node)) return i;
      equal = i;
    }
    return equal;
  }

  std::size_t aggregate_column(ExprPtr& node) {
    const auto known = std::ranges::find_if(aggregates_, [&](ExprPtr& aggregate) {
      return same_meaning(*aggregate, *node) && literal_places(aggregate) == literal_places(node);
    });
    const auto position = static_cast<std::size_t>(known - aggregates_.begin());
    if (known == aggregates_.end()) {
      plan_ += static_cast<char>(column_of(*node));
      aggregates_.push_back(clone(*node));
    }
    return keys_.size() + position;
  }

  void replace_by_column(ExprPtr& node, std::size_t position) const {
    auto column = std::make_unique<Expr>();
    column->kind = ExprKind::column;
    column->position = node->position;
    column->name = node->name;
    column->type = node->type;
    column->source = source_number();
    column->column = "c" + std::to_string(position);
    node = std::move(column);
  }

  // The tables move into the source's own text, so that the number of one is free.
  int source_number() const { return select_.from.front().source; }

  SelectPtr make_source() {
    auto source = std::make_unique<Select>();
    for (ExprPtr& key : keys_) {
      key->is_group_key = false;
      source->items.push_back({std::move(key), {}});
    }
    for (const ExprPtr& aggregate : aggregates_) {
      ExprPtr& arg = aggregate->args[0];
      if (arg->kind != ExprKind::star) source->items.push_back({std::move(arg), {}});
    }
    source->from = std::move(select_.from);
    source->where = std::move(select_.where);
    return source;
  }

  void read_groups(SelectPtr source) {
    TableRef groups;
    groups.source = source->from.front().source;
    groups.derived = std::move(source);
    groups.group_plan = plan_;
    select_.from.clear();
    select_.from.push_back(std::move(groups));
    select_.where = std::move(select_.having);
    select_.group_by.clear();
    select_.is_grouped = false;
  }

  Select& select_;
  std::vector<ExprPtr> keys_;
  std::vector<ExprPtr> aggregates_;
  std::string plan_;
};

}  // namespace

void hash_groups(Select& select) {
  if (can_hash(select)) Split(select).run();
}

}  // namespace tela::tsql
