// The purchase bill view: one goods-received note as it was entered, with a print. The double click
// of the purchase lists opens it.
#pragma once

#include "screens/purchase/goods_received_note.h"

namespace tela {

class frmPurBillView : public GoodsReceivedNote {
 public:
  explicit frmPurBillView(AppState& app);
  static NoteViewer viewer();

 private:
  void print();
};

}  // namespace tela
