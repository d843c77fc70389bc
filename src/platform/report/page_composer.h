// Sets bands one below the other on a page.
#pragma once

#include <utility>

#include "platform/report/layout.h"
#include "platform/report/report_data.h"
#include "platform/report/report_page.h"

namespace tela {

class PageComposer {
 public:
  PageComposer(const Layout& layout, const ReportData& data);

  /// Sets `band` below what stands, with the texts of `scope`.
  void place(const Band& band, const Scope& scope, bool shaded = false);
  /// Sets the page footer at the foot of the page.
  void place_footer(const Scope& scope);

  ReportPage take() { return std::move(page_); }

 private:
  void place(const Row& row, const Scope& scope, bool shaded);

  const Layout& layout_;
  const ReportData& data_;
  double y_;
  ReportPage page_;
};

}  // namespace tela
