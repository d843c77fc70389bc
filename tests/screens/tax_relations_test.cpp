// What must hold between the tax lists, whatever was sold: they cut the same lines in other ways.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "screens/tax_shop.h"

namespace tela::testing {
namespace {

/// Which lines a random catalogue has.
struct Trade {
  std::vector<double> rates = {0, 5, 12, 18, 28};
  bool rates_agree = true;  ///< `iIGst` is `iCGst` + `iSGst` on every line
  bool cess = false;
};

std::vector<TaxedLine> random_lines(const Trade& trade, unsigned seed) {
  std::mt19937 random(seed);
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  std::vector<TaxedLine> lines;
  for (int i = 0; i < 150; ++i) {
    const int bill = 1 + below(40);
    const double rate = trade.rates[random() % trade.rates.size()];
    TaxedLine line = taxed(bill, 1 + bill / 6, (below(90000) - 10000) / 100.0, rate);
    line.qty = line.amount < 0 ? -1 : 1;
    if (!trade.rates_agree) line.half = below(15);
    if (trade.cess && rate == 28) line.cess = 4.0 * below(4);
    line.hsn = std::to_string(1000 + below(8));
    lines.push_back(line);
  }
  return lines;
}

double cents(const std::string& cell) {
  return std::round(std::stod(cell) * 100);
}

double column_sum(const Json& state, std::size_t column, const std::string& grid = "MSHF") {
  double sum = 0;
  for (const auto& cells : rows(state, grid)) sum += cents(cells[column]);
  return sum;
}

double box(const Json& state, const std::string& name) {
  return cents(state["controls"][name]);
}

/// How far two sums may lie apart in cents when each of `cells` cells has been rounded by itself.
double slack(std::size_t cells) {
  return 0.5 * static_cast<double>(cells) + 0.01;
}

class TaxRelations : public ::testing::TestWithParam<unsigned> {
 protected:
  void sell(const Trade& trade) { shop.sell(lines = random_lines(trade, GetParam())); }

