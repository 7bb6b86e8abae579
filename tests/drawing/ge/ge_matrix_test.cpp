#include "Ge/Ge.h"
#include "OdError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const OdGeVector3d kX = OdGeVector3d::kXAxis;
const OdGeVector3d kY = OdGeVector3d::kYAxis;
const OdGeVector3d kZ = OdGeVector3d::kZAxis;
const OdGePoint3d kOrigin = OdGePoint3d::kOrigin;

bool identical(const OdGeMatrix3d& one, const OdGeMatrix3d& other) {
  return one.isEqualTo(other, 0.0);
}

OdGeMatrix3d crooked() {
  return OdGeMatrix3d::translation({100, -20, 3}) * OdGeMatrix3d::rotation(0.7, {1, 2, 3}, {4, 5, 6}) *
         OdGeMatrix3d::scaling(OdGeScale3d(2, -3, 0.5)) *
         OdGeMatrix3d::coordSystem({1, 2, 3}, kX + kY * 0.25, kY, kZ + kX * 0.5);
}

TEST(Matrix, AppliesTheRightOperandFirst) {
  const OdGeMatrix3d move = OdGeMatrix3d::translation({10, 0, 0}), turn = OdGeMatrix3d::rotation(kHalfPi, kZ);
  const OdGePoint3d point(1, 0, 0);
  OdGeMatrix3d product;
  EXPECT_EQ(product.setToProduct(move, turn) * point, OdGePoint3d(10, 1, 0));
  EXPECT_EQ(OdGeMatrix3d(turn).multiplyLeft(move) * point, OdGePoint3d(10, 1, 0));
  EXPECT_EQ(OdGeMatrix3d(turn).multiplyRight(move) * point, OdGePoint3d(0, 11, 0));
}

TEST(Matrix, InvertsWhatItCan) {
  EXPECT_EQ(crooked() * crooked().inverse(), OdGeMatrix3d::kIdentity);
  EXPECT_EQ(crooked().inverse() * crooked(), OdGeMatrix3d::kIdentity);
  const OdGeMatrix3d tiny = OdGeMatrix3d::scaling(1e-120);
  EXPECT_FALSE(tiny.isSingular());
  EXPECT_DOUBLE_EQ(tiny.inverse().entry[2][2], 1e120);
  OdGeMatrix3d perspective = crooked();
  perspective.entry[3][0] = 0.01;
  perspective.entry[3][3] = 2.0;
  EXPECT_EQ(perspective * perspective.inverse(), OdGeMatrix3d::kIdentity);
  EXPECT_NEAR(perspective.determinant() * perspective.inverse().determinant(), 1.0, 1e-12);
  EXPECT_NEAR(crooked().determinant(), -3.0, 1e-12);
  OdGeMatrix3d twice = OdGeMatrix3d::kIdentity;
  twice.entry[3][3] = 2.0;
  EXPECT_DOUBLE_EQ(twice.determinant(), 2.0);
}

TEST(Matrix, RefusesToInvertWhatIsFlat) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const OdGeMatrix3d flat[] = {OdGeMatrix3d(), OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1)),
                               OdGeMatrix3d::coordSystem(kOrigin, kX, kX * 2, kZ), OdGeMatrix3d::scaling(nan),
                               OdGeMatrix3d::coordSystem(kOrigin, kX, kY, kX + kY)};
  for (const OdGeMatrix3d& matrix : flat) {
    EXPECT_TRUE(matrix.isSingular());
    OdGeMatrix3d answer = OdGeMatrix3d::translation(kX);
    EXPECT_FALSE(matrix.inverse(answer));
    EXPECT_TRUE(identical(answer, OdGeMatrix3d::translation(kX)));
    EXPECT_THROW(matrix.inverse(), OdError);
    EXPECT_FALSE(matrix.isOrthogonal());
  }
}

