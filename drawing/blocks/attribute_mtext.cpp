// The multiline text of attributes: where files store it, and how it is transformed.
#include "DbAttribute.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "Ge/GeUtil.h"
#include "drawing/blocks/attribute_text_form.h"
#include "drawing/entities/text/mtext_frame.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/section.h"
#include "drawing/records/visit_field.h"

#include <algorithm>
#include <string_view>

using drawing::getIf;
using drawing::GroupList;

namespace {

constexpr int kEmbedded = 101;
constexpr std::string_view kTitle = "Embedded Object";
const OdString kRecordName = drawing::kAttributeTextRecord;

// Where the text's own groups begin in the record of older files: behind what says whose text it is, which ends with
// a title. The list's size when there is no text.
std::size_t textStart(const GroupList& groups) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const int code = groups[i].code;
    if (code == kEmbedded || (code == 1 && groups.textOf(groups[i]) == kTitle))
      return i + 1;
  }
  return groups.size();
}

void storeField(OdDbObject& object, const drawing::Field& field, const GroupList& groups, const drawing::Group& group) {
  drawing::visitField(field, object, [&](auto& value) {
    using T = std::decay_t<decltype(value)>;
    const bool isReal = group.kind == drawing::GroupKind::kReal;
    if constexpr (std::is_same_v<T, double>) {
      value = isReal ? group.real : value;
    } else if constexpr (drawing::kCoordinates<T> != 0) {
      if (isReal)
        value[(group.code - field.code) / 10] = group.real;
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
      if (group.kind == drawing::GroupKind::kInt16)
        value = static_cast<std::int16_t>(group.integer);
    } else if constexpr (std::is_same_v<T, OdDbObjectId>) {
      if (OdDbDatabase* database = object.ownerId().database(); database != nullptr)
        value = database->symbol(field.byName, groups.stringOf(group));
    } // the subclass has no others
  });
}

const drawing::Field* fieldOf(const drawing::SubclassLayout& subclass, int code) {
  for (const drawing::Field& field : subclass.fields) {
    const bool triple = field.kind == drawing::FieldKind::kPoint3 || field.kind == drawing::FieldKind::kVector3;
    const int offset = code - field.code;
    if (offset == 0 || (triple && (offset == 10 || offset == 20)))
      return &field;
  }
  return nullptr;
}

bool isContents(const drawing::Group& group) {
  return group.code == 1 || group.code == 3;
}

OdString contentsOf(const GroupList& groups, std::size_t first) {
  OdString contents;
  for (std::size_t i = first; i < groups.size(); ++i) {
    if (isContents(groups[i]))
      contents += groups.stringOf(groups[i]);
  }
  return contents;
}

// The same groups with other contents, which stand where the old ones did.
GroupList withContents(const GroupList& groups, std::size_t first, const OdString& contents) {
  std::size_t index = first;
  while (index < groups.size() && !isContents(groups[index]))
    ++index;
  GroupList changed;
  changed.append(groups, 0, index);
  OdDbMText::writeContents(contents, changed);
  for (std::size_t i = index; i < groups.size(); ++i) {
    if (!isContents(groups[i]))
      changed.append(groups, i, 1);
  }
  return changed;
}

OdDbMTextPtr textOf(const GroupList& groups, std::size_t first, const OdDbObject& owner) {
  OdDbMTextPtr text = OdDbMText::createObject();
  text->setOwnerId(owner.objectId()); // names of styles are those of the owner's drawing
  double rotation = 0;
  for (std::size_t i = first; i < groups.size(); ++i) {
    const drawing::Group& group = groups[i];
    if (group.code == 50 && group.kind == drawing::GroupKind::kReal)
      rotation = toRadians(group.real);
    else if (const drawing::Field* field = fieldOf(OdDbMText::textSubclass(), group.code))
      storeField(*text, *field, groups, group);
  }
  if (rotation != 0 && groups.find(11, first) >= groups.size())
    text->setRotation(rotation);
  text->setContents(contentsOf(groups, first));
  text->setOwnerId(OdDbObjectId());
  return text;
}

