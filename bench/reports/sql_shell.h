// Another engine's shell, kept running, so that its start is no part of what is measured.
#pragma once

#include <cstdio>
#include <string>

namespace tela::bench {

class SqlShell {
 public:
  /// `command` starts the shell; it reads statements from its input and writes rows to its output.
  explicit SqlShell(const std::string& command);
  ~SqlShell();
  SqlShell(const SqlShell&) = delete;
  SqlShell& operator=(const SqlShell&) = delete;

  /// Runs statements that end in a `;` and reads all their rows; the number of the rows.
  std::size_t run(const std::string& sql);

 private:
  std::FILE* input_ = nullptr;
  std::FILE* output_ = nullptr;
  int process_ = -1;
};

}  // namespace tela::bench
