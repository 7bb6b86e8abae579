// File names and paths: which texts may be one, what their parts are, and which files are there or open.
//
// Paths are spelled as drawings spell them, with backslashes and a drive letter; a slash is a forbidden character. None
// of the functions throws. A function with `showMessage` tells the user why it refuses; messages that are shown in any
// case are named. Results are worked out before they are stored, so an argument may be the path itself.
#pragma once

#include "DbDatabase.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace filePath {

// False for a path without any of /|<>?;* whose only colon, if it has one, is the second character.
BLOCKCOMMON_API bool isFilePathExistIllEgalCharacter(const OdString& path, bool showMessage);

// Whether the path may name a file to write: not blank, not longer than 4094 characters, with a folder, and no folder
// itself. Blank and too long paths are told in any case. Forbidden characters are not looked for.
BLOCKCOMMON_API bool isFilePathLegal(const OdString& path, bool showMessage);
// Whether there is such a folder.
BLOCKCOMMON_API bool isFileDirLegal(const OdString& path, bool showMessage);

// Whether the file is open: here, or elsewhere, which is told in any case.
BLOCKCOMMON_API bool isFileLoaded(OdString path, bool showMessage);

// ".dwg", whatever the path ends with.
BLOCKCOMMON_API void dealFileExtension(const OdString& path, OdString& extension);
// `first` is emptied, `whole` the path, `dir` what stands before the last backslash, `ext` the extension with its dot.
BLOCKCOMMON_API void analyzeFilePath(const OdString& path, OdString& first, OdString& whole, OdString& dir,
                                     OdString& ext);

BLOCKCOMMON_API bool isFilePathHasAccess(const OdString& path); // always false
BLOCKCOMMON_API bool getCurDir(OdString& path);                 // always false, and the path is left alone

// Three digits, the present time in milliseconds by the second, two digits, joined by '_'. The same within a second:
// the C library's generator is seeded anew at every call.
BLOCKCOMMON_API OdString generateRandomName();

} // namespace filePath

namespace commonFun {

// Begins with http://, ftp://, www. or ftp. in any case.
BLOCKCOMMON_API bool isUrl(const OdString& text);
// .dwg or .dxf in any case: the end of a file name, or the whole text.
BLOCKCOMMON_API bool isFileExtValidWithFile(const OdString& fileName);
BLOCKCOMMON_API bool isFileExtValidWithExt(const OdString& extension);
// Whether another program has the file open. Always false.
BLOCKCOMMON_API bool isOpenedDoc(OdString path);

} // namespace commonFun

namespace insertCommon {

// None of \/:*?"<>| in it.
BLOCKCOMMON_API bool isFileNameValid(const OdString& fileName);

// Whether the host finds the file on its search path. The second one then appends the host's whole buffer to `found`:
// the full path and the zeros behind it, 4096 characters in all. `found` is left alone on failure.
BLOCKCOMMON_API bool isFileExist(const OdString& path);
BLOCKCOMMON_API bool isFileExist(const OdString& path, OdString& found);
// The same for a drawing whose name may lack the extension. `buffer` takes 4095 characters and a zero and belongs to
// the caller; `size` is not used.
BLOCKCOMMON_API bool isSearchDwgFile(OdString name, wchar_t* buffer, int size);

// Always false, and the database is left alone.
BLOCKCOMMON_API bool checkInsertType(const OdString& path, OdSmartPtr<OdDbDatabase> pDb);

} // namespace insertCommon
