// Writing a block to a file of its own: the test of the target, formats, and what is remembered between two times.
//
// Results are the host's result codes: 5100 done, 5000 empty answer, -5002 cancelled, -5003 refused. Settings stand in
// the user's configuration; without one everything reads as its default and nothing is stored.
#pragma once

#include "DbSaveType.h"
#include "OdDb.h"
#include "OdString.h"
#include "blockcommon/export.h"
#include "morvane/config.h"
#include "morvane/documents.h"

// What a command fills in about the file to write, and gets back.
struct _blockFileInfo {
  bool bWrite = false; // set once the file may be written: it is not there, or the user wants it replaced
  OdString fileName;   // what was typed, and as the user is asked about it; without it there is no name
  OdString filePath;   // in full; may be empty before the test
  OdDb::SaveType saveType = OdDb::kSaveDwg;
  OdDb::DwgVersion dwgVersion = OdDb::kRelease2018;
};

namespace blockInfo_FilePath {

// Formats of the host that are not known, newer ones included, are DWG of release 2018.
BLOCKCOMMON_API void getFileVersion(const mvsi::MvsiApDocument::SaveFormat& format, OdDb::SaveType& type,
                                    OdDb::DwgVersion& version);
BLOCKCOMMON_API bool isFileDwgFormat(const mvsi::MvsiApDocument::SaveFormat& format);

// The folder of the file that was written last; empty when none is remembered.
BLOCKCOMMON_API OdString getDefPathFromReg();

// The whole test of a target: completed names, an extension, and a yes where a file would be replaced. Sets `bWrite`,
// and never takes it back. 5100 with `bWrite` as it was: the user is still to be asked for a file (see isShowFileDlg).
BLOCKCOMMON_API int checkFileNameRight(_blockFileInfo& info);

// Has the host complete both names. 5100, with `flag` set when there is no name yet and a file dialog should ask for
// one; `flag` is never cleared. -5003 when they cannot be a target, which the user has then been told.
BLOCKCOMMON_API int isShowFileDlg(OdString& fileName, OdString& filePath, bool& flag);
// Takes the kind of file from the extension of the path. Any but ".dwg" and ".dxf", as they stand here, gets ".dwg"
// behind both names. The version is release 2018. Always 5100.
BLOCKCOMMON_API int dealBlockFileInfo(_blockFileInfo& info);
// Asks, until there is an answer, whether the file may be replaced. 5100: yes, or there is none. 5000 for Enter and
// -5002 for "No" or a cancel; -5002 as well when the host has nobody to ask.
BLOCKCOMMON_API int doSelectByUse(OdString fileName, OdString filePath);

} // namespace blockInfo_FilePath

namespace registerFun {

// The format that was used last. DWG of release 2018 when none was ever stored; these two are then stored.
BLOCKCOMMON_API void GetBlockSaveFormat(OdDb::SaveType& type, OdDb::DwgVersion& version);
// Does nothing before the first GetBlockSaveFormat of this user.
BLOCKCOMMON_API void SetBlockFormatIndex(OdDb::SaveType& type, OdDb::DwgVersion& version);

// The options of making a block, 0 or 1 but for objectsPostprocessing (what becomes of the objects). `extra` has no
// stored value and is left alone. Note the orders: the two lists differ. Always true.
BLOCKCOMMON_API bool getRegistedOptions(int& basePointOnScreen, int& explode, int& objectsOnScreen,
                                        int& objectsPostprocessing, int& openInEditor, int& extra, int& scaleUniform);
BLOCKCOMMON_API bool setRegistedOptions(int basePointOnScreen, int explode, int objectsOnScreen,
                                        int objectsPostprocessing, int openInEditor, int scaleUniform);

} // namespace registerFun

namespace commonFun {

BLOCKCOMMON_API int MvEdGetFileNavFilters(MvJsonPtr& filters, bool, bool); // always 0, and the list is left alone
BLOCKCOMMON_API int checkCanSaveEnt(int);                                  // always 5100

} // namespace commonFun
