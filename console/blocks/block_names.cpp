#include "console/blocks/make_block.h"
#include "console/messages/catalog/blocks.h"

#include "DbBlockTable.h"
#include "blockcommon/block_lookup.h"
#include "blockcommon/block_names.h"
#include "blockcommon/messages.h"

#include <array>

namespace console {
namespace {

// Those of the strict rules last: they hold under EXTNAMES 0 alone.
constexpr wchar_t kForbidden[] = L"\\<>/?\":;*|,=`";
constexpr wchar_t kForbiddenWhenStrict[] = L"()^~@#%&+";
// The boxes speak of the rules of EXTNAMES 1; what only the strict rules forbid is reported as a message.
constexpr int kLongestInBox = 255;

bool isSpaceName(const OdString& name) {
  return name.iCompare(modelSpaceStr) == 0 || name.left(paperSpaceStr.getLength()).iCompare(paperSpaceStr) == 0;
}

// The first rule that an illegal name breaks.
[[noreturn]] void refuseIllegal(const OdString& name, bool notUtf8) {
  if (notUtf8)
    refuse(msg::kNameNotUtf8, {name});
  for (const wchar_t* set : {kForbidden, kForbiddenWhenStrict}) {
    if (const int at = name.findOneOf(set); at >= 0) {
      if (set == kForbidden)
        dlgTips::showBlockNameUnLegalTips();
      refuse(msg::kNameCharacter, {OdString(name.getAt(at), 1), set});
    }
  }
  if (name.getLength() > kLongestInBox)
    dlgTips::showBlockNameBeyondLenTips();
  refuse(msg::kNameTooLong);
}

} // namespace

OdDbObjectId definitionOf(Session& session, const OdString& name) {
  OdDbObjectId block;
  return blockUtils::getBlockIDByName(name, block, &session.database()) ? block : OdDbObjectId();
}

std::size_t referencesTo(OdDbObjectId block) {
  const OdDbBlockTableRecordPtr record = block.safeOpenObject();
  return record.isNull() ? 0 : static_cast<std::size_t>(record->getBlockReferenceIds().length());
}

void refuseEmptyName() {
  dlgTips::showBlockNameEmptyTips();
  refuse(msg::kNameEmpty);
}

void checkBlockName(Session& session, const OdString& name) {
  if (name.isEmpty())
    refuseEmptyName();
  if (isSpaceName(name))
    refuse(msg::kNameOfSpace, {name});
  if (blockUtils::isAnonymous(name))
    refuse(msg::kNameAnonymous, {name});
  if (blockUtils::isExternalDependent(name) || blockUtils::isFromExternalReference(name)) {
    dlgTips::showExternalReferenceTips();
    refuse(msg::kNameExternal, {name});
  }
  bool notUtf8 = false;
  if (!blockUtils::isLigitimacyName(name, notUtf8))
    refuseIllegal(name, notUtf8);
  const OdString& edited = session.drawing().document->blockEditorName();
  if (!edited.isEmpty() && edited.iCompare(name) == 0)
    refuse(msg::kNameBeingEdited, {name});
}

void refuseNonDefinition(const OdDbBlockTableRecord& block) {
  if (block.isLayout())
    refuse(msg::kNameOfSpace, {block.getName()});
  if (block.isFromExternalReference() || block.isDependent())
    refuse(msg::kNameExternal, {block.getName()});
}

} // namespace console
