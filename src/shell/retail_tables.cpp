#include "shell/retail_tables.h"

#include "platform/text/strings.h"
#include "shell/sql_value.h"

namespace tela {

std::vector<std::string> counter_entries(int counters) {
  std::vector<std::string> entries;
  for (int number = 1; number <= counters; ++number)
    entries.push_back("COUNTER-" + std::to_string(number));
  entries.emplace_back(kAllCounter);
  return entries;
}

std::optional<std::string> take_counter(Form& form) {
  const std::string& entry = form.text("Combo1");
  if (entry == kAllCounter) return std::nullopt;
  const auto letters = characters(entry);
  const std::string number = letters.empty() ? std::string() : letters.back();
  if (form.has("tCounter")) form.set_text("tCounter", number);
  if (number.empty() || number.find_first_not_of("0123456789") != std::string::npos)
    throw ValueError("\"" + entry + "\" is no counter: it does not end in a digit.");
  return number;
}

}  // namespace tela
