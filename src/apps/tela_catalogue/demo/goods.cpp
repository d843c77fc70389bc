#include "apps/tela_catalogue/demo/goods.h"

namespace tela::demo {
namespace {

// Category, name, HSN code, GST, cess, price from and to, packs.
constexpr GoodsKind kinds[] = {
    {"Vegetables", "Tomato", "0702", 0, 0, 18, 60, ""},
    {"Vegetables", "Onion", "0703", 0, 0, 22, 70, ""},
    {"Vegetables", "Potato", "0701", 0, 0, 24, 48, ""},
    {"Vegetables", "Carrot", "0706", 0, 0, 36, 80, ""},
    {"Vegetables", "Beans", "0708", 0, 0, 45, 110, ""},
    {"Vegetables", "Drumstick", "0709", 0, 0, 50, 140, ""},
    {"Vegetables", "Brinjal", "0709", 0, 0, 25, 60, ""},
    {"Fruits", "Banana", "0803", 0, 0, 35, 75, ""},
    {"Fruits", "Apple", "0808", 0, 0, 130, 260, ""},
    {"Fruits", "Mango", "0804", 0, 0, 70, 180, ""},
    {"Fruits", "Sweet Lime", "0805", 0, 0, 55, 110, ""},
    {"Fruits", "Grapes", "0806", 0, 0, 65, 140, ""},
    {"Loose Grocery", "Sona Rice Loose", "1006", 0, 0, 42, 68, ""},
    {"Loose Grocery", "Toor Dal Loose", "0713", 0, 0, 110, 170, ""},
    {"Loose Grocery", "Sugar Loose", "1701", 5, 0, 40, 46, ""},
    {"Loose Grocery", "Groundnut Loose", "1202", 5, 0, 95, 150, ""},
    {"Dry Fruits", "Cashew Nut Loose", "0801", 5, 0, 720, 1100, ""},
    {"Dry Fruits", "Dates", "0804", 12, 0, 60, 120, "250 g|500 g|1 kg"},
    {"Dry Fruits", "Almonds", "0802", 12, 0, 190, 260, "200 g|500 g"},
    {"Grocery", "Ponni Rice", "1006", 5, 0, 58, 90, "1 kg|5 kg|10 kg|25 kg"},
    {"Grocery", "Basmati Rice", "1006", 5, 0, 110, 210, "1 kg|5 kg"},
    {"Grocery", "Wheat Flour", "1101", 5, 0, 45, 70, "1 kg|2 kg|5 kg"},
    {"Grocery", "Urad Dal", "0713", 5, 0, 75, 95, "500 g|1 kg"},
    {"Grocery", "Moong Dal", "0713", 5, 0, 62, 84, "500 g|1 kg"},
    {"Grocery", "Idli Rava", "1103", 5, 0, 38, 55, "500 g|1 kg"},
    {"Grocery", "Crystal Salt", "2501", 0, 0, 12, 24, "1 kg|2 kg"},
    {"Grocery", "Jaggery", "1701", 5, 0, 45, 70, "500 g|1 kg"},
    {"Grocery", "Vermicelli", "1902", 18, 0, 18, 30, "180 g|450 g"},
    {"Edible Oil", "Groundnut Oil", "1508", 5, 0, 180, 240, "1 L|2 L|5 L"},
    {"Edible Oil", "Sunflower Oil", "1512", 5, 0, 120, 165, "1 L|2 L|5 L"},
    {"Edible Oil", "Gingelly Oil", "1515", 5, 0, 150, 220, "500 ml|1 L"},
    {"Spices", "Sambar Powder", "0910", 5, 0, 28, 60, "50 g|100 g|200 g"},
    {"Spices", "Chilli Powder", "0904", 5, 0, 30, 70, "50 g|100 g|200 g"},
    {"Spices", "Turmeric Powder", "0910", 5, 0, 16, 40, "50 g|100 g|200 g"},
    {"Spices", "Pepper", "0904", 5, 0, 60, 110, "50 g|100 g"},
    {"Spices", "Mustard", "1207", 5, 0, 14, 28, "100 g|250 g"},
    {"Pickles", "Mango Pickle", "2001", 12, 0, 55, 120, "200 g|400 g"},
    {"Pickles", "Tomato Ketchup", "2103", 12, 0, 60, 99, "200 g|500 g|1 kg"},
    {"Pickles", "Mixed Fruit Jam", "2007", 12, 0, 60, 110, "200 g|500 g"},
    {"Dairy", "Milk", "0401", 0, 0, 25, 36, "500 ml|1 L"},
    {"Dairy", "Curd", "0403", 5, 0, 20, 40, "200 g|500 g"},
    {"Dairy", "Butter", "0405", 12, 0, 52, 62, "100 g|500 g"},
    {"Dairy", "Ghee", "0405", 12, 0, 130, 180, "200 ml|500 ml|1 L"},
    {"Dairy", "Cheese Slices", "0406", 12, 0, 75, 145, "100 g|200 g"},
    {"Dairy", "Farm Eggs", "0407", 0, 0, 36, 60, "6 pc|12 pc|30 pc"},
    {"Frozen", "Vanilla Ice Cream", "2105", 18, 0, 40, 90, "100 ml|500 ml|1 L"},
    {"Bakery", "Milk Bread", "1905", 0, 0, 30, 50, "200 g|400 g"},
    {"Bakery", "Plum Cake", "1905", 18, 0, 60, 150, "200 g|400 g"},
    {"Biscuits", "Glucose Biscuit", "1905", 18, 0, 5, 20, "40 g|80 g|250 g"},
    {"Biscuits", "Cream Biscuit", "1905", 18, 0, 10, 35, "60 g|120 g"},
    {"Biscuits", "Salt Biscuit", "1905", 18, 0, 10, 30, "60 g|120 g"},
    {"Snacks", "Potato Chips", "2005", 12, 0, 10, 30, "25 g|50 g|90 g"},
    {"Snacks", "Mixture", "2106", 12, 0, 25, 60, "100 g|200 g|400 g"},
    {"Snacks", "Murukku", "2106", 12, 0, 30, 65, "150 g|300 g"},
    {"Snacks", "Instant Noodles", "1902", 18, 0, 12, 20, "70 g|140 g|280 g"},
    {"Confectionery", "Milk Chocolate", "1806", 18, 0, 10, 60, "15 g|40 g|90 g"},
    {"Confectionery", "Toffee", "1704", 12, 0, 1, 5, "1 pc|50 pc"},
    {"Beverages", "Tea Dust", "0902", 5, 0, 45, 85, "100 g|250 g|500 g"},
    {"Beverages", "Filter Coffee", "0901", 5, 0, 80, 160, "100 g|200 g|500 g"},
    {"Beverages", "Mango Drink", "2202", 12, 0, 10, 25, "160 ml|600 ml|1.2 L"},
    {"Beverages", "Packaged Water", "2201", 18, 0, 10, 20, "500 ml|1 L|2 L"},
    {"Beverages", "Orange Soda", "2202", 28, 12, 15, 40, "250 ml|600 ml|1.25 L|2 L"},
    {"Beverages", "Cola Drink", "2202", 28, 12, 15, 40, "250 ml|600 ml|1.25 L|2 L"},
    {"Pan Goods", "Pan Masala", "2106", 28, 60, 5, 20, "1 pc|10 pc"},
    {"Personal Care", "Bath Soap", "3401", 18, 0, 25, 60, "75 g|125 g|4x125 g"},
    {"Personal Care", "Shampoo", "3305", 18, 0, 60, 180, "80 ml|180 ml|340 ml"},
    {"Personal Care", "Tooth Paste", "3306", 18, 0, 40, 95, "80 g|150 g|300 g"},
    {"Personal Care", "Coconut Hair Oil", "1513", 5, 0, 45, 90, "100 ml|250 ml|500 ml"},
    {"Personal Care", "Face Powder", "3304", 18, 0, 50, 120, "100 g|300 g"},
    {"Personal Care", "Shaving Cream", "3307", 18, 0, 55, 95, "30 g|70 g"},
    {"Personal Care", "Hair Colour", "3305", 28, 0, 30, 90, "15 g|60 g"},
    {"Baby Care", "Diapers", "9619", 12, 0, 110, 250, "10 pc|30 pc|60 pc"},
    {"Baby Care", "Infant Cereal", "1901", 18, 0, 190, 280, "300 g|600 g"},
    {"Household", "Washing Powder", "3402", 18, 0, 45, 120, "500 g|1 kg|4 kg"},
    {"Household", "Dish Wash Bar", "3401", 18, 0, 10, 35, "130 g|300 g"},
    {"Household", "Floor Cleaner", "3402", 18, 0, 70, 130, "500 ml|1 L"},
    {"Household", "Air Freshener", "3307", 28, 0, 90, 180, "50 g|220 ml"},
    {"Household", "Mosquito Coil", "3808", 18, 0, 28, 45, "10 pc|20 pc"},
    {"Pooja Items", "Agarbathi", "3307", 5, 0, 15, 60, "50 g|100 g"},
    {"Pooja Items", "Camphor", "2914", 18, 0, 20, 75, "25 g|100 g"},
    {"Stationery", "Long Note Book", "4820", 12, 0, 30, 60, "80 pg|160 pg"},
    {"Stationery", "Ball Pen", "9608", 18, 0, 5, 20, "1 pc|10 pc"},
    {"Plastic & Steel", "Storage Box", "3924", 18, 0, 60, 160, "500 ml|1 L|2 L"},
    {"Plastic & Steel", "Steel Tumbler", "7323", 12, 0, 45, 110, "1 pc|6 pc"},
};

constexpr std::string_view brands[] = {
    "Amma's Kitchen", "Farmer's Gold",   "Tellmaro",         "Vaanika",  "Pelliso",
    "Thendral Fresh", "Ruhanta",         "Grandma's Choice", "Oorvani",  "Kesarin",
    "Madhulo",        "Brindol",         "Nilavu",           "Senthara", "Zuvika",
    "Maduram's",      "Hillside Valley", "Pearlwhite",       "Jovandi",  "Chittu",
};

}  // namespace

std::span<const GoodsKind> goods_kinds() {
  return kinds;
}
std::span<const std::string_view> goods_brands() {
  return brands;
}

}  // namespace tela::demo
