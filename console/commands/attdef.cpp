#include "console/commands/commands.h"
#include "console/commands/text_height.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/objects.h"
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
struct DefinitionSettings {
  std::array<bool, kModeCount> modes{};
  const Justification* justification = &kJustifications[0];
  OdDbObjectId style;
  double rotation = 0;
};

void promptModes(Session& session, DefinitionSettings& settings) {
  for (;;) {
    std::vector<OdString> on;
    for (std::size_t mode = 0; mode < kModeCount; ++mode) {
      if (settings.modes[mode])
        on.emplace_back(kModes[mode]);
    }
    session.print(msg::kModesOn, {on.empty() ? OdString(L"none") : nameList(on)});
    const auto entered = promptKeyword(session, msg::kKeywordsModes, msg::kPromptModes);
    if (!entered)
      return;
    for (std::size_t mode = 0; mode < kModeCount; ++mode)
      settings.modes[mode] = settings.modes[mode] != (*entered == kModes[mode]);
  }
}

void promptJustification(Session& session, DefinitionSettings& settings) {
  const auto entered = promptKeyword(session, msg::kKeywordsJustify, msg::kPromptJustify);
  for (const Justification& one : kJustifications) {
    if (entered && *entered == one.name)
      settings.justification = &one;
  }
}

// A wrong name is reported, and the style is kept.
void promptStyle(CommandContext& context, DefinitionSettings& settings) {
  const auto entered = promptText(context.session, msg::kPromptStyle, {}, true);
  const OdDbObjectId style = entered ? context.database.symbol(OdDb::kTextStyleTable, *entered) : OdDbObjectId();
  if (!style.isNull())
    settings.style = style;
  else if (entered)
    context.session.print(msg::kNoSuchStyle, {*entered});
}

// The first point, with the options in front of it.
OdGePoint3d promptInsertionPoint(CommandContext& context, DefinitionSettings& settings) {
  Session& session = context.session;
  for (;;) {
    constexpr bool kRequired = true;
    const PointOrKeyword answer = promptPointOr(session, msg::kKeywordsAttdef, msg::kPromptAttdefPosition, kRequired);
    if (answer.point)
      return *answer.point;
    if (answer.keyword == L"Modes")
      promptModes(session, settings);
    else if (answer.keyword == L"Justify")
      promptJustification(session, settings);
    else if (answer.keyword == L"Style")
      promptStyle(context, settings);
    else
      settings.rotation = promptAngle(session, msg::kPromptAngle).value_or(0);
  }
}

bool hasTwoPoints(const DefinitionSettings& settings) {
  const auto across = settings.justification->across;
  return !settings.modes[kMultiple] && (across == OdDbText::kAligned || across == OdDbText::kFit);
}

void place(OdDbAttributeDefinition& definition, const DefinitionSettings& settings, const OdGePoint3d& first,
           const OdGePoint3d& second) {
  definition.setHorizontalMode(settings.justification->across);
  definition.setVerticalMode(settings.justification->up);
  definition.setPosition(first);
  definition.setRotation(settings.rotation);
  if (hasTwoPoints(settings)) {
    definition.setAlignmentPoint(second);
    definition.setRotation(std::atan2(second.y - first.y, second.x - first.x));
  } else if (definition.horizontalMode() != OdDbText::kLeft || definition.verticalMode() != OdDbText::kBase) {
    definition.setAlignmentPoint(first);
  }
}

// Each \P of the default begins a line.
void makeMultiple(OdDbAttributeDefinition& definition, const DefinitionSettings& settings,
                  const OdGePoint3d& location) {
  const OdDbMTextPtr lines = OdDbMText::createObject();
  lines->setContents(definition.textString());
  lines->setLocation(location);
  lines->setTextHeight(definition.height());
  lines->setRotation(settings.rotation);
  lines->setAttachment(settings.justification->attachment);
  lines->setTextStyle(definition.textStyle());
  definition.setMTextAttributeDefinition(lines.get());
}

OdString promptTag(Session& session) {
  OdString tag = promptText(session, msg::kPromptTag).value_or(OdString());
  if (tag.isEmpty() || tag.findOneOf(L" \t!") >= 0)
    refuse(msg::kBadTag, {tag});
  return tag.makeUpper();
}

} // namespace

void attdef(CommandContext& context) {
  Session& session = context.session;
  const OdString tag = promptTag(session);
  const OdString prompt = promptText(session, msg::kPromptTagPrompt, {tag}, true).value_or(tag);
  const OdString value = promptText(session, msg::kPromptTagDefault, {}, true).value_or(OdString());
  const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setDatabaseDefaults(&context.database);
  DefinitionSettings settings;
  const OdGePoint3d first = promptInsertionPoint(context, settings);
  OdGePoint3d second;
  if (hasTwoPoints(settings)) {
    second = promptRequiredPoint(session, msg::kPromptSecondPoint);
    if (std::hypot(second.x - first.x, second.y - first.y) == 0)
      refuse(msg::kNoBaseLine);
  }
  definition->setTag(tag);
  definition->setPrompt(prompt);
  definition->setTextString(value);
  definition->setHeight(promptTextHeight(context));
  definition->setInvisible(settings.modes[kInvisible]);
  definition->setConstant(settings.modes[kConstant]);
  definition->setVerifiable(settings.modes[kVerify]);
  definition->setPreset(settings.modes[kPreset]);
  definition->setLockPositionInBlock(settings.modes[kLock]);
  if (!settings.style.isNull())
    definition->setTextStyle(settings.style);
  place(*definition, settings, first, second);
  if (settings.modes[kMultiple])
    makeMultiple(*definition, settings, first);
  addToDrawing(context, *definition);
}

} // namespace console::commands
