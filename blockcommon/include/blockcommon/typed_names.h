// What a user typed to insert, split into the name of a block and the file it comes from.
//
// Paths are spelled with backslashes; files are searched by the host (insertCommon::isFileExist), blocks are those of
// the current drawing. True: the analysis succeeded and the name of the block, where it is looked at, is valid. Results
// may be written although the answer is false; an argument may be a result itself.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace AnalyzeBlkNamePath {

// -- Old rules. They take the folder of a path, what stands before its last backslash, for the name of its block, so
//    that only "d\x.dwg" gives a valid one, "d". Callers rely on what they answer. They show no message. --

// The base, with the extension behind it unless that is .dwg or .dxf, without blanks around it.
BLOCKCOMMON_API bool combinBlkName(const OdString& base, const OdString& ext, OdString& blockName);

// A path without a name. False when the drawing has a block of the path less its extension and the character in front
// of the dot. `file` is the full path that the host found.
BLOCKCOMMON_API bool analyzeBlkName(const OdString& name, const OdString& path, OdString& blockName, OdString& file);
// One text, whatever it is: false only when it is empty. The name is not looked at and may be empty.
BLOCKCOMMON_API bool analyzeBlkName2(const OdString& spec, OdString& blockName, OdString& file);
// A path, which may be relative to a folder that ends with its separator. `file` is written in any case.
BLOCKCOMMON_API bool analyzeBlkPath2(const OdString& spec, const OdString& base, OdString& blockName, OdString& file);
// The same for what is no block of the drawing. `third` is not used.
BLOCKCOMMON_API bool analyzeLastBlkPath(const OdString& base, const OdString& spec, const OdString& third,
                                        OdString& blockName, OdString& file);
// A name with a path that must be there. A name that is not the path's own stands for a file of its own; the block is
// then named by what stands behind its last slash, less the extension and the character in front of the dot.
BLOCKCOMMON_API bool analyzeBlkPath(const OdString& name, const OdString& path, OdString& blockName, OdString& file);

// -- What INSERT asks. They name a block after its file, and show one message where a reason is given here. --

// The file `spec`, looked for below the folder `base`, with or without its separator, and from the root when it begins
// with one; .dwg and then .dxf are tried when it has neither. False for a block of the drawing, without a message and
// with nothing written; for an empty text, when there is no such file, and for a file whose name no block can have.
BLOCKCOMMON_API bool analyzeLastBlkPath2(const OdString& base, const OdString& spec, OdString& blockName,
                                         OdString& file);

// Whether what was typed can be inserted into the block `curName` (empty: into none): a block of the drawing, or a file
// below `baseDir`; one that names a drive is not looked for there. A path, a separator or an extension of drawings
// means a file, and `path` comes before `name`; any other name is that of a block, or of a file where there is no such
// block. Refused are names that are empty, too long or not valid, `curName` itself, external references, and files that
// are not there. `blockName` is written only with true.
BLOCKCOMMON_API bool checkInputBlockInfoValidByReplaceDlg(const OdString& name, const OdString& path,
                                                          const OdString& curName, const OdString& baseDir,
                                                          OdString& blockName);

} // namespace AnalyzeBlkNamePath
