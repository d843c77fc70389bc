#include "platform/embedded/grouping/divided_groups.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <future>
#include <memory>
#include <utility>
#include <vector>

namespace tela::embedded {
namespace {

std::vector<DayPart> parts_of(const GroupCall& call) {
  if (call.first_day == 0) return {};
  const auto day = [&](int number) {
    return std::get<std::int64_t>(call.parameters[static_cast<std::size_t>(number) - 1]);
  };
  return divide({day(call.first_day), day(call.last_day)});
}

using Readers = std::vector<std::unique_ptr<GroupRows>>;

bool are_well(const Readers& readers) {
  return std::ranges::all_of(readers, &GroupRows::has_succeeded);
}

/// The parts, and which is next.
class Queue {
 public:
  explicit Queue(std::vector<DayPart> parts) : parts_(std::move(parts)) {}

  /// Lets a reader take parts until none is left, or a reader has failed. For each on its thread.
  void serve(GroupRows& reader) {
    for (std::size_t part = next_++; part < parts_.size() && !is_given_up_; part = next_++) {
      reader.read(parts_[part]);
      if (!reader.has_succeeded()) is_given_up_ = true;
    }
  }

 private:
  const std::vector<DayPart> parts_;
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

std::optional<GroupTable> group(std::vector<DayPart> parts, const Readers& readers) {
  if (!are_well(readers)) return std::nullopt;
  Queue queue(std::move(parts));
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
    std::vector<DayPart> parts = parts_of(call);
    if (parts.empty()) return std::nullopt;
    const HelpersAtWork at_work(helpers, database);
    if (at_work.count() == 0) return std::nullopt;
    const std::size_t share = most_groups / (at_work.count() + 1);
    Readers readers;
    readers.push_back(std::make_unique<GroupRows>(database, call, share));
    for (std::size_t i = 0; i < at_work.count(); ++i) {
      readers.push_back(std::make_unique<GroupRows>(at_work.connection(i), call, share));
    }
    return group(std::move(parts), readers);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace tela::embedded
