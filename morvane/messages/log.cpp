#include "morvane/log.h"
#include "morvane/host.h"

#include <cstdio>

namespace morvane {
namespace {

class FileSink : public LogSink {
public:
  explicit FileSink(std::FILE* file, bool owns) : file_(file), owns_(owns) {}
  FileSink(const FileSink&) = delete;
  FileSink& operator=(const FileSink&) = delete;
  ~FileSink() override {
    if (owns_)
      std::fclose(file_);
  }
  void write(const LogRecord& record) override {
    std::fprintf(file_, "[%d] %s:%d %s\n", record.level, record.function.c_str(), record.line, record.text.c_str());
    std::fflush(file_);
  }

private:
  std::FILE* file_;
  bool owns_;
};

} // namespace

LogSink::~LogSink() = default;

Log::Log() : sink_(std::make_shared<FileSink>(stderr, false)) {}

void Log::setSink(std::shared_ptr<LogSink> sink) {
  sink_ = sink != nullptr ? std::move(sink) : std::make_shared<FileSink>(stderr, false);
}

bool Log::setFile(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "ae");
  if (file == nullptr)
    return false;
  sink_ = std::make_shared<FileSink>(file, true);
  return true;
}

void Log::write(const LogRecord& record) {
  if (record.level >= level_)
    sink_->write(record);
}

} // namespace morvane

void mv_Log(int level, int line, const char* function, const char* text) {
  if (morvane::Host* host = morvane::Host::current())
    host->log().write({level, line, function == nullptr ? "" : function, text == nullptr ? "" : text});
}

int mrvn_log_level() {
  const morvane::Host* host = morvane::Host::current();
  return host == nullptr ? morvane::kDefaultLogLevel : host->log().level();
}
