// The goods that an Indian supermarket sells: kinds with their HSN code, GST slab, cess and range
// of prices. Brands are invented.
#pragma once

#include <span>
#include <string_view>

namespace tela::demo {

/// A kind of goods, which comes in several brands and packs.
struct GoodsKind {
  std::string_view category;
  std::string_view name;
  std::string_view hsn;
  int gst = 0;   ///< percent
  int cess = 0;  ///< percent
  int low = 0;   ///< the least and the highest price of the first pack, in rupees
  int high = 0;
  std::string_view
      packs;  ///< sizes apart by '|', each about twice the one before; empty: by weight
};

std::span<const GoodsKind> goods_kinds();
std::span<const std::string_view> goods_brands();

}  // namespace tela::demo
