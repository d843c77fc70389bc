#include "sql_shell.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string_view>

namespace tela::bench {

SqlShell::SqlShell(const std::string& command) {
  std::array<int, 2> to_shell{};
  std::array<int, 2> from_shell{};
  if (pipe(to_shell.data()) != 0 || pipe(from_shell.data()) != 0)
    throw std::runtime_error("no pipes");
  process_ = fork();
  if (process_ == 0) {
    dup2(to_shell[0], STDIN_FILENO);
    dup2(from_shell[1], STDOUT_FILENO);
    for (const int end : {to_shell[0], to_shell[1], from_shell[0], from_shell[1]}) close(end);
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
  }
  close(to_shell[0]);
  close(from_shell[1]);
  input_ = fdopen(to_shell[1], "w");
  output_ = fdopen(from_shell[0], "r");
}

SqlShell::~SqlShell() {
  std::fclose(input_);
  std::fclose(output_);
  waitpid(process_, nullptr, 0);
}

std::size_t SqlShell::run(const std::string& sql) {
  static constexpr std::string_view end = "no more rows\n";
  std::fprintf(input_, "%s\nselect 'no more rows';\n", sql.c_str());
  std::fflush(input_);
  std::array<char, 4096> line{};
  std::size_t rows = 0;
  while (std::fgets(line.data(), line.size(), output_) != nullptr) {
    if (line.data() == end) return rows;
    ++rows;
  }
  throw std::runtime_error("the shell has ended: " + sql);
}

}  // namespace tela::bench
