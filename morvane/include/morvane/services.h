// The services of the host and the dictionary that they are found in.
//
// A service is looked up by its case-sensitive name at every use and may be registered, replaced or removed at any
// time. The interfaces carry no class descriptor of their own: their desc() is that of OdRxObject. Everything is called
// on the command thread. Unless said otherwise an operation answers a host result code (result_codes.h).
#pragma once

#include "RxObject.h"
#include "morvane/export.h"
#include "morvane/off_screen.h"
#include "morvane/resbuf.h"

namespace mvsi {
class MvsiApDocument;
}

inline constexpr wchar_t kEditGetServer[] = L"Core/EditGetServer";
inline constexpr wchar_t kSelectorServer[] = L"Core/SelectorServer";
inline constexpr wchar_t kEditSystemServer[] = L"Core/EditSystemServer";
inline constexpr wchar_t kDbServer[] = L"Core/DbServer";
inline constexpr wchar_t kDocMgr[] = L"Core/DocMgr";

// The service of that name with one reference for the caller, or null. Null, too, while no host is installed.
MORVANE_API OdRxObjectPtr mv_arbitDict_getservice(const OdString& name);
// Puts the service in, in place of an earlier one of that name; the dictionary holds a reference.
// False without a host, a name or a service.
MORVANE_API bool mv_arbitDict_register(const OdString& name, OdRxObject* service);
// Takes the service out; false when there was none.
MORVANE_API bool mv_arbitDict_unregister(const OdString& name);

// Input from the user ("Core/EditGetServer").
class MORVANE_API MvEditGetServer : public OdRxObject {
public:
  ~MvEditGetServer() override;
  // Arms the next input, and that one only. Keywords: local names, then optionally `_` and the global names in the same
  // order; capitals and digits are the least abbreviation. Flags: 1 an empty answer is asked again, 8 points outside
  // the drawing limits pass, 128 any text passes as an answer. Null keywords are none.
  virtual int mvsiedInitGet(int flags, const wchar_t* keywords) = 0;
  // Text. With allowSpaces 0 a blank ends the answer. `result` takes up to morvane::kMaxAnswerLength characters and a
  // zero.
  virtual int mvsiedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* result) = 0;
  // A point in the current UCS, 3 doubles. `basePoint` (3 doubles, or null) is where a rubber band would start.
  virtual int mvsiedGetPoint(const double* basePoint, const wchar_t* prompt, double* result) = 0;
  // The global name of an armed keyword, or any text under flag 128, cut to `capacity` characters with the zero.
  virtual int mvsiedGetKword(const wchar_t* prompt, wchar_t* result, int capacity) = 0;
};

// Selection sets ("Core/SelectorServer"). Sets and entities are named by two values; {0, 0} is no name.
class MORVANE_API MvSelectorServer : public OdRxObject {
public:
  ~MvSelectorServer() override;
  // Sets the pick-first and grip sets; both null clears the current pick-first selection.
  virtual int mvsiedSSSetFirst(const long* pickFirst, const long* grips) = 0;
  virtual int mvsiedSSFree(const long* set) = 0;
  // RTERROR when the name is not that of a living set.
  virtual int mvsiedSSLength(const long* set, int* length) = 0;
  // Adds the entity, or a set's members, to the set; an empty set name makes a new set. `result` may be `set` itself.
  virtual int mvsiedSSAdd(const long* entity, const long* set, long* result) = 0;
  virtual int mvsiedSSName(const long* set, int index, long* entity) = 0;
};

// System variables, units and files ("Core/EditSystemServer").
class MORVANE_API MvEditSystemServer : public OdRxObject {
public:
  ~MvEditSystemServer() override;
  // Variable names are compared without regard to case. RTREJ: read-only, another type, or out of range.
  virtual int mvsiedSetVar(const wchar_t* name, const mvsiresbuf* value) = 0;
  virtual int mvsiedGetVar(const wchar_t* name, mvsiresbuf* value) = 0;
  // Millimetres of one unit of the insertion-units code; 1 for code 0 (no units); RTERROR for an unknown code.
  virtual int mvsiedGetUnitsFactor(int unitsCode, double* factor) = 0;
  // The full path of a file on the search path, with backslashes. `found` takes up to morvane::kMaxPathLength
  // characters and a zero. RTERROR when there is no such file.
  virtual int mvsiedFindFile(const wchar_t* fileName, wchar_t* found) = 0;
};

// Numbers and texts ("Core/DbServer").
class MORVANE_API MvDbServer : public OdRxObject {
public:
  ~MvDbServer() override;
  // Mode 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional, -1 the current LUNITS; precision 0..8,
  // or -1 for LUPREC. `result` takes up to morvane::kMaxNumberLength characters and a zero.
  virtual int mvsidbRToS(double value, int mode, int precision, wchar_t* result) = 0;
  // Reads a distance in any of the forms above, in drawing units (inches for the forms with feet).
  virtual int mvsidbDisToF(const wchar_t* text, int mode, double* value) = 0;
};

// Open documents ("Core/DocMgr"). Documents belong to the host.
class MORVANE_API MvDocManager : public OdRxObject {
public:
  ~MvDocManager() override;
  virtual mvsi::MvsiApDocument* currentDocument() = 0; // null when none is open
  virtual int documentCount() = 0;
  virtual mvsi::MvsiApDocument* documentAt(int index) = 0; // in order of opening; null outside
  // Has the document draw its views anew. RTERROR for null.
  virtual int refreshViews(mvsi::MvsiApDocument* document) = 0;
  // A picture of the space that the document shows, as large as the rectangle. RTERROR for null, for a document that is
  // not open and when the picture cannot be made; the image is then left alone.
  virtual int drawOffScreen(mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle,
                            mvsi::MvsiImage& image) = 0;
};