// Points that stand before the text and place it again, in the frame of the attribute's plane.
void moveAlignment(GroupList& groups, std::size_t end, const OdGeMatrix3d& matrix, const OdGeVector3d& before,
                   const OdGeVector3d& after) {
  for (std::size_t i = 0; i + 2 < end; ++i) {
    const int code = groups[i].code;
    if ((code != 10 && code != 11) || groups[i + 1].code != code + 10 || groups[i + 2].code != code + 20)
      continue;
    const OdGePoint3d point(groups[i].real, groups[i + 1].real, groups[i + 2].real);
    const OdGePoint3d moved = wcsToOcs(matrix * ocsToWcs(point, before), after);
    groups.setReal(i, moved.x);
    groups.setReal(i + 1, moved.y);
    groups.setReal(i + 2, moved.z);
  }
}

} // namespace

bool OdDbAttributeBase::readRest(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  context.append(static_cast<OdDbAttributeBase&>(object).rest_, group);
  return true;
}

void OdDbAttributeBase::writeRest(const OdDbObject& object, drawing::GroupSink& sink) {
  static_cast<const OdDbAttributeBase&>(object).rest_.writeTo(sink);
}

MVDRAWING_VISIT_REFERENCES(OdDbAttributeBase, OdDbText, drawing::visitGroups(rest_, visitor);)

OdDbXrecord* OdDbAttributeBase::mtextRecord() const {
  const auto* dictionary = getIf<OdDbDictionary>(extensionDictionary());
  auto* record = dictionary == nullptr ? nullptr : getIf<OdDbXrecord>(dictionary->getAt(kRecordName));
  return record == nullptr || record->isErased() ? nullptr : record;
}

bool OdDbAttributeBase::isMTextAttribute() const {
  if (rest_.find(kEmbedded) < rest_.size())
    return true;
  const OdDbXrecord* record = mtextRecord();
  return record != nullptr && textStart(record->groups()) < record->groups().size();
}

OdDbMTextPtr OdDbAttributeBase::getMTextAttribute() const {
  OdDbMTextPtr text;
  const OdDbXrecord* record = mtextRecord();
  if (const std::size_t embedded = rest_.find(kEmbedded); embedded < rest_.size())
    text = textOf(rest_, embedded + 1, *this);
  else if (record != nullptr && textStart(record->groups()) < record->groups().size())
    text = textOf(record->groups(), textStart(record->groups()), *this);
  if (!text.isNull()) {
    text->setPropertiesFrom(*this);
    if (text->textStyle().isNull())
      text->setTextStyle(textStyle());
  }
  return text;
}

OdString OdDbAttributeBase::textString() const {
  if (const std::size_t embedded = rest_.find(kEmbedded); embedded < rest_.size())
    return contentsOf(rest_, embedded + 1);
  const OdDbXrecord* record = mtextRecord();
  const std::size_t first = record == nullptr ? 0 : textStart(record->groups());
  return record == nullptr || first >= record->groups().size() ? text_ : contentsOf(record->groups(), first);
}

void OdDbAttributeBase::setTextString(const OdString& text) {
  OdDbText::setTextString(text);
  if (const std::size_t embedded = rest_.find(kEmbedded); embedded < rest_.size()) {
    rest_ = withContents(rest_, embedded + 1, text);
  } else if (OdDbXrecord* record = mtextRecord(); record != nullptr) {
    const std::size_t first = textStart(record->groups());
    if (first >= record->groups().size())
      return;
    const drawing::WriteScope scope(*record);
    record->groupsForWrite() = withContents(record->groups(), first, text);
  }
}

void OdDbAttributeBase::setMTextAttribute(const OdDbMText* text) {
  assertWriteEnabled();
  if (OdDbXrecord* record = mtextRecord()) { // the text has one place only
    auto* dictionary = getIf<OdDbDictionary>(extensionDictionary());
    const drawing::WriteScope dictionaryScope(*dictionary), recordScope(*record);
    dictionary->remove(kRecordName);
    record->erase();
  }
  GroupList rest;
  const std::size_t embedded = rest_.find(kEmbedded), flag = rest_.find(71);
  rest.append(rest_, 0, embedded);
  if (flag < embedded)
    rest.setInteger(flag, text != nullptr ? mtextFlag() : 1);
  if (text != nullptr) {
    if (flag >= embedded)
      rest.integer(71, mtextFlag());
    rest.utf8(kEmbedded, kTitle);
    drawing::writeSubclass(*text, OdDbMText::textSubclass(), rest);
    text_ = text->contents();
  }
  rest_ = std::move(rest);
}

