// What INSERT asks.
#include "blockcommon/typed_names.h"

#include "DbBlockTable.h"
#include "blockcommon/block_lookup.h"
#include "blockcommon/block_names.h"
#include "blockcommon/document_queries.h"
#include "blockcommon/file_paths.h"
#include "blockcommon/host/services.h"
#include "blockcommon/messages.h"

#include <algorithm>

namespace AnalyzeBlkNamePath {
namespace {

constexpr wchar_t kSeparators[] = L"\\/";
constexpr int kLengthOfExtension = 4;

bool isSeparator(wchar_t ch) {
  return ch == L'\\' || ch == L'/';
}

bool isWhitespace(OdString text) {
  return text.trimLeft().isEmpty();
}

OdString below(const OdString& base, const OdString& spec) {
  const bool touches = base.isEmpty() || isSeparator(base.getAt(base.getLength() - 1)) ||
                       (!spec.isEmpty() && isSeparator(spec.getAt(0)));
  return touches ? base + spec : base + L"\\" + spec;
}

// The first candidate that the host finds, with the extension of a drawing; empty when there is none.
OdString findFile(const OdString& base, const OdString& spec) {
  const OdString candidates[] = {below(base, spec), spec.findOneOf(kSeparators) == 0 ? spec : OdString()};
  const bool isWhole = commonFun::isFileExtValidWithFile(spec);
  for (const wchar_t* ending : {L".dwg", L".dxf"}) {
    for (const OdString& candidate : candidates) {
      OdString path = isWhole || candidate.isEmpty() ? candidate : candidate + ending;
      if (!path.isEmpty() && insertCommon::isFileExist(path))
        return path;
    }
    if (isWhole)
      break;
  }
  return OdString();
}

// The name that a block of this file gets; false when no block can have it.
bool nameAfter(const OdString& file, OdString& blockName) {
  const OdString own = file.mid(std::max(file.reverseFind(L'\\'), file.reverseFind(L'/')) + 1);
  if (combinBlkName(own.left(own.getLength() - kLengthOfExtension), L"", blockName))
    return true;
  dlgTips::showBlockNameUnValidTips();
  return false;
}

// In the current drawing, as everything here, wherever the host works at the moment.
bool isExternal(const OdString& blockName) {
  OdDbDatabase* current = hostAccess::currentDatabase();
  OdDbObjectId id;
  if (current == nullptr || !blockUtils::getBlockIDByName(blockName, id, current))
    return false;
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(id.safeOpenObject());
  return !block.isNull() && (block->isFromExternalReference() || block->isDependent());
}

bool mayBeInserted(const OdString& blockName, const OdString& curName) {
  if (blockName.iCompare(curName) == 0)
    dlgTips::showBlockRefSelfTips(blockName);
  else if (isExternal(blockName))
    dlgTips::showBlockExtRefErrorTips();
  else
    return true;
  return false;
}

bool isAcceptedName(const OdString& name) {
  constexpr int kLongest = 255;
  if (name.getLength() > kLongest)
    dlgTips::showBlockNameBeyondLenTips();
  else if (!insertCommon::isBlockNameValid(name))
    dlgTips::showBlockNameUnLegalTips();
  else if (!insertCommon::isInsertBlockNameValid(name))
    dlgTips::showBlockNameUnValidTips();
  else
    return true;
  return false;
}

// The block that a file gives.
bool checkFile(const OdString& file, const OdString& curName, OdString& blockName) {
  if (file.isEmpty()) {
    dlgTips::showFileNotFindTips();
    return false;
  }
  OdString name;
  if (!nameAfter(file, name) || !mayBeInserted(name, curName))
    return false;
  blockName = name;
  return true;
}

} // namespace

bool analyzeLastBlkPath2(const OdString& base, const OdString& spec, OdString& blockName, OdString& file) {
  if (spec.isEmpty()) {
    dlgTips::showBlockNameEmptyTips();
    return false;
  }
  if (commonFun::isBlockNameInCurDb(spec))
    return false;
  const OdString found = findFile(base, spec);
  if (found.isEmpty()) {
    dlgTips::showFileNotFindTips();
    return false;
  }
  file = found;
  return nameAfter(found, blockName);
}

bool checkInputBlockInfoValidByReplaceDlg(const OdString& name, const OdString& path, const OdString& curName,
                                          const OdString& baseDir, OdString& blockName) {
  const bool hasPath = !isWhitespace(path);
  if (!hasPath && isWhitespace(name)) {
    dlgTips::showBlockNameEmptyTips();
    return false;
  }
  const OdString typed = hasPath ? path : name;
  if (hasPath || typed.findOneOf(kSeparators) >= 0 || commonFun::isFileExtValidWithFile(typed)) {
    const bool namesDrive = typed.find(L':') == 1;
    return checkFile(findFile(namesDrive ? OdString() : baseDir, typed), curName, blockName);
  }
  if (!isAcceptedName(typed))
    return false;
  const bool isBlock = commonFun::isBlockNameInCurDb(typed) || typed.iCompare(curName) == 0;
  if (!isBlock)
    return checkFile(findFile(baseDir, typed), curName, blockName);
  if (!mayBeInserted(typed, curName))
    return false;
  blockName = typed;
  return true;
}

} // namespace AnalyzeBlkNamePath
