// Printing on the command line of the host.
#pragma once

#include "OdString.h"
#include "morvane/export.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace morvane {

// An argument of a format with its type.
class PrintArg {
public:
  // From a number or an enumerator, or from a text, which must outlive the argument (null is empty).
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

  // The value, and the width of a number in bytes, for directives that read it as unsigned; 0 for texts.
  const std::variant<std::int64_t, std::uint64_t, double, const wchar_t*>& value() const { return value_; }
  std::size_t bytes() const { return bytes_; }

private:
  std::variant<std::int64_t, std::uint64_t, double, const wchar_t*> value_;
  std::size_t bytes_ = 0;
};

// Formats text: %s %c %d %i %u %x %X %f %e %g and %%, with flags, width, precision and the sizes h l ll I64. A
// directive without an argument, or whose argument has another type, is copied unchanged.
MORVANE_API OdString formatText(const wchar_t* format, const PrintArg* args, std::size_t count);

} // namespace morvane

namespace mvsi {

// Prints formatted text (see morvane::formatText). RTNORM; RTERROR for a null format and without a host. Text with
// user data must not be the format.
MORVANE_API int mvsiutPrintArgs(const wchar_t* format, const morvane::PrintArg* args, std::size_t count);
inline int mvsiutPrintf(const wchar_t* format) {
  return mvsiutPrintArgs(format, nullptr, 0);
}
// The same with arguments.
template <class... Args>
int mvsiutPrintf(const wchar_t* format, const Args&... args) {
  const morvane::PrintArg list[] = {morvane::PrintArg(args)...};
  return mvsiutPrintArgs(format, list, sizeof...(Args));
}

// Prints the text unchanged. RTNORM; RTERROR for null and without a host.
MORVANE_API int mvsiedPrompt(const wchar_t* text);

} // namespace mvsi
