// The one way from the library to the host's services.
//
// Every function looks up its service again, keeps it for the duration of the call and forwards arguments and result
// unchanged. A missing service returns -5001. An object of another type under a service's name throws
// OdError_NotThatKindOfClass.
#pragma once

#include <vector>

class OdDbDatabase;
class OdGeMatrix3d;
struct mvsiresbuf;

namespace mvsi {
class MvsiApDocument;
struct MvsiDeviceRect;
struct MvsiImage;
} // namespace mvsi

namespace hostAccess {

// Whether the host has a service that asks.
bool hasEditGetServer();
int mvsiedInitGet(int flags, const wchar_t* keywords);
int mvsiedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* result);
int mvsiedGetPoint(const double* basePoint, const wchar_t* prompt, double* result);
int mvsiedGetKword(const wchar_t* prompt, wchar_t* result, int capacity);

int mvsiedSSSetFirst(const long* pickFirst, const long* grips);
int mvsiedSSFree(const long* set);
int mvsiedSSLength(const long* set, int* length);
int mvsiedSSAdd(const long* entity, const long* set, long* result);
int mvsiedSSName(const long* set, int index, long* entity);

int mvsiedSetVar(const wchar_t* name, const mvsiresbuf* value);
int mvsiedGetVar(const wchar_t* name, mvsiresbuf* value);
int mvsiedGetUnitsFactor(int unitsCode, double* factor);
// No usable service, one of another kind included, is logged and answers -5001.
int mvsiedFindFile(const wchar_t* fileName, wchar_t* found);

int mvsidbRToS(double value, int mode, int precision, wchar_t* result);
int mvsidbDisToF(const wchar_t* text, int mode, double* value);

// Highlights the entity (mode 3) or removes its highlight (mode 4), and makes the current document redraw its views.
// -5001 without a document manager or for a name whose object does not open; an object that is not an entity throws
// OdError_NotThatKindOfClass.
int mvsiedRedraw(const long* entity, int mode);

// Whether the host has a document manager.
bool hasDocumentManager();
// Null, or none, without a document manager or an open document. They belong to the host.
mvsi::MvsiApDocument* currentDocument();
OdDbDatabase* currentDatabase();
std::vector<mvsi::MvsiApDocument*> openDocuments(); // in order of opening
// A picture of what the document shows. -5001 without a document manager and when there is no picture.
int drawOffScreen(mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle, mvsi::MvsiImage& image);

// The UCS of the working drawing as a matrix to the world. Needs no service; -5001 without a working database.
int currentUcsMatrix(OdGeMatrix3d& matrix);

} // namespace hostAccess
