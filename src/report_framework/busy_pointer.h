// The busy pointer, for as long as a long query runs, whichever way it ends.
#pragma once

#include "shell/display.h"

namespace tela {

class BusyPointer {
 public:
  explicit BusyPointer(Display& display) : display_(&display) { display.pointer(Pointer::busy); }
  ~BusyPointer() { end(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

  /// Sets the pointer back ahead of the end of the scope.
  void end() {
    if (display_) display_->pointer(Pointer::normal);
    display_ = nullptr;
  }

 private:
  Display* display_;
};

}  // namespace tela
