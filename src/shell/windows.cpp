#include "shell/windows.h"

#include <algorithm>
#include <utility>

#include "shell/app_state.h"
#include "shell/display.h"
#include "shell/main_window.h"
#include "shell/owner_login.h"

namespace tela {

Windows::Windows(std::span<const ScreenEntry> registry, std::span<const ActionEntry> actions)
    : registry_(registry), actions_(actions) {}
Windows::~Windows() = default;

bool Windows::knows(std::string_view screen) const {
  return std::any_of(registry_.begin(), registry_.end(),
                     [&](const ScreenEntry& entry) { return entry.name == screen; });
}

const ActionEntry* Windows::find_action(std::string_view name) const {
  const auto found = std::ranges::find(actions_, name, &ActionEntry::name);
  return found == actions_.end() ? nullptr : &*found;
}

Screen* Windows::find(std::string_view screen) const {
  for (const auto& open : stack_)
    if (open->name() == screen) return open.get();
  return nullptr;
}

Screen& Windows::open(AppState& app, std::string_view screen) {
  const auto place = std::find_if(stack_.begin(), stack_.end(),
                                  [&](const auto& open) { return open->name() == screen; });
  if (place != stack_.end()) {
    std::rotate(place, place + 1, stack_.end());
    app.display.front(*stack_.back());
    return *stack_.back();
  }
  const auto entry = std::find_if(registry_.begin(), registry_.end(),
                                  [&](const ScreenEntry& known) { return known.name == screen; });
  if (entry == registry_.end())
    throw UserActionError("There is no screen " + std::string(screen) + ".");
  auto created = entry->make(app);
  created->load();
  stack_.push_back(std::move(created));
  app.display.opened(*stack_.back());
  return *stack_.back();
}

void Windows::close(AppState& app, std::string_view screen) {
  const auto place = std::find_if(stack_.begin(), stack_.end(),
                                  [&](const auto& open) { return open->name() == screen; });
  if (place == stack_.end()) return;
  closed_.push_back(std::move(*place));
  stack_.erase(place);
  app.display.closed(*closed_.back());
}

void Windows::refresh(AppState& app, std::string_view screen) {
  const std::string name(screen);
  close(app, name);
  open(app, name);
}

std::vector<Screen*> Windows::stacking_order() const {
  std::vector<Screen*> order;
  for (auto open = stack_.rbegin(); open != stack_.rend(); ++open) order.push_back(open->get());
  return order;
}

OwnerLogin& Windows::create_login(AppState& app) {
  login_ = std::make_unique<OwnerLogin>(app);
  login_->load();
  return *login_;
}

void Windows::close_login(AppState& app) {
  if (!login_) return;
  app.display.closed(*login_);
  closed_.push_back(std::move(login_));
}

MainWindow& Windows::open_main(AppState& app) {
  auto created = std::make_unique<MainWindow>(app);
  created->load();
  main_ = std::move(created);
  app.display.opened(*main_);
  return *main_;
}

void Windows::show_preview(AppState& app, ReportWindow preview) {
  preview_ = std::move(preview);
  app.display.preview_opened(*preview_);
}

void Windows::close_preview(AppState& app) {
  if (!preview_) return;
  preview_.reset();
  app.display.preview_closed();
}

}  // namespace tela
