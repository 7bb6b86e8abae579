#include "RxObject.h"

#include <algorithm>
#include <iterator>

namespace {

struct ResultSentence {
  OdResult code;
  const wchar_t* text;
};

constexpr ResultSentence kSentences[] = {
    {eOk, L"No error."},
    {eNotImplementedYet, L"Not available."},
    {eInvalidInput, L"Invalid input."},
    {eOutOfMemory, L"Out of memory."},
    {eInvalidIndex, L"Invalid index."},
    {eOutOfRange, L"Out of range."},
    {eNullObjectId, L"The object id is null."},
    {eNullObjectPtr, L"The object pointer is null."},
    {eObjectDoesNotOpen, L"The object id has no object."},
    {eWasErased, L"The object is erased."},
    {eOnLockedLayer, L"The object is on a locked layer."},
    {eNotOpenForWrite, L"The object is not open for write."},
    {eNotOpenForRead, L"The object is not open for read."},
    {eNotThatKindOfClass, L"The object is of another class."},
    {eDatabaseGone, L"The drawing of the object no longer exists."},
    {eNotInDatabase, L"The object is not in a drawing."},
    {eDuplicateRecordName, L"A record of that name already exists."},
    {eKeyNotFound, L"Entry not found."},
    {eInvalidKey, L"The name is not allowed."},
    {eSelfReference, L"A definition would contain itself."},
    {eWrongDatabase, L"The object belongs to another drawing."},
    {eNoDatabase, L"No drawing is open."},
    {eInvalidOwnerObject, L"The owner is not allowed."},
    {eBudgetExceeded, L"A limit of the caller was exceeded."},
    {eFileNotFound, L"The file was not found."},
    {eFileAccessErr, L"The file cannot be opened."},
    {eFileWriteError, L"The file cannot be written."},
    {eNotADrawing, L"The file is not a drawing."},
    {eUnsupportedFileFormat, L"The file format is not supported."},
    {eDwgFileIsDamaged, L"The drawing file is damaged."},
    {eDegenerateGeometry, L"The geometry is degenerate."},
    {eNotApplicable, L"Not applicable to the object."},
    {eCannotTransform, L"The transformation cannot be applied to the object."},
    {eClassNotRegistered, L"The class is not registered."},
};

OdString nameOf(const OdRxClass* described) {
  return described == nullptr ? OdString(L"(no class)") : described->name();
}

} // namespace

namespace drawing {

void throwInvalidIndex() {
  throw OdError_InvalidIndex();
}

} // namespace drawing

OdString resultText(OdResult code) {
  const auto* row = std::find_if(std::begin(kSentences), std::end(kSentences),
                                 [code](const ResultSentence& sentence) { return sentence.code == code; });
  return row == std::end(kSentences) ? OdString().format(L"Error %d.", static_cast<int>(code)) : OdString(row->text);
}

OdError::OdError(OdResult code) : OdError(code, resultText(code)) {}

OdError::OdError(const OdString& text) : OdError(eInvalidInput, text) {}

OdError::OdError(OdResult code, const OdString& text) : code_(code), text_(text), utf8_(text.toUtf8Lossless()) {}

OdError::OdError(const OdError&) = default;
OdError& OdError::operator=(const OdError&) = default;
OdError::~OdError() = default;

OdError_NotThatKindOfClass::OdError_NotThatKindOfClass(const OdRxClass* fromClass, const OdRxClass* toClass)
    : OdError(eNotThatKindOfClass, L"An object of class " + nameOf(fromClass) + L" is not a " + nameOf(toClass) + L"."),
      from_(fromClass), to_(toClass) {}

OdError_NotThatKindOfClass::~OdError_NotThatKindOfClass() = default;

OdError_InvalidIndex::OdError_InvalidIndex() : OdError(eInvalidIndex, L"Invalid Execution.") {}

OdError_InvalidIndex::~OdError_InvalidIndex() = default;
