#include "drawing/files.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <random>
#include <utility>

namespace drawing {

namespace {

constexpr std::size_t kBuffer = 1 << 18;
constexpr int kNameTries = 100;
constexpr std::uint32_t kOwnerOnly = 0600; // until the permissions of the old file are known to be set
constexpr std::uint32_t kByUmask = 0666;

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// An unused name next to the path: short, for the path's own name may be as long as names can be.
std::string temporaryName(const std::string& path) {
  static std::atomic<std::uint64_t> counter = std::random_device()();
  const std::uint64_t number = (std::uint64_t{std::random_device()()} << 32) ^ ++counter;
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
  const std::size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
  return folder + ".mv" + std::string(digits, end) + ".tmp";
}

// Calls make(name) with new names until one is free.
template <class Make>
FileError withFreeName(const std::string& path, std::string& name, Make make) {
  FileError error;
  for (int i = 0; i < kNameTries; ++i) {
    name = temporaryName(path);
    error = make(name);
    if (error.error != EEXIST)
      return error;
  }
  return error;
}

// A file beside the target that goes away unless it was renamed.
class TemporaryFile {
public:
  TemporaryFile(FileOperations& operations, const std::string& target) : operations_(operations), target_(target) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    operations_.close(file_);
    if (exists_)
      operations_.unlink(name_); // an answer is on its way already; this one has nothing to add
  }

  FileError create(std::uint32_t permissions) {
    return made(withFreeName(target_, name_, [&](const std::string& name) {
      return operations_.open(name, FileOpen::kCreateNew, file_, permissions);
    }));
  }

  FileError linkTo(const std::string& existing) {
    return made(
        withFreeName(target_, name_, [&](const std::string& name) { return operations_.link(existing, name); }));
  }

  // Writes, syncs and closes; `like` gives the permissions when there is one.
  FileError fill(const FileWriter& writer, const FileStatus* like) {
    FileSink sink(operations_, file_);
    FileError error = writer(sink);
    if (error.ok())
      error = sink.flush();
    if (error.ok() && like != nullptr)
      error = operations_.keepPermissions(file_, *like);
    if (error.ok())
      error = operations_.sync(file_);
    if (error.ok())
      error = operations_.close(file_);
    return named(std::move(error));
  }

  FileError moveTo(const std::string& path, FileRename mode) {
    FileError error = operations_.rename(name_, path, mode);
    exists_ = !error.ok();
    return error;
  }

  // The user knows the file by its own name, not by that of the one beside.
  FileError named(FileError error) const {
    const std::size_t at = name_.empty() ? std::string::npos : error.text.find(name_);
    if (at != std::string::npos)
      error.text.replace(at, name_.size(), target_);
    return error;
  }

private:
  FileError made(FileError error) {
    exists_ = error.ok();
    return named(std::move(error));
  }

  FileOperations& operations_;
  std::string target_;
  std::string name_;
  FileHandle file_;
  bool exists_ = false;
};

struct Target {
  std::string path;
  FileStatus status;
  bool exists = false;
};

FileError probe(FileOperations& operations, const std::string& path, bool refuseExisting, Target& target) {
  if (FileError error = operations.resolve(path, target.path); !error.ok())
    return error;
  const FileError missing = operations.stat(target.path, target.status);
  if (missing.error == ENOENT)
    return {};
  if (!missing.ok())
    return missing;
  target.exists = true;
  if (refuseExisting)
    return fileError(FileAction::kWrite, path, EEXIST);
  if (target.status.kind == FileStatus::Kind::kFolder)
    return fileError(FileAction::kWrite, path, EISDIR);
  if (target.status.kind != FileStatus::Kind::kRegular)
    return fileError(FileAction::kWrite, path, EINVAL);
  FileHandle file; // renaming asks the folder only; a file that is protected shall stay
  if (FileError error = operations.open(target.path, FileOpen::kWrite, file); !error.ok())
    return error;
  return operations.close(file);
}

FileError copyTo(FileOperations& operations, const std::string& from, FileSink& sink) {
  FileHandle file;
  FileError error = operations.open(from, FileOpen::kRead, file);
  std::vector<char> piece(kBuffer);
  for (std::size_t got = 1; error.ok() && got != 0;) {
    error = operations.read(file, piece, got);
    sink.append({piece.data(), got});
  }
  operations.close(file);
  return error;
}

bool hasNoLinks(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

FileError makeBackup(FileOperations& operations, const Target& target) {
  const std::string path = target.path + ".bak";
  TemporaryFile temporary(operations, path);
  FileError error = temporary.linkTo(target.path);
  if (hasNoLinks(error.error)) {
    error = temporary.create(kOwnerOnly);
    if (error.ok())
      error = temporary.fill([&](FileSink& sink) { return copyTo(operations, target.path, sink); }, &target.status);
  }
  if (!error.ok())
    return error;
  // A backup that is the same file already makes the rename do nothing and keep both names.
  FileStatus backup;
  const FileError found = operations.stat(path, backup);
  if (!found.ok() && found.error != ENOENT)
    return found;
  if (found.ok() && backup.file == target.status.file && backup.device == target.status.device)
    return {};
  return temporary.moveTo(path, FileRename::kReplace);
}

} // namespace

FileSink::FileSink(FileOperations& operations, FileHandle& file) : operations_(operations), file_(file) {
  buffer_.reserve(kBuffer);
}

void FileSink::append(std::string_view bytes) {
  if (failed())
    return;
  size_ += bytes.size();
  if (buffer_.size() + bytes.size() > kBuffer) {
    flush();
    if (bytes.size() >= kBuffer && !failed()) {
      error_ = operations_.write(file_, bytes);
      return;
    }
  }
  buffer_ += bytes;
}

FileError FileSink::flush() {
  if (!failed() && !buffer_.empty())
    error_ = operations_.write(file_, buffer_);
  buffer_.clear();
  return error_;
}

FileError replaceFile(const std::string& path, const FileWriter& writer, ReplaceOptions options) {
  FileOperations& operations = fileOperations();
  Target target;
  FileError error = probe(operations, path, options.refuseExisting, target);
  if (!error.ok())
    return error;
  TemporaryFile temporary(operations, target.path);
  error = temporary.create(target.exists || options.ownerOnly ? kOwnerOnly : kByUmask);
  if (error.ok())
    error = temporary.fill(writer, target.exists ? &target.status : nullptr);
  if (error.ok() && options.keepBackup && target.exists)
    error = makeBackup(operations, target);
  if (error.ok())
    error = temporary.moveTo(target.path, options.refuseExisting ? FileRename::kKeepExisting : FileRename::kReplace);
  if (!error.ok())
    return error;
  FileError unsynced = operations.syncFolder(folderOf(target.path));
  unsynced.code = eOk; // the new file is there, whole: not a failed save
  return unsynced;
}

} // namespace drawing
