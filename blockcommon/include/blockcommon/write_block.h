// Writing a block to a file: check of the target, formats, and stored settings.
//
// Results are the result codes of the host: 5100 done, 5000 empty answer, -5002 cancelled, -5003 refused. Settings are
// stored in the user configuration; without one all settings have their defaults and nothing is stored.
#pragma once

#include "DbSaveType.h"
#include "OdDb.h"
#include "OdString.h"
#include "blockcommon/export.h"
#include "morvane/config.h"
#include "morvane/documents.h"

// The file to write: filled in by a command and completed by the functions below.
struct _blockFileInfo {
  bool bWrite = false; // set to true when the file may be written: it does not exist, or the user permits to replace it
  OdString fileName;   // name as entered and as it appears in prompts; empty: no name
  OdString filePath;   // full path; may be empty before the check
  OdDb::SaveType saveType = OdDb::kSaveDwg;
  OdDb::DwgVersion dwgVersion = OdDb::kRelease2018;
};

namespace blockInfo_FilePath {

// Kind of file and version of a format of the host; unknown formats, newer ones included, are DWG of release 2018.
// isFileDwgFormat: whether it is DWG.
BLOCKCOMMON_API void getFileVersion(const mvsi::MvsiApDocument::SaveFormat& format, OdDb::SaveType& type,
                                    OdDb::DwgVersion& version);
BLOCKCOMMON_API bool isFileDwgFormat(const mvsi::MvsiApDocument::SaveFormat& format);

// The folder of the file that was written last; empty if none is stored.
BLOCKCOMMON_API OdString getDefPathFromReg();

// Checks a target completely: completes the names, adds an extension, and asks before a file is replaced. Sets `bWrite`
// to true, never to false. 5100 with `bWrite` unchanged: a file dialog has to ask for a file (see isShowFileDlg).
BLOCKCOMMON_API int checkFileNameRight(_blockFileInfo& info);

// Completes both names through the host. 5100, with `flag` set to true if the name is empty and a file dialog should
// ask for one; `flag` is never set to false. -5003 if they are not a valid target, for which a message has been
// displayed.
BLOCKCOMMON_API int isShowFileDlg(OdString& fileName, OdString& filePath, bool& flag);
// Sets the kind of file by the extension of the path. Unless that is ".dwg" or ".dxf" in lower case, appends ".dwg" to
// both names. Sets the version to release 2018. Always 5100.
BLOCKCOMMON_API int dealBlockFileInfo(_blockFileInfo& info);
// Asks, until there is an answer, whether the file may be replaced. 5100: yes, or it does not exist. 5000 for Enter;
// -5002 for "No", for a cancel and if the host has no input.
BLOCKCOMMON_API int doSelectByUse(OdString fileName, OdString filePath);

} // namespace blockInfo_FilePath

namespace registerFun {

// The format that was used last. If none is stored, DWG of release 2018, which is then stored.
BLOCKCOMMON_API void GetBlockSaveFormat(OdDb::SaveType& type, OdDb::DwgVersion& version);
// Stores the format. No effect before the first GetBlockSaveFormat of this user.
BLOCKCOMMON_API void SetBlockFormatIndex(OdDb::SaveType& type, OdDb::DwgVersion& version);

// Read and store the options of creating a block: 0 or 1, except objectsPostprocessing (treatment of the source
// objects). `extra` is not stored and unchanged. The orders of the two parameter lists differ. Always true.
BLOCKCOMMON_API bool getRegistedOptions(int& basePointOnScreen, int& explode, int& objectsOnScreen,
                                        int& objectsPostprocessing, int& openInEditor, int& extra, int& scaleUniform);
BLOCKCOMMON_API bool setRegistedOptions(int basePointOnScreen, int explode, int objectsOnScreen,
                                        int objectsPostprocessing, int openInEditor, int scaleUniform);

} // namespace registerFun

namespace commonFun {

BLOCKCOMMON_API int MvEdGetFileNavFilters(MvJsonPtr& filters, bool, bool); // always 0; the list is unchanged
BLOCKCOMMON_API int checkCanSaveEnt(int);                                  // always 5100

} // namespace commonFun
