#include "morvane/files.h"

#include "drawing/files.h"

namespace morvane {

std::string replaceFileSafely(const std::string& path, std::string_view bytes) {
  drawing::ReplaceOptions options;
  options.ownerOnly = true;
  const auto write = [bytes](drawing::FileSink& sink) {
    sink.append(bytes);
    return drawing::FileError();
  };
  const drawing::FileError error = drawing::replaceFile(path, write, options);
  return error.ok() ? std::string() : error.text;
}

} // namespace morvane
