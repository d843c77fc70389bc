// The preview window `form1` as the displays see it: which report it was asked for, and the
// document that came of it. The report framework makes one.
#pragma once

#include <memory>
#include <string>

#include "platform/report/report_engine.h"

namespace tela {

struct ReportWindow {
  std::string report_file;  ///< file name with extension, no path
  std::string query;        ///< the query as the report engine gets it: trimmed
  std::shared_ptr<const ReportDocument> document = nullptr;  ///< null: the viewer is empty

  static constexpr const char* kCaption = "Report";
  static constexpr int kZoom = 90;  ///< per cent, when it opens
};

}  // namespace tela
