// A report with a note at the foot of each page, for what its figures do not show by themselves.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/report/report_engine.h"

namespace tela {

class NotedDocument : public ReportDocument {
 public:
  /// `report` as it is, and `note` in the lower margin of each of its pages.
  NotedDocument(std::shared_ptr<const ReportDocument> report, const std::string& note);

  int record_count() const override { return report_->record_count(); }
  int page_count() const override { return report_->page_count(); }
  PaperSize paper() const override { return report_->paper(); }
  const std::string& font_family() const override { return report_->font_family(); }
  ReportPage page(int number) const override;
  void write_csv(std::ostream& out) const override { report_->write_csv(out); }

 private:
  std::shared_ptr<const ReportDocument> report_;
  std::vector<std::string> lines_;
};

}  // namespace tela
