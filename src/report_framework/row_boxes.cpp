#include "report_framework/row_boxes.h"

namespace tela {

void fill_boxes(Form& form, const std::vector<RowBox>& boxes, const Recordset& rs) {
  for (const RowBox& box : boxes)
    form.set_text(box.name, cell_text(rs.field(box.source.field), box.source));
}

}  // namespace tela
