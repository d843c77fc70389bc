#include "shell/retail_tables.h"

#include "platform/text/strings.h"

namespace tela {

std::vector<std::string> counter_entries(int counters) {
  std::vector<std::string> entries;
  for (int number = 1; number <= counters; ++number)
    entries.push_back("COUNTER-" + std::to_string(number));
  entries.emplace_back(kAllCounter);
  return entries;
}

std::optional<std::string> counter_number(std::string_view entry) {
  if (entry == kAllCounter) return std::nullopt;
  const auto letters = characters(entry);
  return letters.empty() ? std::string() : letters.back();
}

}  // namespace tela
