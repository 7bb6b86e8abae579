// A disk in memory that can lose its power. What was not synced may be lost: of a file's bytes all or the last half of
// the new ones, of a folder's changes any of them, each by itself.
#pragma once

#include "OdFiles.h"

#include <cerrno>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace test_support {

class PowerLossFiles : public drawing::FileOperations {
public:
  using Error = drawing::FileError;
  using Handle = drawing::FileHandle;
  using Status = drawing::FileStatus;

  bool syncsFiles = true; // false: a disk that lies, to see that the model notices

  // A file that is safely there.
  void put(const std::string& path, std::string bytes);
  // Every content that the path may have when the power goes now; "(none)" for no file.
  std::set<std::string> afterPowerLoss(const std::string& path) const;
  // Every content that the path may have had if the power had gone at some moment since the last put.
  const std::set<std::string>& everPossible(const std::string& path) { return possible_[path]; }
  const std::map<std::string, std::string> contents() const;

  Error open(const std::string& path, drawing::FileOpen how, Handle& file, std::uint32_t permissions) override;
  Error read(Handle& file, std::span<char> buffer, std::size_t& got) override;
  Error write(Handle& file, std::string_view bytes) override;
  Error sync(Handle& file) override;
  Error close(Handle& file) override;
  Error keepPermissions(Handle&, const Status&) override { return {}; }
  Error lock(Handle&, drawing::FileLock) override { return {}; }
  Error status(Handle& file, Status& status) override { return stat(file.path, status); }
  Error stat(const std::string& path, Status& status) override;
  Error rename(const std::string& from, const std::string& to, drawing::FileRename how) override;
  Error link(const std::string& existing, const std::string& name) override;
  Error unlink(const std::string& path) override;
  Error syncFolder(const std::string& path) override;
  Error resolve(const std::string& path, std::string& target) override;
  Error map(Handle& file, drawing::FileMapping&) override {
    return drawing::fileError(drawing::FileAction::Read, file.path, ENODEV);
  }
  void unmap(const drawing::FileMapping&) override {}

private:
  struct File {
    std::string bytes;
    std::string synced;
  };
  using Entries = std::map<std::string, std::shared_ptr<File>>;
  struct Change {
    std::string path;
    std::shared_ptr<File> file; // null: the name goes
    std::string alsoGoes;       // the old name of a rename
  };
  struct Opened {
    std::shared_ptr<File> file;
    std::size_t at = 0;
  };

  static void apply(Entries& entries, const Change& change);
  void change(Change made);
  void watch(); // after every step

  Entries now_;
  Entries synced_;
  std::vector<Change> unsynced_;
  std::vector<Opened> open_;
  std::map<std::string, std::set<std::string>> possible_;
};

} // namespace test_support
