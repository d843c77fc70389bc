#include "shell/failure.h"

#include <string>

#include "shell/app_state.h"
#include "shell/display.h"
#include "shell/screen.h"

namespace tela {

namespace {

// Nothing stays open between actions: neither the shared recordsets nor a transaction.
void clean_up(AppState& app) {
  app.Rs.reset();
  app.Rs2.reset();
  if (!app.Con) return;
  pass_over([&] {
    if (app.Con->in_transaction()) app.Con->rollback_trans();
  });
}

void report(AppState& app, const std::string& reason) {
  clean_up(app);
  app.display.message(
      {"The action could not be completed.\n" + reason, Icon::critical, Buttons::ok, app.ShopName});
}

}  // namespace

void run_event(AppState& app, const std::function<void()>& event) {
  app.is_cancelled = false;
  app.has_stored = false;
  try {
    event();
  } catch (const UserActionError&) {
    throw;
  } catch (const Cancelled&) {
    clean_up(app);
    app.display.hint("Cancelled with Esc. Nothing has been stored.");
  } catch (const std::bad_alloc&) {
    report(app, "There is not enough memory.");
  } catch (const std::exception& failure) {
    report(app, failure.what());
  }
}

}  // namespace tela
