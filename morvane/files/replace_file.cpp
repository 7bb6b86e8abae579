#include "morvane/files.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace morvane {
namespace {

class Descriptor {
public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }
  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  bool close() {
    const int closing = std::exchange(number_, -1);
    return closing < 0 || ::close(closing) == 0;
  }

private:
  int number_;
};

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR)
      continue;
    if (written <= 0)
      return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// A symbolic link keeps pointing where it points: the file behind it is the one replaced.
std::string behindLinks(const std::string& path) {
  char* resolved = ::realpath(path.c_str(), nullptr);
  const std::string target = resolved == nullptr ? path : resolved;
  std::free(resolved);
  return target;
}

bool writeBeside(const std::string& beside, const std::string& target, std::string_view bytes) {
  Descriptor file(::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  struct stat old {};
  if (!file.isOpen())
    return false;
  if (::stat(target.c_str(), &old) == 0 && ::fchmod(file.number(), old.st_mode & 07777) != 0)
    return false;
  return writeAll(file.number(), bytes) && ::fsync(file.number()) == 0 && file.close();
}

bool syncFolder(const std::string& path) {
  const auto slash = path.find_last_of('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return opened.isOpen() && ::fsync(opened.number()) == 0;
}

} // namespace

std::string replaceFileSafely(const std::string& path, std::string_view bytes) {
  const std::string target = behindLinks(path);
  const std::string beside = target + ".new" + std::to_string(::getpid());
  ::unlink(beside.c_str()); // left by an earlier process of this number
  const bool written = writeBeside(beside, target, bytes);
  if (written && ::rename(beside.c_str(), target.c_str()) == 0 && syncFolder(target))
    return {};
  const std::string reason = std::strerror(errno);
  ::unlink(beside.c_str());
  return reason;
}

} // namespace morvane