OdResult OdDbAttributeBase::applyTransform(const OdGeMatrix3d& matrix) {
  return transformAll(matrix, false);
}

OdResult OdDbAttributeBase::transformAll(const OdGeMatrix3d& matrix, bool nearest) {
  OdDbXrecord* record = mtextRecord();
  const std::size_t embedded = rest_.find(kEmbedded);
  GroupList rest = rest_, old = record != nullptr ? record->groups() : GroupList();
  if (embedded < rest.size() && !drawing::transformMTextGroups(rest, embedded + 1, matrix, nearest))
    return eCannotTransform;
  if (textStart(old) < old.size() && !drawing::transformMTextGroups(old, textStart(old), matrix, nearest))
    return eCannotTransform;
  const OdGeVector3d normal = normal_;
  if (const OdResult result = OdDbText::applyTransform(matrix); result != eOk)
    return result;
  moveAlignment(rest, std::min(embedded, rest.size()), matrix, normal, normal_);
  moveAlignment(old, textStart(old) < old.size() ? textStart(old) : 0, matrix, normal, normal_);
  rest_ = std::move(rest);
  if (record != nullptr) {
    const drawing::WriteScope scope(*record);
    record->groupsForWrite() = std::move(old);
  }
  return eOk;
}

// First the kind of text, then the tag, and a title followed by the text.
std::optional<drawing::AttributeTextBefore2018> OdDbAttributeBase::textBefore2018() const {
  const std::size_t embedded = rest_.find(kEmbedded);
  if (embedded >= rest_.size())
    return std::nullopt;
  drawing::AttributeTextBefore2018 form;
  const auto flag = [&](int code) {
    const std::size_t i = rest_.find(code);
    return i < embedded ? rest_[i].integer : 0;
  };
  constexpr int kFlagCodes[] = {71, 72};
  for (const int code : kFlagCodes)
    form.record.integer(70, flag(code));
  form.record.integer(70, 0); // further attributes that belong to it
  form.record.real(40, 1);
  form.record.text(2, tag_);
  form.record.utf8(1, kTitle);
  form.record.append(rest_, embedded + 1, rest_.size() - embedded - 1);
  // The alignment of the text is repeated after the flags.
  const std::size_t flags = std::min(rest_.find(71), embedded);
  form.rest.append(rest_, 0, flags);
  return form;
}

void OdDbAttributeBase::moveTextToRecord() {
  const std::optional<drawing::AttributeTextBefore2018> form = textBefore2018();
  if (!form)
    return;
  const OdDbDictionaryPtr dictionary = createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
  const OdDbXrecordPtr record = OdDbXrecord::createObject();
  dictionary->setAt(kRecordName, record.get());
  record->groupsForWrite() = form->record;
  rest_ = form->rest;
}

void OdDbAttributeBase::moveTextIntoAttribute() {
  OdDbXrecord* record = mtextRecord();
  if (record == nullptr)
    return;
  const GroupList& groups = record->groups();
  const std::size_t text = textStart(groups);
  std::size_t flag = 0;
  for (const int code : {71, 72}) { // the first two flags say what kind of text it is
    flag = groups.find(70, flag);
    rest_.integer(code, flag < text ? groups[flag++].integer : 0);
  }
  rest_.point(11, wcsToOcs(alignmentPoint(), normal()));
  rest_.utf8(kEmbedded, kTitle);
  rest_.append(groups, text, groups.size() - text);
  const drawing::WriteScope scope(*record);
  const OdDbDictionaryPtr dictionary = extensionDictionary().safeOpenObject(OdDb::kForWrite);
  dictionary->remove(kRecordName);
  record->erase();
}
