// The report engine of this program: layouts are text files, rows come over a connection of its
// own.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/database/database_client.h"
#include "platform/report/report_engine.h"

namespace tela {

/// What the engine needs of the program around it.
struct ReportEngineParts {
  ConnectionFactory make_connection;
  /// The folder that stands for a folder of the shop's machine ("D:\Tela_Supermarket\Report").
  std::function<std::filesystem::path(std::string_view folder)> resolve_folder;
  /// The layouts that come with the program.
  std::filesystem::path shipped_layouts;
  /// Takes a line for each report that fails. May be empty.
  std::function<void(std::string_view line)> log;
};

/// Layouts are looked up in the report folder where the shop has one, and in the shipped layouts
/// where it has no such folder. So a shop that keeps its own layouts gets those alone, and a
/// missing file is missing. Files that a layout includes may come from either place, the report
/// folder first.
class BandedReportEngine : public ReportEngine {
 public:
  explicit BandedReportEngine(ReportEngineParts parts);

  std::unique_ptr<Report> open_report(std::string_view path) override;

 private:
  std::shared_ptr<const ReportEngineParts> parts_;
};

}  // namespace tela
