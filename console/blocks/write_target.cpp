#include "console/blocks/write_target.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/wblock.h"

#include "console/drawings/drawing_io.h"

#include "blockcommon/write_block.h"

#include <algorithm>
#include <filesystem>

namespace console {
namespace {

constexpr wchar_t kDxf[] = L".dxf";

// From the last dot of the file's own name on; empty without one.
OdString extensionOf(const OdString& name) {
  const auto separator = static_cast<int>(name.str().find_last_of(L"/\\") + 1) - 1; // -1 without one
  const int dot = name.reverseFind(L'.');
  return dot > separator ? name.mid(dot) : OdString();
}

// Also while no file is there: an open drawing may be saved to its place again.
bool isSameFile(const std::string& one, const std::string& other) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  return fs::equivalent(one, other, ignored) || fs::weakly_canonical(fs::absolute(one, ignored), ignored) ==
                                                    fs::weakly_canonical(fs::absolute(other, ignored), ignored);
}

// In full, as drawings spell it. The host has reported why a name cannot be a target.
_blockFileInfo completed(const OdString& name) {
  _blockFileInfo info;
  info.fileName = name;
  bool needsName = false;
  if (blockInfo_FilePath::isShowFileDlg(info.fileName, info.filePath, needsName) != RTNORM)
    refuse(msg::kNoTarget, {name});
  if (needsName)
    refuse(msg::kNoFileName);
  return info;
}

std::string systemPath(Session& session, const _blockFileInfo& info) {
  return session.host().paths().toSystem(info.filePath);
}

// A name alone goes to the folder that is remembered. When that is gone, it goes to that of the drawing.
OdString inRememberedFolder(Session& session, const OdString& name) {
  namespace fs = std::filesystem;
  const morvane::PathMap& paths = session.host().paths();
  const OdString folder = blockInfo_FilePath::getDefPathFromReg();
  std::error_code ignored;
  if (name.findOneOf(L"/\\") >= 0 || folder.isEmpty() || fs::is_directory(paths.toSystem(folder), ignored))
    return name;
  session.print(msg::kFolderGone, {folder});
  const fs::path own = fs::absolute(session.drawing().path, ignored).parent_path();
  return paths.toDrawing((session.drawing().path.empty() ? fs::current_path(ignored) : own).string()) + L"\\" + name;
}

} // namespace

void refuseOpenDrawing(Session& session, const std::string& path) {
  const auto isThat = [&](const OpenDrawing& open) { return !open.path.empty() && isSameFile(open.path, path); };
  const auto& background = session.backgroundDrawings();
  if (isThat(session.drawing()) || std::any_of(background.begin(), background.end(), isThat))
    refuse(msg::kTargetIsOpen, {OdString::fromUtf8(path)});
}

OdString completeName(Session& session, const OdString& entered) {
  OdString name = entered;
  name.trimLeft().trimRight();
  if (name.isEmpty() || name == L"~")
    refuse(msg::kNoFileName);
  checkDrawingName(name.toUtf8Lossless());
  const OdString extension = extensionOf(name);
  if (extension == kDxf)
    return name;
  if (extension.iCompare(kDxf) == 0)
    name = name.left(name.getLength() - extension.getLength());
  name += kDxf;
  session.print(msg::kTargetCompleted, {name});
  return name;
}

OdDb::DwgVersion rememberedVersion(Session& session) {
  OdDb::SaveType type = OdDb::kSaveDwg;
  OdDb::DwgVersion version = OdDb::kNewestVersion;
  registerFun::GetBlockSaveFormat(type, version);
  const bool isKnown = drawing::versionSignature(version)[0] != '\0'; // a file edited by hand may contain anything
  version = isKnown ? drawing::writtenVersion(version) : OdDb::kNewestVersion;
  if (type == OdDb::kSaveDwg)
    session.print(msg::kTargetMadeDxf, {OdString::fromUtf8(drawing::versionYear(version))});
  return version;
}

std::string promptedTarget(Session& session, const OdString& entered) {
  const OdString name = inRememberedFolder(session, entered);
  const std::string path = systemPath(session, completed(name));
  refuseOpenDrawing(session, path);
  if (!session.isInteractive() && fileExists(path)) {
    session.refuseQuestion(render(msg::kReplaceQuestion, {OdString::fromUtf8(path)}));
    refuse(msg::kFileExists, {OdString::fromUtf8(path)});
  }
  _blockFileInfo info;
  info.fileName = name;
  blockInfo_FilePath::checkFileNameRight(info);
  if (!info.bWrite)
    cancel();
  return systemPath(session, info);
}

std::string givenTarget(Session& session, const OdString& name, bool mayReplace) {
  std::error_code ignored;
  const std::string inFull = std::filesystem::absolute(name.toUtf8Lossless(), ignored).string();
  const std::string path = systemPath(session, completed(session.host().paths().toDrawing(inFull)));
  if (!mayReplace && fileExists(path))
    refuse(msg::kFileExists, {OdString::fromUtf8(path)});
  return path;
}

void rememberTarget(Session& session, const std::string& path, OdDb::DwgVersion version) {
  constexpr int kUsersOwn = 2;
  const MvJsonPtr section = mv_user_config_create("Write_block_dialog", kUsersOwn);
  if (!section.isNull())
    section->SetDataSW("Items\\ComBoxGetCurSel", session.host().paths().toDrawing(path).c_str());
  OdDb::SaveType type = OdDb::kSaveDwg;
  OdDb::DwgVersion before = OdDb::kNewestVersion;
  registerFun::GetBlockSaveFormat(type, before); // makes the place where the format is kept
  type = OdDb::kSaveDxf;
  registerFun::SetBlockFormatIndex(type, version);
}

} // namespace console
