#include "drawing/io/version_filter.h"

#include "DbModelerGeometry.h"
#include "drawing/file.h"
#include "drawing/model/object_store.h"

#include <utility>

namespace drawing::dxf {

namespace {

constexpr int kGraphicsSize = 160, kGraphicsSizeBefore2010 = 92;

// Since 2013 the bodies of solids stand in a section of their own, in a form that earlier versions do not read.
bool hasBodyElsewhere(const OdDbObject& object) {
  const auto* solid = OdDbModelerGeometry::cast(&object).get();
  return solid != nullptr && !solid->hasTextBody() && solid->groups().find(290) < solid->groups().size();
}

} // namespace

OmittedObjects::OmittedObjects(const OdDbDatabase& database, OdDb::DwgVersion version) {
  if (version >= OdDb::kRelease2013 || database.fileInfo().version < OdDb::kRelease2013)
    return;
  for (OdDbObjectId id : database.allIds()) {
    const OdDbObject* object = lookup(id);
    if (isAlive(object) && hasBodyElsewhere(*object)) {
      ids_.insert(id);
      first_.push_back(id);
    }
  }
  if (!ids_.empty())
    addOwned(database);
}

// Owners may stand behind what they own: each chain of owners is walked until it is known where it leads.
void OmittedObjects::addOwned(const OdDbDatabase& database) {
  std::unordered_set<OdDbObjectId> kept;
  std::vector<OdDbObjectId> chain;
  for (OdDbObjectId id : database.allIds()) {
    chain.clear();
    OdDbObjectId at = id;
    std::unordered_set<OdDbObjectId> seen; // files may hold owners in a circle
    while (lookup(at) != nullptr && !has(at) && kept.count(at) == 0 && seen.insert(at).second) {
      chain.push_back(at);
      at = lookup(at)->ownerId();
    }
    auto& where = has(at) ? ids_ : kept;
    where.insert(chain.begin(), chain.end());
  }
}

void OmittedObjects::reportTo(GroupSink& sink) const {
  for (OdDbObjectId id : first_)
    sink.lost(
        {.code = "dxf.kind-not-in-version",
         .severity = Severity::kLost,
         .handle = std::uint64_t{id.getHandle()},
         .kind = lookup(id)->dxfName(),
         .found = std::string("the format of its body is not supported in version ") + versionYear(sink.version()),
         .done = "the object is omitted"});
}

bool VersionFilter::admitColumns(int code, double value) {
  const bool begins = code == 101 && state_.kind == "MTEXT" && version() < OdDb::kRelease2018;
  state_.inColumns = (state_.inColumns || begins) && code < 1000;
  if (state_.inColumns && code == 71 && value > 0)
    to_.lost({.code = "dxf.group-not-in-version",
              .severity = Severity::kLost,
              .groupCode = code,
              .found = std::string("version ") + versionYear(version()) + " cannot store text columns",
              .done = "its text is written in one column"});
  return !state_.inColumns;
}

bool VersionFilter::admit(int code, double value) {
  if (!admitColumns(code, value))
    return false;
  state_.inData = state_.inData || code >= 1000 || code == 101;
  return state_.inData || admitSubclassGroup(code, value);
}

bool VersionFilter::admitSubclassGroup(int code, double value) {
  const GroupRule* rule = missingGroup(state_.kind, state_.marker, code, version());
  // The colours of a gradient stand under codes that mean something else in front of it.
  const bool ofGradient = state_.afterGradient && (code == 63 || code == 421);
  state_.afterGradient = state_.afterGradient || (rule != nullptr && code == 450);
  // So does the colour of the fill behind the texts of a dimension style.
  const bool ofFill = std::exchange(state_.afterFill, rule != nullptr && code == 69) && code == 70;
  if (rule == nullptr)
    return !ofGradient && !ofFill;
  if (!rule->isNeutral(value))
    reportOmittedGroup(*rule, code);
  return false;
}

void VersionFilter::reportOmittedGroup(const GroupRule& rule, int code) {
  to_.lost({.code = "dxf.group-not-in-version",
            .severity = Severity::kLost,
            .groupCode = code,
            .found = std::string("version ") + versionYear(version()) + " cannot store " + rule.what,
            .done = "it is omitted"});
}

void VersionFilter::omitted(int code, std::string_view marker, double value) {
  const GroupRule* rule = missingGroup(state_.kind, marker, code, version());
  if (rule == nullptr)
    to_.omitted(code, marker, value);
  else if (!rule->isNeutral(value))
    reportOmittedGroup(*rule, code);
}

void VersionFilter::utf8(int code, std::string_view text) {
  if (code == 0) {
    state_ = {};
    state_.kind = text;
  } else if (code == 100 && !state_.inData) {
    state_.marker = text;
    state_.afterGradient = false;
  }
  if (admit(code))
    to_.utf8(code, text);
}

void VersionFilter::integer(int code, std::int64_t value) {
  const bool isGraphics =
      state_.marker == "AcDbEntity" && !state_.inData && (code == kGraphicsSize || code == kGraphicsSizeBefore2010);
  if (isGraphics)
    to_.integer(version() < OdDb::kRelease2010 ? kGraphicsSizeBefore2010 : kGraphicsSize, value);
  else if (admit(code, static_cast<double>(value)))
    to_.integer(code, value);
}

void VersionFilter::reference(int code, OdDbObjectId id) {
  if (admit(code, id.isNull() ? 0 : kNoNumber))
    to_.reference(code, omitted_.has(id) ? OdDbObjectId() : id);
}

} // namespace drawing::dxf
