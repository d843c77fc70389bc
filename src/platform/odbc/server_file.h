// The file that names a shop's server: one ODBC connection string, with its password.
#pragma once

#include <filesystem>
#include <string>

namespace tela {

/// The connection string in `file`: its one line, without the blanks around it. Empty lines and
/// lines that start with '#' do not count. Throws DatabaseError of Kind::connection, without a word
/// of what the file holds, if it cannot be read, if others than its owner may read or write it, or
/// if it holds no line or more than one.
std::string read_server_file(const std::filesystem::path& file);

}  // namespace tela
