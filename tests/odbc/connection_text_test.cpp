// The connection string: its keys, its secrets, and the file that holds it.
#include "platform/odbc/connection_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/database/database_client.h"
#include "platform/odbc/server_file.h"
#include "platform/odbc/wide_text.h"
#include "support/temporary_folder.h"

namespace tela::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(ConnectionText, ReadsKeysInAnyCaseAndValuesInBraces) {
  const odbc::ConnectionText text(" driver = {One; Two};;PWD={a}};b=c};server=shop;Database=");
  EXPECT_EQ(text.value("DRIVER"), "One; Two");
  EXPECT_EQ(text.value("pwd"), "a};b=c");
  EXPECT_EQ(text.value("Server"), "shop");
  EXPECT_TRUE(text.has("DATABASE"));
  EXPECT_FALSE(text.has("UID"));
}

TEST(ConnectionText, NamesTheCatalogueUnlessTheStringDoes) {
  const auto with = [](const char* text) { return odbc::with_catalogue(text, "TelaData"); };
  EXPECT_EQ(with("DRIVER=x;SERVER=y"), "DRIVER=x;SERVER=y;DATABASE=TelaData");
  EXPECT_EQ(with("DRIVER=x;SERVER=y;"), "DRIVER=x;SERVER=y;DATABASE=TelaData");
  EXPECT_EQ(with("DSN=shop;UID=u"), "DSN=shop;UID=u");
  EXPECT_EQ(with("DRIVER=x;database=Trial"), "DRIVER=x;database=Trial");
  EXPECT_EQ(odbc::with_catalogue("DRIVER=x", ""), "DRIVER=x");
}

TEST(PasswordScrubber, TakesThePasswordOutOfWhatDriversEcho) {
  struct Case {
    const char* text;
    const char* message;
    const char* scrubbed;
  };
  const Case cases[] = {
      {"UID=u;PWD=zub8", "cannot use UID=u;PWD=zub8;", "cannot use UID=u;PWD=***;"},
      {"UID=u;password={zu;b8}", "zu;b8 is wrong, {zu;b8} too", "*** is wrong, {***} too"},
      {"DSN=shop", "DSN=shop;Pwd={from}} the; ini};UID=u", "DSN=shop;Pwd=***;UID=u"},
      {"DSN=shop", "Login failed for user 'u'.", "Login failed for user 'u'."},
  };
  for (const Case& each : cases)
    EXPECT_EQ(odbc::PasswordScrubber(each.text).scrub(each.message), each.scrubbed);
}

TEST(WideText, GoesBothWaysAndReplacesWhatIsNoText) {
  for (const char* text : {"", "plain", "é€", "ஆப்பிள்", "😀x", "a\xF0\x90\x80\x80"})
    EXPECT_EQ(odbc::to_utf8(odbc::to_utf16(text)), text);
  EXPECT_EQ(odbc::to_utf16("😀"), std::u16string(u"\xD83D\xDE00"));
  const std::u16string lone = {u'a', char16_t{0xD83D}, u'b'};
  EXPECT_EQ(odbc::to_utf8(lone), "a\uFFFDb");
  for (const char* broken : {"\xFF", "\xC0\x80", "\xE0\xAE", "\xED\xA0\x80"})
    EXPECT_THAT(odbc::to_utf8(odbc::to_utf16(broken)), HasSubstr("\uFFFD")) << broken;
}

class ServerFile : public ::testing::Test {
 protected:
  void write(const std::string& text, std::filesystem::perms granted) const {
    std::ofstream(file_) << text;
    std::filesystem::permissions(file_, granted);
  }

  std::string refusal() const {
    try {
      read_server_file(file_);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.kind(), DatabaseError::Kind::connection);
      EXPECT_THAT(error.what(), Not(HasSubstr("zub8")));
      return error.what();
    }
    return "not refused";
  }

  static constexpr auto kOwner =
      std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "TelaData.odbc";
};

TEST_F(ServerFile, HoldsOneConnectionString) {
  write("# the shop's server\n\n  DSN=shop;UID=u;PWD=zub8 \r\n", kOwner);
  EXPECT_EQ(read_server_file(file_), "DSN=shop;UID=u;PWD=zub8");
}

TEST_F(ServerFile, IsRefusedWhenOthersMayReadIt) {
  using std::filesystem::perms;
  for (const perms more : {perms::group_read, perms::others_read, perms::group_write}) {
    write("DSN=shop;PWD=zub8\n", kOwner | more);
    EXPECT_THAT(refusal(), HasSubstr("TelaData.odbc holds a password and is open to others"));
  }
}

TEST_F(ServerFile, IsRefusedWhenItIsMissingEmptyOrHoldsMore) {
  EXPECT_THAT(refusal(), HasSubstr("cannot be read"));
  write("# PWD=zub8\n", kOwner);
  EXPECT_THAT(refusal(), HasSubstr("must hold one line"));
  write("DSN=shop;PWD=zub8\nDSN=other;PWD=zub8\n", kOwner);
  EXPECT_THAT(refusal(), HasSubstr("must hold one line"));
}

}  // namespace
}  // namespace tela::testing
