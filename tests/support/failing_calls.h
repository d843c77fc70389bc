// The n-th call of SQLite to the disk, or to memory, fails: once, or from then on.
#pragma once

#include <atomic>

#include "support/watched_disk.h"

namespace tela::testing {

class FailingCalls {
 public:
  enum class Kind { disk, memory };

  /// To be made while no connection is open; it outlives all that are opened afterwards.
  FailingCalls();
  ~FailingCalls();
  FailingCalls(const FailingCalls&) = delete;
  FailingCalls& operator=(const FailingCalls&) = delete;

  /// From now on calls are counted from 1, and the one of that number fails, or with `from_then_on`
  /// it and all that follow. 0 fails none and only counts.
  void arm(Kind kind, int number, bool from_then_on);
  /// No call fails any more. How many were made since arm().
  int disarm();
  /// Whether a call failed since arm().
  bool has_failed() const { return has_failed_; }

 private:
  bool fails(Kind kind);
  int answer(const DiskCall& call);
  static void* allocate(int bytes);
  static void* reallocate(void* block, int bytes);

  WatchedDisk disk_;
  std::atomic<bool> is_armed_ = false;
  std::atomic<bool> has_failed_ = false;
  std::atomic<int> calls_ = 0;
  Kind kind_ = Kind::disk;
  int number_ = 0;
  bool from_then_on_ = false;
};

}  // namespace tela::testing
