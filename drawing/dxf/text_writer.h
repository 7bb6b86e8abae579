// Writes groups as text.
#pragma once

#include "DbGroups.h"
#include "dxf/text_codec.h"

#include <functional>
#include <string>

namespace drawing::dxf {

// Numbers are the shortest texts that read back as the same number; a real always shows that it is one.
class TextWriter final : public GroupSink {
public:
  using Output = std::function<bool(std::string_view)>; // false: the output failed

  TextWriter(Output output, TextCodec& codec, OdDb::DwgVersion version, bool keepsNewer)
      : output_(std::move(output)), codec_(codec), version_(version), keepsNewer_(keepsNewer) {}

  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unread(int code, std::string_view text) override;
  OdDb::DwgVersion version() const override { return version_; }
  bool keepsNewer() const override { return keepsNewer_; }

  bool finish(); // false when any output failed

private:
  void line(int code, std::string_view text);
  void flush();

  Output output_;
  TextCodec& codec_;
  OdDb::DwgVersion version_;
  bool keepsNewer_;
  std::string pending_;
  std::string buffer_;
  bool failed_ = false;
};

} // namespace drawing::dxf
