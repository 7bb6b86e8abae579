#include "morvane/host.h"
#include "morvane/host_api.h"
#include "morvane/messages/texts.h"
#include "morvane/print.h"

#include <algorithm>
#include <filesystem>

namespace morvane {
namespace {

namespace fs = std::filesystem;

enum TargetCheck { kCompleted = 0, kNoName = 1, kForbidden = 2, kNoFolder = 3, kIsFolder = 4 };

bool isForbidden(wchar_t ch) {
  constexpr std::wstring_view kCharacters = L"*?\"<>|:";
  constexpr wchar_t kFirstVisible = L' ';
  return ch < kFirstVisible || kCharacters.find(ch) != std::wstring_view::npos;
}

bool hasDrive(const OdString& path) {
  return path.getLength() > 1 && path.getAt(1) == L':' && upperCase(path.getAt(0)) >= L'A' &&
         upperCase(path.getAt(0)) <= L'Z';
}

bool hasForbidden(const OdString& path) {
  const OdString rest = hasDrive(path) ? path.mid(2) : path;
  return std::any_of(rest.str().begin(), rest.str().end(), isForbidden);
}

// Trimmed, up to the first zero, with backslashes. There is no current folder of a drive: "C:a" is "C:\a".
OdString asEntered(const OdString& text) {
  constexpr int kAfterDrive = 2;
  OdString entered(text.visible());
  entered.trimLeft().trimRight();
  entered.replace(L'/', L'\\');
  if (hasDrive(entered) && entered.mid(kAfterDrive, 1) != L"\\")
    entered.insert(kAfterDrive, L'\\');
  return entered;
}

OdString below(const OdString& folder, const OdString& path) {
  const bool closed = folder.reverseFind(L'\\') == folder.getLength() - 1;
  return closed ? folder + path : folder + L"\\" + path;
}

// With its last separator; empty without one.
OdString folderOf(const OdString& path) {
  return path.left(path.reverseFind(L'\\') + 1);
}

bool hasRoot(const OdString& path) {
  return hasDrive(path) || path.find(L'\\') == 0;
}

OdString inFull(Host& host, const OdString& path, const OdString& defaultFolder) {
  if (hasRoot(path))
    return path;
  const mvsi::MvsiApDocument* document = host.documents().current();
  OdString folder = path.find(L'\\') < 0 ? asEntered(defaultFolder) : OdString(); // for names alone
  if (folder.isEmpty() && document != nullptr)
    folder = folderOf(asEntered(document->fileName()));
  const OdString full = folder.isEmpty() ? path : below(folder, path);
  if (hasRoot(full))
    return full;
  std::error_code ignored;
  return below(host.paths().toDrawing(fs::current_path(ignored).string()), full);
}

bool isFolder(Host& host, const OdString& path) {
  std::error_code ignored;
  return fs::is_directory(host.paths().toSystem(path), ignored);
}

int refuse(TargetCheck check, const wchar_t* text, const OdString& name, OdString& message) {
  const PrintArg shown(name);
  message = formatText(text, &shown, 1);
  return check;
}

} // namespace
} // namespace morvane

int qzutads::MvEdCheckFileName2(OdString& fileName, OdString& filePath, const OdArray<OdString>&,
                                const OdString& defaultFolder, OdString& message) {
  using namespace morvane;
  Host* host = admitCall("MvEdCheckFileName2");
  if (host == nullptr)
    return RTERROR;
  const OdString entered = asEntered(fileName);
  if (entered.isEmpty() || entered == L"~")
    return kNoName;
  const OdString path = asEntered(filePath);
  const OdString wanted = path.isEmpty() ? entered : path;
  if (hasForbidden(wanted))
    return refuse(kForbidden, texts::kForbiddenInFileName, wanted, message);
  const OdString full = inFull(*host, wanted, defaultFolder);
  if (!isFolder(*host, folderOf(full)))
    return refuse(kNoFolder, texts::kNoSuchFolder, folderOf(full), message);
  if (isFolder(*host, full))
    return refuse(kIsFolder, texts::kFileIsFolder, full, message);
  fileName = full;
  filePath = full;
  return kCompleted;
}
