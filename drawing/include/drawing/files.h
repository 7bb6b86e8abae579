// The files of the machine, behind one interface that tests replace.
//
// Nothing here throws. Every failure is a FileError whose text names the path and the reason. Paths are bytes as the
// system takes them.
#pragma once

#include "OdError.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

struct FileError {
  OdResult code = eOk; // eFileNotFound, eFileAccessErr, eFileWriteError, eBudgetExceeded, or a writer's own
  int error = 0;       // errno, 0 when there is none
  std::string text;    // "Cannot read /a/b: No such file or directory"
  bool ok() const { return code == eOk; }
};

enum class FileAction : std::uint8_t { Read, Write, Lock, Remove };
// The error of an action on a path by errno. A missing file or folder is eFileNotFound.
MVDRAWING_API FileError fileError(FileAction action, const std::string& path, int error);

struct FileHandle {
  int number = -1;
  std::string path;
  bool isOpen() const { return number >= 0; }
};

struct FileStatus {
  enum class Kind : std::uint8_t { Regular, Folder, Other };
  Kind kind = Kind::Other;
  std::uint64_t size = 0;
  std::uint32_t permissions = 0; // the lower twelve bits of the mode
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  std::uint64_t device = 0; // device and file together tell whether two paths are one file
  std::uint64_t file = 0;
  std::int64_t modifiedNs = 0; // since 1970
};

enum class FileOpen : std::uint8_t {
  Read,
  Write,     // must exist; contents stay
  Create,    // made when missing; contents stay; to read and write
  CreateNew, // must not exist (EEXIST)
};

enum class FileRename : std::uint8_t {
  Replace,
  KeepExisting, // EEXIST when the new name is taken, without a moment in between
};

enum class FileLock : std::uint8_t { Shared, Exclusive };

struct FileMapping {
  const char* data = nullptr;
  std::size_t size = 0;
};

class MVDRAWING_API FileOperations {
public:
  virtual ~FileOperations();

  virtual FileError open(const std::string& path, FileOpen how, FileHandle& file, std::uint32_t permissions = 0666) = 0;
  virtual FileError read(FileHandle& file, std::span<char> buffer, std::size_t& got) = 0; // got 0: the end
  virtual FileError write(FileHandle& file, std::string_view bytes) = 0;                  // all of them
  virtual FileError sync(FileHandle& file) = 0;
  virtual FileError close(FileHandle& file) = 0; // closed even when it fails; nothing for one that is not open
  // Gives an open file the permissions of another and, where the system lets us, its owner and group.
  virtual FileError keepPermissions(FileHandle& file, const FileStatus& status) = 0;
  // Whole-file advice between processes that ask; answers EWOULDBLOCK at once when it is taken; ends with close.
  virtual FileError lock(FileHandle& file, FileLock kind) = 0;
  virtual FileError status(FileHandle& file, FileStatus& status) = 0;

  virtual FileError stat(const std::string& path, FileStatus& status) = 0; // follows links
  virtual FileError rename(const std::string& from, const std::string& to, FileRename how) = 0;
  virtual FileError link(const std::string& existing, const std::string& name) = 0;
  virtual FileError unlink(const std::string& path) = 0;
  virtual FileError syncFolder(const std::string& path) = 0;
  // Where a path leads when its last part is a symbolic link, or a row of them; the path itself when it is none. The
  // end need not exist.
  virtual FileError resolve(const std::string& path, std::string& target) = 0;

  // Maps a whole regular file for reading. What cannot be mapped (a pipe, an empty file) is refused; see MappedFile.
  virtual FileError map(FileHandle& file, FileMapping& mapping) = 0;
  virtual void unmap(const FileMapping& mapping) = 0;
};

// The operations in use: the machine's own unless others were set. Null sets them back. Set them only while no file
// is in use; the caller keeps the object alive.
MVDRAWING_API FileOperations& fileOperations();
MVDRAWING_API void setFileOperations(FileOperations* operations);

// The bytes of a file, mapped where that is possible, else read. Another process that shortens a mapped file in place
// takes the bytes away; saving by replaceFile does not.
class MVDRAWING_API MappedFile {
public:
  MappedFile() = default;
  MappedFile(MappedFile&& other) noexcept { *this = std::move(other); }
  MappedFile& operator=(MappedFile&& other) noexcept;
  ~MappedFile() { clear(); }

  // Replaces what was held. A file above maxBytes is eBudgetExceeded. After a failure nothing is held.
  FileError open(const std::string& path, std::uint64_t maxBytes = UINT64_MAX);
  void clear();

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

// Collects bytes and writes them in large pieces. After a failure it takes no more and remembers the first error.
class MVDRAWING_API FileSink {
public:
  FileSink(FileOperations& operations, FileHandle& file);
  void append(std::string_view bytes);
  void append(char byte) { append(std::string_view(&byte, 1)); }
  FileError flush(); // answers the first error
  bool failed() const { return !error_.ok(); }
  std::uint64_t size() const { return size_; } // of everything appended

private:
  FileOperations& operations_;
  FileHandle& file_;
  std::string buffer_;
  FileError error_;
  std::uint64_t size_ = 0;
};

struct ReplaceOptions {
  bool refuseExisting = false; // fails with EEXIST when the file is there, also when it comes while we write
  bool ownerOnly = false;      // a file that was not there before may be read and written by its owner only
  bool keepBackup = false;     // the old file stays as the name with ".bak" behind, which replaces an older one
};

// Answers an error of its own to give the whole thing up.
using FileWriter = std::function<FileError(FileSink&)>;

// Writes a file anew: beside the old one, synced, with the permissions of the old one, then put in its place. A
// symbolic link stays; the file that it leads to is replaced. A file that may not be written is not replaced.
// On failure, also when the writer throws, the old file is as it was and the new one is removed.
// An ok answer with a text: the file is in place, but the folder could not be synced.
MVDRAWING_API FileError replaceFile(const std::string& path, const FileWriter& writer, ReplaceOptions options = {});

} // namespace drawing
