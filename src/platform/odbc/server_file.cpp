#include "platform/odbc/server_file.h"

#include <fstream>
#include <system_error>
#include <vector>

#include "platform/database/database_client.h"

namespace tela {
namespace {

[[noreturn]] void refuse(const std::filesystem::path& file, const char* why) {
  throw DatabaseError(DatabaseError::Kind::connection, file.string() + " " + why);
}

void require_private(const std::filesystem::path& file) {
  using std::filesystem::perms;
  std::error_code failure;
  const perms granted = std::filesystem::status(file, failure).permissions();
  if (failure) refuse(file, "cannot be read.");
  if ((granted & (perms::group_all | perms::others_all)) != perms::none)
    refuse(file,
           "holds a password and is open to others than its owner: it is not used until only its "
           "owner can read it (chmod 600).");
}

std::string trimmed(const std::string& line) {
  const auto first = line.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  return line.substr(first, line.find_last_not_of(" \t\r") - first + 1);
}

}  // namespace

std::string read_server_file(const std::filesystem::path& file) {
  require_private(file);
  std::ifstream in(file);
  if (!in) refuse(file, "cannot be read.");
  std::vector<std::string> entries;
  for (std::string line; std::getline(in, line);) {
    std::string entry = trimmed(line);
    if (!entry.empty() && entry.front() != '#') entries.push_back(std::move(entry));
  }
  if (entries.size() != 1) refuse(file, "must hold one line, an ODBC connection string.");
  return entries.front();
}

}  // namespace tela
