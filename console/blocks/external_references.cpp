#include "console/blocks/external_references.h"
#include "console/blocks/make_block.h"
#include "console/blocks/reference_placement.h"
#include "console/drawings/drawing_io.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/xrefs.h"
#include "console/messages/number_text.h"

#include "DbBlockReference.h"
#include "drawing/xref_bind.h"
#include "morvane/system_services.h"

#include <algorithm>
#include <filesystem>

namespace console {
namespace {

namespace fs = std::filesystem;
using drawing::XrefStatus;

bool isSameFile(const fs::path& one, const fs::path& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) && !error;
}

// Relative to the folder of the drawing, so that both may move together.
OdString pathToStore(Session& session, const std::string& file) {
  const std::string& own = session.drawing().path;
  const fs::path full = fs::absolute(file).lexically_normal();
  const morvane::PathMap& paths = session.host().paths();
  if (own.empty())
    return paths.toDrawing(full.string());
  const fs::path folder = fs::absolute(own).parent_path().lexically_normal();
  return paths.toDrawing(full.lexically_proximate(folder).string());
}

std::string fileOf(Session& session, const OdDbBlockTableRecord& xref) {
  const OdString found = mvdbSystemServices().findFile(xref.pathName(), &session.database());
  return found.isEmpty() ? std::string() : session.host().paths().toSystem(found);
}

void loadAgain(Session& session) {
  session.host().documents().loadXrefs(*session.drawing().document);
  reportXrefs(session);
}

// What the drawing takes over of its external drawing: where references hold it, and its units.
void follow(OdDbBlockTableRecord& xref) {
  const OdDbDatabase* external = xref.xrefDatabase();
  if (external == nullptr)
    return;
  xref.setOrigin(external->getINSBASE());
  xref.setBlockInsertUnits(external->getINSUNITS());
}

void refuseUnlessLoaded(const OdDbBlockTableRecord& xref, const std::string& file) {
  const OdString path = OdString::fromUtf8(file);
  if (xref.xrefStatus() != XrefStatus::kLoaded)
    throw Failure{Status::kUnreadable, {msg::kXrefUnreadable, {path, xrefState(xref.xrefStatus())}}};
}

OdDbBlockTableRecordPtr makeXref(Session& session, const AttachRequest& request) {
  checkBlockName(session, request.name);
  const OdDbBlockTablePtr table = session.database().getBlockTableId().safeOpenObject(OdDb::kForWrite);
  const OdDbBlockTableRecordPtr xref = OdDbBlockTableRecord::createObject();
  xref->setName(request.name);
  if (table->add(xref.get()).isNull())
    refuse(msg::kXrefNameTaken, {request.name});
  xref->setXref(pathToStore(session, request.file), request.overlay);
  loadAgain(session);
  refuseUnlessLoaded(*xref, request.file);
  follow(*xref);
  return xref;
}

OdDbBlockTableRecordPtr xrefFor(Session& session, const AttachRequest& request) {
  auto present = OdDbBlockTableRecord::cast(definitionOf(session, request.name).safeOpenObject());
  if (present.isNull())
    return makeXref(session, request);
  if (!present->isFromExternalReference() || !isSameFile(fileOf(session, *present), request.file))
    refuse(msg::kXrefNameTaken, {request.name});
  return present;
}

} // namespace

std::string externalFile(Session& session, const std::string& entered) {
  std::error_code error;
  std::string file = entered;
  if (!fs::is_regular_file(entered, error)) {
    const morvane::PathMap& paths = session.host().paths();
    const OdString found = mvdbSystemServices().findFile(paths.toDrawing(entered), &session.database());
    if (found.isEmpty())
      refuse(msg::kXrefNoFile, {OdString::fromUtf8(entered)});
    file = paths.toSystem(found);
  }
  if (!session.drawing().path.empty() && isSameFile(file, session.drawing().path))
    refuse(msg::kXrefItself, {OdString::fromUtf8(file)});
  return file;
}

OdString defaultXrefName(const std::string& path) {
  return OdString::fromUtf8(fs::path(path).stem().string());
}

