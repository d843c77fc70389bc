#include "platform/tsql/conversions.h"

#include "platform/tsql/functions.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

void check_clash(const Expr& expr, const Type& type) {
  const bool one_is_calendar = is_calendar(expr.type) || is_calendar(type);
  if (one_is_calendar && expr.type.kind != type.kind && !is_text(expr.type) && !is_text(type)) {
    throw_type_clash(expr.type, type, expr.position);
  }
}

void wrap(ExprPtr& expr, const Type& type, const ColumnTarget& target) {
  auto conversion = std::make_unique<Expr>();
  conversion->kind = ExprKind::conversion;
  conversion->position = expr->position;
  conversion->depth = expr->depth + 1;
  conversion->type = type;
  conversion->target = target;
  conversion->fits_column = true;
  conversion->args.push_back(std::move(expr));
  expr = std::move(conversion);
}

// Whether every value of `source` is one of `target` as it stands.
bool is_contained(const Type& source, const Type& target) {
  switch (target.kind) {
    case TypeKind::text:
      return is_text(source) &&
             (target.length == 0 || (source.length != 0 && source.length <= target.length));
    case TypeKind::integer:
      return source.kind == TypeKind::integer && source.precision <= target.precision;
    case TypeKind::decimal:
      return is_whole(source) && target.scale == 0
                 ? source.precision <= target.precision
                 : source.kind == TypeKind::decimal && source.scale <= target.scale &&
                       source.precision <= target.precision;
    case TypeKind::real:
      return is_numeric(source);
    default:
      return source.kind == target.kind;
  }
}

}  // namespace

bool is_str_call(const Expr& expr) {
  return expr.function != nullptr && expr.function->name == "str";
}

void unify(ExprPtr& expr, const Type& type) {
  const bool is_same_class =
      expr->type.kind == type.kind || (is_numeric(expr->type) && is_numeric(type));
  if (expr->type.kind == TypeKind::null || type.kind == TypeKind::null || is_same_class) return;
  check_clash(*expr, type);
  if (expr->kind == ExprKind::literal) {
    expr->type = type;
    return;
  }
  wrap(expr, is_str_call(*expr) && is_numeric(type) ? real_type : type, {});
}

void assign(ExprPtr& expr, const Type& type, const ColumnTarget& target) {
  if (expr->type.kind == TypeKind::null) return;
  check_clash(*expr, type);
  if (expr->kind == ExprKind::literal) {
    expr->type = type;
    expr->target = target;
  } else if (!is_contained(expr->type, type)) {
    wrap(expr, type, target);
  }
}

}  // namespace tela::tsql
