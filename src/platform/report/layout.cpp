// The measures of a layout.
#include "platform/report/layout.h"

namespace tela {

double Band::height() const {
  double sum = 0;
  for (const Row& row : rows) sum += row.height;
  return sum;
}

double Layout::body_width() const {
  return paper.width - margins.left - margins.right;
}

double Layout::body_height() const {
  return paper.height - margins.top - margins.bottom - page_header.height() -
         column_header.height() - page_footer.height();
}

}  // namespace tela
