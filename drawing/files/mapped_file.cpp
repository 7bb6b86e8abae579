#include "drawing/files.h"

#include <algorithm>

namespace drawing {

namespace {

constexpr std::size_t kPiece = 1 << 16;

FileError tooLarge(const std::string& path, std::uint64_t maxBytes) {
  return {eBudgetExceeded, 0, "Cannot read " + path + ": more than " + std::to_string(maxBytes) + " bytes"};
}

} // namespace

MappedFile& MappedFile::operator=(MappedFile&& other) noexcept {
  if (this == &other)
    return *this;
  clear();
  operations_ = other.operations_;
  mapping_ = std::exchange(other.mapping_, {});
  read_ = std::exchange(other.read_, {});
  return *this;
}

FileError MappedFile::open(const std::string& path, std::uint64_t maxBytes) {
  clear();
  operations_ = &fileOperations();
  FileHandle file;
  FileError error = operations_->open(path, FileOpen::kRead, file);
  if (error.ok())
    error = take(file, maxBytes);
  operations_->close(file); // nothing was written: a failure here loses nothing
  if (!error.ok())
    clear();
  return error;
}

FileError MappedFile::take(FileHandle& file, std::uint64_t maxBytes) {
  if (!operations_->map(file, mapping_).ok()) {
    mapping_ = {};
    return readAll(file, maxBytes);
  }
  return mapping_.size > maxBytes ? tooLarge(file.path, maxBytes) : FileError();
}

FileError MappedFile::readAll(FileHandle& file, std::uint64_t maxBytes) {
  std::size_t filled = 0;
  std::size_t got = 0;
  do {
    filled += got;
    if (filled > maxBytes)
      return tooLarge(file.path, maxBytes);
    if (read_.size() - filled < kPiece)
      read_.resize(std::max<std::size_t>(std::min<std::uint64_t>(read_.size() * 2, maxBytes), filled + kPiece));
    const FileError error = operations_->read(file, std::span(read_).subspan(filled), got);
    if (!error.ok())
      return error;
  } while (got != 0);
  read_.resize(filled);
  return {};
}

void MappedFile::clear() {
  if (isMapped())
    operations_->unmap(mapping_);
  mapping_ = {};
  read_.clear();
}

} // namespace drawing
