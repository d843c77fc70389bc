// The three ways in which the program meets a failure, each used by name wherever it applies:
//
//   guarded    a section with a failure step of its own
//   pass_over  a statement whose failure is ignored; the program goes on with the next one
//   run_event  everything else: the failure ends the action, the user is told, the program runs on
#pragma once

#include <functional>
#include <stdexcept>
#include <utility>

namespace tela {

struct AppState;

/// Runs `body`; on any failure that happens at run time runs `on_failure` with it instead. A fault
/// in a screen's definition (std::logic_error) is no such failure and goes on up.
template <class Body, class Failure>
void guarded(Body&& body, Failure&& on_failure) {
  try {
    std::forward<Body>(body)();
  } catch (const std::runtime_error& failure) {
    std::forward<Failure>(on_failure)(failure);
  }
}

/// Runs `body`; a failure in it is passed over, so its target stays unchanged.
template <class Body>
void pass_over(Body&& body) {
  guarded(std::forward<Body>(body), [](const std::runtime_error&) {});
}

/// Runs one event to its end. A failure that nothing caught ends the action: what it had open is
/// rolled back, the user is told in a box titled with the shop's name, and the program goes on.
/// An action that the user cancelled ends the same way, with a hint in place of the box.
/// UserActionError alone goes on up to whoever drives the screen.
void run_event(AppState& app, const std::function<void()>& event);

}  // namespace tela
