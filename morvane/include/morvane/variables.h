// System variables: one store for all ways of reading them.
#pragma once

#include "OdString.h"
#include "morvane/export.h"
#include "morvane/resbuf.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <variant>

namespace morvane {

using VariablePoint2d = std::array<double, 2>;
using VariablePoint3d = std::array<double, 3>;
// Kinds of values; a variable keeps its kind.
using VariableValue = std::variant<std::int16_t, std::int32_t, double, OdString, VariablePoint2d, VariablePoint3d>;

// Conversion from and to a tagged value. No value for an unknown type code and a number that is not finite.
MORVANE_API std::optional<VariableValue> variableFromRecord(const mvsiresbuf& record);
MORVANE_API mvsiresbuf recordFromVariable(const VariableValue& value);

// Variables that are stored in the header of a drawing (INSUNITS, CLAYER ...). Names are passed in capitals.
class MORVANE_API DrawingVariables {
public:
  virtual ~DrawingVariables();
  // No value for a name that the drawing does not have.
  virtual std::optional<VariableValue> get(std::wstring_view name) const = 0;
  // RTNORM, or RTREJ for a value that the header does not accept. Called only for names that get() knows, with a value
  // of the same kind.
  virtual int set(std::wstring_view name, const VariableValue& value) = 0;
};

// Variables of the host and of the current drawing. A variable that the drawing has is that of the drawing; the value
// of the host is used if no drawing is open. Case of names does not matter.
class MORVANE_API VariableStore {
public:
  VariableStore(); // with the variables of the host

  // Function that returns the variables of the current drawing, called at every use; null if there is none.
  void setDrawing(std::function<DrawingVariables*()> drawing) { drawing_ = std::move(drawing); }

  std::optional<VariableValue> get(std::wstring_view name) const; // no value for an unknown name
  // Sets a variable: RTNORM; RTERROR if it is unknown; RTREJ if it is read-only or the value has another kind or is out
  // of range.
  int set(std::wstring_view name, const VariableValue& value);
  // Sets a variable of the host, also a read-only one, without checks; for the host itself.
  void setOwn(std::wstring_view name, VariableValue value);

private:
  struct Entry {
    VariableValue value;
    bool readOnly = false;
  };
  DrawingVariables* drawing() const { return drawing_ ? drawing_() : nullptr; }
  std::map<std::wstring, Entry, std::less<>> own_;
  std::function<DrawingVariables*()> drawing_;
};

} // namespace morvane

namespace mvsi {

// Read and set variables. RTNORM; RTERROR for an unknown name and without a host; RTREJ for a variable of another kind
// and, in setVar, for a read-only variable and a value out of range. With `quiet` false an unknown name is also
// reported to the user.
MORVANE_API int getVar(const wchar_t* name, short& value);
MORVANE_API int getVar(const wchar_t* name, OdString& value, bool quiet);
MORVANE_API int setVar(const wchar_t* name, const OdString& value, bool quiet);
MORVANE_API int setVar(const wchar_t* name, short value, bool quiet);

} // namespace mvsi
