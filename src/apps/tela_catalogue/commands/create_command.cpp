#include "apps/tela_catalogue/commands/commands.h"
#include "platform/catalogue_texts/catalogue_texts.h"
#include "platform/embedded/embedded_catalogue.h"

namespace tela {

void create_catalogue(const std::filesystem::path& catalogue, Messages& messages) {
  if (catalogue.has_parent_path()) std::filesystem::create_directories(catalogue.parent_path());
  create_embedded_catalogue(catalogue, catalogue_scripts());
  messages.say("created " + catalogue.string());
}

}  // namespace tela
