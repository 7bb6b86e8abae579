#include "console/blocks/external_references.h"
#include "console/commands/commands.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/insert.h"
#include "console/messages/catalog/objects.h"
#include "console/messages/catalog/xrefs.h"
#include "console/prompts/prompt.h"

namespace console::commands {
namespace {

void listReferences(Session& session) {
  const auto xrefs = allXrefs(session);
  for (const OdDbBlockTableRecordPtr& xref : xrefs)
    session.result(msg::kXrefLine, {xref->getName(), xref->pathName(), xrefState(xref->xrefStatus())});
  if (xrefs.empty())
    session.print(msg::kNoXrefs);
}

void attach(CommandContext& context, bool overlay) {
  Session& session = context.session;
  const auto path = promptText(session, msg::kPromptFileName);
  if (!path)
    refuse(msg::kNoFileName);
  AttachRequest request;
  request.file = externalFile(session, path->toUtf8Lossless());
  request.overlay = overlay;
  const OdString name = defaultXrefName(request.file);
  request.name = promptText(session, msg::kPromptXrefNameOr, {name}).value_or(name);
  request.pointUcs = promptRequiredPoint(session, msg::kPromptXrefPoint);
  request.scale = promptNumber(session, msg::kPromptScale).value_or(1);
  if (request.scale == 0)
    refuse(msg::kScaleZero);
  request.rotationRad = promptAngle(session, msg::kPromptAngle).value_or(0);
  attachXref(context, request);
}

std::vector<OdDbBlockTableRecordPtr> promptXrefs(Session& session) {
  return xrefsNamed(session, promptText(session, msg::kPromptXrefName, {}, true).value_or(OdString()));
}

} // namespace

void xref(CommandContext& context) {
  Session& session = context.session;
  const OdString option = promptKeyword(session, msg::kKeywordsXref, msg::kPromptXref).value_or(L"?");
  if (option == L"?")
    return listReferences(session);
  if (option == L"Attach" || option == L"Overlay")
    return attach(context, option == L"Overlay");
  const auto xrefs = promptXrefs(session);
  if (option == L"Reload")
    return reloadXrefs(session, xrefs);
  for (const OdDbBlockTableRecordPtr& xref : xrefs)
    option == L"Bind" ? bindXref(session, xref) : detachXref(session, xref);
}

} // namespace console::commands