TEST(Matrix, MovesThereAndBackExactly) {
  const OdGeMatrix3d exact[] = {OdGeMatrix3d::kIdentity,
                                OdGeMatrix3d::translation({1234567, -89, 3}),
                                OdGeMatrix3d::translation({0.1, 1e-300, 1e300}),
                                OdGeMatrix3d::coordSystem({5, 6, 7}, kY, kZ, kX),
                                OdGeMatrix3d::coordSystem({5, 6, 7}, -kY, kX, kZ),
                                OdGeMatrix3d::mirroring({12, 0, 0}, kX),
                                OdGeMatrix3d::scaling(OdGeScale3d(4, 0.5, -8), {3, 5, 7})};
  for (const OdGeMatrix3d& matrix : exact) {
    EXPECT_TRUE(identical(matrix * matrix.inverse(), OdGeMatrix3d::kIdentity));
    EXPECT_TRUE(identical(matrix.inverse().inverse(), matrix));
  }
  const OdGePoint3d there = exact[1].inverse() * (exact[1] * OdGePoint3d(0.5, 0.25, 1024.125));
  EXPECT_TRUE(there.x == 0.5 && there.y == 0.25 && there.z == 1024.125);
  EXPECT_EQ(OdGeMatrix3d::scaling(3.0).inverse().entry[0][0], 1.0 / 3.0);
  EXPECT_FALSE(std::signbit(OdGeMatrix3d::kIdentity.inverse().entry[0][3]));
  EXPECT_FALSE(std::signbit(OdGeMatrix3d::mirroring(kOrigin, kX).inverse().entry[0][1]));
}

TEST(Matrix, KeepsTheCenterInPlace) {
  const OdGePoint3d center(3, -4, 5);
  const OdGePoint3d point = center + OdGeVector3d(1, 2, 3);
  const std::pair<OdGeMatrix3d, OdGeVector3d> cases[] = {
      {OdGeMatrix3d::scaling(2.0, center), {2, 4, 6}},
      {OdGeMatrix3d::scaling(OdGeScale3d(2, -1, 0), center), {2, -2, 0}},
      {OdGeMatrix3d::rotation(kHalfPi, kZ * 9, center), {-2, 1, 3}},
      {OdGeMatrix3d::rotation(-kHalfPi, kX, center), {1, 3, -2}},
      {OdGeMatrix3d::rotation(kTwoPi / 3, {1, 1, 1}, center), {3, 1, 2}},
      {OdGeMatrix3d::mirroring(center), {-1, -2, -3}},
      {OdGeMatrix3d::mirroring(center, kZ * -7), {1, 2, -3}},
      {OdGeMatrix3d::mirroring(center, kX - kY), {2, 1, 3}},
      {OdGeMatrix3d::mirroringLine(center, kX * 5), {1, -2, -3}},
  };
  for (const auto& [matrix, image] : cases) {
    EXPECT_EQ(matrix * center, center);
    EXPECT_EQ(matrix * point - center, image);
  }
}

TEST(Matrix, ReportsItsKind) {
  const OdGeMatrix3d turned = OdGeMatrix3d::rotation(1.0, {1, 2, 3}, {1e6, 0, 0});
  const struct {
    OdGeMatrix3d matrix;
    bool uniform, ortho;
  } cases[] = {
      {turned * OdGeMatrix3d::scaling(1e-8), true, true},
      {turned * OdGeMatrix3d::scaling(1e8) * OdGeMatrix3d::mirroring(kOrigin, {1, 1, 0}), true, true},
      {turned * OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 1.001)), false, true},
      {OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 1.001)) * turned, false, false},
      {turned.transpose(), false, false}, // the translation is in the last row
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(cases[i].matrix.isUniformlyScaled(), cases[i].uniform) << i;
    EXPECT_EQ(cases[i].matrix.isOrthogonal(), cases[i].ortho) << i;
  }
  EXPECT_NEAR(cases[1].matrix.scale(), 1e8, 1e-4);
  EXPECT_FALSE(turned.isEqualTo(OdGeMatrix3d::translation({1e-6, 0, 0}) * turned));
  EXPECT_TRUE(turned.isEqualTo(OdGeMatrix3d::translation({1e-6, 0, 0}) * turned, OdGeTol(1e-5, 1e-10)));
}

