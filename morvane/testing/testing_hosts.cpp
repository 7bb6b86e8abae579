#include "morvane/testing.h"

namespace morvane {
namespace {

HostOptions inMemory() {
  HostOptions options;
  options.keepsConfig = false;
  return options;
}

} // namespace

ScriptedHost::ScriptedHost()
    : host_(inMemory()), output_(std::make_shared<CapturedSink>()), log_(std::make_shared<CapturedLog>()) {
  host_.output().setSink(output_);
  host_.log().setSink(log_);
  host_.install();
}

ScriptedHost::ScriptedHost(std::vector<OdString> answers) : ScriptedHost() {
  answerWith(std::move(answers));
}

ScriptedHost::~ScriptedHost() = default;

void ScriptedHost::answerWith(std::vector<OdString> answers) {
  answers_ = std::make_shared<ListSource>(std::move(answers));
  host_.input().clearSources();
  host_.input().pushSource(answers_);
}

void ScriptedHost::answerFromScript(std::string utf8) {
  answers_ = nullptr;
  host_.input().clearSources();
  host_.input().pushSource(std::make_shared<ScriptSource>(std::move(utf8)));
}

FaultyHost::FaultyHost() {
  host().calls().setAdmit([this](const char* operation) { return admit(operation); });
}

void FaultyHost::failCall(int n) {
  watch({}, n);
}

void FaultyHost::failOperation(std::string operation, int n) {
  watch(std::move(operation), n);
}

void FaultyHost::failNothing() {
  watch({}, 0);
}

void FaultyHost::watch(std::string operation, int n) {
  operation_ = std::move(operation);
  remaining_ = n;
  failed_ = false;
  calls_.clear();
}

bool FaultyHost::admit(const char* operation) {
  calls_.emplace_back(operation);
  if (remaining_ == 0 || (!operation_.empty() && operation_ != operation) || --remaining_ > 0)
    return true;
  failed_ = true;
  return false;
}

} // namespace morvane
