#include "blockcommon/reference_graph.h"

#include "DbDatabase.h"
#include "blockcommon/refgraph/reference_graph_definition.h"
#include "morvane/system_services.h"

namespace RefUtils {
namespace {

// The definition that is shown.
OdDbBlockTableRecordPtr referencedDefinition(const OdDbBlockReference& reference) {
  OdDbObjectPtr definition;
  if (const OdResult reason = reference.blockTableRecord().openObject(definition); reason != eOk)
    throw OdError(reason);
  return definition;
}

bool isXEditOn(const OdDbDatabase& database) {
  return database.headerInt("XEDIT", 1) != 0;
}

bool referencesDefinitions(const OdDbObject& object) {
  return object.isA() == OdDbBlockReference::desc() || object.isA() == OdDbMInsertBlock::desc();
}

} // namespace

bool checkXEdit(OdDbObjectIdArray& refIds, OdString& xrefPath) {
  for (const OdDbObjectId& id : refIds) {
    const OdDbBlockReferencePtr reference = id.safeOpenObject();
    if (reference.isNull())
      return true;
    const OdDbBlockTableRecordPtr definition = referencedDefinition(*reference);
    if (!definition->isFromExternalReference())
      continue;
    const OdDbDatabase* external = definition->xrefDatabase(false);
    if (external == nullptr || isXEditOn(*external))
      return true;
    xrefPath = definition->pathName();
    return false;
  }
  return true;
}

bool isXrefBlk(OdDbObjectId refId, OdString& foundPath) {
  const OdDbObjectPtr object = refId.safeOpenObject();
  if (object.isNull() || !referencesDefinitions(*object))
    return false;
  const OdDbBlockTableRecordPtr definition = definitionOf(*OdDbBlockReferencePtr(object));
  if (definition.isNull() || !definition->isFromExternalReference())
    return false;
  foundPath = mvdbSystemServices().findFile(definition->pathName());
  return true;
}

bool checkXrefS(CRefGraphNode* node, OdString& foundPath) {
  OdArray<CRefGraphNode*> waiting{node};
  while (!waiting.isEmpty()) {
    const CRefGraphNode* at = waiting.last();
    waiting.removeLast();
    if (at == nullptr)
      continue;
    if (isXrefBlk(at->refId, foundPath))
      return true;
    for (OdArray<CRefGraphNode*>::size_type child = at->children.size(); child-- > 0;)
      waiting.append(at->children[child]);
  }
  return false;
}

bool hasAttdef(OdDbObjectId refId) {
  const OdDbBlockReferencePtr reference = refId.safeOpenObject();
  if (reference.isNull())
    return false;
  const OdDbBlockTableRecordPtr definition = definitionOf(*reference);
  return !definition.isNull() && definition->hasAttributeDefinitions();
}

} // namespace RefUtils