  TaxShop shop;
  std::vector<TaxedLine> lines;
};

TEST_P(TaxRelations, WhereRatesAgreeSoDoAllLists) {
  sell({.rates = {0, 3, 5, 12, 18, 28, 2.5}});
  const Json days = shop.viewed("frmDateWise");
  const Json codes = shop.viewed("frmHsnSalesReport");
  const Json rates = shop.viewed("frmRateOfTax");
  double sold = 0;
  for (const TaxedLine& line : lines) sold += std::round(line.amount * 100);

  EXPECT_DOUBLE_EQ(box(days, "Text2"), sold);
  EXPECT_DOUBLE_EQ(column_sum(days, 1, "MSHFlexGrid1"), sold);
  EXPECT_DOUBLE_EQ(column_sum(codes, 3), sold);
  EXPECT_DOUBLE_EQ(column_sum(rates, 1), sold);

  const std::size_t cells = rows(days).size() + rows(codes).size() + rows(rates).size();
  const double taxable = box(days, "Text3");
  EXPECT_NEAR(column_sum(days, 3, "MSHFlexGrid1"), taxable, slack(cells));
  EXPECT_NEAR(box(codes, "tBasicAmount"), taxable, slack(cells));
  EXPECT_NEAR(box(rates, "tTotalSales"), taxable, slack(cells));
  const double tax = box(days, "Text4") + box(days, "Text5");
  EXPECT_NEAR(taxable + tax, sold, slack(3 * cells));
  EXPECT_NEAR(column_sum(days, 4, "MSHFlexGrid1"), tax, slack(2 * cells));
  EXPECT_NEAR(box(codes, "tCgst") + box(codes, "tSgst"), tax, slack(2 * cells));
  EXPECT_NEAR(box(rates, "tTotalSalesGst"), tax, slack(2 * cells));

  // Without cess the two lists by rate are the same, cell by cell.
  const auto below = rows(days, "MSHFlexGrid1");
  const auto by_rate = rows(rates);
  ASSERT_EQ(by_rate.size(), below.size());
  for (std::size_t i = 0; i < below.size(); ++i)
    for (std::size_t column = 0; column < 4; ++column)
      EXPECT_EQ(by_rate[i][column], below[i][column]);
}

TEST_P(TaxRelations, WhereRatesDisagreeEachListFollowsItsOwnRule) {
  sell({.rates_agree = false});
  std::map<int, std::pair<double, double>> of_day;  // taxable and central tax
  std::map<double, double> of_rate;
  for (const TaxedLine& line : lines) {
    const double taxable = line.amount / (100 + 2 * line.half) * 100;
    of_day[line.day].first += taxable;
    of_day[line.day].second += taxable * line.half / 100;
    of_rate[line.rate] += line.amount / (100 + line.rate) * 100;
  }
  const Json state = shop.viewed("frmDateWise");
  for (const auto& cells : rows(state)) {
    const auto& [taxable, central] = of_day.at(std::stoi(cells[3]));
    EXPECT_NEAR(std::stod(cells[5]), taxable, 0.0051);
    EXPECT_NEAR(std::stod(cells[6]), central, 0.0051);
    EXPECT_EQ(cells[7], cells[6]);
  }
  for (const auto& cells : rows(state, "MSHFlexGrid1")) {
    EXPECT_NEAR(std::stod(cells[3]), of_rate.at(std::stod(cells[2])), 0.0051);
    EXPECT_DOUBLE_EQ(cents(cells[4]), cents(cells[1]) - cents(cells[3]));
  }
  EXPECT_GT(std::abs(box(state, "Text3") - column_sum(state, 3, "MSHFlexGrid1")), 100);
}

// The pairs of columns of a day hold its sales but those at other rates.
TEST_P(TaxRelations, ADaysPairsOfColumnsAreItsSalesAtTheFiveRates) {
  sell({.rates = {0, 5, 12, 18, 28, 3}});
  std::map<int, double> at_other_rates;
  for (const TaxedLine& line : lines)
    if (line.rate == 3) at_other_rates[line.day] += std::round(line.amount * 100);
  const auto days = rows(shop.viewed("frmDateWise"));
  const Json pairs = shop.viewed("frmDateWiseGst");
  const auto pair_days = rows(pairs);
  ASSERT_EQ(pair_days.size(), days.size());
  for (std::size_t i = 0; i < days.size(); ++i) {
    double sold = 0;
    for (std::size_t column = 4; column < 13; ++column) sold += cents(pair_days[i][column]);
    EXPECT_NEAR(sold + at_other_rates[std::stoi(days[i][3])], cents(days[i][4]), slack(9));
    for (std::size_t column = 0; column < 4; ++column)
      EXPECT_EQ(pair_days[i][column], days[i][column]);
  }
  const std::map<std::string, std::size_t> columns = {
      {"0.00", 4}, {"5.00", 5}, {"12.00", 7}, {"18.00", 9}, {"28.00", 11}};
  const Json by_rate = shop.show("switch frmDateWise");
  for (const auto& cells : rows(by_rate, "MSHFlexGrid1")) {
    if (!columns.contains(cells[2])) continue;
    EXPECT_NEAR(column_sum(pairs, columns.at(cells[2])), cents(cells[3]), slack(days.size() + 1));
  }
}

TEST_P(TaxRelations, TaxableValueTaxAndCessAreTheSales) {
  sell({.cess = true});
  const Json rates = shop.viewed("frmRateOfTax");
  EXPECT_GT(box(rates, "tCess"), 0);
  EXPECT_NEAR(box(rates, "tTotalSales") + box(rates, "tTotalSalesGst") + box(rates, "tCess"),
              column_sum(rates, 1), slack(2 * rows(rates).size() + 1));
}

INSTANTIATE_TEST_SUITE_P(Catalogues, TaxRelations, ::testing::Range(1U, 5U));

}  // namespace
}  // namespace tela::testing
