// Numbers as text: the leading number of a cell, the plain form, the masks and the decimal
// rounding.
#include "platform/text/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace tela {
namespace {

TEST(Val, TakesTheLeadingNumber) {
  struct Case {
    std::string_view text;
    double value;
  };
  const Case cases[] = {{"", 0},
                        {"12.50 Kg", 12.5},
                        {"  \t-7", -7},
                        {"+5", 5},
                        {"5.", 5},
                        {"-.5", -.5},
                        {".", 0},
                        {"-", 0},
                        {"- 5", 0},
                        {"+-5", 0},
                        {"1 2", 1},
                        {"1.2.3", 1.2},
                        {"1,234", 1},
                        {"1.5E+3x", 1500},
                        {"2e", 2},
                        {"2e+", 2},
                        {"1e-2", 0.01},
                        {"********", 0},
                        {"Rs. 5", 0},
                        {"inf", 0},
                        {"-nan", 0},
                        {"0x10", 0},
                        {"1E999", 0},
                        {"-1E-999", 0},
                        {"0000000000000000012", 12}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << '"' << text << '"';
}

TEST(IsNumeric, ReadsTheTextAsAWhole) {
  for (const auto* text : {"0", " 12.5 ", "-3", "+3", ".5", "5.", "1e5", "1.5E-03", "\t7\n"})
    EXPECT_TRUE(is_numeric(text)) << '"' << text << '"';
  for (const auto* text : {"", " ", "-", ".", "-.", "e5", "1e", "1e+", "12.50 Kg", "1 2", "- 5",
                           "--5", "1,234", "inf", "nan", "0x10", "1.2.3", "1E999", "****"})
    EXPECT_FALSE(is_numeric(text)) << '"' << text << '"';
}

TEST(PlainNumber, HasFifteenDigitsAndNoTrailingZeros) {
  struct Case {
    double value;
    std::string_view text;
  };
  const Case cases[] = {{0, "0"},
                        {-0.0, "0"},
                        {1000, "1000"},
                        {-12.50, "-12.5"},
                        {0.1 + 0.2, "0.3"},
                        {1.0 / 3, "0.333333333333333"},
                        {123456789012345, "123456789012345"},
                        {1e15, "1E+15"},
                        {-1.5e20, "-1.5E+20"},
                        {0.0001, "0.0001"},
                        {0.00001, "1E-05"},
                        {std::numeric_limits<double>::infinity(), "inf"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(plain_number(value), text);
  EXPECT_EQ(plain_number(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(DecimalRounding, GoesHalfAwayFromZeroOnTheDecimal) {
  struct Case {
    double value;
    int places;
    double rounded;
    std::string_view fixed;
  };
  const Case cases[] = {{1.005, 2, 1.01, "1.01"},
                        {2.675, 2, 2.68, "2.68"},
                        {-1.005, 2, -1.01, "-1.01"},
                        {0.5, 0, 1, "1"},
                        {-2.5, 0, -3, "-3"},
                        {2.49999999999999, 0, 2, "2"},
                        {1.45, 1, 1.5, "1.5"},
                        {0.0049999, 2, 0, "0.00"},
                        {-0.0049, 2, 0, "0.00"},
                        {-0.005, 2, -0.01, "-0.01"},
                        {9.995, 2, 10, "10.00"},
                        {999999999999.995, 2, 1000000000000, "1000000000000.00"},
                        {1250, -2, 1300, "1300"},
                        {-1249, -2, -1200, "-1200"},
                        {49, -2, 0, "0"},
                        {5, -1, 10, "10"},
                        {4, -20, 0, "0"},
                        {1e20, 2, 1e20, "100000000000000000000.00"},
                        {1e-30, 2, 0, "0.00"},
                        {12.5, 5, 12.5, "12.50000"}};
  for (const auto& [value, places, rounded, fixed] : cases) {
    EXPECT_EQ(round_decimal(value, places), rounded) << value << " to " << places;
    EXPECT_FALSE(rounded == 0 && std::signbit(round_decimal(value, places))) << value;
    EXPECT_EQ(fixed_decimal(value, places), fixed) << value << " to " << places;
  }
}

TEST(DecimalRounding, TakesAnyNumberOfPlaces) {
  for (const double value : {1.25, 1e300, -4.9406564584124654e-324}) {
    EXPECT_EQ(round_decimal(value, std::numeric_limits<int>::max()), Val(plain_number(value)));
    EXPECT_EQ(round_decimal(value, std::numeric_limits<int>::min()), 0);
  }
  EXPECT_TRUE(std::isnan(round_decimal(std::nan(""), 2)));
}

TEST(FormatNumber, FollowsTheMask) {
  struct Case {
    double value;
    std::string_view mask;
    std::string_view text;
  };
  const Case cases[] = {{1234567.891, "########0.00", "1234567.89"},
                        {0, "########0.00", "0.00"},
                        {.5, "####0.00", "0.50"},
                        {-0.001, "####0.00", "0.00"},
                        {-12.345, "##0.00", "-12.35"},
                        {12345678, "#0.00", "12345678.00"},
                        {2.5, "#####0", "3"},
                        {1.2345, "##0.000", "1.235"},
                        {0.4, "0", "0"},
                        {7, "000", "007"},
                        {-7.5, "00.0", "-07.5"}};
  for (const auto& [value, mask, text] : cases) EXPECT_EQ(format_number(value, mask), text) << mask;
}

TEST(FormatNumber, LeavesATextThatIsNoNumber) {
  EXPECT_EQ(format_number("   12.505", "########0.00"), "12.51");
  for (const auto* text : {"", "********", "12.50 Kg"})
    EXPECT_EQ(format_number(text, "########0.00"), text);
}

TEST(NumberText, RoundTripsWithinTheRounding) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> mantissa(-1, 1);
  std::uniform_int_distribution<int> exponent(-6, 12);
  for (int i = 0; i < 20000; ++i) {
    const double value = mantissa(random) * std::pow(10.0, exponent(random));
    const double read = Val(format_number(value, "########0.00"));
    ASSERT_NEAR(read, value, 0.005 + std::fabs(value) * 1e-14) << plain_number(value);
    ASSERT_EQ(read, round_decimal(value, 2)) << plain_number(value);
    ASSERT_NEAR(Val(plain_number(value)), value, std::fabs(value) * 1e-14);
    ASSERT_TRUE(is_numeric(plain_number(value)));
  }
}

}  // namespace
}  // namespace tela
