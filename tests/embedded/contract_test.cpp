// The embedded catalogue keeps the contract of the database client.
#include "database/connection_contract.h"
#include "embedded/shop.h"

namespace tela::testing {
namespace {

class EmbeddedContractCatalogue : public ContractCatalogue {
 public:
  std::unique_ptr<Connection> connection() override { return make_embedded_connection(shop_.file); }

 private:
  Shop shop_;
};

INSTANTIATE_TEST_SUITE_P(Embedded, ConnectionContract,
                         ::testing::Values(ContractEngine{
                             "embedded",
                             [] { return std::make_unique<EmbeddedContractCatalogue>(); }}));

}  // namespace
}  // namespace tela::testing
