// Files of the machine through one interface, which tests replace.
//
// Nothing here throws. Every failure is a FileError whose text names the path and the reason. Paths are bytes as the
// system defines them (UTF-8 as a rule). Functions may be called by several threads on different files.
#pragma once

#include "OdError.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

// Result of a file operation.
struct FileError {
  OdResult code = eOk; // eFileNotFound, eFileAccessErr, eFileWriteError, eBudgetExceeded, or that of a writer
  int error = 0;       // errno, 0 when there is none
  std::string text;    // "Cannot read /a/b: No such file or directory"
  bool ok() const { return code == eOk; } // whether the operation succeeded
};

// Operation in the text of an error.
enum class FileAction : std::uint8_t { kRead, kWrite, kLock, kRemove };
// The error of an action on a path by errno. A missing file or folder is eFileNotFound.
MVDRAWING_API FileError fileError(FileAction action, const std::string& path, int error);

// An open file. It is closed by FileOperations::close, not by its destructor.
struct FileHandle {
  int number = -1;
  std::string path;
  bool isOpen() const { return number >= 0; } // whether it has been opened and not yet closed
};

// Properties of a file.
struct FileStatus {
  // Kind of file.
  enum class Kind : std::uint8_t { kRegular, kFolder, kOther };
  Kind kind = Kind::kOther;
  std::uint64_t size = 0;
  std::uint32_t permissions = 0; // the lower twelve bits of the mode
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  std::uint64_t device = 0; // device and file are equal for two paths of one file
  std::uint64_t file = 0;
  std::int64_t modifiedNs = 0; // nanoseconds since 1970
};

// How a file is opened.
enum class FileOpen : std::uint8_t {
  kRead,
  kWrite,     // must exist; contents are kept
  kCreate,    // created if missing; contents are kept; for reading and writing
  kCreateNew, // must not exist (EEXIST)
};

// What renaming does if the new name exists.
enum class FileRename : std::uint8_t {
  kReplace,
  kKeepExisting, // EEXIST, checked atomically
};

// Kind of lock.
enum class FileLock : std::uint8_t { kShared, kExclusive };

// A file in memory.
struct FileMapping {
  const char* data = nullptr;
  std::size_t size = 0;
};

// The file operations. Each returns a FileError; results in arguments are set on success only.
class MVDRAWING_API FileOperations {
public:
  virtual ~FileOperations();

  // Open files. `permissions` apply to files that are created. read returns at most the size of the buffer, 0 at the
  // end of the file; write writes all bytes; close closes the file even if it reports an error, and does nothing for a
  // file that is not open.
  virtual FileError open(const std::string& path, FileOpen mode, FileHandle& file,
                         std::uint32_t permissions = 0666) = 0;
  virtual FileError read(FileHandle& file, std::span<char> buffer, std::size_t& got) = 0;
  virtual FileError write(FileHandle& file, std::string_view bytes) = 0;
  virtual FileError sync(FileHandle& file) = 0;
  virtual FileError close(FileHandle& file) = 0;
  // Gives an open file the permissions of another and, where the system permits it, its owner and group.
  virtual FileError keepPermissions(FileHandle& file, const FileStatus& status) = 0;
  // Advisory lock of the whole file between processes that use it; fails with EWOULDBLOCK at once if another process
  // has it; ends with close.
  virtual FileError lock(FileHandle& file, FileLock kind) = 0;
  virtual FileError status(FileHandle& file, FileStatus& status) = 0;

  // Paths. stat follows symbolic links; syncFolder makes changes of names in a folder durable.
  virtual FileError stat(const std::string& path, FileStatus& status) = 0;
  virtual FileError rename(const std::string& from, const std::string& to, FileRename mode) = 0;
  virtual FileError link(const std::string& existing, const std::string& name) = 0;
  virtual FileError unlink(const std::string& path) = 0;
  virtual FileError syncFolder(const std::string& path) = 0;
  // Target of a path whose last part is a symbolic link, or a chain of them; the path itself if it is not a link. The
  // target need not exist.
  virtual FileError resolve(const std::string& path, std::string& target) = 0;

  // Maps a whole regular file for reading until unmap. Fails for files that cannot be mapped (a pipe, an empty file);
  // see MappedFile.
  virtual FileError map(FileHandle& file, FileMapping& mapping) = 0;
  virtual void unmap(const FileMapping& mapping) = 0;
};

// The operations in use: those of the machine unless others were set. Null restores them. Set them only while no file
// is in use; the caller keeps the object alive.
MVDRAWING_API FileOperations& fileOperations();
MVDRAWING_API void setFileOperations(FileOperations* operations);

// The bytes of a file, mapped if possible, else read. If another process shortens a mapped file in place, the bytes are
// no longer accessible; saving by replaceFile does not do that.
class MVDRAWING_API MappedFile {
public:
  MappedFile() = default;
  MappedFile(MappedFile&& other) noexcept { *this = std::move(other); }
  MappedFile& operator=(MappedFile&& other) noexcept;
  ~MappedFile() { clear(); }

  // Opens a file instead of the present one. Returns eBudgetExceeded for a file above maxBytes. After a failure the
  // object is empty.
  FileError open(const std::string& path, std::uint64_t maxBytes = UINT64_MAX);
  void clear();

  // The bytes, valid until open, clear or the destructor.
  std::string_view text() const {
    return isMapped() ? std::string_view(mapping_.data, mapping_.size) : std::string_view(read_.data(), read_.size());
  }
  std::span<const char> bytes() const { return {text().data(), text().size()}; }
  bool isMapped() const { return mapping_.data != nullptr; }

private:
  FileError take(FileHandle& file, std::uint64_t maxBytes);
  FileError readAll(FileHandle& file, std::uint64_t maxBytes);

  FileOperations* operations_ = nullptr; // those that made the mapping
  FileMapping mapping_;
  std::vector<char> read_;
};

// Buffers bytes and writes them in large pieces. After a failure it ignores further bytes and keeps the first error.
class MVDRAWING_API FileSink {
public:
  // Both arguments must outlive the sink, which neither flushes nor closes the file when it is destroyed.
  FileSink(FileOperations& operations, FileHandle& file);
  void append(std::string_view bytes);
  void append(char byte) { append(std::string_view(&byte, 1)); }
  FileError flush(); // writes the rest; returns the first error
  bool failed() const { return !error_.ok(); }
  std::uint64_t size() const { return size_; } // bytes that were appended

private:
  FileOperations& operations_;
  FileHandle& file_;
  std::string buffer_;
  FileError error_;
  std::uint64_t size_ = 0;
};

// Options of replaceFile.
struct ReplaceOptions {
  bool refuseExisting = false; // fails with EEXIST if the file exists, also if it is created meanwhile
  bool ownerOnly = false;      // a new file may be read and written by its owner only
  bool keepBackup = false;     // keeps the old file under its name with ".bak" appended, replacing an older one
};

// Writes the contents of a file; an error cancels replaceFile, which returns it.
using FileWriter = std::function<FileError(FileSink&)>;

// Replaces or creates a file: writes a new one in the same folder, syncs it, gives it the permissions of the old one
// and renames it. A symbolic link is kept, and its target replaced. A file that must not be written is not replaced. On
// failure, also if the writer throws, the old file is unchanged and the new one is removed; exceptions of the writer
// pass through. An ok result with a text: the file was replaced, but the folder could not be synced.
MVDRAWING_API FileError replaceFile(const std::string& path, const FileWriter& writer, ReplaceOptions options = {});

} // namespace drawing
