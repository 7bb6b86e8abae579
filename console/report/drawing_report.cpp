#include "console/report/drawing_report.h"
#include "console/report/block_counts.h"

#include "DbAnnotativeObjectPE.h"
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDynBlockReference.h"
#include "DbLayout.h"
#include "DbSymbolRecords.h"
#include "drawing/file.h"

#include <algorithm>
#include <unordered_map>

namespace console::report {
namespace {

OdString nameOf(OdDbObjectId id) {
  const OdDbSymbolTableRecordPtr record = OdDbSymbolTableRecord::cast(id.safeOpenObject());
  return record.isNull() ? OdString() : record->getName();
}

Header headerOf(const OdDbDatabase& database) {
  Header header;
  header.acadver = drawing::versionSignature(database.fileInfo().version);
  const auto text = [&](const char* name, std::optional<OdString>& value) {
    if (database.hasHeaderVar(name))
      value = database.headerText(name);
  };
  const auto number = [&](const char* name, std::optional<int>& value) {
    if (database.hasHeaderVar(name))
      value = static_cast<int>(database.headerInt(name));
  };
  text("DWGCODEPAGE", header.codepage);
  text("CLAYER", header.clayer);
  number("INSUNITS", header.insunits);
  number("MEASUREMENT", header.measurement);
  if (database.hasHeaderVar("INSBASE"))
    header.insbase = database.headerPoint("INSBASE");
  return header;
}

template <class Record, class Use>
void forRecords(OdDbObjectId tableId, const Use& use) {
  const OdDbSymbolTablePtr table = tableId.safeOpenObject();
  for (auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdSmartPtr<Record> record = Record::cast(iterator->getRecord());
    if (!record.isNull())
      use(*record);
  }
}

std::vector<Layer> layersOf(const OdDbDatabase& database) {
  std::vector<Layer> layers;
  forRecords<OdDbLayerTableRecord>(database.getLayerTableId(), [&](const OdDbLayerTableRecord& record) {
    layers.push_back({record.getName(), nameOf(record.linetypeObjectId()), record.isLocked(), record.isFrozen(),
                      record.isOff(), record.color().index});
  });
  return layers;
}

bool isAnnotative(OdDbBlockTableRecord& record) {
  const OdDbAnnotativeObjectPEPtr extension(queryAs<OdDbAnnotativeObjectPE>(&record), kTakeReference);
  return !extension.isNull() && extension->annotative(&record);
}

std::optional<Xref> xrefOf(const OdDbBlockTableRecord& record) {
  if (!record.isFromExternalReference())
    return std::nullopt;
  return Xref{record.isFromOverlayReference(), record.isResolved(), record.isUnloaded(), record.xrefStatus(),
              record.pathName()};
}

Block blockOf(OdDbBlockTableRecord& record) {
  Block block;
  block.id = record.objectId();
  block.name = record.getName();
  block.trueName = OdDbDynBlockTableRecord(block.id).trueName();
  block.isAnonymous = record.isAnonymous();
  block.isSpace = !record.isAnonymous() && record.getName().left(1) == L"*";
  block.isDependent = record.isDependent();
  const OdSmartPtr<OdDbLayout> layout = OdDbLayout::cast(record.getLayoutId().safeOpenObject());
  if (!layout.isNull()) {
    block.isSpace = true;
    block.layout = layout->getLayoutName();
  }
  block.xref = xrefOf(record);
  block.base = record.origin();
  block.description = record.comments();
  block.isAnnotative = isAnnotative(record);
  const bool isOld = record.database()->fileInfo().version < OdDb::kRelease2007; // files had no place for these
  if (!isOld) {
    block.isExplodable = record.explodable();
    block.isUniform = record.blockScaling() == OdDbBlockTableRecord::kUniform;
  }
  if (!isOld || record.blockInsertUnits() != OdDb::kUnitsUndefined)
    block.units = record.blockInsertUnits();
  return block;
}

AttributeDefinition definitionOf(const OdDbAttributeDefinition& definition) {
  return {definition.tag(),         definition.prompt(),
          definition.textString(),  definition.isConstant(),
          definition.isPreset(),    definition.isVerifiable(),
          definition.isInvisible(), definition.isMTextAttributeDefinition()};
}

// Rows times columns. A file may say none, and means one.
std::uint64_t instancesOf(const OdDbBlockReference& reference) {
  const auto* array = dynamic_cast<const OdDbMInsertBlock*>(&reference);
  const auto atLeastOne = [](std::int16_t count) { return static_cast<std::uint64_t>(std::max<int>(count, 1)); };
  return array == nullptr ? 1 : atLeastOne(array->rows()) * atLeastOne(array->columns());
}

// The builder's view of all blocks while their contents are walked.
struct Contents {
  std::vector<Block> blocks;
  std::unordered_map<OdDbObjectId, std::size_t> indices;
  std::vector<Edge> edges;
};

// What draws a block without being a reference (a table, a dimension) is not counted.
bool isReference(const OdDbEntity& entity) {
  return entity.isA() == OdDbBlockReference::desc() || entity.isA() == OdDbMInsertBlock::desc();
}

void lookInside(Contents& contents, std::size_t at) {
  const OdDbBlockTableRecordPtr record = contents.blocks[at].id.safeOpenObject();
  for (auto iterator = record->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbEntityPtr entity = iterator->entity();
    if (entity.isNull())
      continue;
    ++contents.blocks[at].entities[entity->dxfName()];
    if (const auto* definition = dynamic_cast<const OdDbAttributeDefinition*>(entity.get()); definition != nullptr)
      contents.blocks[at].attributes.push_back(definitionOf(*definition));
    if (!isReference(*entity))
      continue;
    const auto& reference = static_cast<const OdDbBlockReference&>(*entity);
    if (const auto target = contents.indices.find(reference.blockTableRecord()); target != contents.indices.end())
      contents.edges.push_back({at, target->second, instancesOf(reference)});
  }
}

// Adds the references of shapes to those of their definitions.
void addDynamicInstances(Contents& contents) {
  for (Block& block : contents.blocks) {
    if (OdDbDynBlockTableRecord(block.id).isDynamicBlock())
      block.withDynamicInstances = block.references;
  }
  for (const Block& block : contents.blocks) {
    const OdDbObjectId definition = OdDbDynBlockTableRecord(block.id).dynamicBlockTableRecord();
    const auto found = contents.indices.find(definition);
    if (found != contents.indices.end() && definition != block.id &&
        contents.blocks[found->second].withDynamicInstances)
      *contents.blocks[found->second].withDynamicInstances += block.references;
  }
}

std::vector<Block> blocksOf(const OdDbDatabase& database) {
  Contents contents;
  forRecords<OdDbBlockTableRecord>(database.getBlockTableId(), [&](OdDbBlockTableRecord& record) {
    contents.indices[record.objectId()] = contents.blocks.size();
    contents.blocks.push_back(blockOf(record));
  });
  for (std::size_t at = 0; at < contents.blocks.size(); ++at)
    lookInside(contents, at);
  const auto space = contents.indices.find(database.getModelSpaceId());
  countReferences(contents.blocks, contents.edges,
                  space == contents.indices.end() ? contents.blocks.size() : space->second);
  addDynamicInstances(contents);
  return std::move(contents.blocks);
}

} // namespace

DrawingReport reportOf(OdDbDatabase& database) {
  return {headerOf(database), layersOf(database), blocksOf(database)};
}

bool isOrdinary(const Block& block) {
  return !block.isSpace && !block.isAnonymous && !block.isDependent;
}

} // namespace console::report
