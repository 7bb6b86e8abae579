// Enumerations of the drawing database that several headers use. Values are part of the interface.
#pragma once

#include <cstdint>

namespace OdDb {

// How an object is opened. kNotOpen is treated as kForRead.
enum OpenMode { kNotOpen = -1, kForRead = 0, kForWrite = 1 };

// Insertion units ($INSUNITS and the units of a block definition).
enum UnitsValue : std::int16_t {
  kUnitsUndefined = 0,
  kUnitsInches = 1,
  kUnitsFeet = 2,
  kUnitsMiles = 3,
  kUnitsMillimeters = 4,
  kUnitsCentimeters = 5,
  kUnitsMeters = 6,
  kUnitsKilometers = 7,
  kUnitsMicroinches = 8,
  kUnitsMils = 9,
  kUnitsYards = 10,
  kUnitsAngstroms = 11,
  kUnitsNanometers = 12,
  kUnitsMicrons = 13,
  kUnitsDecimeters = 14,
  kUnitsDekameters = 15,
  kUnitsHectometers = 16,
  kUnitsGigameters = 17,
  kUnitsAstronomical = 18,
  kUnitsLightYears = 19,
  kUnitsParsecs = 20,
  kUnitsUSSurveyFeet = 21,
  kUnitsUSSurveyInch = 22,
  kUnitsUSSurveyYard = 23,
  kUnitsUSSurveyMile = 24,
  kUnitsMax = kUnitsUSSurveyMile
};

// What happens when a record is cloned into a drawing that has a record of the same name.
enum DuplicateRecordCloning {
  kDrcNotApplicable = 0,
  kDrcIgnore = 1,  // the record of the target is used unchanged
  kDrcReplace = 2, // the record of the target keeps its id and gets the properties and contents of the source
};

// Versions of drawing files, oldest first. The numbers are stored in settings.
enum DwgVersion : std::int32_t {
  kVersionUnknown = 0,
  kRelease10 = 13,
  kRelease12 = 16,
  kRelease13 = 19,
  kRelease14 = 21,
  kRelease2000 = 23,
  kRelease2004 = 25,
  kRelease2007 = 27,
  kRelease2010 = 29,
  kRelease2013 = 31,
  kRelease2018 = 33,
  kNewestVersion = kRelease2018
};

// How one object refers to another: pointers and ownership, hard ones of which the object cannot do without.
enum ReferenceType : std::uint8_t { kSoftPointerRef, kHardPointerRef, kSoftOwnershipRef, kHardOwnershipRef };

// The nine symbol tables, in the order of DXF files.
enum SymbolTableKind : std::uint8_t {
  kViewportTable,
  kLinetypeTable,
  kLayerTable,
  kTextStyleTable,
  kViewTable,
  kUcsTable,
  kRegAppTable,
  kDimStyleTable,
  kBlockTable,
  kNoTable
};
// Number of symbol tables.
inline constexpr int kSymbolTableCount = kNoTable;

} // namespace OdDb
