#include "console/attributes/attributes.h"
#include "console/commands/commands.h"
#include "console/prompts/prompt.h"
#include "console/prompts/selection.h"

namespace console::commands {
namespace {

OdDbObjectId askReference(Session& session) {
  OdDbObjectId picked;
  for (const OdDbObjectId id : askSelection(session)) {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
    if (reference.isNull() || reference->attributeIds().isEmpty())
      continue;
    if (!picked.isNull())
      refuse(Text::kOneReference);
    picked = id;
  }
  if (picked.isNull())
    refuse(Text::kNoAttributes);
  return picked;
}

void listAttributes(Session& session, const ReferenceAttributes& attributes) {
  for (const AttributeRow& row : attributes.rows())
    session.result(Text::kAttributeLine, {attributeName(row), row.value});
}

Text textOf(ValueChange change) {
  switch (change) {
  case ValueChange::Set:
    return Text::kAttributeSet;
  case ValueChange::SetWithoutField:
    return Text::kAttributeSetWithoutField;
  case ValueChange::Same:
    return Text::kAttributeSame;
  case ValueChange::Locked:
    return Text::kAttributeLocked;
  case ValueChange::Constant:
    return Text::kAttributeConstant;
  case ValueChange::Lines:
    break;
  }
  return Text::kAttributeLines;
}

// An empty answer keeps the value; two quotes are the empty one.
void askValue(Session& session, const AttributeRow& row) {
  const auto typed = askText(session, Text::kPromptAttributeValue, {row.value}, true);
  if (!typed)
    return;
  const OdString value = *typed == L"\"\"" ? OdString() : *typed;
  session.print(textOf(changeValue(row.attribute, value)), {attributeName(row), value});
}

} // namespace

void attedit(CommandContext& context) {
  Session& session = context.session;
  const OdDbObjectId id = askReference(session);
  while (const auto typed = askText(session, Text::kPromptAttributeTag)) {
    const ReferenceAttributes attributes(*OdDbBlockReferencePtr(id.safeOpenObject()));
    const AttributeRow* row = attributes.findTyped(*typed);
    if (row != nullptr)
      askValue(session, *row);
    else if (*typed == L"?")
      listAttributes(session, attributes);
    else
      session.print(Text::kNoSuchAttribute, {*typed});
  }
}

} // namespace console::commands
