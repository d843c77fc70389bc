// The way back on a server: rows are locked as they are read, and brought back over the same
// connection.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "apps/tela_catalogue/commands/kept_commands.h"
#include "odbc/served_catalogue.h"
#include "platform/odbc/odbc_connection.h"
#include "platform/way_back/kept_folder.h"
#include "report_framework/way_back.h"
#include "support/shop.h"

namespace tela::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

class WayBackOnServer : public ::testing::Test {
 protected:
  WayBackOnServer() {
    create_catalogue(paths_);
    served_.emplace(paths_.embedded_catalogue("TelaData"));
    for (const char* row :
         {"ProductEdit values (5,N'Amma''s அரிசி  ',null,10.1,9.5,9.75,'2024-01-05','09:05:00')",
          "ProductEdit values (5,N'Amma''s அரிசி  ',null,10.1,9.5,9.75,'2024-01-05','09:05:00')",
          "ProductEdit (iCode) values (6)", "Items (iCode,Stock) values (5,-0.1)",
          "Items (iCode,Stock) values (6,2.5)"})
      served_->behind().execute(std::string("insert into ") + row);
    platform_.keep_rows = [this](std::string_view screen) {
      return keep_in_folder(paths_.way_back(), screen);
    };
    app_.Con = make_odbc_connection(served_->server().odbc_text());
    app_.Con->open("Initial Catalog=TelaData");
  }

  void act() {
    WayBack way_back(app_, "frmProductEditReport");
    way_back.begin();
    way_back.keep_removed("ProductEdit", "where iCode>0");
    app_.Con->execute("Delete from ProductEdit where iCode>0");
    way_back.keep_changed("Items", {{"Stock", "0"}}, "where stock<0", {"iCode"});
    app_.Con->execute("Update Items set Stock=0 where stock<0");
    way_back.commit();
  }

  std::vector<std::vector<Value>> rows(const char* table) {
    return served_->behind().execute("select * from " + std::string(table)).rows;
  }

  TemporaryFolder folder_;
  Paths paths_{folder_.path()};
  std::optional<ServedCatalogue> served_;
  Platform platform_;
  ScriptedDisplay display_{[](const Json&) {}};
  Windows windows_{{}};
  AppState app_{platform_, display_, windows_};
};

TEST_F(WayBackOnServer, LocksWhatItReadsAndBringsItBack) {
  const auto edits = rows("ProductEdit");
  const auto items = rows("Items");
  act();
  EXPECT_TRUE(rows("ProductEdit").empty());
  EXPECT_NE(rows("Items"), items);
  EXPECT_THAT(served_->server().received(),
              Contains("select * from ProductEdit with (updlock,holdlock) where iCode>0"));

  std::ostringstream said;
  Messages messages(said, false);
  const auto action = std::filesystem::directory_iterator(paths_.way_back())->path().filename();
  restore_kept(*app_.Con, paths_.way_back(), action.string(), messages);
  EXPECT_THAT(said.str(), HasSubstr("brought back"));
  EXPECT_EQ(rows("ProductEdit"), edits);
  EXPECT_EQ(rows("Items"), items);
}

}  // namespace
}  // namespace tela::testing
