#include "morvane/services/own_services.h"

#include <algorithm>

namespace morvane::services {
namespace {

class EditGetServer : public MvEditGetServer {
public:
  explicit EditGetServer(Host& host) : host_(host) {}

  int mvsiedInitGet(int flags, const wchar_t* keywords) override {
    if (!host_.calls().pass("mvsiedInitGet"))
      return RTERROR;
    return host_.input().initGet(flags, keywords == nullptr ? L"" : keywords);
  }

  int mvsiedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* result) override {
    if (!host_.calls().pass("mvsiedGetString") || result == nullptr)
      return RTERROR;
    OdString answer;
    const int code = host_.input().getString(allowSpaces != 0, prompt, answer);
    copyText(answer, result, kMaxAnswerLength + 1);
    return code;
  }

  int mvsiedGetPoint(const double*, const wchar_t* prompt, double* result) override {
    if (!host_.calls().pass("mvsiedGetPoint") || result == nullptr)
      return RTERROR;
    return host_.input().getPoint(prompt, result);
  }

  int mvsiedGetKword(const wchar_t* prompt, wchar_t* result, int capacity) override {
    if (!host_.calls().pass("mvsiedGetKword") || result == nullptr || capacity <= 0)
      return RTERROR;
    OdString answer;
    const int code = host_.input().getKeyword(prompt, answer);
    copyText(answer, result, capacity);
    return code;
  }

private:
  Host& host_;
};

} // namespace

OdRxObjectPtr makeEditGetServer(Host& host) {
  return OdRxObjectPtr(new EditGetServer(host));
}

void copyText(const OdString& text, wchar_t* buffer, int capacity) {
  const auto visible = text.visible().substr(0, static_cast<std::size_t>(capacity - 1));
  *std::copy(visible.begin(), visible.end(), buffer) = L'\0';
}

} // namespace morvane::services
