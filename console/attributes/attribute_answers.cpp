#include "console/attributes/attribute_answers.h"
#include "console/attributes/attributes.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/insert.h"
#include "console/prompts/selection.h"

#include "DbBlockTable.h"
#include "blockcommon/attributes.h"

#include <set>

namespace console {
namespace {

// Definitions that are never constant, in their order; the i-th belongs to the i-th attribute.
std::vector<OdDbObjectId> definitionsIn(OdDbObjectId block) {
  std::vector<OdDbObjectId> found;
  for (const OdDbObjectId id : objectsOf(block)) {
    const auto definition = OdDbAttributeDefinition::cast(id.safeOpenObject());
    if (!definition.isNull() && !definition->isConstant())
      found.push_back(id);
  }
  return found;
}

// Which of the definitions have been answered beforehand.
std::set<OdDbObjectId> presetDefinitions(OdDbObjectId block, const AttributeAnswers& answers) {
  const std::vector<OdDbObjectId> definitions = definitionsIn(block);
  TagIndex tags;
  for (const OdDbObjectId id : definitions)
    tags.add(OdDbAttributeDefinitionPtr(id.safeOpenObject())->tag());
  std::set<OdDbObjectId> known;
  for (const auto& [entered, value] : answers.given) {
    if (const auto index = tags.findEntered(entered))
      known.insert(definitions[*index]);
  }
  return known;
}

// Definitions that are preset are not asked for; for its lifetime these are.
class PresetScope {
public:
  explicit PresetScope(const std::set<OdDbObjectId>& definitions) {
    for (const OdDbObjectId id : definitions) {
      const OdDbAttributeDefinitionPtr definition = id.safeOpenObject(OdDb::kForWrite);
      if (definition.isNull() || definition->isPreset())
        continue;
      definition->setPreset(true);
      changed_.push_back(id);
    }
  }
  ~PresetScope() {
    for (const OdDbObjectId id : changed_)
      OdDbAttributeDefinitionPtr(id.safeOpenObject(OdDb::kForWrite))->setPreset(false);
  }
  PresetScope(const PresetScope&) = delete;
  PresetScope& operator=(const PresetScope&) = delete;

private:
  std::vector<OdDbObjectId> changed_;
};

OdString tagsOf(const ReferenceAttributes& attributes) {
  std::vector<OdString> tags;
  for (const AttributeRow& row : attributes.rows())
    tags.push_back(attributeName(row));
  return nameList(tags);
}

void setGiven(OdDbBlockReference& reference, const AttributeAnswers& answers) {
  const ReferenceAttributes attributes(reference);
  for (const auto& [entered, value] : answers.given) {
    const AttributeRow* row = attributes.findEntered(entered);
    if (row == nullptr)
      refuse(msg::kNoSuchTag, {entered, tagsOf(attributes)});
    if (changeValue(row->attribute, value) == ValueChange::kLines)
      refuse(msg::kAttributeLines, {attributeName(*row), value});
  }
}

} // namespace

std::vector<OdString> questionsOf(OdDbObjectId block, const AttributeAnswers& answers) {
  std::vector<OdString> questions;
  const std::set<OdDbObjectId> known = presetDefinitions(block, answers);
  for (const OdDbObjectId id : answers.takesDefaults ? std::vector<OdDbObjectId>() : definitionsIn(block)) {
    const OdDbAttributeDefinitionPtr definition = id.safeOpenObject();
    if (!definition->isPreset() && known.count(id) == 0)
      questions.push_back(definition->prompt().isEmpty() ? definition->tag() : definition->prompt());
  }
  return questions;
}

void fillAttributes(Session& session, const OdDbBlockReferencePtr& reference, const AttributeAnswers& answers) {
  const OdDbObjectId block = reference->blockTableRecord();
  const std::vector<OdString> questions = questionsOf(block, answers);
  if (!questions.empty() && !session.isInteractive())
    refuse(msg::kAttributesNeeded, {nameList(questions)});
  if (!insertCommon::processAttributesForInsert(reference, true))
    throw OdError(eInvalidInput);
  setGiven(*reference, answers);
  if (questions.empty())
    return;
  const PresetScope preset(presetDefinitions(block, answers));
  if (!insertCommon::processAttributesForInsert(reference, false))
    cancel();
}

} // namespace console
