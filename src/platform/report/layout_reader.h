// Reads a layout file; docs/report_layouts.md describes the format.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/report/layout.h"

namespace tela {

/// Gives the text of a layout file by its name, if there is such a file.
using LayoutSource = std::function<std::optional<std::string>(const std::string& file)>;

/// Reads the layout `file` and what it includes. Throws ReportError with file, line and reason.
Layout read_layout(const std::string& file, const LayoutSource& source);

}  // namespace tela