TEST(Matrix, KeepsNormalsNormal) {
  const OdGeVector3d inPlane[] = {{1, 2, -1}, {0, 3, 2}};
  const OdGeVector3d normal = inPlane[0].crossProduct(inPlane[1]);
  const OdGeVector3d image = crooked().transformNormal(normal);
  EXPECT_TRUE(image.isUnitLength());
  EXPECT_TRUE(image.isPerpendicularTo(crooked() * inPlane[0]));
  EXPECT_TRUE(image.isPerpendicularTo(crooked() * inPlane[1]));
  EXPECT_EQ(OdGeMatrix3d::mirroring(kOrigin, kX).transformNormal(kZ), kZ);
  EXPECT_EQ(OdGeMatrix3d::mirroring(kOrigin, kZ).transformNormal(kZ), -kZ);
  EXPECT_EQ(OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0)).transformNormal(kZ), kZ);
  EXPECT_EQ(OdGeMatrix3d().transformNormal(kZ), OdGeVector3d::kIdentity);
}

TEST(ArbitraryAxis, FollowsTheRuleOfDrawingFiles) {
  const double edge = 1.0 / 64.0;
  const std::pair<OdGeVector3d, OdGeVector3d> cases[] = {
      // a normal and its x axis
      {{0, 0, 1}, {1, 0, 0}},
      {{0, 0, -1}, {-1, 0, 0}},
      {{1, 0, 0}, {0, 1, 0}},
      {{0, -5, 0}, {1, 0, 0}},
      {{0, 0, 0}, {1, 0, 0}},
      {{edge, 0, std::sqrt(1 - edge * edge)}, {0, 1, 0}}, // at the edge the Z axis is taken
      {{edge * 0.999, 0, std::sqrt(1 - edge * edge * 0.999 * 0.999)}, {0.99987817, 0, -0.01560937}},
      {{1, 1, 1}, {-std::sqrt(0.5), std::sqrt(0.5), 0}},
  };
  for (const auto& [normal, xAxis] : cases) {
    const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
    EXPECT_TRUE(plane.column(0).isEqualTo(xAxis, 1e-7)) << normal.x << ' ' << normal.z;
    EXPECT_TRUE(plane.isUniformlyScaled());
    EXPECT_NEAR(plane.determinant(), 1.0, 1e-14);
    EXPECT_EQ(OdGeMatrix3d::worldToPlane(normal) * plane, OdGeMatrix3d::kIdentity);
  }
  EXPECT_TRUE(identical(OdGeMatrix3d::planeToWorld(kZ), OdGeMatrix3d::kIdentity));
  EXPECT_EQ(ocsToWcs({1, 2, 3}, -kZ), OdGePoint3d(-1, 2, -3));
  EXPECT_EQ(wcsToOcs(ocsToWcs({1, 2, 3}, {3, -1, 2}), {3, -1, 2}), OdGePoint3d(1, 2, 3));
}

TEST(Vector, MeasuresAngles) {
  const double tenth = 0.1;
  const OdGeVector3d turned(std::cos(tenth), std::sin(tenth), 0);
  EXPECT_NEAR(kX.angleTo(turned), tenth, 1e-15);
  EXPECT_NEAR(kX.angleTo(turned, kZ), tenth, 1e-15);
  EXPECT_NEAR(turned.angleTo(kX * 1e9, kZ), kTwoPi - tenth, 1e-15);
  EXPECT_NEAR(kX.angleTo(turned, -kZ), kTwoPi - tenth, 1e-15);
  EXPECT_EQ(kX.angleTo(-kX, kZ), kPi);
  EXPECT_EQ(kX.angleTo(kX, kZ), 0.0);
  EXPECT_EQ(kX.angleTo({1, -1e-20, 0}, kZ), 0.0); // rounds to the full turn, which is none
  EXPECT_NEAR(kX.angleTo({1, 1e-12, 0}), 1e-12, 1e-20);
  EXPECT_EQ(OdGeVector2d(0, -1).angle(), 1.5 * kPi);
  EXPECT_NEAR(OdGeVector2d(0, 1).counterClockwiseAngleTo({1, 0}), 1.5 * kPi, 1e-15);
  EXPECT_NEAR(normalizeAngle(-7 * kPi), kPi, 1e-14);
  EXPECT_FALSE(std::signbit(normalizeAngle(-0.0)));
  EXPECT_EQ(normalizeAngle(-1e-17), 0.0); // a full turn when 2 pi is added
}

