#include "apps/tela_console/painters.h"

namespace tela {

void add_painters(Platform&) {}

}  // namespace tela
