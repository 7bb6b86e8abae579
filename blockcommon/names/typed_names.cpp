// The old rules; their oddities are what callers know.
#include "blockcommon/typed_names.h"

#include "blockcommon/block_names.h"
#include "blockcommon/document_queries.h"
#include "blockcommon/file_paths.h"

namespace AnalyzeBlkNamePath {
namespace {

struct PathParts {
  OdString dir, ext;
};

PathParts partsOf(const OdString& path) {
  PathParts parts;
  OdString first, whole;
  filePath::analyzeFilePath(path, first, whole, parts.dir, parts.ext);
  return parts;
}

// The dot goes, and with it the character in front.
OdString stemOf(const OdString& path) {
  return path.left(path.reverseFind(L'.') - 1);
}

OdString trimmed(OdString text) {
  text.trimLeft().trimRight();
  return text;
}

} // namespace

bool combinBlkName(const OdString& base, const OdString& ext, OdString& blockName) {
  blockName = trimmed(commonFun::isFileExtValidWithExt(ext) ? base : base + ext);
  return insertCommon::isBlockNameValid(blockName);
}

bool analyzeBlkName(const OdString& name, const OdString& path, OdString& blockName, OdString& file) {
  if (!name.isEmpty() || path.isEmpty())
    return false;
  const PathParts parts = partsOf(path);
  if (commonFun::isBlockNameInCurDb(parts.ext.isEmpty() ? path : stemOf(path)))
    return false;
  OdString found;
  if (!insertCommon::isFileExist(parts.ext.isEmpty() ? path + L".dwg" : path, found))
    return false;
  file = OdString(found.visible()); // what the host filled of its buffer
  return combinBlkName(parts.dir, parts.ext, blockName);
}

bool analyzeBlkName2(const OdString& spec, OdString& blockName, OdString& file) {
  if (spec.isEmpty())
    return false;
  const PathParts parts = partsOf(spec);
  if (!commonFun::isFileExtValidWithExt(parts.ext)) {
    file.empty();
    blockName = trimmed(parts.dir + parts.ext);
    return true;
  }
  file = spec;
  const OdString dir = trimmed(parts.dir);
  blockName = trimmed(dir.isEmpty() ? parts.ext : dir);
  return true;
}

bool analyzeBlkPath2(const OdString& spec, const OdString& base, OdString& blockName, OdString& file) {
  const PathParts parts = partsOf(spec);
  OdString below = base + spec;
  OdString fromRoot = spec.findOneOf(L"\\/") == 0 ? spec : OdString();
  if (parts.ext.isEmpty()) {
    below += L".dwg";
    if (!fromRoot.isEmpty())
      fromRoot += L".dwg";
  }
  const bool isBelow = insertCommon::isFileExist(below);
  const bool isFromRoot = insertCommon::isFileExist(fromRoot);
  file = isBelow ? below : fromRoot;
  return (isBelow || isFromRoot) && combinBlkName(parts.dir, parts.ext, blockName);
}

bool analyzeLastBlkPath(const OdString& base, const OdString& spec, const OdString&, OdString& blockName,
                        OdString& file) {
  return !commonFun::isBlockNameInCurDb(spec) && analyzeBlkPath2(spec, base, blockName, file);
}

bool analyzeBlkPath(const OdString& name, const OdString& path, OdString& blockName, OdString& file) {
  constexpr int kLengthOfExtension = 4;
  if (name.iCompare(L".dwg") == 0) {
    blockName = name;
    return true;
  }
  const PathParts parts = partsOf(path);
  if (!insertCommon::isFileExist(path))
    return false;
  const OdString bare = path.left(path.getLength() - kLengthOfExtension);
  if (name.isEmpty() || name.iCompare(path) == 0 || name.iCompare(bare) == 0) {
    file = path;
    return combinBlkName(parts.dir, parts.ext, blockName);
  }
  const OdString own = commonFun::isFileExtValidWithFile(name) ? name : name + L".dwg";
  if (!insertCommon::isFileExist(own))
    return false;
  file = own;
  blockName = stemOf(own.mid(own.reverseFind(L'/') + 1));
  return true;
}

} // namespace AnalyzeBlkNamePath
