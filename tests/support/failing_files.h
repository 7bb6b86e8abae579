// File operations that fail at one call of a test's choosing and forward all others.
#pragma once

#include "drawing/files.h"

#include <cerrno>

namespace tests {

class FailingFiles : public drawing::FileOperations {
public:
  explicit FailingFiles(drawing::FileOperations& under, int failAt = 0, int error = EIO)
      : under_(under), failAt_(failAt), error_(error) {}

  int calls() const { return calls_; } // of those that can fail
  bool hasFailed() const { return failAt_ > 0 && calls_ >= failAt_; }

  using Error = drawing::FileError;
  using Handle = drawing::FileHandle;
  using Status = drawing::FileStatus;
  using Action = drawing::FileAction;

  Error open(const std::string& path, drawing::FileOpen mode, Handle& file, std::uint32_t permissions) override {
    return fails() ? failure(Action::kWrite, path) : under_.open(path, mode, file, permissions);
  }
  Error read(Handle& file, std::span<char> buffer, std::size_t& got) override {
    got = 0;
    return fails() ? failure(Action::kRead, file.path) : under_.read(file, buffer, got);
  }
  Error write(Handle& file, std::string_view bytes) override {
    if (!fails())
      return under_.write(file, bytes);
    under_.write(file, bytes.substr(0, bytes.size() / 2)); // a full disk takes a part
    return failure(Action::kWrite, file.path);
  }
  Error sync(Handle& file) override { return fails() ? failure(Action::kWrite, file.path) : under_.sync(file); }
  Error close(Handle& file) override {
    if (!file.isOpen())
      return {};
    const bool failing = fails();
    const Error error = under_.close(file); // a failing close closes all the same
    return failing ? failure(Action::kWrite, file.path) : error;
  }
  Error keepPermissions(Handle& file, const Status& status) override {
    return fails() ? failure(Action::kWrite, file.path) : under_.keepPermissions(file, status);
  }
  Error lock(Handle& file, drawing::FileLock kind) override {
    return fails() ? failure(Action::kLock, file.path) : under_.lock(file, kind);
  }
  Error status(Handle& file, Status& status) override {
    return fails() ? failure(Action::kRead, file.path) : under_.status(file, status);
  }
  Error stat(const std::string& path, Status& status) override {
    return fails() ? failure(Action::kRead, path) : under_.stat(path, status);
  }
  Error rename(const std::string& from, const std::string& to, drawing::FileRename mode) override {
    return fails() ? failure(Action::kWrite, to) : under_.rename(from, to, mode);
  }
  Error link(const std::string& existing, const std::string& name) override {
    return fails() ? failure(Action::kWrite, name) : under_.link(existing, name);
  }
  Error unlink(const std::string& path) override {
    return fails() ? failure(Action::kRemove, path) : under_.unlink(path);
  }
  Error syncFolder(const std::string& path) override {
    return fails() ? failure(Action::kWrite, path) : under_.syncFolder(path);
  }
  Error resolve(const std::string& path, std::string& target) override {
    return fails() ? failure(Action::kRead, path) : under_.resolve(path, target);
  }
  Error map(Handle& file, drawing::FileMapping& mapping) override {
    return fails() ? failure(Action::kRead, file.path) : under_.map(file, mapping);
  }
  void unmap(const drawing::FileMapping& mapping) override { under_.unmap(mapping); }

private:
  bool fails() { return ++calls_ == failAt_; }
  Error failure(Action action, const std::string& path) const { return drawing::fileError(action, path, error_); }

  drawing::FileOperations& under_;
  int failAt_;
  int error_;
  int calls_ = 0;
};

// Puts operations in for as long as it lives.
class UsedFiles {
public:
  explicit UsedFiles(drawing::FileOperations& operations) { drawing::setFileOperations(&operations); }
  UsedFiles(const UsedFiles&) = delete;
  UsedFiles& operator=(const UsedFiles&) = delete;
  ~UsedFiles() { drawing::setFileOperations(nullptr); }
};

} // namespace tests
