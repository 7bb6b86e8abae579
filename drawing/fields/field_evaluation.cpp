// Computing fields that need no other program.
#include "DbBlockReference.h"
#include "DbCurves.h"
#include "DbDatabase.h"
#include "DbField.h"

#include "Ge/GeUtil.h"
#include "drawing/fields/field_code.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"

#include <cmath>
#include <ctime>
#include <set>
#include <variant>

using drawing::GroupList;

namespace drawing {
namespace {

constexpr int kOptions = 91, kStatus = 95, kErrorCode = 96, kMessage = 300, kKey = 7, kCachedText = 301,
              kCachedTextLength = 98;
const OdString kFieldValue = L"ACFD_FIELD_VALUE";

struct Computed {
  OdResult result = eOk;
  OdString text;
  std::optional<double> number;
};

Computed failed(OdResult reason) {
  return {reason, {}, {}};
}

Computed formatted(const std::optional<OdString>& text, std::optional<double> number = std::nullopt) {
  return text ? Computed{eOk, *text, number} : failed(eNotImplementedYet);
}

Computed formattedNumber(double value, const FieldCode& code, const OdDbDatabase& database) {
  const NumberDefaults defaults{static_cast<int>(database.headerInt("LUNITS", 2)),
                                static_cast<int>(database.headerInt("LUPREC", 4))};
  return formatted(formatNumber(value, code.format, defaults), value);
}

// -- Variables. --

// Days since 4713 BC, the time of day as the fraction.
FieldDate ofJulianDate(double julian) {
  const auto day = static_cast<std::int64_t>(std::floor(julian));
  const auto second = static_cast<std::int64_t>(std::llround((julian - static_cast<double>(day)) * 86400));
  const std::time_t seconds = (day - 2440588) * 86400 + second;
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

FieldDate now() {
  const std::time_t seconds = std::time(nullptr);
  std::tm parts{};
  localtime_r(&seconds, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

Computed headerDate(const OdDbDatabase& database, const char* variable, const FieldCode& code) {
  constexpr double kEarliest = 1721426, kLatest = 5373484; // the years 1 to 9999
  const double julian = database.headerReal(variable);
  if (!(julian >= kEarliest && julian < kLatest))
    return failed(eKeyNotFound);
  return formatted(formatDate(ofJulianDate(julian), code.format));
}

Computed headerVariable(const OdDbDatabase& database, const FieldCode& code) {
  OdString name = code.argument;
  const GroupList* groups = database.headerVar(name.makeUpper().toUtf8());
  if (groups == nullptr || groups->empty())
    return failed(eKeyNotFound);
  const Group& first = (*groups)[0];
  if (groups->size() > 1)
    return failed(eNotImplementedYet);
  if (first.kind == GroupKind::kText)
    return formatted(formatText(groups->stringOf(first), code.format));
  if (first.kind == GroupKind::kReal)
    return formattedNumber(first.real, code, database);
  if (groupKindOf(first.code) == first.kind && code.format.isEmpty() && first.kind != GroupKind::kUnparsed)
    return formatted(OdString(std::to_wstring(first.integer)), static_cast<double>(first.integer));
  return failed(eNotImplementedYet);
}

Computed variable(const OdDbField&, const FieldCode& code, const OdDbDatabase& database) {
  if (code.argument.iCompare(L"Filename") == 0)
    return formatted(formatFileName(OdString::fromUtf8(database.fileInfo().path), code.format));
  if (code.argument.iCompare(L"Date") == 0)
    return formatted(formatDate(now(), code.format));
  if (code.argument.iCompare(L"CreateDate") == 0)
    return headerDate(database, "TDCREATE", code);
  if (code.argument.iCompare(L"SaveDate") == 0)
    return headerDate(database, "TDUPDATE", code);
  return headerVariable(database, code);
}

// -- Properties of objects. --

using Property = std::variant<std::monostate, double, OdString>;

template <class T, class Get>
Property of(const OdDbObject& object, Get get) {
  const auto* known = dynamic_cast<const T*>(&object);
  return known == nullptr ? Property() : Property(get(*known));
}

double sweep(const OdDbArc& arc) {
  const double angle = std::fmod(arc.endAngle() - arc.startAngle(), 2 * kPi);
  return angle <= 0 ? angle + 2 * kPi : angle;
}

struct PropertyRow {
  const wchar_t* name;
  Property (*get)(const OdDbObject& object);
};

const PropertyRow kProperties[] = {
    {L"Length",
     [](const OdDbObject& o) {
       return of<OdDbLine>(o, [](const OdDbLine& line) { return (line.endPoint() - line.startPoint()).length(); });
     }},
    {L"ArcLength",
     [](const OdDbObject& o) { return of<OdDbArc>(o, [](const OdDbArc& arc) { return sweep(arc) * arc.radius(); }); }},
    {L"Radius",
     [](const OdDbObject& o) {
       return of<OdDbRoundCurve>(o, [](const OdDbRoundCurve& round) { return round.radius(); });
     }},
    {L"Diameter",
     [](const OdDbObject& o) {
       return of<OdDbCircle>(o, [](const OdDbCircle& circle) { return 2 * circle.radius(); });
     }},
    {L"Circumference",
     [](const OdDbObject& o) {
       return of<OdDbCircle>(o, [](const OdDbCircle& circle) { return 2 * kPi * circle.radius(); });
     }},
    {L"Area",
     [](const OdDbObject& o) {
       return of<OdDbCircle>(o, [](const OdDbCircle& circle) { return kPi * circle.radius() * circle.radius(); });
     }},
    {L"TextString",
     [](const OdDbObject& o) { return of<OdDbText>(o, [](const OdDbText& text) { return text.textString(); }); }},
    {L"Height",
     [](const OdDbObject& o) { return of<OdDbText>(o, [](const OdDbText& text) { return text.height(); }); }},
    {L"Layer",
     [](const OdDbObject& o) { return of<OdDbEntity>(o, [](const OdDbEntity& entity) { return entity.layer(); }); }},
    {L"Name",
     [](const OdDbObject& o) {
       return of<OdDbBlockReference>(
           o, [](const OdDbBlockReference& reference) { return symbolName(reference.blockTableRecord()); });
     }},
};

// "Object(%<\_ObjIdx 0>%).Length" of the field's own list of objects.
Computed objectProperty(const OdDbField& field, const FieldCode& code, const OdDbDatabase& database) {
  constexpr std::wstring_view kHead = L"Object(%<\\_ObjIdx ", kTail = L">%).";
  const std::wstring_view argument = code.argument.visible();
  const std::size_t tail = argument.find(kTail);
  if (argument.substr(0, kHead.size()) != kHead || tail == argument.npos || tail != kHead.size() + 1)
    return failed(eNotImplementedYet);
  const std::size_t number = static_cast<std::size_t>(argument[kHead.size()] - L'0');
  const auto* object = number < field.objectIds().size() ? lookup(field.objectIds()[number]) : nullptr;
  if (object == nullptr || object->isErased())
    return failed(eKeyNotFound);
  const OdString name(argument.substr(tail + kTail.size()));
  for (const PropertyRow& row : kProperties) {
    if (name.iCompare(row.name) != 0)
      continue;
    const Property value = row.get(*object);
    if (const auto* real = std::get_if<double>(&value))
      return formattedNumber(*real, code, database);
    if (const auto* text = std::get_if<OdString>(&value))
      return formatted(formatText(*text, code.format));
    return failed(eKeyNotFound);
  }
  return failed(eNotImplementedYet);
}

Computed expression(const OdDbField&, const FieldCode& code, const OdDbDatabase& database) {
  const std::optional<double> value = computeExpression(code.argument);
  return value ? formattedNumber(*value, code, database) : failed(eInvalidInput);
}

const struct {
  const wchar_t* name;
  Computed (*compute)(const OdDbField& field, const FieldCode& code, const OdDbDatabase& database);
} kEvaluators[] = {{L"AcVar", variable}, {L"AcObjProp", objectProperty}, {L"AcExpr", expression}};

} // namespace

// Computes a field and those inside it, innermost first.
class FieldEvaluation {
public:
  FieldEvaluation(int context, const OdDbDatabase& database) : context_(context), database_(database) {}

  OdResult run(OdDbField& field) {
    list(field);
    OdResult last = eOk;
    for (auto at = fields_.rbegin(); at != fields_.rend(); ++at) {
      const WriteScope scope(**at);
      last = compute(**at);
      evaluated_ += last == eOk ? 1 : 0;
    }
    return last;
  }
  int found() const { return static_cast<int>(fields_.size()); }
  int evaluated() const { return evaluated_; }

private:
  // Owners stand before what they own.
  void list(OdDbField& field) {
    std::set<const OdDbField*> seen{&field};
    fields_.push_back(&field);
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      for (const OdDbObjectId id : fields_[i]->children()) {
        auto* child = getIf<OdDbField>(id);
        if (child != nullptr && !child->isErased() && seen.insert(child).second)
          fields_.push_back(child);
      }
    }
  }

  OdResult compute(OdDbField& field) {
    if ((field.evaluationOptions() & context_) == 0)
      return eNotApplicable;
    const Computed computed = computeCode(field);
    if (computed.result == eOk)
      field.setValue(computed.text, computed.number ? &*computed.number : nullptr);
    return computed.result;
  }

  Computed computeCode(const OdDbField& field) {
    const std::optional<OdString> code = putFields(field.getFieldCode(), [&](int n) -> std::optional<OdString> {
      const auto at = static_cast<std::size_t>(n);
      const auto* child = at < field.children().size() ? getIf<OdDbField>(field.children()[at]) : nullptr;
      if (child == nullptr || child->isErased())
        return std::nullopt;
      return child->getValue();
    });
    if (!code)
      return failed(eInvalidInput);
    if (field.evaluatorId().iCompare(L"_text") == 0)
      return {eOk, *code, {}};
    const FieldCode parsed = parseFieldCode(*code);
    for (const auto& evaluator : kEvaluators) {
      if (parsed.evaluator.iCompare(evaluator.name) == 0)
        return evaluator.compute(field, parsed, database_);
    }
    return failed(eNotImplementedYet);
  }

  int context_;
  const OdDbDatabase& database_;
  std::vector<OdDbField*> fields_;
  int evaluated_ = 0;
};

} // namespace drawing

using namespace drawing;

OdDbFieldPtr OdDbField::getChild(int index, OdDb::OpenMode mode) const {
  if (index < 0 || index >= childCount())
    throw OdError_InvalidIndex();
  return children_[static_cast<std::size_t>(index)].safeOpenObject(mode);
}

int OdDbField::evaluationOptions() const {
  constexpr int kAlways = 63;
  const std::size_t at = rest_.find(kOptions);
  return at < std::min(rest_.find(kKey), rest_.size()) ? static_cast<int>(rest_[at].integer) : kAlways;
}

OdString OdDbField::getValue() const {
  const std::size_t at = rest_.find(kCachedText);
  return at < rest_.size() ? rest_.stringOf(rest_[at]) : OdString();
}

namespace {

// A text value, in pieces when it is long.
void addText(GroupList& groups, const OdString& text) {
  constexpr int kPiece = 250;
  int at = 0;
  for (; text.getLength() - at > kPiece; at += kPiece)
    groups.text(2, text.mid(at, kPiece));
  groups.text(1, text.mid(at));
}

} // namespace

// The groups before the value (options, filing, the values used by the code) are kept.
void OdDbField::setValue(const OdString& text, const double* number) {
  assertWriteEnabled();
  GroupList changed;
  const std::size_t value = rest_.find(kKey);
  if (value >= rest_.size()) {
    changed.integer(kOptions, evaluationOptions());
    for (const int code : {92, 94})
      changed.integer(code, 0);
    changed.integer(kStatus, 0);
    changed.integer(kErrorCode, 0);
    changed.utf8(kMessage, "");
    changed.integer(93, 0);
  } else {
    changed.append(rest_, 0, value);
  }
  constexpr int kSuccess = 2, kReal = 2, kText = 4;
  if (const std::size_t status = changed.find(kStatus); status < changed.size())
    changed.setInteger(status, kSuccess);
  changed.text(kKey, kFieldValue);
  changed.integer(93, 0);
  changed.integer(90, number != nullptr ? kReal : kText);
  if (number != nullptr)
    changed.real(140, *number);
  else
    addText(changed, text);
  changed.integer(94, 0);
  changed.text(kMessage, parseFieldCode(getFieldCode()).format);
  changed.text(302, number != nullptr ? text : OdString());
  changed.utf8(304, "ACVALUE_END");
  changed.text(kCachedText, text);
  changed.integer(kCachedTextLength, text.getLength());
  rest_ = std::move(changed);
}

OdResult OdDbField::evaluate(int context, OdDbDatabase* database, int* found, int* evaluated) {
  assertWriteEnabled();
  if (database == nullptr)
    return eNoDatabase;
  FieldEvaluation evaluation(context, *database);
  const OdResult result = evaluation.run(*this);
  if (found != nullptr)
    *found = evaluation.found();
  if (evaluated != nullptr)
    *evaluated = evaluation.evaluated();
  return result;
}
