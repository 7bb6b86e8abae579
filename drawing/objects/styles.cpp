#include "DbDictionary.h"
#include "DbStyles.h"
#include "drawing/model/object_store.h"
#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/raw_groups.h"

using drawing::field;
using drawing::GroupKind;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbRawStyle, OdDbObject);
MVDRAWING_DEFINE_OBJECT(OdDbMLeaderStyle, OdDbRawStyle, "MLEADERSTYLE");
MVDRAWING_DEFINE_OBJECT(OdDbTableStyle, OdDbRawStyle, "TABLESTYLE");
MVDRAWING_DEFINE_OBJECT(OdDbVisualStyle, OdDbRawStyle, "VISUALSTYLE");
MVDRAWING_DEFINE_OBJECT(OdDbMaterial, OdDbObject, "MATERIAL");

const drawing::Description& OdDbMLeaderStyle::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {drawing::rawSubclass<&OdDbMLeaderStyle::groups_>("AcDbMLeaderStyle")});
  return description;
}

const drawing::Description& OdDbTableStyle::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {drawing::rawSubclass<&OdDbTableStyle::groups_>("AcDbTableStyle")});
  return description;
}

const drawing::Description& OdDbVisualStyle::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {drawing::rawSubclass<&OdDbVisualStyle::groups_>("AcDbVisualStyle")});
  return description;
}

const drawing::Description& OdDbMaterial::ownDescription() {
  using Self = OdDbMaterial;
  static const drawing::Description description(
      &OdDbObject::ownDescription(), {{"AcDbMaterial", {field<&Self::name_>(1), field<&Self::description_>(2)}}});
  return description;
}

OdString OdDbRawStyle::getName() const {
  const auto* dictionary = drawing::getIf<OdDbDictionary>(ownerId());
  return dictionary == nullptr ? OdString() : dictionary->nameAt(objectId());
}

MVDRAWING_VISIT_REFERENCES(OdDbRawStyle, OdDbObject, drawing::visitGroups(groups_, visitor);)

void OdDbRawStyle::putReal(int code, double value) {
  assertWriteEnabled();
  const std::size_t i = groups_.find(code);
  if (i < groups_.size())
    groups_.setReal(i, value);
  else
    groups_.real(code, value);
}

void OdDbRawStyle::putReference(int code, OdDbObjectId value) {
  assertWriteEnabled();
  const std::size_t i = groups_.find(code);
  if (i < groups_.size())
    groups_.setId(i, value);
  else
    groups_.reference(code, value);
}

OdString OdDbMLeaderStyle::getDescription() const {
  return drawing::rawText(groups_, 3);
}
std::int16_t OdDbMLeaderStyle::contentType() const {
  return static_cast<std::int16_t>(drawing::rawInteger(groups_, 170, 2));
}
double OdDbMLeaderStyle::scale() const {
  return drawing::rawReal(groups_, 142, 1);
}
void OdDbMLeaderStyle::setScale(double value) {
  putReal(142, value);
}
double OdDbMLeaderStyle::textHeight() const {
  return drawing::rawReal(groups_, 45);
}
void OdDbMLeaderStyle::setTextHeight(double value) {
  putReal(45, value);
}
double OdDbMLeaderStyle::arrowSize() const {
  return drawing::rawReal(groups_, 44);
}
void OdDbMLeaderStyle::setArrowSize(double value) {
  putReal(44, value);
}
double OdDbMLeaderStyle::landingGap() const {
  return drawing::rawReal(groups_, 42);
}
double OdDbMLeaderStyle::doglegLength() const {
  return drawing::rawReal(groups_, 43);
}
OdDbObjectId OdDbMLeaderStyle::textStyleId() const {
  return drawing::rawReference(groups_, 342);
}
void OdDbMLeaderStyle::setTextStyleId(OdDbObjectId value) {
  putReference(342, value);
}
OdDbObjectId OdDbMLeaderStyle::leaderLineTypeId() const {
  return drawing::rawReference(groups_, 340);
}
OdDbObjectId OdDbMLeaderStyle::arrowSymbolId() const {
  return drawing::rawReference(groups_, 341);
}
OdDbObjectId OdDbMLeaderStyle::blockId() const {
  return drawing::rawReference(groups_, 343);
}
OdString OdDbMLeaderStyle::defaultMText() const {
  return drawing::rawText(groups_, 300);
}

OdString OdDbTableStyle::getDescription() const {
  return drawing::rawText(groups_, 3);
}
bool OdDbTableStyle::isFlowUp() const {
  return drawing::rawInteger(groups_, 70) != 0;
}
double OdDbTableStyle::horzCellMargin() const {
  return drawing::rawReal(groups_, 40);
}
double OdDbTableStyle::vertCellMargin() const {
  return drawing::rawReal(groups_, 41);
}

namespace {

// The group of that code behind the first margin; two of its flags have codes that stand before it too.
std::size_t afterMargins(const drawing::GroupList& groups, int code) {
  return groups.find(code, std::min(groups.find(41), groups.size()));
}

// Start of the data of a kind of rows: each begins with its text style.
std::size_t rowStart(const drawing::GroupList& groups, unsigned row) {
  std::size_t i = groups.find(7);
  for (; row > 0 && i < groups.size(); --row)
    i = groups.find(7, i + 1);
  return i;
}

} // namespace

bool OdDbTableStyle::isTitleSuppressed() const {
  const std::size_t i = afterMargins(groups_, 280);
  return i < groups_.size() && groups_[i].integer != 0;
}
bool OdDbTableStyle::isHeaderSuppressed() const {
  const std::size_t i = afterMargins(groups_, 281);
  return i < groups_.size() && groups_[i].integer != 0;
}
double OdDbTableStyle::textHeight(RowType row) const {
  const std::size_t i = groups_.find(140, rowStart(groups_, row));
  return i < groups_.size() && groups_[i].kind == GroupKind::kReal ? groups_[i].real : 0;
}
OdString OdDbTableStyle::textStyleName(RowType row) const {
  const std::size_t i = rowStart(groups_, row);
  return i < groups_.size() ? groups_.stringOf(groups_[i]) : OdString();
}

OdString OdDbVisualStyle::getDescription() const {
  return drawing::rawText(groups_, 2);
}
std::int16_t OdDbVisualStyle::type() const {
  return static_cast<std::int16_t>(drawing::rawInteger(groups_, 70));
}
bool OdDbVisualStyle::isInternalUseOnly() const {
  return drawing::rawInteger(groups_, 291) != 0;
}

MVDRAWING_SETTER(OdDbMaterial, setDescription, const OdString&, description_)
