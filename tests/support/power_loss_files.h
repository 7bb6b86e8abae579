// A disk in memory that can lose its power. What was not synced may be lost: of a file's bytes all or the last half of
// the new ones, of a folder's changes any of them, each by itself.
#pragma once

#include "drawing/files.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace tests {

class PowerLossFiles : public drawing::FileOperations {
public:
  using Error = drawing::FileError;
  using Handle = drawing::FileHandle;
  using Status = drawing::FileStatus;
  using FileAction = drawing::FileAction;

  bool syncsFiles = true; // false: a disk that lies, to see that the model notices

  // A file that is safely there.
  void put(const std::string& path, std::string bytes) {
    now_[path] = synced_[path] = std::make_shared<File>(File{bytes, bytes});
    possible_.clear();
    watch();
  }
  // Every content that the path may have when the power goes now; "(none)" for no file.
  std::set<std::string> afterPowerLoss(const std::string& path) const {
    std::set<std::string> found;
    for (std::size_t choice = 0; choice < std::size_t{1} << unsynced_.size(); ++choice) {
      Entries entries = synced_;
      for (std::size_t i = 0; i < unsynced_.size(); ++i) {
        if ((choice >> i & 1) != 0)
          apply(entries, unsynced_[i]);
      }
      const auto at = entries.find(path);
      if (at == entries.end()) {
        found.insert("(none)");
        continue;
      }
      const File& file = *at->second;
      const std::size_t kept = std::min(file.synced.size(), file.bytes.size());
      found.insert({file.synced, file.bytes, file.bytes.substr(0, kept + (file.bytes.size() - kept) / 2)});
    }
    return found;
  }
  // Every content that the path may have had if the power had gone at some moment since the last put.
  const std::set<std::string>& everPossible(const std::string& path) { return possible_[path]; }
  const std::map<std::string, std::string> contents() const {
    std::map<std::string, std::string> all;
    for (const auto& [path, file] : now_)
      all[path] = file->bytes;
    return all;
  }

  Error open(const std::string& path, drawing::FileOpen mode, Handle& file, std::uint32_t) override {
    const bool exists = now_.count(path) != 0;
    if (exists && mode == drawing::FileOpen::kCreateNew)
      return drawing::fileError(FileAction::kWrite, path, EEXIST);
    if (!exists && (mode == drawing::FileOpen::kRead || mode == drawing::FileOpen::kWrite))
      return drawing::fileError(FileAction::kRead, path, ENOENT);
    if (!exists)
      change({path, std::make_shared<File>(), ""});
    file = {static_cast<int>(open_.size()), path};
    open_.push_back(now_[path]);
    return {};
  }
  Error read(Handle& file, std::span<char>, std::size_t&) override { return notHere(file); }
  Error write(Handle& file, std::string_view bytes) override {
    open_[static_cast<std::size_t>(file.number)]->bytes += bytes;
    watch();
    return {};
  }
  Error sync(Handle& file) override {
    File& synced = *open_[static_cast<std::size_t>(file.number)];
    if (syncsFiles)
      synced.synced = synced.bytes;
    watch();
    return {};
  }
  Error close(Handle& file) override {
    file.number = -1;
    return {};
  }
  Error keepPermissions(Handle&, const Status&) override { return {}; }
  Error lock(Handle&, drawing::FileLock) override { return {}; }
  Error status(Handle& file, Status& status) override { return stat(file.path, status); }
  Error stat(const std::string& path, Status& status) override {
    const auto at = now_.find(path);
    if (at == now_.end())
      return drawing::fileError(FileAction::kRead, path, ENOENT);
    status = {};
    status.kind = Status::Kind::kRegular;
    status.size = at->second->bytes.size();
    status.file = reinterpret_cast<std::uintptr_t>(at->second.get());
    return {};
  }
  Error rename(const std::string& from, const std::string& to, drawing::FileRename mode) override {
    if (now_.count(to) != 0 && mode == drawing::FileRename::kKeepExisting)
      return drawing::fileError(FileAction::kWrite, to, EEXIST);
    change({to, now_.at(from), from});
    return {};
  }
  Error link(const std::string& existing, const std::string& name) override {
    change({name, now_.at(existing), ""});
    return {};
  }
  Error unlink(const std::string& path) override {
    change({path, nullptr, ""});
    return {};
  }
  Error syncFolder(const std::string&) override {
    synced_ = now_;
    unsynced_.clear();
    watch();
    return {};
  }
  Error resolve(const std::string& path, std::string& target) override {
    target = path;
    return {};
  }
  Error map(Handle& file, drawing::FileMapping&) override { return notHere(file); }
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
  static Error notHere(Handle& file) { return drawing::fileError(FileAction::kRead, file.path, ENODEV); }
  static void apply(Entries& entries, const Change& change) {
    entries.erase(change.file == nullptr ? change.path : change.alsoGoes);
    if (change.file != nullptr)
      entries[change.path] = change.file;
  }
  void change(Change made) {
    apply(now_, made);
    unsynced_.push_back(std::move(made));
    watch();
  }
  void watch() { // after every step
    for (const auto& [path, file] : synced_)
      possible_[path].merge(afterPowerLoss(path));
  }

  Entries now_;
  Entries synced_;
  std::vector<Change> unsynced_;
  std::vector<std::shared_ptr<File>> open_;
  std::map<std::string, std::set<std::string>> possible_;
};

} // namespace tests
