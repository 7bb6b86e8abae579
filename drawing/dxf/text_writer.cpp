#include "drawing/dxf/text_writer.h"

#include <charconv>

namespace drawing::dxf {

namespace {
constexpr std::size_t kFlushAt = 1 << 18;
} // namespace

FormWriter::~FormWriter() = default;

void FormWriter::groupEnds() {
  if (pending_.size() >= kFlushAt)
    flush();
}

void FormWriter::flush() {
  if (!pending_.empty() && !failed_)
    failed_ = !target_.output(pending_);
  pending_.clear();
}

bool FormWriter::finish() {
  for (CountedLoss& loss : countedLosses_) {
    if (loss.records > 1)
      loss.issue.found += ", here and in " + std::to_string(loss.records - 1) + " more";
    target_.losses.add(std::move(loss.issue));
  }
  countedLosses_.clear();
  flush();
  return !failed_;
}

void FormWriter::lost(Issue issue) {
  const bool isOwn = issue.handle != 0; // reported for an object, not for a group
  if (issue.kind.empty())
    issue.kind = kind_;
  if (issue.handle == 0 && issue.kind == kind_) // else of many records at once
    issue.handle = std::uint64_t{handle_};
  const std::string key =
      issue.code + '\n' + issue.kind + '\n' + issue.found + (isOwn ? '\n' + std::to_string(issue.handle) : "");
  const auto [at, isNew] = lossIndex_.emplace(key, countedLosses_.size());
  const std::uint64_t handle = issue.handle;
  if (isNew)
    countedLosses_.push_back({std::move(issue), handle});
  else if (std::exchange(countedLosses_[at->second].last, handle) != handle)
    ++countedLosses_[at->second].records;
}

void TextWriter::line(int code, std::string_view text) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, code).ptr;
  const auto width = static_cast<std::size_t>(end - digits);
  put(width < 3 ? 3 - width : 0, ' ');
  put(std::string_view(digits, width));
  put("\n");
  put(text);
  put("\n");
  groupEnds();
}

void TextWriter::utf8(int code, std::string_view text) {
  recordPosition(code, text);
  line(code, encoded(text));
}
void TextWriter::unparsed(int code, std::string_view text) {
  line(code, text);
}
void TextWriter::handle(int code, OdDbHandle value) {
  recordPosition(code, value);
  line(code, value.ascii());
}
void TextWriter::reference(int code, OdDbObjectId id) {
  line(code, id.getHandle().ascii());
}

void TextWriter::real(int code, double value) {
  char digits[40];
  auto end = std::to_chars(digits, digits + sizeof digits, value == 0 ? 0.0 : value).ptr;
  const std::string_view text(digits, static_cast<std::size_t>(end - digits));
  if (text.find_first_of(".en") == std::string_view::npos) {
    *end++ = '.';
    *end++ = '0';
  }
  line(code, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

void TextWriter::integer(int code, std::int64_t value) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  line(code, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

void TextWriter::binary(int code, std::string_view bytes) {
  constexpr char kHex[] = "0123456789ABCDEF";
  buffer_.clear();
  for (const char c : bytes) {
    buffer_ += kHex[static_cast<unsigned char>(c) >> 4];
    buffer_ += kHex[static_cast<unsigned char>(c) & 15];
  }
  line(code, buffer_);
}

} // namespace drawing::dxf
