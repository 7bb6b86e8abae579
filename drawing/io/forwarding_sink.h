// A sink that hands on what it gets; base of those that change some of it.
#pragma once

#include "drawing/detail/groups.h"

namespace drawing::dxf {

class ForwardingSink : public GroupSink {
public:
  explicit ForwardingSink(GroupSink& to) : to_(to) {}
  void utf8(int code, std::string_view text) override { to_.utf8(code, text); }
  void real(int code, double value) override { to_.real(code, value); }
  void integer(int code, std::int64_t value) override { to_.integer(code, value); }
  void reference(int code, OdDbObjectId id) override { to_.reference(code, id); }
  void handle(int code, OdDbHandle value) override { to_.handle(code, value); }
  void binary(int code, std::string_view bytes) override { to_.binary(code, bytes); }
  void unparsed(int code, std::string_view text) override { to_.unparsed(code, text); }
  OdDb::DwgVersion version() const override { return to_.version(); }
  bool keepsNewer() const override { return to_.keepsNewer(); }
  void lost(Issue issue) override { to_.lost(std::move(issue)); }
  void omitted(int code, std::string_view marker, double value) override { to_.omitted(code, marker, value); }

protected:
  GroupSink& to_;
};

} // namespace drawing::dxf
