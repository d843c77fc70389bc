#include "shell/refusal.h"

#include <utility>

#include "platform/text/strings.h"

namespace tela {

Refusal blank(const std::string& control, std::string text, Icon icon) {
  return {[control](const Form& form) { return trimmed(form.text(control)).empty(); },
          std::move(text), icon, control};
}

Refusal empty(const std::string& control, std::string text, Icon icon) {
  return {[control](const Form& form) { return form.text(control).empty(); }, std::move(text), icon,
          control};
}

Refusal reversed(const std::string& first, const std::string& second, std::string text) {
  return {[first, second](const Form& form) { return form.date(first) > form.date(second); },
          std::move(text), Icon::critical, first};
}

}  // namespace tela
