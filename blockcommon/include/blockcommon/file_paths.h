// File names and paths: validity, parts, and whether files exist or are open.
//
// Paths are those of drawings, with backslashes and a drive letter; a slash is a forbidden character. No function
// throws. A function with `showMessage` displays the reason for its refusal; messages that are displayed in any case
// are stated. Results are computed before they are stored, so a result may be the path argument.
#pragma once

#include "DbDatabase.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace filePath {

// Whether the path has one of the characters /|<>?;* or a colon other than its second character.
BLOCKCOMMON_API bool isFilePathExistIllEgalCharacter(const OdString& path, bool showMessage);

// Whether the path may be that of a file to write: not blank, at most 4094 characters, with a folder, and not a folder
// itself. Messages for blank and too long paths are displayed in any case. Forbidden characters are not checked.
BLOCKCOMMON_API bool isFilePathLegal(const OdString& path, bool showMessage);
// Whether there is such a folder.
BLOCKCOMMON_API bool isFileDirLegal(const OdString& path, bool showMessage);

// Whether the file is open in a document, or in another program, for which a message is displayed in any case.
BLOCKCOMMON_API bool isFileLoaded(OdString path, bool showMessage);

// Sets `extension` to ".dwg" for every path.
BLOCKCOMMON_API void dealFileExtension(const OdString& path, OdString& extension);
// Sets `first` to an empty text, `whole` to the path, `dir` to the part before the last backslash, `ext` to the
// extension with its dot.
BLOCKCOMMON_API void analyzeFilePath(const OdString& path, OdString& first, OdString& whole, OdString& dir,
                                     OdString& ext);

BLOCKCOMMON_API bool isFilePathHasAccess(const OdString& path); // always false
BLOCKCOMMON_API bool getCurDir(OdString& path);                 // always false; the path is unchanged

// A name of three digits, the time in milliseconds at full seconds, and two digits, joined by '_'. It is the same
// within a second: the random generator of the C library is seeded with the time at every call.
BLOCKCOMMON_API OdString generateRandomName();

} // namespace filePath

namespace commonFun {

// Whether the text begins with http://, ftp://, www. or ftp.; case does not matter.
BLOCKCOMMON_API bool isUrl(const OdString& text);
// Whether a file name ends with, or an extension is, .dwg or .dxf; case does not matter.
BLOCKCOMMON_API bool isFileExtValidWithFile(const OdString& fileName);
BLOCKCOMMON_API bool isFileExtValidWithExt(const OdString& extension);
// Whether another program has the file open. Always false.
BLOCKCOMMON_API bool isOpenedDoc(OdString path);

} // namespace commonFun

namespace insertCommon {

// Whether the name has none of the characters \/:*?"<>|.
BLOCKCOMMON_API bool isFileNameValid(const OdString& fileName);

// Whether the host finds the file on its search path. The second form then appends the whole buffer of the host to
// `found`: the full path and the zeros after it, 4096 characters in total. `found` is unchanged on failure.
BLOCKCOMMON_API bool isFileExist(const OdString& path);
BLOCKCOMMON_API bool isFileExist(const OdString& path, OdString& found);
// The same for a drawing whose name may lack the extension. `buffer` is owned by the caller and has room for 4095
// characters and a zero; `size` is not used.
BLOCKCOMMON_API bool isSearchDwgFile(OdString name, wchar_t* buffer, int size);

// Always false; the database is unchanged.
BLOCKCOMMON_API bool checkInsertType(const OdString& path, OdSmartPtr<OdDbDatabase> pDb);

} // namespace insertCommon
