// What is kept of one aggregate of one group.
#pragma once

#include <cstdint>
#include <variant>

#include "platform/embedded/grouping/exact_sum.h"
#include "platform/embedded/grouping/group_value.h"
#include "platform/tsql/grouping/group_plan.h"

namespace tela::embedded {

/// An aggregate while rows are added: a number of rows, a sum, or the least or greatest value.
using Total = std::variant<std::int64_t, ExactSum, tsql::StoredValue>;

/// The aggregate over no rows.
Total empty_total(tsql::GroupColumn kind);

/// Adds one row's value to it; a null adds nothing.
void add_value(Total& total, tsql::GroupColumn kind, const RowValue& value);

/// Adds what another total of the same kind holds.
void add_total(Total& total, tsql::GroupColumn kind, Total&& other);

/// The aggregate of all rows. Throws tsql::CompileError for a sum that is too large.
tsql::StoredValue finish(const Total& total, tsql::GroupColumn kind);

}  // namespace tela::embedded
