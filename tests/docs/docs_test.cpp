// What the pages for users say is tried: sessions are run as they stand, links lead somewhere, and
// the page of reports follows the menus.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "shell/main_menu.h"
#include "source_folder/source_folder.h"
#include "support/temporary_folder.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& file) {
  std::ifstream input(file);
  return {std::istreambuf_iterator<char>(input), {}};
}

// The blocks of a page that show a command behind a `$` and what it prints, without their indent.
std::vector<std::string> sessions_of(const fs::path& page) {
  std::ifstream input(page);
  std::vector<std::string> sessions;
  bool within = false;
  for (std::string line; std::getline(input, line);) {
    const bool is_code = line.starts_with("    ");
    if (is_code && !within && line.starts_with("    $ ")) {
      sessions.emplace_back();
      within = true;
    }
    within = within && is_code;
    if (within) sessions.back() += line.substr(4) + '\n';
  }
  return sessions;
}

// The session as a shell prints it that shows its commands: run line by line, a text behind << with
// its command.
std::string script_of(const std::string& session) {
  std::istringstream lines(session);
  std::string script;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("$ ")) continue;
    std::string command = line.substr(2);
    std::string shown = line;
    if (command.ends_with("<<END")) {
      for (std::string more; std::getline(lines, more);) {
        command += '\n' + more;
        shown += '\n' + more;
        if (more == "END") break;
      }
    }
    script += "cat <<'SHOWN'\n" + shown + "\nSHOWN\n" + command + '\n';
  }
  return script;
}

std::string output_of(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  char buffer[4096];
  while (const std::size_t read = fread(buffer, 1, sizeof buffer, pipe))
    output.append(buffer, read);
  pclose(pipe);
  return output;
}

TEST(Docs, TheSessionsOfTheGuideRunAsTheyStand) {
  const testing::TemporaryFolder home;
  const auto sessions = sessions_of(source_folder() / "docs" / "guide.md");
  ASSERT_GE(sessions.size(), 3u);
  for (const std::string& session : sessions) {
    const fs::path script = home.path() / "session.sh";
    std::ofstream(script) << script_of(session);
    const std::string output =
        output_of("env -u TELA_ROOT -u XDG_DATA_HOME HOME='" + home.path().string() +
                  "' PATH='" TELA_PROGRAMS ":'\"$PATH\" sh '" + script.string() + "' 2>&1");
    const std::regex real_home(home.path().string());
    EXPECT_EQ(std::regex_replace(output, real_home, "/home/shop"), session);
  }
}

TEST(Docs, LinksLeadSomewhere) {
  const std::regex link(R"(\[[^\]]*\]\(([\w./-]+)(#[^)]*)?\))");
  for (const auto& entry : fs::recursive_directory_iterator(source_folder() / "docs")) {
    if (entry.path().extension() != ".md") continue;
    const std::string text = text_of(entry.path());
    for (std::sregex_iterator match(text.begin(), text.end(), link), end; match != end; ++match)
      EXPECT_TRUE(fs::exists(entry.path().parent_path() / (*match)[1].str()))
          << entry.path() << ": " << (*match)[1];
  }
}

TEST(Docs, ThePageOfReportsFollowsTheMenus) {
  std::string expected;
  for (const Menu& menu : main_menus()) {
    if (!menu.enabled) continue;
    expected += "## " + menu.caption + '\n';
    for (const MenuEntry& entry : menu.entries)
      if (entry.enabled && !entry.opens.empty())
        expected += "### " + entry.caption + "\n![" + entry.caption + "](pictures/screens/" +
                    entry.opens + ".png)\n";
  }
  std::ifstream page(source_folder() / "docs" / "reports.md");
  std::string found;
  for (std::string line; std::getline(page, line);)
    if (line.starts_with("##") || line.starts_with("![")) found += line + '\n';
  EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace tela
