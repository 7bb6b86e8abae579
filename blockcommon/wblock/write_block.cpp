#include "blockcommon/write_block.h"

#include "blockcommon/host/services.h"
#include "morvane/host_api.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace blockInfo_FilePath {
namespace {

constexpr wchar_t kDwg[] = L".dwg";
constexpr wchar_t kDxf[] = L".dxf";
constexpr int kUsersOwn = 2; // of the configuration

struct FormatRow {
  int format;
  OdDb::SaveType type;
  OdDb::DwgVersion version;
};

constexpr FormatRow kFormats[] = {
    {1, OdDb::kSaveDxf, OdDb::kRelease12},    {8, OdDb::kSaveDwg, OdDb::kRelease12},
    {12, OdDb::kSaveDwg, OdDb::kRelease2000}, {13, OdDb::kSaveDxf, OdDb::kRelease2000},
    {24, OdDb::kSaveDwg, OdDb::kRelease2004}, {25, OdDb::kSaveDxf, OdDb::kRelease2004},
    {36, OdDb::kSaveDwg, OdDb::kRelease2007}, {37, OdDb::kSaveDxf, OdDb::kRelease2007},
    {48, OdDb::kSaveDwg, OdDb::kRelease2010}, {49, OdDb::kSaveDxf, OdDb::kRelease2010},
};

FormatRow rowOf(int format) {
  const auto* found = std::find_if(std::begin(kFormats), std::end(kFormats),
                                   [format](const FormatRow& row) { return row.format == format; });
  return found == std::end(kFormats) ? FormatRow{format, OdDb::kSaveDwg, OdDb::kRelease2018} : *found;
}

// `keyword` is the global name of the answer, or the text itself when it is not a keyword.
int promptToReplace(const OdString& prompt, OdString& keyword) {
  constexpr int kAnyText = 128;
  constexpr int kUnchecked = 8;
  std::array<wchar_t, 4096> buffer{};
  hostAccess::mvsiedInitGet(kAnyText | kUnchecked, L"Yes No _Yes No");
  const int status = hostAccess::mvsiedGetKword(prompt, buffer.data(), static_cast<int>(buffer.size()));
  keyword = buffer.data();
  return status;
}

} // namespace

void getFileVersion(const mvsi::MvsiApDocument::SaveFormat& format, OdDb::SaveType& type, OdDb::DwgVersion& version) {
  const FormatRow row = rowOf(format);
  type = row.type;
  version = row.version;
}

bool isFileDwgFormat(const mvsi::MvsiApDocument::SaveFormat& format) {
  return rowOf(format).type == OdDb::kSaveDwg;
}

OdString getDefPathFromReg() {
  const MvJsonPtr section = mv_user_config("Write_block_dialog", kUsersOwn);
  if (section.isNull())
    return OdString();
  const OdString last = section->GetDataSW("Items\\ComBoxGetCurSel");
  return last.left(last.reverseFind(L'\\'));
}

int isShowFileDlg(OdString& fileName, OdString& filePath, bool& flag) {
  enum Answer { kCompleted = 0, kNoName = 1 };
  OdArray<OdString> extensions;
  extensions.append(kDwg);
  extensions.append(kDxf);
  OdString message;
  switch (qzutads::MvEdCheckFileName2(fileName, filePath, extensions, getDefPathFromReg(), message)) {
  case kNoName:
    flag = true;
    return RTNORM;
  case kCompleted:
    return RTNORM;
  default:
    mvsi::mvsiutPrintf(L"%s", message);
    return RTREJ;
  }
}

int dealBlockFileInfo(_blockFileInfo& info) {
  const OdString extension = qzutads::getPathFileExtName(info.filePath);
  info.saveType = extension == kDxf ? OdDb::kSaveDxf : OdDb::kSaveDwg;
  info.dwgVersion = OdDb::kRelease2018;
  if (extension != kDwg && extension != kDxf) {
    info.fileName += kDwg;
    info.filePath += kDwg;
  }
  return RTNORM;
}

int doSelectByUse(OdString fileName, OdString filePath) {
  // Names that are not UTF-8 on the disk must be found too, or their files would be replaced unasked.
  if (!mvutIsExistFile(filePath.toUtf8Lossless().c_str()))
    return RTNORM;
  OdString prompt;
  prompt.format(L"\n%s已经存在，是否覆盖？[是(Y)/否(N)] <N>: ", fileName.c_str());
  for (;;) {
    OdString keyword;
    const int status = promptToReplace(prompt, keyword);
    if (status == RTCANCELLED || status == RTEMPTY)
      return status;
    if (keyword.iCompare(L"No") == 0)
      return RTCANCELLED;
    if (keyword.iCompare(L"Yes") == 0)
      return status;
    mvsi::mvsiutPrintf(L"\n请回答“是”或“否”。");
    if (!hostAccess::hasEditGetServer())
      return RTCANCELLED; // no answer can ever come
  }
}

int checkFileNameRight(_blockFileInfo& info) {
  bool flag = false;
  const int named = isShowFileDlg(info.fileName, info.filePath, flag);
  if (named == RTREJ || flag)
    return named;
  dealBlockFileInfo(info);
  const int status = doSelectByUse(info.fileName, info.filePath);
  if (status != RTCANCELLED && status != RTEMPTY)
    info.bWrite = true;
  return status;
}

} // namespace blockInfo_FilePath

namespace commonFun {

int MvEdGetFileNavFilters(MvJsonPtr&, bool, bool) {
  return 0;
}

int checkCanSaveEnt(int) {
  return RTNORM;
}

} // namespace commonFun
