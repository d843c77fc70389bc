// A banded report that has run: makes any of its pages on demand from the layout and the rows.
#pragma once

#include <string>
#include <vector>

#include "platform/report/layout.h"
#include "platform/report/pagination.h"
#include "platform/report/report_data.h"
#include "platform/report/report_engine.h"

namespace tela {

class BandedDocument : public ReportDocument {
 public:
  /// `layout` is bound to `data`.
  BandedDocument(Layout layout, ReportData data);

  int record_count() const override { return data_.record_count(); }
  int page_count() const override { return static_cast<int>(pages_.size()); }
  PaperSize paper() const override { return layout_.paper; }
  const std::string& font_family() const override { return layout_.font_family; }
  ReportPage page(int number) const override;
  void write_csv(std::ostream& out) const override;

 private:
  std::vector<std::string> csv_headings() const;

  Layout layout_;
  ReportData data_;
  std::vector<RecordSpan> pages_;
};

}  // namespace tela
