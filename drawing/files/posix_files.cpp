#include "drawing/files.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace drawing {

namespace {

constexpr int kMaxLinks = 40; // as the kernel

const char* wordFor(FileAction action) {
  constexpr const char* kWords[] = {"read", "write", "lock", "remove"};
  return kWords[static_cast<std::size_t>(action)];
}

std::string reasonFor(int error) {
  const char* known = ::strerrordesc_np(error); // the same words in every locale
  return known == nullptr ? "error " + std::to_string(error) : known;
}

// Repeats a system call that a signal interrupted.
template <class Call>
auto persist(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

FileError check(bool good, FileAction action, const std::string& path) {
  return good ? FileError() : fileError(action, path, errno);
}

int flagsFor(FileOpen mode) {
  constexpr int kFlags[] = {O_RDONLY, O_RDWR, O_RDWR | O_CREAT, O_RDWR | O_CREAT | O_EXCL};
  return kFlags[static_cast<std::size_t>(mode)] | O_CLOEXEC;
}

FileStatus statusFrom(const struct ::stat& from) {
  FileStatus status;
  if (S_ISREG(from.st_mode))
    status.kind = FileStatus::Kind::kRegular;
  else if (S_ISDIR(from.st_mode))
    status.kind = FileStatus::Kind::kFolder;
  status.size = static_cast<std::uint64_t>(from.st_size);
  status.permissions = from.st_mode & 07777;
  status.owner = from.st_uid;
  status.group = from.st_gid;
  status.device = from.st_dev;
  status.file = from.st_ino;
  status.modifiedNs = static_cast<std::int64_t>(from.st_mtim.tv_sec) * 1'000'000'000 + from.st_mtim.tv_nsec;
  return status;
}

// The text of a symbolic link as a path; false with errno when there is none.
bool readLink(const std::string& path, std::string& target) {
  char text[PATH_MAX];
  const ssize_t length = ::readlink(path.c_str(), text, sizeof text);
  if (length < 0)
    return false;
  target.assign(text, static_cast<std::size_t>(length));
  const std::size_t slash = path.rfind('/');
  if (target.front() != '/' && slash != std::string::npos)
    target.insert(0, path, 0, slash + 1);
  return true;
}

class PosixFiles final : public FileOperations {
public:
  FileError open(const std::string& path, FileOpen mode, FileHandle& file, std::uint32_t permissions) override {
    file.path = path;
    file.number = persist([&] { return ::open(path.c_str(), flagsFor(mode), static_cast<mode_t>(permissions)); });
    return check(file.isOpen(), mode == FileOpen::kRead ? FileAction::kRead : FileAction::kWrite, path);
  }

  FileError read(FileHandle& file, std::span<char> buffer, std::size_t& got) override {
    const ssize_t count = persist([&] { return ::read(file.number, buffer.data(), buffer.size()); });
    got = count < 0 ? 0 : static_cast<std::size_t>(count);
    return check(count >= 0, FileAction::kRead, file.path);
  }

  FileError write(FileHandle& file, std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = persist([&] { return ::write(file.number, bytes.data(), bytes.size()); });
      if (count < 0)
        return fileError(FileAction::kWrite, file.path, errno);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
  }

  FileError sync(FileHandle& file) override {
    return check(persist([&] { return ::fsync(file.number); }) == 0, FileAction::kWrite, file.path);
  }

  FileError close(FileHandle& file) override {
    if (!file.isOpen())
      return {};
    const int result = ::close(file.number); // closed even when interrupted: not to be repeated
    file.number = -1;
    return check(result == 0 || errno == EINTR, FileAction::kWrite, file.path);
  }

  FileError keepPermissions(FileHandle& file, const FileStatus& status) override {
    std::uint32_t permissions = status.permissions;
    // Only the administrator gives files away. Who cannot keep the group must not keep what runs in its name.
    const bool kept = ::fchown(file.number, status.owner, status.group) == 0;
    if (!kept && ::fchown(file.number, static_cast<uid_t>(-1), status.group) != 0)
      permissions &= 01777;
    return check(::fchmod(file.number, static_cast<mode_t>(permissions)) == 0, FileAction::kWrite, file.path);
  }

  FileError lock(FileHandle& file, FileLock kind) override {
    const int operation = (kind == FileLock::kShared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    return check(persist([&] { return ::flock(file.number, operation); }) == 0, FileAction::kLock, file.path);
  }

  FileError status(FileHandle& file, FileStatus& status) override {
    struct ::stat found {};
    const bool good = ::fstat(file.number, &found) == 0;
    status = statusFrom(found);
    return check(good, FileAction::kRead, file.path);
  }

  FileError stat(const std::string& path, FileStatus& status) override {
    struct ::stat found {};
    const bool good = ::stat(path.c_str(), &found) == 0;
    status = statusFrom(found);
    return check(good, FileAction::kRead, path);
  }

  FileError rename(const std::string& from, const std::string& to, FileRename mode) override {
    if (mode == FileRename::kReplace)
      return check(::rename(from.c_str(), to.c_str()) == 0, FileAction::kWrite, to);
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
      return {};
    if (errno != EINVAL && errno != ENOSYS)
      return fileError(FileAction::kWrite, to, errno);
    // A file system without that kind of rename: a link does not replace anything either.
    if (::link(from.c_str(), to.c_str()) != 0)
      return fileError(FileAction::kWrite, to, errno);
    const FileError error = unlink(from);
    if (!error.ok())
      ::unlink(to.c_str());
    return error;
  }

  FileError link(const std::string& existing, const std::string& name) override {
    return check(::link(existing.c_str(), name.c_str()) == 0, FileAction::kWrite, name);
  }

  FileError unlink(const std::string& path) override {
    return check(::unlink(path.c_str()) == 0, FileAction::kRemove, path);
  }

  FileError syncFolder(const std::string& path) override {
    const int folder = persist([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (folder < 0)
      return fileError(FileAction::kWrite, path, errno);
    const bool synced = persist([&] { return ::fsync(folder); }) == 0;
    // Some file systems have no syncing of folders and say so by EINVAL.
    const FileError error = check(synced || errno == EINVAL, FileAction::kWrite, path);
    ::close(folder);
    return error;
  }

  FileError resolve(const std::string& path, std::string& target) override {
    target = path;
    for (int links = 0; links <= kMaxLinks; ++links) {
      if (!readLink(std::string(target), target)) // EINVAL: no link; ENOENT: nothing there
        return check(errno == EINVAL || errno == ENOENT, FileAction::kRead, path);
    }
    return fileError(FileAction::kRead, path, ELOOP);
  }

  FileError map(FileHandle& file, FileMapping& mapping) override {
    FileStatus found;
    if (const FileError error = status(file, found); !error.ok())
      return error;
    if (found.kind != FileStatus::Kind::kRegular || found.size == 0)
      return fileError(FileAction::kRead, file.path, ENODEV);
    void* data = ::mmap(nullptr, found.size, PROT_READ, MAP_PRIVATE, file.number, 0);
    if (data == MAP_FAILED)
      return fileError(FileAction::kRead, file.path, errno);
    mapping = {static_cast<const char*>(data), found.size};
    return {};
  }

  void unmap(const FileMapping& mapping) override { ::munmap(const_cast<char*>(mapping.data), mapping.size); }
};

std::atomic<FileOperations*> chosenOperations = nullptr;

} // namespace

FileOperations::~FileOperations() = default;

FileError fileError(FileAction action, const std::string& path, int error) {
  const bool missing = error == ENOENT || error == ENOTDIR;
  const OdResult code = missing                                                      ? eFileNotFound
                        : action == FileAction::kRead || action == FileAction::kLock ? eFileAccessErr
                                                                                     : eFileWriteError;
  return {code, error, std::string("Cannot ") + wordFor(action) + " " + path + ": " + reasonFor(error)};
}

FileOperations& fileOperations() {
  static PosixFiles machine;
  FileOperations* chosen = chosenOperations;
  return chosen == nullptr ? machine : *chosen;
}

void setFileOperations(FileOperations* operations) {
  chosenOperations = operations;
}

} // namespace drawing
