// The columns of an ODBC result and their values, as the client's types.
#pragma once

#include <string>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/odbc/driver_text.h"

namespace tela::odbc {

/// How a column's values are asked for. The way decides which digits a driver keeps:
/// - money as a double: drivers write only two of its four decimals into a text;
/// - real as a double: drivers cut its text to seven digits;
/// - a decimal as text: all its digits, which a double does not hold.
enum class Fetch { whole, number, real, money, decimal, date, time, timestamp, text };

struct Column {
  Field field;
  Fetch fetch = Fetch::text;
  int scale = 0;  ///< decimals behind the point of money and decimals
};

/// The columns of the statement's current result; none if it is not one of rows.
std::vector<Column> describe_columns(SQLHSTMT statement, DriverText form);

/// The value of column `position` (from 1) of the current row. False if the driver failed.
bool read_value(SQLHSTMT statement, SQLUSMALLINT position, const Column& column, DriverText form,
                Value& value);

/// Settles the columns of date and time of day, whose kind only their rows show. read_value() gives
/// them as texts "yyyy-mm-dd hh:mm:ss"; all at midnight are dates, all on a day zero of times are
/// times, others stay texts, so that nothing of them is lost.
void settle_timestamps(const std::vector<Column>& columns, RowSet& rows);

/// Settles the columns of date and time of day in one row by itself: midnight is a date, a day zero
/// of times a time, any other stays a text. Each form brings back the same moment.
void settle_timestamps(const std::vector<Column>& columns, std::vector<Value>& row);

}  // namespace tela::odbc
