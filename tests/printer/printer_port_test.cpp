// The printer port over real files, pipes and a terminal line, and over a stand-in for the print
// system's lp command.
#include "platform/printer/printer_port.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "platform/printer/open_port.h"

namespace tela {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string kBill("\x1B!\x08Rice\r\n\n\x1DV\x30\0\xE9", 14);

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void write_text(const fs::path& path, std::string_view text) {
  std::ofstream(path, std::ios::binary) << text;
}

// A shop's machine in a folder of its own, whose print system is whatever `install_lp` puts there.
class PrinterPortTest : public testing::Test {
 protected:
  PrinterPortTest() {
    std::string pattern = (fs::temp_directory_path() / "tela_printer_XXXXXX").string();
    root_ = mkdtemp(pattern.data());
    fs::create_directories(root_ / "ports");
    fs::create_directories(root_ / "bin");
    setenv("PATH", (root_ / "bin").c_str(), 1);
  }
  ~PrinterPortTest() override {
    setenv("PATH", path_before_.c_str(), 1);
    fs::remove_all(root_);
  }

  void install_lp(const std::string& script) {
    write_text(root_ / "bin/lp", "#!/bin/sh\nPATH=/usr/bin:/bin\n" + script);
    fs::permissions(root_ / "bin/lp", fs::perms::owner_all);
  }

  void print(std::string_view name, std::string_view bytes = kBill) {
    const auto port = open_port(name, Paths(root_));
    port->write(bytes);
    port->close();
  }

  // The error of printing to `name`; the test fails if it prints.
  PrinterError error_of(std::string_view name) {
    try {
      print(name);
    } catch (const PrinterError& error) {
      return error;
    }
    ADD_FAILURE() << name << " printed";
    return {PrinterError::Kind::failed, ""};
  }

  void expect_cannot_open(std::string_view name, const std::string& words) {
    const PrinterError error = error_of(name);
    EXPECT_EQ(error.kind(), PrinterError::Kind::cannot_open) << name;
    EXPECT_THAT(error.what(), HasSubstr(words)) << name;
  }

  fs::path root_;
  std::string path_before_ = std::getenv("PATH");
};

TEST_F(PrinterPortTest, WritesAFileAnew) {
  const fs::path file = root_ / "bill.bin";
  print(file.string(), "a much longer bill than the next one");
  print(file.string());
  EXPECT_EQ(contents(file), kBill);
  fs::create_directories(root_ / "D/Bills");
  print("d:\\bills\\Last.txt");
  EXPECT_EQ(contents(root_ / "D/Bills/Last.txt"), kBill);
}

TEST_F(PrinterPortTest, FindsANameAmongThePorts) {
  write_text(root_ / "ports/Lpt1", "");
  fs::create_symlink(root_ / "bill.bin", root_ / "ports/COM1");
  write_text(root_ / "bill.bin", "");
  for (const auto* name : {"LPT1", " lpt1: ", "Lpt1"}) {
    write_text(root_ / "ports/Lpt1", "");
    print(name);
    EXPECT_EQ(contents(root_ / "ports/Lpt1"), kBill) << name;
  }
  print("com1");
  EXPECT_EQ(contents(root_ / "bill.bin"), kBill);
  fs::rename(root_ / "ports/COM1", root_ / "ports/Back Office");
  print("back office", "another bill");
  EXPECT_EQ(contents(root_ / "bill.bin"), "another bill");
}

TEST_F(PrinterPortTest, SaysWhyAPortCannotBeOpened) {
  install_lp("touch " + (root_ / "lp_ran").string());
  fs::create_symlink(root_ / "unplugged", root_ / "ports/USB");
  fs::create_directories(root_ / "ports/folder");
  expect_cannot_open("", "No printer port is set");
  expect_cannot_open("   ", "No printer port is set");
  expect_cannot_open((root_ / "no/such/bill").string(), "No such file or directory");
  expect_cannot_open("/dev/tela_no_such_printer", "No such file or directory");
  expect_cannot_open("usb", "ports/USB cannot be opened: No such file or directory");
  expect_cannot_open("folder", "Is a directory");
  for (const auto* name : {"-o", "a/b", "..\\x", "two words", "a#b", "\xC3\xA9"})
    expect_cannot_open(name, "is not the name of a printer port");
  EXPECT_FALSE(fs::exists(root_ / "unplugged"));
  EXPECT_FALSE(fs::exists(root_ / "lp_ran"));
}

TEST_F(PrinterPortTest, SaysThatTheDiskIsFull) {
  const PrinterError error = error_of("/dev/full");
  EXPECT_EQ(error.kind(), PrinterError::Kind::storage_full);
  EXPECT_THAT(error.what(), HasSubstr("/dev/full: the disk is full"));
}

TEST_F(PrinterPortTest, NeitherWaitsForAPipesReaderNorDiesWithIt) {
  const fs::path pipe = root_ / "ports/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  expect_cannot_open("pipe", "cannot be opened");
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  const auto port = open_port("pipe", Paths(root_));
  ::close(reader);
  EXPECT_THROW(port->write(kBill), PrinterError);
}

TEST_F(PrinterPortTest, PassesBytesUnchangedThroughATerminalLine) {
  int master = 0;
  int line = 0;
  std::array<char, 256> name{};
  ASSERT_EQ(openpty(&master, &line, name.data(), nullptr, nullptr), 0);
  print(name.data());
  std::array<char, 256> received{};
  const ssize_t count = ::read(master, received.data(), received.size());
  EXPECT_EQ(std::string(received.data(), static_cast<std::size_t>(count)), kBill);
  ::close(line);
  ::close(master);
}

TEST_F(PrinterPortTest, HandsABillToAQueueRaw) {
  install_lp("echo \"$@\" > '" + (root_ / "arguments").string() + "'\ncat > '" +
             (root_ / "job").string() + "'\n");
  const auto port = open_port("Receipts-1", Paths(root_));
  port->write(kBill.substr(0, 5));
  port->write(kBill.substr(5));
  EXPECT_FALSE(fs::exists(root_ / "job"));
  port->close();
  EXPECT_EQ(contents(root_ / "job"), kBill);
  EXPECT_EQ(contents(root_ / "arguments"), "-d Receipts-1 -o raw\n");
}

TEST_F(PrinterPortTest, PassesOnWhatThePrintSystemSays) {
  expect_cannot_open("Receipts", "\"Receipts\" did not take the bill (lp: No such file");
  install_lp("echo 'lp: The printer or class does not exist.' >&2\necho more >&2\nexit 1\n");
  expect_cannot_open("Receipts", "(lp: The printer or class does not exist.)");
  install_lp("kill -9 $$\n");
  expect_cannot_open("Receipts", "(lp failed without a word)");
}

}  // namespace
}  // namespace tela
