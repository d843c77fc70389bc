// The platform root and the machine paths below it.
#include "platform/paths/paths.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <optional>

namespace tela {
namespace {

namespace fs = std::filesystem;

class PathsTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string folder = testing::TempDir() + "tela_paths_XXXXXX";
    root_ = mkdtemp(folder.data());
  }
  void TearDown() override { fs::remove_all(root_); }

  void make_file(const std::string& name) {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name) << "x";
  }

  fs::path root_;
};

TEST_F(PathsTest, ResolvesMachinePathsWithoutRegardToCase) {
  make_file("D/Tela_Supermarket/sgst.XLS");
  make_file("D/Tela_Supermarket/Twice.txt");
  make_file("D/Tela_Supermarket/TWICE.TXT");
  const struct {
    const char* path;
    const char* expected;
  } cases[] = {
      {"D:\\Tela_Supermarket\\SGST.xls", "D/Tela_Supermarket/sgst.XLS"},
      {"d:\\TELA_SUPERMARKET\\sgst.xls", "D/Tela_Supermarket/sgst.XLS"},
      {"D:/Tela_Supermarket/SGST.xls", "D/Tela_Supermarket/sgst.XLS"},
      {"D:\\Tela_Supermarket\\New.xls", "D/Tela_Supermarket/New.xls"},
      {"E:\\Nothing\\New.xls", "E/Nothing/New.xls"},
      {"D:\\tela_supermarket\\Twice.txt", "D/Tela_Supermarket/Twice.txt"},
      {"D:\\tela_supermarket\\twice.txt", "D/Tela_Supermarket/TWICE.TXT"},
      {"D:\\..\\..\\..\\etc\\passwd", "etc/passwd"},
      {"D:\\Tela_Supermarket\\.\\x\\..\\sgst.xls", "D/Tela_Supermarket/sgst.XLS"},
      {"LPT1:", "LPT1"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Paths(root_).resolve(c.path).lexically_normal(),
              (root_ / c.expected).lexically_normal())
        << c.path;
}

TEST_F(PathsTest, FindsCatalogueFilesInAnyCase) {
  make_file("teladata.DB");
  EXPECT_EQ(Paths(root_).embedded_catalogue("TelaData"), root_ / "teladata.DB");
  EXPECT_EQ(Paths(root_).server_catalogue("TelaData"), root_ / "TelaData.odbc");
}

/// Sets one environment variable (or unsets it) until the end of the scope.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    value ? setenv(name, value, 1) : unsetenv(name);
  }
  ~ScopedVariable() { old_ ? setenv(name_, old_->c_str(), 1) : unsetenv(name_); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(PathsEnvironment, NamesTheRootByTheFirstVariableThatIsSet) {
  const struct {
    const char *root, *data, *home, *expected;
  } cases[] = {
      {"/shop", "/data", "/home/owner", "/shop"},
      {nullptr, "/data", "/home/owner", "/data/tela"},
      {"", "", "/home/owner", "/home/owner/.local/share/tela"},
  };
  for (const auto& c : cases) {
    const ScopedVariable root("TELA_ROOT", c.root);
    const ScopedVariable data("XDG_DATA_HOME", c.data);
    const ScopedVariable home("HOME", c.home);
    EXPECT_EQ(Paths::from_environment().root(), c.expected);
  }
  const ScopedVariable root("TELA_ROOT", nullptr);
  const ScopedVariable data("XDG_DATA_HOME", nullptr);
  const ScopedVariable home("HOME", nullptr);
  EXPECT_THROW(Paths::from_environment(), std::runtime_error);
}

}  // namespace
}  // namespace tela
