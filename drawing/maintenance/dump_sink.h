// Objects as text: a line for each group, references by whatever names are wanted.
#pragma once

#include "DbObject.h"
#include "drawing/detail/description.h"

#include <functional>
#include <string>

namespace drawing {

class DumpSink : public GroupSink {
public:
  using Naming = std::function<std::string(OdDbObjectId)>;
  // With `namesHandles` handles in extended data stand by name, too.
  DumpSink(std::string& out, const OdDbDatabase& database, Naming naming, bool namesHandles)
      : out_(out), database_(database), naming_(std::move(naming)), namesHandles_(namesHandles) {}

  void utf8(int code, std::string_view text) override { line(code, text); }
  void real(int code, double value) override;
  void integer(int code, std::int64_t value) override { line(code, std::to_string(value)); }
  void reference(int code, OdDbObjectId id) override { line(code, "-> " + nameOf(id)); }
  void handle(int code, OdDbHandle value) override;
  void binary(int code, std::string_view bytes) override;
  void unparsed(int code, std::string_view text) override { line(code, "unread " + std::string(text)); }

  std::string nameOf(OdDbObjectId id) const { return naming_(id); }

private:
  void line(int code, std::string_view text);

  std::string& out_;
  const OdDbDatabase& database_;
  Naming naming_;
  bool namesHandles_;
};

// Groups of applications, the extension dictionary, and reactors.
void dumpExtras(const OdDbObject& object, DumpSink& sink);
// All else that the object holds, its owner and name of the object itself excepted.
void dumpContents(const OdDbObject& object, DumpSink& sink);

} // namespace drawing
