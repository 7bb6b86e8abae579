// System variables: one store behind every way of reading them.
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
// The kinds in which a variable travels; a variable keeps its kind.
using VariableValue = std::variant<std::int16_t, std::int32_t, double, OdString, VariablePoint2d, VariablePoint3d>;

// Nothing for a record of an unknown type code or a number that is not finite.
MORVANE_API std::optional<VariableValue> variableFromRecord(const mvsiresbuf& record);
MORVANE_API mvsiresbuf recordFromVariable(const VariableValue& value);

// The variables that live in a drawing's header (INSUNITS, CLAYER ...). Names come in capitals.
class MORVANE_API DrawingVariables {
public:
  virtual ~DrawingVariables();
  // Nothing for a name that this drawing does not hold.
  virtual std::optional<VariableValue> get(std::wstring_view name) const = 0;
  // RTNORM, or RTREJ for a value that the header refuses. Called only for names that get() answers, with a value of the
  // same kind.
  virtual int set(std::wstring_view name, const VariableValue& value) = 0;
};

// Variables of the host, and through it those of the current drawing. A name that the drawing holds is the drawing's;
// the host's value of that name serves while no drawing is open. Names are compared without regard to case.
class MORVANE_API VariableStore {
public:
  VariableStore();

  // Asks for the current drawing's variables at every use; null when there is none.
  void setDrawing(std::function<DrawingVariables*()> drawing) { drawing_ = std::move(drawing); }

  std::optional<VariableValue> get(std::wstring_view name) const; // nothing for an unknown name
  // RTERROR unknown, RTREJ read-only, of another kind or out of range, RTNORM set.
  int set(std::wstring_view name, const VariableValue& value);
  // For the host's own parts: also writes what is read-only to others.
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

// RTNORM, RTERROR for an unknown name or without a host, RTREJ for a variable of another kind or, in setVar, one that
// is read-only or a value out of range. `quiet` false also tells the user about an unknown name.
MORVANE_API int getVar(const wchar_t* name, short& value);
MORVANE_API int getVar(const wchar_t* name, OdString& value, bool quiet);
MORVANE_API int setVar(const wchar_t* name, const OdString& value, bool quiet);
MORVANE_API int setVar(const wchar_t* name, short value, bool quiet);

} // namespace mvsi
