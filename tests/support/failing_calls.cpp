#include "support/failing_calls.h"

namespace tela::testing {
namespace {

// SQLite calls plain functions, so what they know stands here.
sqlite3_mem_methods system_memory;
FailingCalls* failing = nullptr;

/// SQLite takes other memory only while it is not at work.
void set_memory(const sqlite3_mem_methods& methods) {
  sqlite3_shutdown();
  sqlite3_config(SQLITE_CONFIG_MALLOC, &methods);
  sqlite3_initialize();
}

int code_of(const DiskCall& call, bool disk_is_full) {
  switch (call.kind) {
    case DiskCall::Kind::open:
      return SQLITE_CANTOPEN;
    case DiskCall::Kind::read:
      return SQLITE_IOERR_READ;
    case DiskCall::Kind::write:
      return disk_is_full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    case DiskCall::Kind::truncate:
      return SQLITE_IOERR_TRUNCATE;
    case DiskCall::Kind::sync:
      return SQLITE_IOERR_FSYNC;
    case DiskCall::Kind::lock:
      return SQLITE_IOERR_LOCK;
    case DiskCall::Kind::remove:
      return SQLITE_IOERR_DELETE;
  }
  return SQLITE_IOERR;
}

}  // namespace

void* FailingCalls::allocate(int bytes) {
  return failing->fails(Kind::memory) ? nullptr : system_memory.xMalloc(bytes);
}

void* FailingCalls::reallocate(void* block, int bytes) {
  return failing->fails(Kind::memory) ? nullptr : system_memory.xRealloc(block, bytes);
}

FailingCalls::FailingCalls() : disk_([this](const DiskCall& call) { return answer(call); }) {
  failing = this;
  sqlite3_shutdown();
  sqlite3_config(SQLITE_CONFIG_GETMALLOC, &system_memory);
  sqlite3_mem_methods methods = system_memory;
  methods.xMalloc = &allocate;
  methods.xRealloc = &reallocate;
  set_memory(methods);
  disk_.take_over();
}

FailingCalls::~FailingCalls() {
  set_memory(system_memory);
}

void FailingCalls::arm(Kind kind, int number, bool from_then_on) {
  kind_ = kind;
  number_ = number;
  from_then_on_ = from_then_on;
  calls_ = 0;
  has_failed_ = false;
  is_armed_ = true;
}

int FailingCalls::disarm() {
  is_armed_ = false;
  return calls_;
}

bool FailingCalls::fails(Kind kind) {
  if (!is_armed_ || kind != kind_) return false;
  const int call = ++calls_;
  const bool fails = number_ != 0 && (from_then_on_ ? call >= number_ : call == number_);
  if (fails) has_failed_ = true;
  return fails;
}

int FailingCalls::answer(const DiskCall& call) {
  return fails(Kind::disk) ? code_of(call, from_then_on_) : SQLITE_OK;
}

}  // namespace tela::testing
