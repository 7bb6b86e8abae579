#include "blockcommon/prompts.h"
#include "blockcommon/host/services.h"

#include "morvane/host_api.h"

#include <array>
#include <cwchar>

namespace commonFun {

int inPutString(int flags, OdString keywords, int allowSpaces, OdString prompt, wchar_t* result) {
  constexpr int kLibraryChooses = -1;
  hostAccess::mvsiedInitGet(flags, keywords);
  const int mode = allowSpaces == kLibraryChooses ? (qzutads::isCalledByScript() ? 0 : 1) : allowSpaces;
  return hostAccess::mvsiedGetString(mode, prompt, result);
}

int inPutPoint(int flags, OdString keywords, const double* basePoint, OdString prompt, double* result) {
  hostAccess::mvsiedInitGet(flags, keywords);
  return hostAccess::mvsiedGetPoint(basePoint, prompt, result);
}

int mvedPromptEx(OdString message) {
  return mvsi::mvsiutPrintf(message.c_str());
}

int acedPromptString(OdString message) {
  return mvsi::mvsiedPrompt(message.c_str());
}

OdString createPromptString(OdString& line, OdString name, OdString tail, OdString middle) {
  constexpr int kNameWidth = 36;
  constexpr int kLongestBeforeMiddle = 74;
  constexpr int kLongestBeforeTail = 80;
  line.format(L"  \"%s\"   ", name.c_str());
  if (line.getLength() < kNameWidth) {
    line += L"                               ";
    line = line.left(kNameWidth);
  }
  if (line.getLength() > kLongestBeforeMiddle) {
    line += L"\n";
    line += middle;
  } else {
    line += middle;
    if (line.getLength() > kLongestBeforeTail)
      line += L"\n";
  }
  line += tail;
  return line;
}

} // namespace commonFun

namespace blockUtils {

int KwordYesNO_Control(OdString& prompt) {
  enum Answer { kNo = 0, kYes = 1, kEmpty = 2, kCancelled = 3, kOther = 4 };
  constexpr int kAnyText = 128;
  std::array<wchar_t, 512> buffer{};
  hostAccess::mvsiedInitGet(kAnyText, L"Yes No _ Yes No");
  const int code = hostAccess::mvsiedGetKword(prompt, buffer.data(), static_cast<int>(buffer.size()));
  if (code == RTCANCELLED)
    return kCancelled;
  if (code == RTEMPTY)
    return kEmpty;
  if (code == RTNORM && ::wcscasecmp(buffer.data(), L"Yes") == 0)
    return kYes;
  if (code == RTNORM && ::wcscasecmp(buffer.data(), L"No") == 0)
    return kNo;
  commonFun::mvedPromptEx(L"\n请回答“是”或“否”。");
  return kOther;
}

void CheckFirstTime(bool& first, bool sameLine) {
  mvsi::mvsiutPrintf(first && sameLine ? L" " : L"\n");
  first = false;
}

} // namespace blockUtils
