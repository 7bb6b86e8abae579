// Analysis of the text that a user enters to insert a block: the name of the block and its file.
//
// Paths have backslashes; files are searched by the host (insertCommon::isFileExist), blocks are those of the current
// drawing. True: the analysis succeeded and the name of the block, if it is checked, is valid. Results may be set even
// if false is returned; an argument may be a result as well.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace AnalyzeBlkNamePath {

// -- Old rules. They use the folder of a path, the part before its last backslash, as the name of the block, so that
// only
//    "d\x.dwg" gives a valid one, "d". Callers depend on these results. No message is displayed. --

// The base, with the extension appended unless that is .dwg or .dxf, without spaces at both ends.
BLOCKCOMMON_API bool combinBlkName(const OdString& base, const OdString& ext, OdString& blockName);

// A path without a name. False if the drawing has a block whose name is the path without its extension and the
// character before the dot. `file` is the full path that the host found.
BLOCKCOMMON_API bool analyzeBlkName(const OdString& name, const OdString& path, OdString& blockName, OdString& file);
// Any text: false only if it is empty. The name is not checked and may be empty.
BLOCKCOMMON_API bool analyzeBlkName2(const OdString& spec, OdString& blockName, OdString& file);
// A path, which may be relative to a folder that ends with its separator. `file` is set in any case.
BLOCKCOMMON_API bool analyzeBlkPath2(const OdString& spec, const OdString& base, OdString& blockName, OdString& file);
// The same for text that is not the name of a block of the drawing. `third` is not used.
BLOCKCOMMON_API bool analyzeLastBlkPath(const OdString& base, const OdString& spec, const OdString& third,
                                        OdString& blockName, OdString& file);
// A name with a path, which must exist. A name that differs from that of the path means another file; the name of the
// block is then the part after its last slash, without the extension and the character before the dot.
BLOCKCOMMON_API bool analyzeBlkPath(const OdString& name, const OdString& path, OdString& blockName, OdString& file);

// -- Rules of INSERT. They name a block after its file, and display one message for each reason that is stated here. --

// The file `spec`, relative to the folder `base` with or without its separator, or absolute if it begins with one; .dwg
// and then .dxf are tried if it has neither. False for a block of the drawing, without a message and without results;
// for an empty text, if the file does not exist, and for a file whose name is not valid for a block.
BLOCKCOMMON_API bool analyzeLastBlkPath2(const OdString& base, const OdString& spec, OdString& blockName,
                                         OdString& file);

// Whether the input can be inserted into the block `curName` (empty: not into a block): a block of the drawing, or a
// file relative to `baseDir` unless it has a drive letter. A path, a separator or an extension of drawings means a
// file, and `path` takes precedence over `name`; any other name is that of a block, or of a file if that block does not
// exist. Refused are names that are empty, too long or not valid, `curName` itself, external references, and missing
// files. `blockName` is set only with true.
BLOCKCOMMON_API bool checkInputBlockInfoValidByReplaceDlg(const OdString& name, const OdString& path,
                                                          const OdString& curName, const OdString& baseDir,
                                                          OdString& blockName);

} // namespace AnalyzeBlkNamePath
