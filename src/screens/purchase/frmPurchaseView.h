// The purchase view: a second viewer of a goods-received note, which reckons with another cash
// discount. No menu offers it, and nothing that it reckons is stored.
#pragma once

#include "screens/purchase/goods_received_note.h"

namespace tela {

class frmPurchaseView : public GoodsReceivedNote {
 public:
  explicit frmPurchaseView(AppState& app);
  static NoteViewer viewer();

 private:
  void take_percent();
  void take_amount();
};

}  // namespace tela
