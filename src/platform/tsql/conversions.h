// Implicit conversions: what happens when an expression of one type stands where another is needed.
#pragma once

#include "platform/tsql/ast.h"

namespace tela::tsql {

/// Whether the expression is a call of `str`. Where its text goes straight into a number (a numeric
/// column, arithmetic, a comparison with a number), what arrives is the number, rounded to its
/// decimals: the asterisks of one that does not fit are for texts that are shown.
bool is_str_call(const Expr& expr);

/// Brings a bound expression to the class of `type` (number, text, date, time) so that both can
/// meet in one operation. A literal is converted when it is bound, anything else by a conversion
/// node. Numbers of all kinds meet as they are. Throws CompileError for a number that meets a date.
void unify(ExprPtr& expr, const Type& type);

/// Brings a bound expression to exactly what a column of `type` holds: rounded or cut to whole,
/// within its range, not longer than its length. `target` names the column in errors; it may be
/// empty.
void assign(ExprPtr& expr, const Type& type, const ColumnTarget& target);

}  // namespace tela::tsql
