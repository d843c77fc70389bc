// The numbers of a chart: amounts as India writes them, and scales with round marks.
#include <gtest/gtest.h>

#include "platform/chart/amount_text.h"
#include "platform/chart/value_scale.h"

namespace tela {
namespace {

TEST(AmountText, GroupsTheWholePartAndLeavesTheRest) {
  const std::pair<const char*, const char*> cases[] = {
      {"0", "0"},
      {"999", "999"},
      {"1000", "1,000"},
      {"99999.5", "99,999.5"},
      {"120000", "1,20,000"},
      {"1234567.50", "12,34,567.50"},
      {"-100000", "-1,00,000"},
      {"-999", "-999"},
      {"1234567890123", "12,34,56,78,90,123"},
      {"1E+15", "1E+15"},
      {"", ""},
      {"12 Kg", "12 Kg"},
  };
  for (const auto& [number, grouped] : cases) EXPECT_EQ(grouped_amount(number), grouped) << number;
}

TEST(AmountText, CountsInLakhsAndCroresWhereDigitsWouldBeTooMany) {
  EXPECT_EQ(amount_in(amount_unit(900000), 120000, 0), "1,20,000");
  EXPECT_EQ(amount_in(amount_unit(1200000), 120000, 1), "1.2 L");
  EXPECT_EQ(amount_in(amount_unit(-25000000), -25000000, 1), "-2.5 Cr");
  EXPECT_EQ(amount_in(amount_unit(25000000), 0, 1), "0");
  EXPECT_EQ(short_amount(12.345), "12.35");
  EXPECT_EQ(short_amount(99999.4), "99,999");
  EXPECT_EQ(short_amount(125000), "1.25 L");
  EXPECT_EQ(short_amount(-31000000), "-3.1 Cr");
}

struct ScaleCase {
  std::vector<double> values;
  double low, high, step;
};

TEST(ValueScale, HasRoundStepsAndHoldsZeroAndEveryValue) {
  const ScaleCase cases[] = {
      {{120000, 95000}, 0, 125000, 25000},
      {{7}, 0, 8, 2},
      {{0.4, 0.1}, 0, 0.4, 0.1},
      {{-30, 70}, -40, 80, 20},
      {{-5, -12}, -15, 0, 5},
      {{100}, 0, 100, 20},
      {{0, 0}, 0, 1, 1},
      {{}, 0, 1, 1},
  };
  for (const ScaleCase& c : cases) {
    const ValueScale scale = value_scale(c.values, 5, 0);
    const std::string about = c.values.empty() ? "nothing" : std::to_string(c.values[0]);
    EXPECT_DOUBLE_EQ(scale.low, c.low) << about;
    EXPECT_DOUBLE_EQ(scale.high, c.high) << about;
    EXPECT_DOUBLE_EQ(scale.step, c.step) << about;
  }
}

TEST(ValueScale, LeavesRoomForLabelsBeyondTheValues) {
  const ValueScale up = value_scale({100}, 5, 0.2);
  EXPECT_GE(up.high - 100, 0.2 * (up.high - up.low) - 1e-9);
  EXPECT_EQ(up.low, 0);
  const ValueScale both = value_scale({100, -50}, 5, 0.2);
  EXPECT_GE(both.high - 100, 0.2 * (both.high - both.low) - 1e-9);
  EXPECT_GE(-50 - both.low, 0.2 * (both.high - both.low) - 1e-9);
}

TEST(ValueScale, MarksAreExactAndTellTheirDecimals) {
  const ValueScale scale{-0.2, 0.4, 0.1};
  EXPECT_EQ(scale.marks().size(), 7U);
  EXPECT_EQ(scale.marks()[2], 0);
  EXPECT_EQ(scale.places(1), 1);
  EXPECT_EQ((ValueScale{0, 1250000, 250000}).places(1e5), 1);
  EXPECT_EQ((ValueScale{0, 5, 1}).places(1), 0);
}

}  // namespace
}  // namespace tela
