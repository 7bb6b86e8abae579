#include "console/blocks/insert_preview.h"
#include "console/blocks/insert_source.h"
#include "console/blocks/make_block.h"
#include "console/blocks/reference_placement.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/insert.h"
#include "console/messages/number_text.h"

#include "DbBlockTable.h"
#include "drawing/compare.h"

namespace console {
namespace {

struct Kind {
  OdDb::SymbolTableKind table;
  const char* name;
};

constexpr Kind kKinds[] = {{OdDb::kLayerTable, "layer"},
                           {OdDb::kLinetypeTable, "line type"},
                           {OdDb::kTextStyleTable, "text style"},
                           {OdDb::kDimStyleTable, "dimension style"}};

// Records of both drawings under one name that are not the same.
Json keptRecords(Session& session, const OdDbDatabase& source) {
  Json kept = Json::array();
  for (const Kind& kind : kKinds) {
    std::vector<OdString> names;
    const OdDbSymbolTablePtr table = source.getSymbolTableId(kind.table).safeOpenObject();
    for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
      const OdString name = iterator->getRecord()->getName();
      const OdDbObjectId own = session.database().symbol(kind.table, name);
      if (own.isNull() || drawing::sameRecord(iterator->getRecordId(), own))
        continue;
      names.push_back(name);
      kept.push_back({{"kind", kind.name}, {"name", name.toUtf8Lossless()}});
    }
    if (!names.empty())
      session.result(msg::kPreviewKept, {OdString::fromUtf8(kind.name), nameList(names)});
  }
  return kept;
}

Json conflict(Session& session, const OdString& name, bool same) {
  session.result(same ? msg::kPreviewSame : msg::kPreviewOther, {name});
  return {{"name", name.toUtf8Lossless()}, {"same", same}};
}

void addQuestions(Session& session, Json& json, double factor, const std::vector<OdString>& questions) {
  session.result(msg::kUnitsFactor, {exactText(factor)});
  json["factor"] = factor;
  json["questions"] = Json::array();
  for (const OdString& question : questions) {
    session.result(msg::kPreviewQuestion, {question});
    json["questions"].push_back(question.toUtf8Lossless());
  }
}

} // namespace

Json previewFile(Session& session, const std::string& path, const OdString& name, const AttributeAnswers& answers) {
  const BlockSource source = readBlockSource(session, path, name);
  session.result(msg::kPreviewFile, {OdString::fromUtf8(path), source.name});
  Json json = {{"file", path}, {"block", source.name.toUtf8Lossless()}, {"clashes", Json::array()}};
  if (const OdDbObjectId existing = definitionOf(session, source.name); !existing.isNull())
    json["clashes"].push_back(
        conflict(session, source.name, drawing::sameDefinition(source.database->getModelSpaceId(), existing)));
  for (const NestedConflict& nested : nestedConflicts(*source.database, session.database()))
    json["clashes"].push_back(conflict(session, nested.name, nested.same));
  json["kept"] = keptRecords(session, *source.database);
  addQuestions(session, json, unitsFactor(session.database(), source.database->getINSUNITS()),
               questionsOf(source.database->getModelSpaceId(), answers));
  return json;
}

Json previewBlock(Session& session, const OdString& name, const AttributeAnswers& answers) {
  const OdDbObjectId block = definitionOf(session, name);
  if (block.isNull())
    refuse(msg::kNoSuchBlock, {name});
  Json json = {{"file", Json()}, {"block", name.toUtf8Lossless()}, {"clashes", Json::array()}, {"kept", Json::array()}};
  addQuestions(session, json, unitsFactor(block), questionsOf(block, answers));
  return json;
}

} // namespace console
