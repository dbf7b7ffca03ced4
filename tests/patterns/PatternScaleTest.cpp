// Scaling data lines: the angle stays, every other field is multiplied and
// written short.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "PatternTestSupport.h"

namespace {

std::string Scaled(const wchar_t *line, double factor) {
  KyPatData data;
  data << CString(line);
  data.Scale(factor);
  return pattest::LineText(data);
}

TEST(PatternScale, AngleStaysAndZerosBecomeZeroAndEighthDoubles) {
  EXPECT_EQ(Scaled(L"45,0,0,0,.125", 2), "45,0,0,0,0.25");
}

TEST(PatternScale, OnePointZeroByThreeIsThreeWithoutPointOrZeros) {
  EXPECT_EQ(Scaled(L"0,1.0", 3), "0,3");
}

TEST(PatternScale, AngleTextIsNeverTouched) {
  EXPECT_EQ(Scaled(L" 45.000 ,1", 2), " 45.000 ,2");
  EXPECT_EQ(Scaled(L"abc", 2), "abc");
}

TEST(PatternScale, SpacesAroundNumbersAreDropped) { EXPECT_EQ(Scaled(L"0, 0.5 , 2", 2), "0,1,4"); }

TEST(PatternScale, NegativeValuesKeepTheirSign) { EXPECT_EQ(Scaled(L"0,-.125,-3", 2), "0,-0.25,-6"); }

TEST(PatternScale, NegativeZeroStaysNegativeZero) { EXPECT_EQ(Scaled(L"0,-0", 2), "0,-0"); }

TEST(PatternScale, EmptyOrWordFieldsReadAsZero) { EXPECT_EQ(Scaled(L"0,,abc,", 5), "0,0,0,0"); }

TEST(PatternScale, AtMostTenCharacters) {
  EXPECT_EQ(Scaled(L"0,1", 1.0 / 3.0), "0,0.33333333");
  EXPECT_EQ(Scaled(L"0,-1", 1.0 / 3.0), "0,-0.3333333");
  EXPECT_EQ(Scaled(L"0,12345.678", 1), "0,12345.678");
}

TEST(PatternScale, CutCanLeaveATrailingPoint) {
  // The cut to ten characters comes after the zeros are dropped.
  EXPECT_EQ(Scaled(L"0,123456789.5", 1), "0,123456789.");
}

TEST(PatternScale, LargeResultOfASmallValueIsCutToTenCharacters) {
  EXPECT_EQ(Scaled(L"0,5000000000", 10), "0,5000000000");
  EXPECT_EQ(Scaled(L"0,5000000000", 100), "0,5000000000");
}

TEST(PatternScale, ValuesFromTenBillionOnKeepEveryDigit) {
  EXPECT_EQ(Scaled(L"0,10000000000", 1), "0,10000000000");
  EXPECT_EQ(Scaled(L"0,12345678901.5", 2), "0,24691357803");
}

TEST(PatternScale, HugeValuesInfinityAndNanDoNotCrash) {
  std::string big = Scaled(L"0,1e308", 1);
  EXPECT_EQ(big.size(), 2u + 309u);
  EXPECT_EQ(big.substr(0, 3), "0,1");
  EXPECT_EQ(Scaled(L"0,1e308", 10), "0,inf");
  EXPECT_EQ(Scaled(L"0,-1e308", 10), "0,-inf");
  EXPECT_EQ(Scaled(L"0,nan", 2).substr(0, 2), "0,");
  EXPECT_NE(Scaled(L"0,nan", 2).find("nan"), std::string::npos);
  EXPECT_EQ(Scaled(L"0,inf", 0.5), "0,inf");
}

TEST(PatternScale, TinyValuesBecomeZero) { EXPECT_EQ(Scaled(L"0,1e-12", 1), "0,0"); }

TEST(PatternScale, ByTwentyFivePointFour) {
  EXPECT_EQ(Scaled(L"45, 0,0, 0,.125", 25.4), "45,0,0,0,3.175");
  EXPECT_EQ(Scaled(L"0,0,0,.125,.125,.125,-.0625", 25.4), "0,0,0,3.175,3.175,3.175,-1.5875");
}

TEST(PatternScale, PatternScalesEveryDataLineAndKeepsTheHead) {
  KyPats pats;
  pattest::ReadPats(pats, "*NET, grid\n0,0,0,0,.125\n90,0,0,0,.125\n");
  pats.GetPData(0).Scale(4);
  EXPECT_EQ(pattest::WritePats(pats), "*NET, grid\n0,0,0,0,0.5\n90,0,0,0,0.5\n");
}

TEST(PatternScale, ScalingBackRestoresShortValues) {
  KyPatData data;
  data << CString(L"30,0.1,0.2,0.3,0.4,0.5,-0.6");
  data.Scale(25.4);
  data.Scale(1 / 25.4);
  EXPECT_EQ(pattest::LineText(data), "30,0.1,0.2,0.3,0.4,0.5,-0.6");
}

}  // namespace

namespace {

// The formatting rule written out plainly with printf, for comparison.
std::string ByTheRule(double v, double factor) {
  char buffer[400];
  std::snprintf(buffer, sizeof buffer, "%.10f", v * factor);
  std::string text = buffer;
  int n = static_cast<int>(text.size()) - 1;
  while (n >= 1) {
    if (text[static_cast<std::size_t>(n)] == '.') {
      --n;
      break;
    }
    if (text[static_cast<std::size_t>(n)] != '0') break;
    --n;
  }
  if (n > 9 && v < 1e10) n = 9;
  if (n < static_cast<int>(text.size()) - 1) text.resize(static_cast<std::size_t>(n) + 1);
  return text;
}

TEST(PatternScale, RandomValuesFollowThePrintfRule) {
  std::mt19937_64 rng(1015);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> exponent(-14, 14);
  const double factors[] = {2, 0.5, 25.4, 1 / 25.4, 3, 1e-3, 1000};
  for (int i = 0; i < 20000; ++i) {
    double v = mantissa(rng) * std::pow(10.0, exponent(rng));
    if (i % 7 == 0) v = std::round(v * 1000) / 1000;  // short values as files have them
    if (i % 5 == 0) v = std::ldexp(static_cast<double>(i % 4096), -11 - i % 12);  // ties at the tenth place
    double factor = factors[i % 7];
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", v);
    KyPatData data;
    data << CString((std::string("0,") + text).c_str());
    data.Scale(factor);
    ASSERT_EQ(pattest::LineText(data), "0," + ByTheRule(std::strtod(text, nullptr), factor)) << text << " * " << factor;
  }
}

}  // namespace
