#include "drawing/names.h"

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "drawing/maintenance/names_in_text.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"

namespace drawing {

namespace {

bool isAsciiWord(wchar_t ch) {
  return (ch >= L'0' && ch <= L'9') || (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z') || ch == L'$' ||
         ch == L'-' || ch == L'_';
}

bool isForbidden(wchar_t ch, bool old) {
  constexpr std::wstring_view kForbidden = L"<>/\\\":;?*|,=`";
  return old ? !isAsciiWord(ch) : ch < 0x20 || ch == 0x7F || kForbidden.find(ch) != std::wstring_view::npos;
}

} // namespace

NameFault nameFault(const OdString& name, OdDb::DwgVersion version, int* at) {
  const bool old = version < OdDb::kRelease2000;
  const int length = name.getLength();
  if (length == 0)
    return NameFault::kEmpty;
  for (int i = 0; i < length; ++i) {
    if (!isForbidden(name.getAt(i), old))
      continue;
    if (at != nullptr)
      *at = i;
    return NameFault::kCharacter;
  }
  if (name.getAt(0) == L' ' || name.getAt(length - 1) == L' ')
    return NameFault::kSurroundingSpace;
  return length > (old ? 31 : 255) ? NameFault::kTooLong : NameFault::kNone;
}

namespace {

class Renaming {
public:
  Renaming(OdDbDatabase& database, OdDbSymbolTableRecord& record, const OdString& to)
      : database_(database), record_(record), kind_(record.tableKind()), from_(record.getName()), to_(to) {}

  void run() {
    // Objects that store the name are found by it, so the record keeps it until all of them are updated.
    changeVariables();
    for (OdDbObjectId id : database_.allIds()) {
      OdDbObject* object = lookup(id);
      if (isAlive(object))
        renameTextualReferences(*object);
    }
    const WriteScope scope(record_);
    record_.setName(to_);
    if (auto* block = dynamic_cast<OdDbBlockTableRecord*>(&record_)) {
      block->dropBlockHeaderName();
      changeTrueName(*block);
    }
  }

private:
  void changeVariables() {
    for (const NameVariable& variable : nameVariables()) {
      if (variable.dictionary != nullptr || variable.kind != kind_ ||
          namedBy(database_, variable) != record_.objectId())
        continue;
      const GroupList& groups = *database_.headerVar(variable.variable);
      database_.setHeaderText(variable.variable, groups[0].code, to_);
    }
  }

  void renameTextualReferences(OdDbObject& object) {
    names_.clear();
    collectTextualReferences(object, names_);
    for (const TextualReference& name : names_) {
      const GroupList& list = listOf(object, name);
      if (name.kind != kind_ || !name.certain || list.stringOf(list[name.at]).iCompare(from_) != 0)
        continue;
      const WriteScope scope(object);
      listForWrite(object, name).setText(name.at, to_.toUtf8Lossless());
    }
  }

  // Files of dynamic blocks repeat the name in extended data.
  void changeTrueName(OdDbBlockTableRecord& block) {
    const GroupList* groups = block.xDataGroups();
    bool ours = false;
    for (std::size_t i = 0; groups != nullptr && i < groups->size(); ++i) {
      const std::string_view text = groups->textOf((*groups)[i]);
      if ((*groups)[i].code == 1001)
        ours = text == "AcDbDynamicBlockTrueName" || text == "AcDbDynamicBlockTrueName2";
      else if (ours && (*groups)[i].code == 1000 && groups->stringOf((*groups)[i]).iCompare(from_) == 0)
        block.xDataGroupsForWrite().setText(i, to_.toUtf8Lossless());
    }
  }

  OdDbDatabase& database_;
  OdDbSymbolTableRecord& record_;
  OdDb::SymbolTableKind kind_;
  OdString from_, to_;
  std::vector<TextualReference> names_;
};

RenameResult mayRename(const OdDbSymbolTableRecord& record) {
  const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&record);
  if (block != nullptr && isSpace(*block))
    return RenameResult::kSpace;
  if (isExternal(record))
    return RenameResult::kExternal;
  if (block != nullptr && block->isAnonymous())
    return RenameResult::kAnonymous;
  return isNeeded(record) ? RenameResult::kFixed : RenameResult::kDone;
}

} // namespace

RenameResult renameRecord(OdDbDatabase& database, OdDb::SymbolTableKind kind, const OdString& from,
                          const OdString& to) {
  const OdDbObjectId id = database.symbol(kind, from);
  auto* record = getIf<OdDbSymbolTableRecord>(id);
  if (record == nullptr)
    return RenameResult::kUnknown;
  if (const RenameResult refused = mayRename(*record); refused != RenameResult::kDone)
    return refused;
  if (nameFault(to, database.fileInfo().version) != NameFault::kNone)
    return RenameResult::kIllegal;
  const OdDbObjectId existing = database.symbol(kind, to);
  if (!existing.isNull() && existing != id)
    return RenameResult::kTaken;
  if (record->getName() != to)
    Renaming(database, *record, to).run();
  return RenameResult::kDone;
}

} // namespace drawing
