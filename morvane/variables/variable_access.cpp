#include "morvane/host.h"
#include "morvane/messages/texts.h"

#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

mvsiresbuf recordOf(short type) {
  mvsiresbuf record;
  record.groupCode = type;
  return record;
}

struct ToRecord {
  mvsiresbuf operator()(std::int16_t value) const {
    mvsiresbuf record = recordOf(RTINT16);
    record.rint = value;
    return record;
  }
  mvsiresbuf operator()(std::int32_t value) const {
    mvsiresbuf record = recordOf(RTINT32);
    record.rlong = value;
    return record;
  }
  mvsiresbuf operator()(double value) const {
    mvsiresbuf record = recordOf(RTREAL);
    record.rreal = value;
    return record;
  }
  mvsiresbuf operator()(const OdString& value) const {
    mvsiresbuf record = recordOf(RTTEXT);
    record.rstring = value;
    return record;
  }
  mvsiresbuf operator()(const VariablePoint2d& value) const {
    mvsiresbuf record = recordOf(RTPOINT2D);
    std::copy(value.begin(), value.end(), record.rpoint);
    return record;
  }
  mvsiresbuf operator()(const VariablePoint3d& value) const {
    mvsiresbuf record = recordOf(RTPOINT3D);
    std::copy(value.begin(), value.end(), record.rpoint);
    return record;
  }
};

} // namespace

mvsiresbuf recordFromVariable(const VariableValue& value) {
  return std::visit(ToRecord{}, value);
}

std::optional<VariableValue> variableFromRecord(const mvsiresbuf& record) {
  const double* point = record.rpoint;
  switch (record.groupCode) {
  case RTINT16:
    return record.rint;
  case RTINT32:
    return static_cast<std::int32_t>(record.rlong);
  case RTREAL:
    return record.rreal;
  case RTTEXT:
    return record.rstring;
  case RTPOINT2D:
    return VariablePoint2d{point[0], point[1]};
  case RTPOINT3D:
    return VariablePoint3d{point[0], point[1], point[2]};
  default:
    return std::nullopt;
  }
}

} // namespace morvane

namespace mvsi {
namespace {

template <class T>
int readAs(const char* operation, const wchar_t* name, T& value, bool quiet) {
  morvane::Host* host = morvane::admitCall(operation);
  if (host == nullptr || name == nullptr)
    return RTERROR;
  const auto stored = host->variables().get(name);
  if (!stored) {
    if (!quiet)
      mvsiutPrintf(morvane::texts::kUnknownVariable, name);
    return RTERROR;
  }
  const T* typed = std::get_if<T>(&*stored);
  if (typed == nullptr)
    return RTREJ;
  value = *typed;
  return RTNORM;
}

int write(const wchar_t* name, const morvane::VariableValue& value, bool quiet) {
  morvane::Host* host = morvane::admitCall("setVar");
  if (host == nullptr || name == nullptr)
    return RTERROR;
  const int code = host->variables().set(name, value);
  if (code == RTERROR && !quiet)
    mvsiutPrintf(morvane::texts::kUnknownVariable, name);
  return code;
}

} // namespace

int getVar(const wchar_t* name, short& value) {
  return readAs("getVar", name, value, true);
}

int getVar(const wchar_t* name, OdString& value, bool quiet) {
  return readAs("getVar", name, value, quiet);
}

int setVar(const wchar_t* name, const OdString& value, bool quiet) {
  return write(name, value, quiet);
}

int setVar(const wchar_t* name, short value, bool quiet) {
  return write(name, value, quiet);
}

} // namespace mvsi
