// The rewrites by name; rewrite.cpp holds their order.
#pragma once

#include "platform/tsql/ast.h"

namespace tela::tsql {

/// Joins the sums of all keys to a select that asks for the sum of each row's key. Comes before
/// what is done with the tables of the select, of which it makes more.
void decorrelate_sums(Select& select);

/// distinct -> group by all columns: of several spellings that are one text, the group shows the
/// same one whichever way the rows are read.
void group_distinct(Select& select);

/// Sorts what a grouped select leaves open by its keys, so that equal rows of its order by, and
/// those without any, come in one order whichever way the groups are made.
void order_groups(Select& select);

/// Lets the client make the groups: the select's rows become the source, and the select itself
/// reads the finished groups. Leaves alone what the client cannot group.
void hash_groups(Select& select);

/// Notes the literals that bound the days of a source that the client groups. Leaves alone a source
/// that reads a temporary table, which no other connection sees, or more than plain tables.
void divide_groups(Select& select);

}  // namespace tela::tsql
