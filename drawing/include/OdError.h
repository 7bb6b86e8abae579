// Result codes and exceptions of the drawing SDK.
#pragma once

#include "OdString.h"
#include "drawing/export.h"

#include <exception>
#include <string>

class OdRxClass;

// Result codes. The numeric values are part of the interface: callers compare 0, 209 and 255 by number.
enum OdResult : int {
  eOk = 0,
  eNotImplementedYet = 1,
  eInvalidInput = 3,
  eOutOfMemory = 7,
  eInvalidIndex = 9,
  eOutOfRange = 10,
  eNullObjectId = 20,
  eNullObjectPtr = 21,
  eObjectDoesNotOpen = 22, // the id has no object
  eWasErased = 23,
  eOnLockedLayer = 24,
  eNotOpenForWrite = 25,
  eNotOpenForRead = 26,
  eNotThatKindOfClass = 27,
  eDatabaseGone = 28,
  eNotInDatabase = 29,
  eDuplicateRecordName = 40,
  eKeyNotFound = 41,
  eInvalidKey = 42,
  eSelfReference = 43, // a definition would contain itself
  eWrongDatabase = 44,
  eNoDatabase = 45,
  eInvalidOwnerObject = 46,
  eBudgetExceeded = 60, // a limit of the caller was reached
  eFileNotFound = 70,
  eFileAccessErr = 71,
  eFileWriteError = 72,
  eNotADrawing = 73,
  eUnsupportedFileFormat = 74,
  eDwgFileIsDamaged = 75,
  eDegenerateGeometry = 90,
  eNotApplicable = 120,
  eCannotTransform = 209, // the kind of entity does not accept this matrix
  eClassNotRegistered = 255,
};

// English sentence for a result code; "Error N." for a number that is not one.
MVDRAWING_API OdString resultText(OdResult code);

// Thrown for misuse: null pointers, changes to objects that are open for read, indices out of range.
class MVDRAWING_API OdError : public std::exception {
public:
  // With the sentence of the code, with a text (the code is then eInvalidInput), or with both.
  explicit OdError(OdResult code);
  explicit OdError(const OdString& text);
  OdError(OdResult code, const OdString& text);
  OdError(const OdError&);
  OdError& operator=(const OdError&);
  ~OdError() override;

  // The code, and its text as a string and in UTF-8.
  OdResult code() const { return code_; }
  const OdString& description() const { return text_; }
  const char* what() const noexcept override { return utf8_.c_str(); }

private:
  OdResult code_;
  OdString text_;
  std::string utf8_;
};

// Thrown when a pointer is converted to a class that its object does not have.
class MVDRAWING_API OdError_NotThatKindOfClass : public OdError {
public:
  // Class of the object, null if it is not known, and class that was wanted.
  OdError_NotThatKindOfClass(const OdRxClass* fromClass, const OdRxClass* toClass);
  ~OdError_NotThatKindOfClass() override;
  const OdRxClass* fromClass() const { return from_; }
  const OdRxClass* toClass() const { return to_; }

private:
  const OdRxClass* from_;
  const OdRxClass* to_;
};

// Thrown for an index outside an array.
class MVDRAWING_API OdError_InvalidIndex : public OdError {
public:
  OdError_InvalidIndex(); // code eInvalidIndex, text "Invalid Execution."
  ~OdError_InvalidIndex() override;
};
