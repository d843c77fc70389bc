#include "apps/tela_catalogue/commands/commands.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {

void back_up_catalogue(const std::filesystem::path& catalogue, const std::filesystem::path& file,
                       Messages& messages) {
  EmbeddedCatalogue(catalogue).back_up(file);
  messages.say("wrote " + file.string());
}

}  // namespace tela
