#include "console/blocks/insert_source.h"
#include "console/blocks/external_references.h"
#include "console/blocks/make_block.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/insert.h"
#include "console/prompts/selection.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "blockcommon/document_queries.h"
#include "blockcommon/insertion.h"
#include "blockcommon/messages.h"
#include "blockcommon/properties.h"
#include "drawing/compare.h"
#include "drawing/names.h"

#include <algorithm>
#include <filesystem>
#include <unordered_set>

namespace console {
namespace {

OdDbObjectId blockIn(const OdDbDatabase& database, const OdString& name) {
  return database.symbol(OdDb::kBlockTable, name);
}

OdString nameOf(OdDbObjectId block) {
  return OdDbBlockTableRecordPtr(block.safeOpenObject())->getName();
}

// Named definitions that model space shows, at any depth.
std::vector<OdDbObjectId> definitionsBelow(const OdDbDatabase& source) {
  std::vector<OdDbObjectId> found{source.getModelSpaceId()};
  std::unordered_set<OdDbObjectId> seen(found.begin(), found.end());
  for (std::size_t at = 0; at < found.size(); ++at) { // grows meanwhile
    for (const OdDbObjectId id : objectsOf(found[at])) {
      const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
      const OdDbObjectId referenced = reference.isNull() ? OdDbObjectId() : reference->blockTableRecord();
      if (!referenced.safeOpenObject().isNull() && seen.insert(referenced).second)
        found.push_back(referenced);
    }
  }
  found.erase(found.begin());
  const auto isAnonymous = [](OdDbObjectId id) { return OdDbBlockTableRecordPtr(id.safeOpenObject())->isAnonymous(); };
  found.erase(std::remove_if(found.begin(), found.end(), isAnonymous), found.end());
  return found;
}

// Of the names "door", "door-2", "door-3" ... the first under which the contents can be beside what there is: the
// target has none of it, or one with the same contents; no other definition of their own drawing has it.
OdString uniqueName(OdDbObjectId contents, const OdString& name, const OdDbDatabase& target) {
  OdString unique = name;
  for (int number = 2;; ++number) {
    const OdDbObjectId own = blockIn(*contents.database(), unique), existing = blockIn(target, unique);
    const bool isOwn = own.isNull() || own == contents || number == 2;
    if (isOwn && (existing.isNull() || drawing::sameDefinition(contents, existing)))
      return unique;
    unique = name + L"-" + OdString(std::to_wstring(number));
  }
}

// Definitions of other contents get free names in the file, so that they come in beside the drawing's.
void renameNestedConflicts(const BlockSource& source, const OdDbDatabase& target, ImportedBlock& result) {
  for (const NestedConflict& conflict : nestedConflicts(*source.database, target)) {
    if (conflict.same)
      continue;
    const OdString now = uniqueName(blockIn(*source.database, conflict.name), conflict.name, target);
    if (drawing::renameRecord(*source.database, OdDb::kBlockTable, conflict.name, now) == drawing::RenameResult::kDone)
      result.renamed.push_back({conflict.name, now});
    else
      result.kept.push_back(conflict.name);
  }
}

void listKeptDefinitions(const BlockSource& source, const OdDbDatabase& target, ImportedBlock& result) {
  for (const NestedConflict& conflict : nestedConflicts(*source.database, target)) {
    if (!conflict.same)
      result.kept.push_back(conflict.name);
  }
}

// The steps of inserting a file that has been read already.
OdDbObjectId insertAs(Session& session, const BlockSource& source, const OdString& name) {
  OdString edited;
  insertCommon::getBeditBlockName(edited);
  if (insertCommon::checkSameBlock(source.database, edited)) {
    insertCommon::CancelInsertTips(edited);
    refuse(msg::kDefinesEdited, {OdString::fromUtf8(source.path), edited});
  }
  OdDbObjectId block;
  if (!insertCommon::insertDb(source.database, name, block))
    refuse(msg::kNotInserted, {OdString::fromUtf8(source.path), name});
  for (const drawing::Issue& issue : session.database().insertReport().issues())
    session.print(msg::kInsertNote, {OdString::fromUtf8(source.path), OdString::fromUtf8(drawing::describe(issue))});
  insertCommon::setExplodableInfo(source.database, block);
  if (!blockUtils::setBtrInsertUnit(block, source.database->getINSUNITS()))
    refuse(msg::kNotInserted, {OdString::fromUtf8(source.path), name});
  return block;
}

[[noreturn]] void refuseConflict(const BlockSource& source, OdDbObjectId existing) {
  const bool same = drawing::sameDefinition(source.database->getModelSpaceId(), existing);
  refuse(same ? msg::kConflictSame : msg::kConflictOther, {OdString::fromUtf8(source.path), nameOf(existing)});
}

// The user replaces the definition, keeps it, or cancels.
ConflictPolicy promptConflict(Session& session, const BlockSource& source, OdDbObjectId existing) {
  constexpr int kYes = 0;
  const int pressed = session.pressedButton(
      [&] { dlgTips::showBlockRedefineTips(source.name, static_cast<int>(referencesTo(existing))); });
  if (pressed == kYes)
    return ConflictPolicy::kReplace;
  if (!session.isInteractive())
    refuseConflict(source, existing);
  if (pressed == morvane::MessageBoxes::kClosed)
    cancel();
  return ConflictPolicy::kKeep;
}

void refuseUnfit(OdDbObjectId existing) {
  const OdDbBlockTableRecordPtr record = existing.safeOpenObject();
  if (!record->isFromExternalReference())
    return;
  dlgTips::showBlockExtRefErrorTips();
  refuse(msg::kNameExternal, {record->getName()});
}

// Which definition the file will be, and whether the one that is there is it.
void resolveConflict(const BlockSource& source, OdDbObjectId existing, ConflictPolicy conflictPolicy,
                     ImportedBlock& result) {
  using Resolution = ImportedBlock::Resolution;
  const OdDbDatabase& target = *existing.database();
  if (conflictPolicy == ConflictPolicy::kRefuse)
    refuseConflict(source, existing);
  const OdDbObjectId contents = source.database->getModelSpaceId();
  result.name =
      conflictPolicy == ConflictPolicy::kRename ? uniqueName(contents, source.name, target) : nameOf(existing);
  result.block = blockIn(target, result.name);
  const bool same = !result.block.isNull() && drawing::sameDefinition(contents, result.block);
  if (conflictPolicy == ConflictPolicy::kReplace)
    result.resolution = Resolution::kReplaced;
  else if (result.block.isNull())
    result.resolution = Resolution::kRenamed;
  else
    result.resolution = same ? Resolution::kShared : Resolution::kKept;
}

void printOutcome(Session& session, const BlockSource& source, const ImportedBlock& result) {
  using Resolution = ImportedBlock::Resolution;
  const OdString path = OdString::fromUtf8(source.path);
  if (result.resolution == Resolution::kKept)
    session.print(msg::kConflictKept, {path, result.name});
  else if (result.resolution == Resolution::kShared)
    session.print(msg::kConflictShared, {path, result.name});
  else if (result.resolution == Resolution::kReplaced)
    session.print(msg::kConflictReplaced, {path, result.name});
  else if (result.resolution == Resolution::kRenamed)
    session.print(msg::kConflictRenamed, {path, source.name, result.name});
  for (const ImportedBlock::Nested& nested : result.renamed)
    session.print(msg::kNestedRenamed, {path, nested.name, nested.now});
  if (!result.kept.empty())
    session.print(msg::kNestedKept, {path, nameList(result.kept)});
}

} // namespace

BlockSource readBlockSource(Session& session, const std::string& path, const OdString& name) {
  BlockSource source{path, name, readDrawingFile(session, path)};
  if (source.name.isEmpty())
    source.name = OdString::fromUtf8(std::filesystem::path(path).stem().string());
  return source;
}

std::vector<NestedConflict> nestedConflicts(const OdDbDatabase& source, const OdDbDatabase& target) {
  std::vector<NestedConflict> conflicts;
  for (const OdDbObjectId block : definitionsBelow(source)) {
    const OdString name = nameOf(block);
    if (const OdDbObjectId existing = blockIn(target, name); !existing.isNull())
      conflicts.push_back({name, drawing::sameDefinition(block, existing)});
  }
  return conflicts;
}

ImportedBlock importBlock(Session& session, const BlockSource& source, ConflictPolicy conflictPolicy) {
  using Resolution = ImportedBlock::Resolution;
  OdDbDatabase& target = session.database();
  checkBlockName(session, source.name);
  ImportedBlock result{Resolution::kMade, {}, source.name, {}, {}};
  if (const OdDbObjectId existing = blockIn(target, source.name); !existing.isNull()) {
    refuseUnfit(existing);
    if (conflictPolicy == ConflictPolicy::kPrompt)
      conflictPolicy = promptConflict(session, source, existing);
    resolveConflict(source, existing, conflictPolicy, result);
  }
  if (result.resolution != Resolution::kKept && result.resolution != Resolution::kShared) {
    if (conflictPolicy == ConflictPolicy::kRename)
      renameNestedConflicts(source, target, result);
    else
      listKeptDefinitions(source, target, result);
    result.block = insertAs(session, source, result.name);
    loadNewXrefs(session);
  }
  printOutcome(session, source, result);
  return result;
}

} // namespace console
