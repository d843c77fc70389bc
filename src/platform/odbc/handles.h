// ODBC handles as values that free themselves.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <utility>

namespace tela::odbc {

/// One ODBC handle of the kind `Type` (SQL_HANDLE_ENV, …). Empty if its allocation failed.
template <SQLSMALLINT Type>
class Handle {
 public:
  /// Allocates a handle under `parent`, which must outlive it (null for an environment).
  explicit Handle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(Type, parent, &handle_))) handle_ = nullptr;
  }
  ~Handle() {
    if (handle_ != nullptr) SQLFreeHandle(Type, handle_);
  }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&&) = delete;
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

  static constexpr SQLSMALLINT type = Type;

 private:
  SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace tela::odbc
