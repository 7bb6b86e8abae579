#include "tests/support/power_loss_files.h"

#include <algorithm>
#include <cerrno>

namespace test_support {

using drawing::FileAction;
using drawing::fileError;

void PowerLossFiles::put(const std::string& path, std::string bytes) {
  now_[path] = synced_[path] = std::make_shared<File>(File{bytes, bytes});
  possible_.clear();
  watch();
}

std::set<std::string> PowerLossFiles::afterPowerLoss(const std::string& path) const {
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

const std::map<std::string, std::string> PowerLossFiles::contents() const {
  std::map<std::string, std::string> all;
  for (const auto& [path, file] : now_)
    all[path] = file->bytes;
  return all;
}

void PowerLossFiles::apply(Entries& entries, const Change& change) {
  entries.erase(change.file == nullptr ? change.path : change.alsoGoes);
  if (change.file != nullptr)
    entries[change.path] = change.file;
}

void PowerLossFiles::change(Change made) {
  apply(now_, made);
  unsynced_.push_back(std::move(made));
  watch();
}

void PowerLossFiles::watch() {
  for (const auto& [path, file] : synced_)
    possible_[path].merge(afterPowerLoss(path));
}

PowerLossFiles::Error PowerLossFiles::open(const std::string& path, drawing::FileOpen how, Handle& file,
                                           std::uint32_t) {
  const bool exists = now_.count(path) != 0;
  if (exists && how == drawing::FileOpen::CreateNew)
    return fileError(FileAction::Write, path, EEXIST);
  if (!exists && (how == drawing::FileOpen::Read || how == drawing::FileOpen::Write))
    return fileError(FileAction::Read, path, ENOENT);
  if (!exists)
    change({path, std::make_shared<File>(), ""});
  file = {static_cast<int>(open_.size()), path};
  open_.push_back({now_[path]});
  return {};
}

PowerLossFiles::Error PowerLossFiles::read(Handle& file, std::span<char> buffer, std::size_t& got) {
  Opened& opened = open_[static_cast<std::size_t>(file.number)];
  got = opened.file->bytes.copy(buffer.data(), buffer.size(), opened.at);
  opened.at += got;
  return {};
}

PowerLossFiles::Error PowerLossFiles::write(Handle& file, std::string_view bytes) {
  open_[static_cast<std::size_t>(file.number)].file->bytes += bytes;
  watch();
  return {};
}

PowerLossFiles::Error PowerLossFiles::sync(Handle& file) {
  File& synced = *open_[static_cast<std::size_t>(file.number)].file;
  if (syncsFiles)
    synced.synced = synced.bytes;
  watch();
  return {};
}

PowerLossFiles::Error PowerLossFiles::close(Handle& file) {
  file.number = -1;
  return {};
}

PowerLossFiles::Error PowerLossFiles::stat(const std::string& path, Status& status) {
  const auto at = now_.find(path);
  if (at == now_.end())
    return fileError(FileAction::Read, path, ENOENT);
  status = {};
  status.kind = Status::Kind::Regular;
  status.size = at->second->bytes.size();
  status.file = reinterpret_cast<std::uintptr_t>(at->second.get());
  return {};
}

PowerLossFiles::Error PowerLossFiles::rename(const std::string& from, const std::string& to, drawing::FileRename how) {
  if (now_.count(to) != 0 && how == drawing::FileRename::KeepExisting)
    return fileError(FileAction::Write, to, EEXIST);
  change({to, now_.at(from), from});
  return {};
}

PowerLossFiles::Error PowerLossFiles::link(const std::string& existing, const std::string& name) {
  change({name, now_.at(existing), ""});
  return {};
}

PowerLossFiles::Error PowerLossFiles::unlink(const std::string& path) {
  change({path, nullptr, ""});
  return {};
}

PowerLossFiles::Error PowerLossFiles::syncFolder(const std::string&) {
  synced_ = now_;
  unsynced_.clear();
  watch();
  return {};
}

PowerLossFiles::Error PowerLossFiles::resolve(const std::string& path, std::string& target) {
  target = path;
  return {};
}

} // namespace test_support
