// The language of field codes: "\Evaluator argument \f "format"", with fields and objects inside named by number.
#pragma once

#include "OdString.h"

#include <functional>
#include <optional>

namespace drawing {

struct FieldCode {
  OdString evaluator; // without backslash and version
  OdString argument;
  OdString format; // between the quotes behind \f; empty when there is none
};
FieldCode parseFieldCode(const OdString& code);

// Puts texts in the place of "%<\_FldIdx N>%"; nullopt when one of them has none.
std::optional<OdString> putFields(const OdString& code, const std::function<std::optional<OdString>(int)>& textOf);

// Numbers, + - * / ^ and parentheses.
std::optional<double> computeExpression(const OdString& expression);

// Formats of numbers (%lu2%pr3 ...), cases of texts (%tc1), parts of file names (%fn6) and dates (M/d/yyyy). Nullopt
// for a format that is not understood.
struct NumberDefaults {
  int unitMode = 2;
  int precision = 4;
};
std::optional<OdString> formatNumber(double value, const OdString& format, const NumberDefaults& defaults);
std::optional<OdString> formatText(const OdString& text, const OdString& format);
std::optional<OdString> formatFileName(const OdString& path, const OdString& format);

struct FieldDate {
  int year, month, day, hour, minute, second;
};
std::optional<OdString> formatDate(const FieldDate& date, const OdString& format);

} // namespace drawing
