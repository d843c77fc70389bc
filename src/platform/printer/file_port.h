// A printer port that is a file, a device or a pipe.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/printer/printer_port.h"

namespace tela {

enum class IfMissing { create, fail };

/// Opens `path` for one bill; what a plain file held before is gone. A terminal line is set to pass
/// bytes unchanged. Never waits for somebody to read from a pipe: without a reader it cannot be
/// opened.
std::unique_ptr<PrinterPort> open_file_port(const std::filesystem::path& path,
                                            IfMissing if_missing);

}  // namespace tela
