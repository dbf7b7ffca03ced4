// Doubles written into element text read back exactly with _wtof after a
// save and a fresh open.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "containers/KyArray.h"
#include "platform/utility/KyUtXMLDOM.h"
#include "platform/windows/WinCrt.h"
#include "support/TestSupport.h"

namespace {

// Writes every value into its own element, saves, opens the file again and
// gives back what _wtof makes of each element's text.
std::vector<double> RoundTrip(const std::vector<double> &values) {
  tolvtest::ScratchDir dir("xml_double");
  std::vector<double> back;
  {
    KyUtXMLDOMFile file;
    KyArray<std::pair<CString, CString>> none(0);
    EXPECT_TRUE(file.CreateNewXMLDoc(dir.wide("d.xml").c_str(), L"version='1.0' encoding='utf-8'", L"R", none));
    auto root = file.GetRoot();
    for (double v : values) {
      auto n = root->AppendNode(L"Double", L"", L"name", L"");
      EXPECT_TRUE(n->SetNodeValue(v));
    }
    EXPECT_TRUE(file.Save(nullptr));
  }
  KyUtXMLDOMFile file;
  EXPECT_TRUE(file.Open(dir.wide("d.xml").c_str()));
  KyUtXMLDOMNodeArray kids;
  kids = file.GetRoot()->GetChildrenNodes();
  for (int i = 0; i < kids->GetCount(); ++i) back.push_back(_wtof(kids->GetItem(i)->GetNodeValue()));
  return back;
}

void ExpectSameBits(const std::vector<double> &values) {
  std::vector<double> back = RoundTrip(values);
  ASSERT_EQ(back.size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (std::isnan(values[i])) {
      EXPECT_TRUE(std::isnan(back[i])) << i;
      continue;
    }
    EXPECT_EQ(std::bit_cast<std::uint64_t>(back[i]), std::bit_cast<std::uint64_t>(values[i]))
        << "value " << values[i] << " came back as " << back[i];
  }
}

TEST(XmlDouble, ChosenValuesRoundTripExactly) {
  ExpectSameBits({0.1, 1e-300, 5e-324, 1.7976931348623157e308, -0.0, 0.0, 123456.789, 1.0 / 3.0,
                  -2.5, 1e21, 1e22, 1e-7, 9007199254740993.0, 2.2250738585072014e-308,
                  2.2250738585072009e-308, std::numeric_limits<double>::min(),
                  std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max(),
                  std::numeric_limits<double>::lowest(), std::numeric_limits<double>::epsilon(),
                  3.141592653589793, 0.30000000000000004, 100.0, -1e-10});
}

TEST(XmlDouble, InfinitiesAndNanRoundTrip) {
  ExpectSameBits({std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                  std::numeric_limits<double>::quiet_NaN()});
}

TEST(XmlDouble, NegativeZeroKeepsItsSign) {
  std::vector<double> back = RoundTrip({-0.0});
  ASSERT_EQ(back.size(), 1u);
  EXPECT_TRUE(std::signbit(back[0]));
}

TEST(XmlDouble, RandomBitPatternsRoundTripExactly) {
  std::mt19937_64 rng(20240601);
  std::vector<double> values;
  while (values.size() < 5000) {
    double d = std::bit_cast<double>(rng());
    if (std::isfinite(d)) values.push_back(d);
  }
  ExpectSameBits(values);
}

TEST(XmlDouble, RandomEverydayMagnitudesRoundTripExactly) {
  std::mt19937_64 rng(7);
  std::uniform_real_distribution<double> mm(-100000.0, 100000.0);
  std::vector<double> values;
  for (int i = 0; i < 5000; ++i) values.push_back(mm(rng));
  // Values typed by people: a few decimals.
  for (int i = 0; i < 1000; ++i) values.push_back(std::round(mm(rng) * 1000.0) / 1000.0);
  ExpectSameBits(values);
}

TEST(XmlDouble, TextIsTheShortestThatReadsBack) {
  tolvtest::ScratchDir dir("xml_double");
  KyUtXMLDOMFile file;
  KyArray<std::pair<CString, CString>> none(0);
  ASSERT_TRUE(file.CreateNewXMLDoc(dir.wide("d.xml").c_str(), L"version='1.0'", L"R", none));
  auto n = file.GetRoot()->AppendNode(L"Double", L"", L"", L"");
  const std::pair<double, const wchar_t *> cases[] = {
      {0.1, L"0.1"}, {-0.0, L"-0"}, {1e-300, L"1e-300"}, {5e-324, L"5e-324"},
      {1.7976931348623157e308, L"1.7976931348623157e+308"}, {123456.789, L"123456.789"}, {42.0, L"42"}};
  for (const auto &[value, text] : cases) {
    n->SetNodeValue(value);
    EXPECT_STREQ(n->GetNodeValue(), text);
  }
}

}  // namespace
