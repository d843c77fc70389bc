// Which records stand on which page. A record is kept together with the group headers ahead of it
// and the footers behind it, so that no heading ends a page and no total starts one.
#pragma once

#include <vector>

#include "platform/report/layout.h"
#include "platform/report/report_data.h"

namespace tela {

/// The records of each page, at least one page. Bands have fixed heights, so that no font is
/// measured and every machine breaks alike.
std::vector<RecordSpan> paginate(const Layout& layout, const ReportData& data);

}  // namespace tela
