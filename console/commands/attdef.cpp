#include "console/commands/commands.h"
#include "console/commands/text_height.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include "DbAttribute.h"

#include <array>
#include <cmath>

namespace console::commands {
namespace {

struct Justification {
  const wchar_t* name;
  OdDbText::HorizontalMode across;
  OdDbText::VerticalMode up;
  OdDbMText::AttachmentPoint attachment; // of several lines
};
constexpr Justification kJustifications[] = {
    {L"Left", OdDbText::kLeft, OdDbText::kBase, OdDbMText::kTopLeft},
    {L"Center", OdDbText::kCenter, OdDbText::kBase, OdDbMText::kTopCenter},
    {L"Right", OdDbText::kRight, OdDbText::kBase, OdDbMText::kTopRight},
    {L"Align", OdDbText::kAligned, OdDbText::kBase, OdDbMText::kTopLeft},
    {L"Middle", OdDbText::kMid, OdDbText::kBase, OdDbMText::kMiddleCenter},
    {L"Fit", OdDbText::kFit, OdDbText::kBase, OdDbMText::kTopLeft},
    {L"TL", OdDbText::kLeft, OdDbText::kTop, OdDbMText::kTopLeft},
    {L"TC", OdDbText::kCenter, OdDbText::kTop, OdDbMText::kTopCenter},
    {L"TR", OdDbText::kRight, OdDbText::kTop, OdDbMText::kTopRight},
    {L"ML", OdDbText::kLeft, OdDbText::kMiddle, OdDbMText::kMiddleLeft},
    {L"MC", OdDbText::kCenter, OdDbText::kMiddle, OdDbMText::kMiddleCenter},
    {L"MR", OdDbText::kRight, OdDbText::kMiddle, OdDbMText::kMiddleRight},
    {L"BL", OdDbText::kLeft, OdDbText::kBottom, OdDbMText::kBottomLeft},
    {L"BC", OdDbText::kCenter, OdDbText::kBottom, OdDbMText::kBottomCenter},
    {L"BR", OdDbText::kRight, OdDbText::kBottom, OdDbMText::kBottomRight},
};

enum Mode : std::size_t { kInvisible, kConstant, kVerify, kPreset, kLock, kMultiple, kModeCount };
constexpr std::array<const wchar_t*, kModeCount> kModes = {L"Invisible", L"Constant", L"Verify",
                                                           L"Preset",    L"Lock",     L"Multiple"};

// What the options at the first point have set.
struct Wishes {
  std::array<bool, kModeCount> modes{};
  const Justification* justification = &kJustifications[0];
  OdDbObjectId style;
  double rotation = 0;
};

void promptModes(Session& session, Wishes& wishes) {
  for (;;) {
    std::vector<OdString> on;
    for (std::size_t mode = 0; mode < kModeCount; ++mode) {
      if (wishes.modes[mode])
        on.emplace_back(kModes[mode]);
    }
    session.print(MessageId::kModesOn, {on.empty() ? OdString(L"none") : nameList(on)});
    const auto entered = promptKeyword(session, MessageId::kKeywordsModes, MessageId::kPromptModes);
    if (!entered)
      return;
    for (std::size_t mode = 0; mode < kModeCount; ++mode)
      wishes.modes[mode] = wishes.modes[mode] != (*entered == kModes[mode]);
  }
}

void promptJustification(Session& session, Wishes& wishes) {
  const auto entered = promptKeyword(session, MessageId::kKeywordsJustify, MessageId::kPromptJustify);
  for (const Justification& one : kJustifications) {
    if (entered && *entered == one.name)
      wishes.justification = &one;
  }
}

// A wrong name is told, and the style stays.
void promptStyle(CommandContext& context, Wishes& wishes) {
  const auto entered = promptText(context.session, MessageId::kPromptStyle, {}, true);
  const OdDbObjectId style = entered ? context.database.symbol(OdDb::kTextStyleTable, *entered) : OdDbObjectId();
  if (!style.isNull())
    wishes.style = style;
  else if (entered)
    context.session.print(MessageId::kNoSuchStyle, {*entered});
}

// The first point, with the options in front of it.
OdGePoint3d promptInsertionPoint(CommandContext& context, Wishes& wishes) {
  Session& session = context.session;
  for (;;) {
    constexpr bool kRequired = true;
    const PointOrKeyword answer =
        promptPointOr(session, MessageId::kKeywordsAttdef, MessageId::kPromptAttdefPosition, kRequired);
    if (answer.point)
      return *answer.point;
    if (answer.keyword == L"Modes")
      promptModes(session, wishes);
    else if (answer.keyword == L"Justify")
      promptJustification(session, wishes);
    else if (answer.keyword == L"Style")
      promptStyle(context, wishes);
    else
      wishes.rotation = promptAngle(session, MessageId::kPromptAngle).value_or(0);
  }
}

bool hasTwoPoints(const Wishes& wishes) {
  const auto across = wishes.justification->across;
  return !wishes.modes[kMultiple] && (across == OdDbText::kAligned || across == OdDbText::kFit);
}

void place(OdDbAttributeDefinition& definition, const Wishes& wishes, const OdGePoint3d& first,
           const OdGePoint3d& second) {
  definition.setHorizontalMode(wishes.justification->across);
  definition.setVerticalMode(wishes.justification->up);
  definition.setPosition(first);
  definition.setRotation(wishes.rotation);
  if (hasTwoPoints(wishes)) {
    definition.setAlignmentPoint(second);
    definition.setRotation(std::atan2(second.y - first.y, second.x - first.x));
  } else if (definition.horizontalMode() != OdDbText::kLeft || definition.verticalMode() != OdDbText::kBase) {
    definition.setAlignmentPoint(first);
  }
}

// Each \P of the default begins a line.
void makeMultiple(OdDbAttributeDefinition& definition, const Wishes& wishes, const OdGePoint3d& location) {
  const OdDbMTextPtr lines = OdDbMText::createObject();
  lines->setContents(definition.textString());
  lines->setLocation(location);
  lines->setTextHeight(definition.height());
  lines->setRotation(wishes.rotation);
  lines->setAttachment(wishes.justification->attachment);
  lines->setTextStyle(definition.textStyle());
  definition.setMTextAttributeDefinition(lines.get());
}

OdString promptTag(Session& session) {
  OdString tag = promptText(session, MessageId::kPromptTag).value_or(OdString());
  if (tag.isEmpty() || tag.findOneOf(L" \t!") >= 0)
    refuse(MessageId::kBadTag, {tag});
  return tag.makeUpper();
}

} // namespace

void attdef(CommandContext& context) {
  Session& session = context.session;
  const OdString tag = promptTag(session);
  const OdString prompt = promptText(session, MessageId::kPromptTagPrompt, {tag}, true).value_or(tag);
  const OdString value = promptText(session, MessageId::kPromptTagDefault, {}, true).value_or(OdString());
  const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setDatabaseDefaults(&context.database);
  Wishes wishes;
  const OdGePoint3d first = promptInsertionPoint(context, wishes);
  OdGePoint3d second;
  if (hasTwoPoints(wishes)) {
    second = promptRequiredPoint(session, MessageId::kPromptSecondPoint);
    if (std::hypot(second.x - first.x, second.y - first.y) == 0)
      refuse(MessageId::kNoBaseLine);
  }
  definition->setTag(tag);
  definition->setPrompt(prompt);
  definition->setTextString(value);
  definition->setHeight(promptTextHeight(context));
  definition->setInvisible(wishes.modes[kInvisible]);
  definition->setConstant(wishes.modes[kConstant]);
  definition->setVerifiable(wishes.modes[kVerify]);
  definition->setPreset(wishes.modes[kPreset]);
  definition->setLockPositionInBlock(wishes.modes[kLock]);
  if (!wishes.style.isNull())
    definition->setTextStyle(wishes.style);
  place(*definition, wishes, first, second);
  if (wishes.modes[kMultiple])
    makeMultiple(*definition, wishes, first);
  addToDrawing(context, *definition);
}

} // namespace console::commands
