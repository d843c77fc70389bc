// Breaking a report into pages.
#include "platform/report/pagination.h"

namespace tela {
namespace {

/// The height of the group headers from `level` inwards, or of the footers.
double group_height(const Layout& layout, int level, Band Group::*band) {
  double height = 0;
  for (auto i = static_cast<std::size_t>(level); i < layout.groups.size(); ++i) {
    height += (layout.groups[i].*band).height();
  }
  return height;
}

double block_height(const Layout& layout, const ReportData& data, int record) {
  double height = group_height(layout, data.group_starting_at(record), &Group::header) +
                  layout.detail.height() +
                  group_height(layout, data.group_starting_at(record + 1), &Group::footer);
  if (record + 1 == data.record_count()) height += layout.report_footer.height();
  return height;
}

}  // namespace

std::vector<RecordSpan> paginate(const Layout& layout, const ReportData& data) {
  constexpr double rounding = 1e-6;
  const double available = layout.body_height() + rounding;
  std::vector<RecordSpan> pages{{0, 0}};
  double used = 0;
  for (int record = 0; record < data.record_count(); ++record) {
    const double height = block_height(layout, data, record);
    if (used > 0 && used + height > available) {
      pages.push_back({record, record});
      used = 0;
    }
    pages.back().last = record + 1;
    used += height;
  }
  return pages;
}

}  // namespace tela
