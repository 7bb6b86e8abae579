#include "console/attributes/attributes.h"
#include "console/commands/commands.h"
#include "console/messages/catalog/attributes.h"
#include "console/prompts/prompt.h"
#include "console/prompts/selection.h"

namespace console::commands {
namespace {

OdDbObjectId promptReference(Session& session) {
  OdDbObjectId picked;
  for (const OdDbObjectId id : promptSelection(session)) {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
    if (reference.isNull() || reference->attributeIds().isEmpty())
      continue;
    if (!picked.isNull())
      refuse(msg::kOneReference);
    picked = id;
  }
  if (picked.isNull())
    refuse(msg::kNoAttributes);
  return picked;
}

void listAttributes(Session& session, const ReferenceAttributes& attributes) {
  for (const AttributeRow& row : attributes.rows())
    session.result(msg::kAttributeLine, {attributeName(row), row.value});
}

MessageText textOf(ValueChange change) {
  switch (change) {
  case ValueChange::kSet:
    return msg::kAttributeSet;
  case ValueChange::kSetWithoutField:
    return msg::kAttributeSetWithoutField;
  case ValueChange::kSame:
    return msg::kAttributeSame;
  case ValueChange::kLocked:
    return msg::kAttributeLocked;
  case ValueChange::kConstant:
    return msg::kAttributeConstant;
  case ValueChange::kLines:
    break;
  }
  return msg::kAttributeLines;
}

// An empty answer keeps the value; two quotes are the empty one.
void promptValue(Session& session, const AttributeRow& row) {
  const auto entered = promptText(session, msg::kPromptAttributeValue, {row.value}, true);
  if (!entered)
    return;
  const OdString value = *entered == L"\"\"" ? OdString() : *entered;
  session.print(textOf(changeValue(row.attribute, value)), {attributeName(row), value});
}

} // namespace

void attedit(CommandContext& context) {
  Session& session = context.session;
  const OdDbObjectId id = promptReference(session);
  while (const auto entered = promptText(session, msg::kPromptAttributeTag)) {
    const ReferenceAttributes attributes(*OdDbBlockReferencePtr(id.safeOpenObject()));
    const AttributeRow* row = attributes.findEntered(*entered);
    if (row != nullptr)
      promptValue(session, *row);
    else if (*entered == L"?")
      listAttributes(session, attributes);
    else
      session.print(msg::kNoSuchAttribute, {*entered});
  }
}

} // namespace console::commands
