#include "blockcommon/file_paths.h"

#include "blockcommon/box_texts.h"

#include "blockcommon/host/services.h"
#include "blockcommon/messages.h"
#include "morvane/host_api.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace filePath {

namespace {

// The only colon is that of a drive: the second character.
bool hasNoStrayColon(const OdString& path) {
  const std::wstring_view text = path.visible();
  const std::size_t last = text.rfind(L':');
  return last == std::wstring_view::npos || (text.find(L':') != 0 && last <= 1);
}

} // namespace

bool isFilePathExistIllEgalCharacter(const OdString& path, bool showMessage) {
  const bool isClean = path.findOneOf(L"/|<>?;*") < 0 && hasNoStrayColon(path);
  if (!isClean && showMessage)
    dlgTips::showUnLegalCharInFilePathTips();
  return !isClean;
}

bool isFilePathLegal(const OdString& path, bool showMessage) {
  constexpr int kLongest = 4094;
  constexpr unsigned kInformation = 64;
  OdString trimmed = path;
  trimmed.trimLeft().trimRight();
  if (trimmed.isEmpty() && !path.isEmpty()) {
    mvsi::mvuiMessageBox(dlgTips::kPathBlank.body, dlgTips::kPathBlank.caption, kInformation);
    return false;
  }
  if (trimmed.getLength() > kLongest) {
    mvsi::mvuiMessageBox(dlgTips::kPathTooLong.body, dlgTips::kPathTooLong.caption, 0);
    return false;
  }
  if (path.find(L'\\') >= 0 && !isDir(path.toUtf8().c_str()))
    return true;
  if (showMessage)
    dlgTips::showFilePathErrorTips();
  return false;
}

bool isFileDirLegal(const OdString& path, bool showMessage) {
  const bool isFolder = isDir(path.toUtf8().c_str());
  if (!isFolder && showMessage)
    dlgTips::showFilePathDirectoryInvalidTips();
  return isFolder;
}

bool isFileLoaded(OdString path, bool showMessage) {
  if (qzutads::findDwgDoc(path) != nullptr) {
    if (showMessage)
      dlgTips::showFileDocUsingTips(path);
    return true;
  }
  if (!commonFun::isOpenedDoc(path))
    return false;
  OdString body;
  body.format(L"%s 已存在并被另一任务或其他用户打开，\n不能替换。", path.c_str());
  mvsi::mvuiMessageBox(body, L"错误 消息", 0);
  return true;
}

void dealFileExtension(const OdString&, OdString& extension) {
  extension = L".dwg";
}

void analyzeFilePath(const OdString& path, OdString& first, OdString& whole, OdString& dir, OdString& ext) {
  const OdString asGiven = path;
  first.empty();
  whole = asGiven;
  dir = asGiven.left(asGiven.reverseFind(L'\\'));
  ext = qzutads::getPathFileExtName(asGiven);
}

bool isFilePathHasAccess(const OdString&) {
  return false;
}

bool getCurDir(OdString&) {
  return false;
}

OdString generateRandomName() {
  constexpr std::int64_t kMillisecondsOfSecond = 1000;
  const std::int64_t seconds = std::time(nullptr);
  std::srand(static_cast<unsigned>(seconds));
  const int last = std::rand();
  const int first = std::rand();
  OdString name;
  name.format(L"%d_%I64d_%d", first % 900 + 100, seconds * kMillisecondsOfSecond, last % 90 + 10);
  return name;
}

} // namespace filePath

namespace commonFun {

bool isUrl(const OdString& text) {
  OdString lowered = text;
  lowered.makeLower();
  for (const wchar_t* prefix : {L"http://", L"ftp://", L"www.", L"ftp."}) {
    if (lowered.find(prefix) == 0)
      return true;
  }
  return false;
}

bool isFileExtValidWithFile(const OdString& fileName) {
  constexpr int kLengthOfExtension = 4;
  return isFileExtValidWithExt(fileName.right(kLengthOfExtension));
}

bool isFileExtValidWithExt(const OdString& extension) {
  return extension.iCompare(L".dwg") == 0 || extension.iCompare(L".dxf") == 0;
}

} // namespace commonFun

namespace insertCommon {
namespace {

constexpr int kHostPath = 4096; // characters with the zero
using PathBuffer = std::array<wchar_t, kHostPath>;

} // namespace

bool isFileNameValid(const OdString& fileName) {
  return fileName.findOneOf(L"\\/:*?\"<>|") < 0;
}

bool isFileExist(const OdString& path) {
  PathBuffer buffer{};
  return hostAccess::mvsiedFindFile(path, buffer.data()) == RTNORM;
}

bool isFileExist(const OdString& path, OdString& found) {
  PathBuffer buffer{};
  if (hostAccess::mvsiedFindFile(path, buffer.data()) != RTNORM)
    return false;
  found += OdString(buffer.data(), kHostPath); // callers count on the whole buffer
  return true;
}

bool isSearchDwgFile(OdString name, wchar_t* buffer, int) {
  if (qzutads::getPathFileExtName(name).isEmpty())
    name += L".dwg";
  return hostAccess::mvsiedFindFile(name, buffer) == RTNORM;
}

bool checkInsertType(const OdString&, OdSmartPtr<OdDbDatabase>) {
  return false;
}

} // namespace insertCommon
