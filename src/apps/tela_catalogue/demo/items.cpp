#include "apps/tela_catalogue/demo/items.h"

#include <algorithm>
#include <numeric>

#include "apps/tela_catalogue/demo/goods.h"

namespace tela::demo {
namespace {

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return text;
}

std::vector<std::string_view> packs_of(const GoodsKind& kind) {
  std::vector<std::string_view> packs;
  std::string_view left = kind.packs;
  while (!left.empty()) {
    const std::size_t end = std::min(left.find('|'), left.size());
    packs.push_back(left.substr(0, end));
    left.remove_prefix(std::min(end + 1, left.size()));
  }
  return packs;
}

// Prices end as a shop's do: whole rupees when small, fives and tens when large.
Paise rounded_price(Paise price) {
  const Paise step = price < 50 * rupee ? rupee : price < 500 * rupee ? 5 * rupee : 10 * rupee;
  return std::max(step, divided(price, step) * step);
}

// A shop sells a few things below their cost, and some of what it sells came free of charge.
Paise cost_of(Paise sale_rate, Random& random) {
  const std::int64_t kind = random.between(0, 199);
  if (kind < 2) return 0;
  const std::int64_t percent = kind < 6 ? random.between(102, 108) : random.between(78, 96);
  return percent_of(sale_rate, percent);
}

void set_rates(Item& item, Paise price, Random& random) {
  item.mrp = rounded_price(price);
  const std::int64_t share = item.by_weight ? 100 : random.between(86, 100);
  item.sale_rate = std::max<Paise>(divided(percent_of(item.mrp, share), 50) * 50, 50);
  item.cost = cost_of(item.sale_rate, random);
}

// Every category has some items that were entered in capitals or with blanks behind them.
std::string category_entry(std::string_view category, Random& random) {
  std::string entry(category);
  if (random.chance(30)) entry = upper(entry);
  if (random.chance(40)) entry += "   ";
  return entry;
}

std::string barcode_of(std::int64_t code) {
  const std::string digits = std::to_string(code);
  return "890" + std::string(10 - std::min<std::size_t>(digits.size(), 10), '0') + digits;
}

struct Product {
  const GoodsKind* kind;
  std::string name;
  Paise price;
};

// The goods in the order in which an item list takes them: every kind comes once, then every kind
// in its next pack or brand.
Product product_at(int index, Random& random) {
  const auto kinds = goods_kinds();
  const auto brands = goods_brands();
  const auto round = static_cast<std::size_t>(index) / kinds.size();
  const GoodsKind& kind = kinds[static_cast<std::size_t>(index) % kinds.size()];
  const auto packs = packs_of(kind);
  const std::size_t sizes = std::max<std::size_t>(packs.size(), 1);
  const std::size_t brand = (round / sizes * 7 + static_cast<std::size_t>(index)) % brands.size();
  const std::size_t pack = round % sizes;

  std::string name(brands[brand]);
  name += ' ';
  name += kind.name;
  if (!packs.empty()) name += ' ' + std::string(packs[pack]);
  const std::size_t repeat = round / sizes / brands.size();
  if (repeat > 0) name += " #" + std::to_string(repeat + 1);
  const Paise price = random.between(kind.low, kind.high) * rupee;
  return {&kind, std::move(name), price * (std::int64_t{1} << pack)};
}

Date created_on(Date first_day, int days, Random& random) {
  const bool newcomer = random.chance(80);
  const std::int64_t offset =
      newcomer ? random.between(1, std::max(days - 1, 1)) : -random.between(1, 900);
  return std::chrono::sys_days(first_day) + std::chrono::days(offset);
}

Item make_item(int index, std::size_t suppliers, Date first_day, int days, Random& random) {
  const Product product = product_at(index, random);
  Item item;
  item.code = 1001 + index;
  item.name = random.chance(450) ? upper(product.name) : product.name;
  item.long_name = product.name + (random.chance(50) ? " - New Pack" : "");
  item.barcode = barcode_of(item.code);
  item.category = category_entry(product.kind->category, random);
  item.supplier =
      static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(suppliers) - 1));
  item.hsn = product.kind->hsn;
  item.gst = product.kind->gst;
  item.cess = product.kind->cess;
  item.by_weight = product.kind->packs.empty();
  set_rates(item, product.price, random);
  item.created = created_on(first_day, days, random);
  return item;
}

// The same goods from an older delivery, entered once more in other letters.
void enter_twice(const Item& first, Item& second) {
  const std::int64_t code = second.code;
  second = first;
  second.code = code;
  second.barcode = barcode_of(code);
  second.name = first.name == upper(first.name) ? first.long_name : upper(first.name);
}

// A few items sell often and most seldom.
void share_out_demand(std::vector<Item>& items, int lines_per_day, Random& random) {
  std::vector<int> ranks(items.size());
  std::iota(ranks.begin(), ranks.end(), 0);
  for (std::size_t i = ranks.size(); i > 1; --i) {
    std::swap(ranks[i - 1],
              ranks[static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(i) - 1))]);
  }
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    items[i].popularity = 10'000'000 / (25 + ranks[i]);
    sum += items[i].popularity;
  }
  for (Item& item : items) {
    const Milli per_line = item.by_weight ? 1200 : 1500;
    item.daily_demand = std::max<Milli>(
        divided(std::int64_t{item.popularity} * lines_per_day, sum) * per_line, per_line / 10);
    item.opening_stock = item.daily_demand * random.between(8, 25) / unit * unit;
    item.stock = item.opening_stock;
  }
}

}  // namespace

std::vector<Item> make_items(int count, std::size_t suppliers, Date first_day, int days,
                             int lines_per_day, Random& random) {
  std::vector<Item> items;
  items.reserve(static_cast<std::size_t>(count));
  for (int index = 0; index < count; ++index) {
    items.push_back(make_item(index, suppliers, first_day, days, random));
    if (index % 97 == 96) enter_twice(items[items.size() - 2], items.back());
  }
  // Something must be on sale from the first day on.
  items.front().created = std::chrono::sys_days(first_day) - std::chrono::days(1000);
  share_out_demand(items, lines_per_day, random);
  return items;
}

void change_rates(Item& item, Random& random) {
  const std::int64_t percent = random.between(96, 107);
  item.mrp = rounded_price(percent_of(item.mrp, percent));
  const Paise rate = divided(percent_of(item.sale_rate, percent), 50) * 50;
  item.sale_rate = std::clamp<Paise>(rate, 50, item.mrp);
  item.cost = percent_of(item.cost, percent);
}

ItemPicker::ItemPicker(const std::vector<Item>& items, Date day) {
  std::int64_t sum = 0;
  for (const Item& item : items)
    reached_.push_back(sum += item.created <= day ? item.popularity : 0);
}

std::size_t ItemPicker::pick(Random& random) const {
  const std::int64_t place = random.between(1, reached_.back());
  return static_cast<std::size_t>(std::lower_bound(reached_.begin(), reached_.end(), place) -
                                  reached_.begin());
}

}  // namespace tela::demo
