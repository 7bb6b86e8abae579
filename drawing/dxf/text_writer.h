// Writes groups in the forms of files.
#pragma once

#include "drawing/detail/groups.h"
#include "drawing/io/text_codec.h"
#include "drawing/report.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace drawing::dxf {

// What both forms share: where the bytes go, the text's encoding, the version.
class FormWriter : public GroupSink {
public:
  using Output = std::function<bool(std::string_view)>; // false: the output failed

  struct Target {
    Output output;
    TextCodec& codec;
    OdDb::DwgVersion version;
    bool keepsNewer;
    Report& losses;
  };
  explicit FormWriter(Target target) : target_(std::move(target)) {}
  ~FormWriter() override;

  OdDb::DwgVersion version() const override { return target_.version; }
  bool keepsNewer() const override { return target_.keepsNewer; }
  // The record that is being written is its place. A loss that is the same in many records of a type is reported once,
  // with their number.
  void lost(Issue issue) override;

  bool finish(); // false when any output failed

protected:
  std::string_view encoded(std::string_view text) { return target_.codec.encode(text, buffer_); }
  void put(std::string_view bytes) { pending_.append(bytes); }
  void put(std::size_t count, char c) { pending_.append(count, c); }
  void groupEnds(); // sends on what has come together
  void recordPosition(int code, std::string_view name) {
    if (code == 0)
      kind_ = name;
  }
  void recordPosition(int code, OdDbHandle handle) {
    if (code == 5 || code == 105)
      handle_ = handle;
  }
  std::string buffer_;

private:
  struct CountedLoss {
    Issue issue;
    std::uint64_t last; // the record that was counted last
    std::size_t records = 1;
  };
  void flush();

  Target target_;
  std::vector<CountedLoss> countedLosses_;
  std::unordered_map<std::string, std::size_t> lossIndex_;
  std::string pending_;
  std::string kind_; // of the record that is being written
  OdDbHandle handle_;
  bool failed_ = false;
};

// A line with the code, a line with the value. Numbers are the shortest texts that read back as the same number; a real
// always shows that it is one.
class TextWriter final : public FormWriter {
public:
  using FormWriter::FormWriter;
  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unparsed(int code, std::string_view text) override;

private:
  void line(int code, std::string_view text);
};

// Codes and values as numbers (see BinaryGroupSource). The format cannot store a value that does not fit its code; such
// a group is omitted and reported.
class BinaryWriter final : public FormWriter {
public:
  explicit BinaryWriter(Target target);
  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unparsed(int code, std::string_view text) override;

private:
  void begin(int code);
  void lowFirst(std::uint64_t bits, std::size_t size);
  void plain(int code, std::string_view text);
  void doesNotFit(int code, std::string_view text);
  bool shortCodes_;
};

} // namespace drawing::dxf