std::vector<OdDbBlockTableRecordPtr> allXrefs(Session& session) {
  std::vector<OdDbBlockTableRecordPtr> xrefs;
  const OdDbBlockTablePtr table = session.database().getBlockTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    if (const OdDbBlockTableRecordPtr block = iterator->getRecord(); block->isFromExternalReference())
      xrefs.push_back(block);
  }
  return xrefs;
}

std::vector<OdDbBlockTableRecordPtr> xrefsNamed(Session& session, const OdString& name) {
  std::vector<OdDbBlockTableRecordPtr> xrefs;
  for (const OdDbBlockTableRecordPtr& xref : allXrefs(session)) {
    if (name == L"*" || xref->getName().iCompare(name) == 0)
      xrefs.push_back(xref);
  }
  if (xrefs.empty())
    refuse(msg::kNoSuchXref, {name});
  return xrefs;
}

OdString xrefState(XrefStatus wanted) {
  constexpr std::pair<XrefStatus, MessageText> kStates[] = {
      {XrefStatus::kLoaded, msg::kXrefLoaded},       {XrefStatus::kUnloaded, msg::kXrefUnloaded},
      {XrefStatus::kNotFound, msg::kXrefNotFound},   {XrefStatus::kRefused, msg::kXrefRefused},
      {XrefStatus::kCycle, msg::kXrefInCycle},       {XrefStatus::kNotFollowed, msg::kXrefNotFollowed},
      {XrefStatus::kNotLoaded, msg::kXrefNotLoaded},
  };
  for (const auto& [status, text] : kStates) {
    if (status == wanted)
      return render(text);
  }
  return {};
}

void attachXref(CommandContext& context, const AttachRequest& request) {
  Session& session = context.session;
  const OdDbBlockTableRecordPtr xref = xrefFor(session, request);
  const double units = unitsFactor(xref->objectId());
  const double scale = units * request.scale;
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setDatabaseDefaults(&context.database);
  reference->setBlockTableRecord(xref->objectId());
  reference->setPosition(request.pointUcs);
  reference->setScaleFactors({scale, scale, scale});
  reference->setRotation(request.rotationRad);
  addToDrawing(context, *reference);
  session.result(msg::kXrefAttached, {xref->getName(), xref->pathName(), realText(units)});
}

void detachXref(Session& session, const OdDbBlockTableRecordPtr& xref) {
  const OdString name = xref->getName();
  const drawing::DetachedXref detached = drawing::detachXref(session.database(), xref->objectId());
  if (detached.result != eOk)
    throw OdError(detached.result);
  session.result(msg::kXrefDetached, {name, count(detached.references)});
}

void loadNewXrefs(Session& session) {
  const auto xrefs = allXrefs(session);
  const bool isNew = std::any_of(xrefs.begin(), xrefs.end(), [](const OdDbBlockTableRecordPtr& xref) {
    return xref->xrefStatus() == XrefStatus::kNotLoaded;
  });
  if (isNew)
    loadAgain(session);
}

void reloadXrefs(Session& session, const std::vector<OdDbBlockTableRecordPtr>& xrefs) {
  for (const OdDbBlockTableRecordPtr& xref : xrefs) {
    xref->upgradeOpen();
    if (xref->isUnloaded())
      xref->setIsUnloaded(false);
  }
  loadAgain(session);
  for (const OdDbBlockTableRecordPtr& xref : xrefs) {
    follow(*xref);
    session.result(msg::kXrefLine, {xref->getName(), xref->pathName(), xrefState(xref->xrefStatus())});
    if (xref->xrefStatus() != XrefStatus::kLoaded)
      session.raiseStatus(Status::kRefused);
  }
}

void bindXref(Session& session, const OdDbBlockTableRecordPtr& xref) {
  const OdString name = xref->getName();
  const drawing::BoundXref bound = drawing::bindXref(session.database(), xref->objectId());
  if (!bound.isDone)
    refuse(msg::kXrefCannotBind, {name, bound.obstacle, xrefState(bound.status)});
  for (const OdString& overlay : bound.omittedOverlays)
    session.print(msg::kXrefSkipped, {name, overlay});
  session.result(msg::kXrefBound, {name});
}

} // namespace console