TEST(Vector, ComparesDirections) {
  const OdGeVector3d v(1, 2, 3);
  EXPECT_TRUE(v.isParallelTo(v * -1e-5));
  EXPECT_FALSE(v.hasDirectionOf(v * -1e-5));
  EXPECT_TRUE(v.hasDirectionOf(v * 1e8));
  EXPECT_TRUE(v.isPerpendicularTo(v.perpendicularVector()));
  EXPECT_FALSE(v.isParallelTo({1, 2, 3.001}));
  EXPECT_FALSE(v.isParallelTo(OdGeVector3d::kIdentity));
  EXPECT_FALSE(v.isPerpendicularTo(OdGeVector3d::kIdentity));
  EXPECT_EQ(OdGeVector3d(2, 3, 6).length(), 7.0);
  EXPECT_EQ(OdGeVector3d(1e-200, 0, 0).normal(), kX);
  EXPECT_DOUBLE_EQ(OdGeVector3d(0, 3e200, 4e200).length(), 5e200);
  EXPECT_EQ(OdGeVector3d(0, 3e200, 4e200).normal(), OdGeVector3d(0, 0.6, 0.8));
  EXPECT_EQ(OdGeVector3d().normal(), OdGeVector3d::kIdentity);
  EXPECT_EQ(OdGeVector3d(v).mirror(kZ * 4), OdGeVector3d(1, 2, -3));
  EXPECT_EQ(OdGeVector2d(1, 2).mirror({1, 1}), OdGeVector2d(2, 1));
  EXPECT_EQ(OdGePoint2d(2, 1).rotateBy(kPi, {1, 1}), OdGePoint2d(0, 1));
  EXPECT_EQ(OdGePoint3d(2, 1, 5).rotateBy(-kHalfPi, kZ, {1, 1, 0}), OdGePoint3d(1, 0, 5));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(OdGePoint3d(nan, 0, 0) == OdGePoint3d(nan, 0, 0));
}

TEST(Extents, GrowFromNothingAndTurn) {
  OdGeExtents3d box;
  EXPECT_FALSE(box.isValidExtents());
  box.addExt(OdGeExtents3d());
  box.expandBy(5.0);
  box.transformBy(OdGeMatrix3d::translation(kX));
  box.addPoint({std::numeric_limits<double>::infinity(), 0, 0});
  EXPECT_FALSE(box.isValidExtents());
  box.addPoint({3e20, 2, 3}); // beyond the values that stand for nothing
  EXPECT_EQ(box.minPoint().x, 3e20);
  box.set({1, 2, 3}, {1, 2, 3});
  box.addPoint({-1, 4, 3});
  EXPECT_TRUE(box.isEqualTo({{-1, 2, 3}, {1, 4, 3}}));
  box.expandBy(OdGeVector3d(0, -10, 1));
  EXPECT_TRUE(box.isEqualTo({{-1, -8, 3}, {1, 4, 4}}));
  EXPECT_TRUE(box.contains({1, 4, 4}));
  EXPECT_FALSE(box.contains({1, 4, 4.001}));
  EXPECT_TRUE(box.isDisjoint({{2, 2, 3}, {3, 4, 4}}));
  EXPECT_FALSE(box.isDisjoint({{1, 2, 3}, {3, 4, 4}}));
  box.expandBy(2.0);
  EXPECT_TRUE(box.isEqualTo({{-3, -10, 1}, {3, 6, 6}}));
  box.set({0, 0, 0}, {2, 1, 1});
  box.transformBy(OdGeMatrix3d::rotation(kPi / 4, kZ)); // with all corners
  const double root = std::sqrt(0.5);
  EXPECT_TRUE(box.isEqualTo({{-root, 0, 0}, {2 * root, 3 * root, 1}}));
}

} // namespace
