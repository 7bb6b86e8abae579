// Printing on the host's command line.
#pragma once

#include "OdString.h"
#include "morvane/export.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace morvane {

// One argument of a format, with the type that the caller gave it.
class PrintArg {
public:
  template <class T, std::enable_if_t<std::is_arithmetic_v<T> || std::is_enum_v<T>, int> = 0>
  PrintArg(T value) {
    if constexpr (std::is_floating_point_v<T>)
      value_ = static_cast<double>(value);
    else if constexpr (std::is_enum_v<T>)
      value_ = static_cast<std::int64_t>(value);
    else if constexpr (std::is_unsigned_v<T>)
      value_ = static_cast<std::uint64_t>(value);
    else
      value_ = static_cast<std::int64_t>(value);
    bytes_ = sizeof(T);
  }
  PrintArg(const wchar_t* text) : value_(text) {}
  PrintArg(const OdString& text) : value_(text.c_str()) {}

  const std::variant<std::int64_t, std::uint64_t, double, const wchar_t*>& value() const { return value_; }
  std::size_t bytes() const { return bytes_; } // width of an integer, for directives that read it as unsigned

private:
  std::variant<std::int64_t, std::uint64_t, double, const wchar_t*> value_;
  std::size_t bytes_ = 0;
};

// %s %c %d %i %u %x %X %f %e %g and %%, with flags, width, precision and the length marks h l ll I64. A directive
// without an argument, or whose argument is of another type, comes out as it stands.
MORVANE_API OdString formatText(const wchar_t* format, const PrintArg* args, std::size_t count);

} // namespace morvane

namespace mvsi {

MORVANE_API int mvsiutPrintArgs(const wchar_t* format, const morvane::PrintArg* args, std::size_t count);

// Prints the formatted text. RTNORM; RTERROR for a null format or without a host.
inline int mvsiutPrintf(const wchar_t* format) {
  return mvsiutPrintArgs(format, nullptr, 0);
}
template <class... Args>
int mvsiutPrintf(const wchar_t* format, const Args&... args) {
  const morvane::PrintArg list[] = {morvane::PrintArg(args)...};
  return mvsiutPrintArgs(format, list, sizeof...(Args));
}

// Prints the text as it is.
MORVANE_API int mvsiedPrompt(const wchar_t* text);

} // namespace mvsi
