// Numbers as they are typed and written: every form, what is refused, and that one reads what the other wrote.
#include "morvane/limits.h"
#include "morvane/units.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using morvane::formatReal;
using morvane::LinearUnits;
using morvane::parseDistance;

TEST(DistanceText, ReadsEveryForm) {
  const std::pair<const wchar_t*, double> cases[] = {
      {L"12.5", 12.5},       {L"-3", -3},           {L"+4", 4},         {L".5", 0.5},        {L"5.", 5},
      {L"  7 ", 7},          {L"1.55E+01", 15.5},   {L"2e3", 2000},     {L"1'-2.5\"", 14.5}, {L"1'2.5\"", 14.5},
      {L"1'-2 1/2\"", 14.5}, {L"1'-2-1/2\"", 14.5}, {L"1'2 1/2", 14.5}, {L"3'", 36},         {L"1.5'", 18},
      {L"-1'-6\"", -18},     {L"14 1/2", 14.5},     {L"14-1/2", 14.5},  {L"1/2", 0.5},       {L"-3/4\"", -0.75},
      {L"1' 1/2\"", 12.5},   {L"0", 0.0},
  };
  for (const auto& [text, wanted] : cases)
    EXPECT_DOUBLE_EQ(parseDistance(text).value_or(std::numeric_limits<double>::quiet_NaN()), wanted) << text;
}

TEST(DistanceText, RefusesWhatIsNoFiniteNumber) {
  for (const wchar_t* text : {L"",    L" ",    L"inf",  L"nan",  L"-inf", L"1e999",  L"-1e999",  L"1e-999",
                              L"abc", L"1x",   L"--1",  L"1/0",  L"1/",   L"/2",     L"1.5 1/2", L"1 2.5/3",
                              L"1'x", L"1'2'", L"1\"2", L"0x10", L"1,5",  L"1e308'", L"１"})
    EXPECT_FALSE(parseDistance(text).has_value()) << text;
}

TEST(DistanceText, IsWrittenInEveryForm) {
  using enum LinearUnits;
  const struct {
    double value;
    LinearUnits form;
    int precision;
    const wchar_t* text;
  } cases[] = {
      {15.5, kScientific, 4, L"1.5500E+01"},  {15.5, kDecimal, 4, L"15.5000"},
      {-0.00001, kDecimal, 4, L"0.0000"},     {15.5, kDecimal, 0, L"16"},
      {0, kEngineering, 1, L"0.0\""},         {14.5, kEngineering, 2, L"1'-2.50\""},
      {11.9999, kEngineering, 2, L"1'"},      {14.5, kArchitectural, 4, L"1'-2 1/2\""},
      {0, kArchitectural, 4, L"0\""},         {-14.5, kArchitectural, 4, L"-1'-2 1/2\""},
      {23.999, kArchitectural, 3, L"2'"},     {0.26, kArchitectural, 2, L"1/4\""},
      {12.5, kArchitectural, 1, L"1'-1/2\""}, {1.5, kFractional, 4, L"1 1/2"},
      {0.99, kFractional, 2, L"1"},           {-0.001, kFractional, 2, L"0"},
  };
  for (const auto& one : cases)
    EXPECT_EQ(formatReal(one.value, one.form, one.precision), one.text) << one.value;
}

TEST(DistanceText, NeverOutgrowsTheBuffersOfCallers) {
  for (const double value : {1e15, 9.1e15, 1e200, -1e308}) {
    for (int form = 1; form <= 5; ++form) {
      for (int precision = 0; precision <= morvane::kFinestPrecision; ++precision) {
        const auto text = formatReal(value, static_cast<LinearUnits>(form), precision).value_or(L"");
        EXPECT_LE(text.size(), static_cast<std::size_t>(morvane::kMaxNumberLength));
        EXPECT_NEAR(parseDistance(text).value_or(0) / value, 1.0, 0.5) << form << ' ' << precision;
      }
    }
  }
  EXPECT_FALSE(formatReal(std::numeric_limits<double>::infinity(), LinearUnits::kDecimal, 2).has_value());
  for (const int precision : {9, -2})
    EXPECT_FALSE(formatReal(1, LinearUnits::kDecimal, precision).has_value());
  EXPECT_FALSE(formatReal(1, static_cast<LinearUnits>(6), 2).has_value());
}

TEST(DistanceText, ReadsBackWhatIsWritten) {
  for (double value = -40.0; value < 40.0; value += 0.4375) {
    for (int form = 1; form <= 5; ++form) {
      const auto text = formatReal(value, static_cast<LinearUnits>(form), 6);
      EXPECT_NEAR(parseDistance(*text).value_or(1e9), value, 1e-4) << form << ' ' << value;
    }
  }
}

TEST(AngleText, ReadsDegreesGradsAndRadians) {
  constexpr double kRightAngle = 1.5707963267948966;
  for (const wchar_t* text : {L"90", L"90d", L"89d60'", L"89d59'60\"", L"100g", L"1.5707963267948966r"})
    EXPECT_NEAR(morvane::parseAngle(text).value_or(0), kRightAngle, 1e-12);
  for (const wchar_t* text : {L"", L"90x", L"90d5", L"inf", L"45dd", L"90 1"})
    EXPECT_FALSE(morvane::parseAngle(text).has_value());
}

TEST(UnitsFactor, GivesMillimetresForEachCode) {
  const std::pair<int, double> cases[] = {
      {0, 1},      {1, 25.4},  {2, 304.8}, {3, 1609344}, {4, 1},      {21, 304.8006096012192},
      {5, 10},     {6, 1000},  {7, 1e6},   {8, 2.54e-5}, {9, 0.0254}, {24, 1609347.218694437},
      {10, 914.4}, {13, 1e-3}, {14, 100},  {15, 1e4},    {16, 1e5},   {17, 1e12},
  };
  for (const auto& [code, factor] : cases)
    EXPECT_NEAR(morvane::unitsFactor(code).value_or(0) / factor, 1.0, 1e-12) << code;
  for (const int none : {-1, 25})
    EXPECT_FALSE(morvane::unitsFactor(none).has_value()) << none;
}

} // namespace
