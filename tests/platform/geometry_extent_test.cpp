// The geometry library's point and plan extent.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/geometry/GeTolerance.h"
#include "platform/geometry/KyGeExtent2d.h"
#include "platform/geometry/KyGePoint.h"

TEST(GeometryExtent, NewExtentIsAllZeroAndHoldsOnlyTheOrigin) {
  KyGeExtent2d e;
  EXPECT_EQ(e.GetXExtend().min, 0.0);
  EXPECT_EQ(e.GetYExtend().max, 0.0);
  EXPECT_TRUE(e.IsInclude(KyGePoint(0, 0)));
  EXPECT_FALSE(e.IsInclude(KyGePoint(1, 0)));
}

TEST(GeometryExtent, CornersGiveTheRangesAndTheBorderIsInside) {
  KyGeExtent2d e(1, 2, 3, 4);
  EXPECT_EQ(e.GetXExtend().min, 1.0);
  EXPECT_EQ(e.GetXExtend().max, 3.0);
  EXPECT_EQ(e.GetYExtend().min, 2.0);
  EXPECT_EQ(e.GetYExtend().max, 4.0);
  EXPECT_DOUBLE_EQ(e.GetXExtend().GetLength(), 2.0);
  EXPECT_TRUE(e.IsInclude(KyGePoint(1, 2)));
  EXPECT_TRUE(e.IsInclude(KyGePoint(3, 4, 100)));
  EXPECT_TRUE(e.IsInclude(2.0, 3.0));
  EXPECT_FALSE(e.IsInclude(KyGePoint(0.5, 3)));
  EXPECT_FALSE(e.IsInclude(KyGePoint(2, 4.5)));
  // Within the distance tolerance counts as on the border.
  EXPECT_TRUE(e.IsInclude(KyGePoint(3 + g_distZero / 2, 4)));
  EXPECT_FALSE(e.IsInclude(KyGePoint(3 + g_distZero * 2, 4)));
}

TEST(GeometryExtent, ExtentInExtent) {
  KyGeExtent2d outer(0, 0, 10, 10);
  EXPECT_TRUE(outer.IsInclude(KyGeExtent2d(0, 0, 10, 10)));
  EXPECT_TRUE(outer.IsInclude(KyGeExtent2d(2, 2, 3, 3)));
  EXPECT_FALSE(outer.IsInclude(KyGeExtent2d(2, 2, 11, 3)));
  EXPECT_FALSE(KyGeExtent2d(2, 2, 3, 3).IsInclude(outer));
  // An inverted extent includes nothing and is included nowhere.
  KyGeExtent2d inverted(5, 5, 1, 1);
  EXPECT_FALSE(inverted.IsInclude(KyGePoint(3, 3)));
  EXPECT_FALSE(outer.IsInclude(inverted));
}

TEST(GeometryExtent, NanIsNeverInside) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  KyGeExtent2d e(0, 0, 10, 10);
  EXPECT_FALSE(e.IsInclude(KyGePoint(nan, 1)));
  EXPECT_FALSE(KyGeExtent2d(nan, 0, 10, 10).IsInclude(KyGePoint(1, 1)));
  EXPECT_FALSE(e.IsInclude(KyGeExtent2d(nan, nan, nan, nan)));
}

TEST(GeometryPoint, EqualWithinTheDistanceTolerance) {
  KyGePoint a(1, 2, 3);
  EXPECT_TRUE(a == KyGePoint(1, 2, 3 + g_distZero / 2));
  EXPECT_TRUE(a != KyGePoint(1, 2.1, 3));
  EXPECT_EQ(KyGePoint().x + KyGePoint().y + KyGePoint().z, 0.0);
}
