#include "morvane/units.h"

#include <array>

namespace morvane {
namespace {

constexpr double kInch = 25.4;
constexpr double kFoot = 12.0 * kInch;
constexpr double kMile = 5280.0 * kFoot;
constexpr double kMetre = 1000.0;
// The survey foot is defined as 1200/3937 of a metre.
constexpr double kSurveyFoot = 1200.0 * kMetre / 3937.0;

// Millimetres, by insertion-units code.
constexpr std::array<double, 25> kMillimetres = {
    1.0,                            // no units
    kInch,                          //
    kFoot,                          //
    kMile,                          //
    1.0,                            // millimetre
    10.0,                           // centimetre
    kMetre,                         //
    1.0e6,                          // kilometre
    kInch * 1.0e-6,                 // microinch
    kInch * 1.0e-3,                 // mil
    3.0 * kFoot,                    // yard
    1.0e-7,                         // angstrom
    1.0e-6,                         // nanometre
    1.0e-3,                         // micron
    100.0,                          // decimetre
    1.0e4,                          // dekametre
    1.0e5,                          // hectometre
    1.0e12,                         // gigametre
    149597870700.0 * kMetre,        // astronomical unit
    9460730472580800.0 * kMetre,    // light year
    3.0856775814913673e16 * kMetre, // parsec
    kSurveyFoot,                    //
    kSurveyFoot / 12.0,             // survey inch
    3.0 * kSurveyFoot,              // survey yard
    5280.0 * kSurveyFoot,           // survey mile
};

} // namespace

std::optional<double> unitsFactor(int unitsCode) {
  if (unitsCode < 0 || unitsCode >= static_cast<int>(kMillimetres.size()))
    return std::nullopt;
  return kMillimetres[static_cast<std::size_t>(unitsCode)];
}

} // namespace morvane
