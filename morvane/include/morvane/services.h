// The services of the host and their dictionary.
//
// A service is looked up by its case-sensitive name at every use and may be registered, replaced or removed at any
// time. The interfaces have no class descriptor of their own: their desc() is that of OdRxObject. Everything is called
// on the command thread. Unless stated otherwise an operation returns a host result code (result_codes.h): RTNORM, or
// RTERROR for null arguments and failures.
#pragma once

#include "RxObject.h"
#include "morvane/export.h"
#include "morvane/off_screen.h"
#include "morvane/resbuf.h"

namespace mvsi {
class MvsiApDocument;
}

// Names of the services below.
inline constexpr wchar_t kEditGetServer[] = L"Core/EditGetServer";
inline constexpr wchar_t kSelectorServer[] = L"Core/SelectorServer";
inline constexpr wchar_t kEditSystemServer[] = L"Core/EditSystemServer";
inline constexpr wchar_t kDbServer[] = L"Core/DbServer";
inline constexpr wchar_t kDocMgr[] = L"Core/DocMgr";

// The service of that name; null if there is none, and without a host.
MORVANE_API OdRxObjectPtr mv_arbitDict_getservice(const OdString& name);
// Registers a service in place of a previous one of that name; the dictionary holds a reference. False without a host,
// for an empty name and a null service.
MORVANE_API bool mv_arbitDict_register(const OdString& name, OdRxObject* service);
// Removes the service; false if there was none.
MORVANE_API bool mv_arbitDict_unregister(const OdString& name);

// Input from the user ("Core/EditGetServer").
class MORVANE_API MvEditGetServer : public OdRxObject {
public:
  ~MvEditGetServer() override;
  // Sets flags and keywords for the next input only. Keywords: local names, then optionally `_` and the global names in
  // the same order; capitals and digits are the shortest abbreviation; null: none. Flags: 1 an empty answer means not
  // accepted, 8 points outside the drawing limits are accepted, 128 any text is accepted.
  virtual int mvsiedInitGet(int flags, const wchar_t* keywords) = 0;
  // Text. With allowSpaces 0 a space ends the answer. `result` has room for morvane::kMaxAnswerLength characters and a
  // zero.
  virtual int mvsiedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* result) = 0;
  // A point in the current UCS, 3 numbers; RTKEYWORD for a keyword. `basePoint` (3 numbers, or null) is the start of a
  // rubber band.
  virtual int mvsiedGetPoint(const double* basePoint, const wchar_t* prompt, double* result) = 0;
  // The global name of an armed keyword, or any text under flag 128, truncated to `capacity` characters including the
  // zero.
  virtual int mvsiedGetKword(const wchar_t* prompt, wchar_t* result, int capacity) = 0;
};

// Selection sets ("Core/SelectorServer"). Sets and entities have names of two values; {0, 0} is the empty name.
class MORVANE_API MvSelectorServer : public OdRxObject {
public:
  ~MvSelectorServer() override;
  // Makes a set the pick-first selection; null clears it.
  virtual int mvsiedSSSetFirst(const long* pickFirst, const long* grips) = 0;
  // Deletes a set, and returns its number of members; RTERROR for a name that is not that of an existing set.
  virtual int mvsiedSSFree(const long* set) = 0;
  virtual int mvsiedSSLength(const long* set, int* length) = 0;
  // Adds an entity, or the members of a set, to a set; an empty set name creates one. `result` may be `set`.
  // mvsiedSSName returns the name of a member; RTERROR for an index outside.
  virtual int mvsiedSSAdd(const long* entity, const long* set, long* result) = 0;
  virtual int mvsiedSSName(const long* set, int index, long* entity) = 0;
};

// System variables, units and files ("Core/EditSystemServer").
class MORVANE_API MvEditSystemServer : public OdRxObject {
public:
  ~MvEditSystemServer() override;
  // Set and read variables; case of names does not matter. RTERROR: unknown; RTREJ: read-only, another type, or out of
  // range.
  virtual int mvsiedSetVar(const wchar_t* name, const mvsiresbuf* value) = 0;
  virtual int mvsiedGetVar(const wchar_t* name, mvsiresbuf* value) = 0;
  // Length of one unit of an insertion units code in millimetres; 1 for code 0 (unitless); RTERROR for an unknown code.
  virtual int mvsiedGetUnitsFactor(int unitsCode, double* factor) = 0;
  // Full path with backslashes of a file on the search path. `found` has room for morvane::kMaxPathLength characters
  // and a zero. RTERROR if the file does not exist.
  virtual int mvsiedFindFile(const wchar_t* fileName, wchar_t* found) = 0;
};

// Numbers and texts ("Core/DbServer").
class MORVANE_API MvDbServer : public OdRxObject {
public:
  ~MvDbServer() override;
  // Formats a number. Mode 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional, -1 the current
  // LUNITS; precision 0 to 8, or -1 for LUPREC. `result` has room for morvane::kMaxNumberLength characters and a zero.
  virtual int mvsidbRToS(double value, int mode, int precision, wchar_t* result) = 0;
  // Parses a distance in any of these forms into drawing units (inches for the forms with feet).
  virtual int mvsidbDisToF(const wchar_t* text, int mode, double* value) = 0;
};

// Open documents ("Core/DocMgr"). Documents belong to the host.
class MORVANE_API MvDocManager : public OdRxObject {
public:
  ~MvDocManager() override;
  // The current document, null if none is open; all documents in order of opening, null for an index outside.
  virtual mvsi::MvsiApDocument* currentDocument() = 0;
  virtual int documentCount() = 0;
  virtual mvsi::MvsiApDocument* documentAt(int index) = 0;
  // Redraws the views of a document. RTERROR for null.
  virtual int refreshViews(mvsi::MvsiApDocument* document) = 0;
  // An image of the space that the document displays, of the size of the rectangle. RTERROR, and the image unchanged,
  // for null, for a document that is not open and if the image cannot be made.
  virtual int drawOffScreen(mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle,
                            mvsi::MvsiImage& image) = 0;
};
