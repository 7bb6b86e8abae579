// Result codes and exceptions of the drawing SDK.
#pragma once

#include "OdPlatform.h"
#include "OdString.h"

#include <exception>
#include <string>

class OdRxClass;

// Reasons. The numeric values are part of the interface: callers compare 0, 209 and 255 by number.
enum OdResult : int {
  eOk = 0,
  eNotImplementedYet = 1,
  eInvalidInput = 3,
  eOutOfMemory = 7,
  eInvalidIndex = 9,
  eOutOfRange = 10,
  eNullObjectId = 20,
  eNullObjectPtr = 21,
  eObjectDoesNotOpen = 22, // nothing stands behind the id
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
  eCannotTransform = 209, // the kind of entity cannot take this matrix
  eClassNotRegistered = 255,
};

// The English sentence for a reason.
MVDRAWING_API OdString odResultText(OdResult code);

// Thrown for misuse: null pointers, changes to objects open for read, indices out of range.
class MVDRAWING_API OdError : public std::exception {
public:
  explicit OdError(OdResult code);
  explicit OdError(const OdString& text);
  OdError(OdResult code, const OdString& text);
  OdError(const OdError&);
  OdError& operator=(const OdError&);
  ~OdError() override;

  OdResult code() const { return code_; }
  const OdString& description() const { return text_; }
  const char* what() const noexcept override { return utf8_.c_str(); }

private:
  OdResult code_;
  OdString text_;
  std::string utf8_;
};

// A pointer was asked to be another class than its object is.
class MVDRAWING_API OdError_NotThatKindOfClass : public OdError {
public:
  OdError_NotThatKindOfClass(const OdRxClass* fromClass, const OdRxClass* toClass);
  ~OdError_NotThatKindOfClass() override;
  const OdRxClass* fromClass() const { return from_; }
  const OdRxClass* toClass() const { return to_; }

private:
  const OdRxClass* from_;
  const OdRxClass* to_;
};

// An array was read outside its bounds. The text is "Invalid Execution.".
class MVDRAWING_API OdError_InvalidIndex : public OdError {
public:
  OdError_InvalidIndex();
  ~OdError_InvalidIndex() override;
};
