#include "source_folder/source_folder.h"

namespace tela {

std::filesystem::path source_folder() {
  return TELA_SOURCE_DIR;
}

}  // namespace tela
