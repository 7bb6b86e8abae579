// Writes groups as text.
#pragma once

#include "DbGroups.h"

#include <functional>
#include <string>

namespace drawing::dxf {

// Turns the text of a drawing into the bytes of a file.
class TextEncoder {
public:
  virtual ~TextEncoder() = default;
  virtual std::string_view encode(std::string_view losslessUtf8, std::string& buffer) = 0;
};

// Numbers are the shortest texts that read back as the same number; a real always shows that it is one.
class TextWriter final : public GroupSink {
public:
  using Output = std::function<bool(std::string_view)>; // false: the output failed

  TextWriter(Output output, TextEncoder& encoder, OdDb::DwgVersion version)
      : output_(std::move(output)), encoder_(encoder), version_(version) {}

  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unread(int code, std::string_view text) override;
  OdDb::DwgVersion version() const override { return version_; }

  bool finish(); // false when any output failed

private:
  void line(int code, std::string_view text);
  void flush();

  Output output_;
  TextEncoder& encoder_;
  OdDb::DwgVersion version_;
  std::string pending_;
  std::string buffer_;
  bool failed_ = false;
};

} // namespace drawing::dxf
