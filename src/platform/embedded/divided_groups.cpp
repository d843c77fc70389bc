#include "platform/embedded/divided_groups.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <future>
#include <memory>
#include <utility>
#include <vector>

#include "platform/embedded/division.h"

namespace tela::embedded {
namespace {

/// One connection's share. What is prepared belongs to the thread that reads.
class Reader {
 public:
  Reader(sqlite3* database, const GroupCall& call, const Division& division,
         std::size_t most_groups)
      : division_(division), collector_{GroupTable(call.plan), most_groups} {
    code_ = rows_.prepare(database, call, division.source, collector_);
  }

  bool is_well() const { return code_ == SQLITE_OK; }
  void read(const Part& part) {
    code_ = rows_.set(division_.first, part.first);
    if (is_well()) code_ = rows_.set(division_.last, part.last);
    if (is_well()) code_ = rows_.collect();
  }
  GroupTable& groups() { return collector_.groups; }

 private:
  const Division& division_;
  Collector collector_;
  GroupRows rows_;
  int code_;
};
using Readers = std::vector<std::unique_ptr<Reader>>;

bool are_well(const Readers& readers) {
  return std::ranges::all_of(readers, &Reader::is_well);
}

/// The parts, and which is next.
class Queue {
 public:
  explicit Queue(const std::vector<Part>& parts) : parts_(parts) {}

  /// Lets a reader take parts until none is left, or a reader has failed. For each on its thread.
  void serve(Reader& reader) {
    for (std::size_t part = next_++; part < parts_.size() && !is_given_up_; part = next_++) {
      reader.read(parts_[part]);
      if (!reader.is_well()) is_given_up_ = true;
    }
  }

 private:
  const std::vector<Part>& parts_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<bool> is_given_up_ = false;
};

void read_all(Queue& parts, const Readers& readers) {
  std::vector<std::future<void>> others;
  for (std::size_t i = 1; i < readers.size(); ++i) {
    others.push_back(std::async(std::launch::async, [&, i] { parts.serve(*readers[i]); }));
  }
  parts.serve(*readers.front());
  for (auto& other : others) other.get();
}

std::optional<GroupTable> group(const std::vector<Part>& parts, const Readers& readers) {
  if (!are_well(readers)) return std::nullopt;
  Queue queue(parts);
  read_all(queue, readers);
  if (!are_well(readers)) return std::nullopt;
  GroupTable groups = std::move(readers.front()->groups());
  for (std::size_t i = 1; i < readers.size(); ++i) groups.add(std::move(readers[i]->groups()));
  return groups;
}

}  // namespace

std::optional<GroupTable> divided_groups(sqlite3* database, ReadingHelpers& helpers,
                                         const GroupCall& call, std::size_t most_groups) {
  try {
    const Division division = divide(database, call);
    if (division.parts.empty()) return std::nullopt;
    const HelpersAtWork at_work(helpers, database);
    if (at_work.count() == 0) return std::nullopt;
    const std::size_t share = most_groups / (at_work.count() + 1);
    Readers readers;
    readers.push_back(std::make_unique<Reader>(database, call, division, share));
    for (std::size_t i = 0; i < at_work.count(); ++i) {
      readers.push_back(std::make_unique<Reader>(at_work.connection(i), call, division, share));
    }
    return group(division.parts, readers);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace tela::embedded
