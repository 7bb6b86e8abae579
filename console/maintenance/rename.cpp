#include "console/maintenance/rename.h"
#include "console/blocks/make_block.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/rename.h"

#include "blockcommon/block_names.h"
#include "drawing/names.h"

namespace console {
namespace {

struct Refusal {
  drawing::RenameResult result;
  MessageText text;
  bool ofNewName; // else the old one is named
};

constexpr Refusal kRefusals[] = {
    {drawing::RenameResult::kUnknown, msg::kRenameUnknown, false},
    {drawing::RenameResult::kTaken, msg::kRenameTaken, true},
    {drawing::RenameResult::kFixed, msg::kRenameFixed, false},
    {drawing::RenameResult::kIllegal, msg::kRenameIllegal, true},
    {drawing::RenameResult::kSpace, msg::kRenameFixed, false},
};

// Which block has the name is the working drawing's matter; the rules of the library come on top of the engine's.
void checkNewName(Session& session, OdDb::SymbolTableKind kind, const OdString& to) {
  if (kind == OdDb::kBlockTable)
    return checkBlockName(session, to);
  bool notUtf8 = false;
  if (!blockUtils::isLigitimacyName(to, notUtf8))
    refuse(msg::kRenameIllegal, {OdString::fromUtf8(renameKindName(kind)), to});
}

} // namespace

const char* renameKindName(OdDb::SymbolTableKind kind) {
  struct Name {
    OdDb::SymbolTableKind kind;
    const char* name;
  };
  constexpr Name kNames[] = {{OdDb::kBlockTable, "block"},
                             {OdDb::kLayerTable, "layer"},
                             {OdDb::kLinetypeTable, "line type"},
                             {OdDb::kTextStyleTable, "text style"},
                             {OdDb::kDimStyleTable, "dimension style"}};
  for (const Name& name : kNames) {
    if (name.kind == kind)
      return name.name;
  }
  return "";
}

void renameSymbolRecord(Session& session, OdDb::SymbolTableKind kind, const OdString& from, const OdString& to) {
  const OdString what = OdString::fromUtf8(renameKindName(kind));
  if (kind == OdDb::kBlockTable && blockUtils::isExternalDependent(from))
    refuse(msg::kNameExternal, {from});
  checkNewName(session, kind, to);
  const drawing::RenameResult result = drawing::renameRecord(session.database(), kind, from, to);
  if (result == drawing::RenameResult::kExternal)
    refuse(msg::kNameExternal, {from});
  if (result == drawing::RenameResult::kAnonymous)
    refuse(msg::kNameAnonymous, {from});
  for (const Refusal& refusal : kRefusals) {
    if (refusal.result == result)
      refuse(refusal.text, {what, refusal.ofNewName ? to : from});
  }
}

} // namespace console
