#include "DbMLeader.h"

#include "DbBlockTable.h"
#include "drawing/annotations/multileader_parts.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/raw_groups.h"

#include <cmath>
#include <optional>

using drawing::GeometricRole;
using drawing::GroupList;
using drawing::GroupRole;

MVDRAWING_DEFINE_OBJECT(OdDbMLeader, OdDbEntity, "MULTILEADER");

const drawing::Description& OdDbMLeader::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {drawing::rawSubclass<&OdDbMLeader::groups_>("AcDbMLeader")});
  return description;
}

MVDRAWING_VISIT_REFERENCES(OdDbMLeader, OdDbEntity, drawing::visitGroups(groups_, visitor);)

namespace {

enum Level { kOwn, kContext, kBranch, kLine };

struct Part {
  Level level;
  std::size_t first, end;
};

struct Bracket {
  int code;
  std::string_view text;
  Level from, to;
};
constexpr Bracket kBrackets[] = {{300, "CONTEXT_DATA{", kOwn, kContext}, {302, "LEADER{", kContext, kBranch},
                                 {304, "LEADER_LINE{", kBranch, kLine},  {305, "}", kLine, kBranch},
                                 {303, "}", kBranch, kContext},          {301, "}", kContext, kOwn}};

// Runs of groups of one level, in file order; the brackets belong to none. A code means other things in other levels.
std::vector<Part> partsOf(const GroupList& groups) {
  std::vector<Part> parts{{kOwn, 0, groups.size()}};
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].kind != drawing::GroupKind::kText)
      continue;
    for (const Bracket& bracket : kBrackets) {
      if (groups[i].code != bracket.code || parts.back().level != bracket.from ||
          groups.textOf(groups[i]) != bracket.text)
        continue;
      parts.back().end = i;
      parts.push_back({bracket.to, i + 1, groups.size()});
      break;
    }
  }
  return parts;
}

constexpr GroupRole kOwnRoles[] = {{45, GeometricRole::kLength}};
constexpr GroupRole kContextRoles[] = {
    {10, GeometricRole::kPoint},      {12, GeometricRole::kPoint},      {15, GeometricRole::kPoint},
    {110, GeometricRole::kPoint},     {11, GeometricRole::kNormal},     {14, GeometricRole::kNormal},
    {13, GeometricRole::kDirection},  {111, GeometricRole::kDirection}, {40, GeometricRole::kLength},
    {112, GeometricRole::kDirection}, {41, GeometricRole::kLength},     {43, GeometricRole::kLength},
    {44, GeometricRole::kLength},     {140, GeometricRole::kLength},    {142, GeometricRole::kLength},
    {143, GeometricRole::kLength},    {145, GeometricRole::kLength},    {16, GeometricRole::kLength},
    {26, GeometricRole::kLength},     {36, GeometricRole::kLength}};
constexpr GroupRole kBranchRoles[] = {{10, GeometricRole::kPoint},
                                      {11, GeometricRole::kDirection},
                                      {12, GeometricRole::kPoint},
                                      {13, GeometricRole::kPoint},
                                      {40, GeometricRole::kLength}};
constexpr GroupRole kLineRoles[] = {{10, GeometricRole::kPoint},
                                    {11, GeometricRole::kPoint},
                                    {12, GeometricRole::kPoint},
                                    {40, GeometricRole::kLength}};

std::span<const GroupRole> rolesOf(Level level) {
  const std::span<const GroupRole> all[] = {kOwnRoles, kContextRoles, kBranchRoles, kLineRoles};
  return all[level];
}

// The groups of all parts of a level, one behind the other.
GroupList levelOf(const GroupList& groups, Level level) {
  GroupList all;
  for (const Part& part : partsOf(groups)) {
    if (part.level == level)
      all.append(groups, part.first, part.end - part.first);
  }
  return all;
}

} // namespace

OdDbMLeader::ContentType OdDbMLeader::contentType() const {
  return static_cast<ContentType>(drawing::rawInteger(levelOf(groups_, kOwn), 172));
}
OdDbObjectId OdDbMLeader::MLeaderStyle() const {
  return drawing::rawReference(levelOf(groups_, kOwn), 340);
}
OdString OdDbMLeader::contents() const {
  return drawing::rawText(levelOf(groups_, kContext), 304);
}
OdGePoint3d OdDbMLeader::textLocation() const {
  return drawing::rawPoint(levelOf(groups_, kContext), 12);
}
OdGeVector3d OdDbMLeader::textDirection() const {
  return drawing::rawPoint(levelOf(groups_, kContext), 13, {1, 0, 0}).asVector();
}
OdGeVector3d OdDbMLeader::normal() const {
  const GroupList context = levelOf(groups_, kContext);
  return drawing::rawPoint(context, contentType() == kBlockContent ? 14 : 11, {0, 0, 1}).asVector();
}
double OdDbMLeader::textHeight() const {
  return drawing::rawReal(levelOf(groups_, kContext), 41);
}
double OdDbMLeader::arrowSize() const {
  return drawing::rawReal(levelOf(groups_, kContext), 140);
}
double OdDbMLeader::scale() const {
  return drawing::rawReal(levelOf(groups_, kOwn), 45, 1);
}
OdDbObjectId OdDbMLeader::blockContentId() const {
  return drawing::rawReference(levelOf(groups_, kContext), 341);
}
OdGePoint3d OdDbMLeader::blockPosition() const {
  return drawing::rawPoint(levelOf(groups_, kContext), 15);
}

std::vector<std::vector<OdGePoint3d>> OdDbMLeader::leaderLines() const {
  std::vector<std::vector<OdGePoint3d>> lines;
  for (const Part& part : partsOf(groups_)) {
    if (part.level != kLine)
      continue;
    lines.emplace_back();
    OdGePoint3d point;
    for (std::size_t i = part.first; i < part.end; ++i) {
      if (groups_[i].code == 10 && drawing::tripleAt(groups_, i, point))
        lines.back().push_back(point);
    }
  }
  return lines;
}

namespace drawing {

std::vector<MLeaderBranch> mleaderBranches(const OdDbMLeader& leader) {
  const GroupList& groups = leader.groups();
  std::vector<MLeaderBranch> branches;
  Level before = kOwn;
  for (const Part& part : partsOf(groups)) {
    GroupList own;
    own.append(groups, part.first, part.end - part.first);
    if (part.level == kBranch && before != kLine)
      branches.push_back({rawPoint(own, 10), rawPoint(own, 11).asVector(), rawReal(own, 40), {}});
    // The length of the dogleg may stand behind the lines.
    if (part.level == kBranch && before == kLine && !branches.empty())
      branches.back().doglegLength = rawReal(own, 40, branches.back().doglegLength);
    before = part.level;
    if (part.level != kLine || branches.empty())
      continue;
    std::vector<OdGePoint3d>& line = branches.back().lines.emplace_back();
    OdGePoint3d point;
    for (std::size_t i = own.find(10); i < own.size(); i = own.find(10, i + 1)) {
      if (tripleAt(own, i, point))
        line.push_back(point);
    }
  }
  return branches;
}

GroupList mleaderContext(const OdDbMLeader& leader) {
  return levelOf(leader.groups(), kContext);
}

std::vector<std::pair<OdDbObjectId, OdString>> mleaderAttributes(const OdDbMLeader& leader) {
  const GroupList own = levelOf(leader.groups(), kOwn);
  std::vector<std::pair<OdDbObjectId, OdString>> all;
  for (std::size_t i = 0; i < own.size(); ++i) {
    if (own[i].code == 330 && own[i].kind == GroupKind::kReference)
      all.emplace_back(own.idOf(own[i]), OdString());
    else if (own[i].code == 302 && own[i].kind == GroupKind::kText && !all.empty())
      all.back().second = own.stringOf(own[i]);
  }
  return all;
}

OdDbObjectId mleaderArrow(const OdDbMLeader& leader) {
  return rawReference(levelOf(leader.groups(), kOwn), 342);
}

std::optional<OdCmColor> mleaderColor(std::int64_t raw) {
  constexpr std::int64_t kTrue = 0xC2, kIndex = 0xC3;
  const std::int64_t meaning = (raw >> 24) & 255;
  if (meaning == kTrue)
    return OdCmColor{7, static_cast<std::int32_t>(raw & 0xFFFFFF)};
  if (meaning == kIndex)
    return OdCmColor{static_cast<std::int16_t>(raw & 0x1FF), OdCmColor::kNoTrueColor};
  return std::nullopt;
}

} // namespace drawing

namespace {

// The sixteen entries of the block's matrix, row by row.
std::optional<std::size_t> findMatrix(const GroupList& groups) {
  constexpr std::size_t kEntries = 16;
  const std::size_t first = groups.find(47);
  for (std::size_t i = first; i < first + kEntries; ++i) {
    if (i >= groups.size() || groups[i].code != 47 || groups[i].kind != drawing::GroupKind::kReal)
      return std::nullopt;
  }
  return first;
}

OdGeMatrix3d readMatrix(const GroupList& groups, std::size_t first) {
  OdGeMatrix3d matrix;
  for (std::size_t i = 0; i < 16; ++i)
    matrix.entry[i / 4][i % 4] = groups[first + i].real;
  return matrix;
}

void rotateAngles(GroupList& groups, const OdGeMatrix3d& matrix, const OdGeVector3d& textNormal,
                  const OdGeVector3d& blockNormal) {
  const drawing::PlaneMap text(matrix, textNormal), block(matrix, blockNormal);
  for (const Part& part : partsOf(groups)) {
    for (std::size_t i = part.first; i < part.end && part.level == kContext; ++i) {
      if ((groups[i].code == 42 || groups[i].code == 46) && groups[i].kind == drawing::GroupKind::kReal)
        groups.setReal(i, (groups[i].code == 42 ? text : block).angle(groups[i].real));
    }
  }
}

} // namespace

OdResult OdDbMLeader::applyTransform(const OdGeMatrix3d& matrix) {
  if (!matrix.isUniformlyScaled(OdGeTol(1e-10)) || matrix.determinant() < 0)
    return eCannotTransform;
  const double length = matrix.scale(), scale = std::fabs(length - 1) > 1e-14 ? length : 1;
  const GroupList context = levelOf(groups_, kContext);
  rotateAngles(groups_, matrix, drawing::rawPoint(context, 11, {0, 0, 1}).asVector(),
               drawing::rawPoint(context, 14, {0, 0, 1}).asVector());
  for (const Part& part : partsOf(groups_))
    drawing::transformRawGroups(groups_, part.first, part.end, rolesOf(part.level), matrix, scale);
  if (const auto first = findMatrix(groups_)) {
    const OdGeMatrix3d moved = matrix * readMatrix(groups_, *first);
    for (std::size_t i = 0; i < 16; ++i)
      groups_.setReal(*first + i, moved.entry[i / 4][i % 4]);
  }
  return eOk;
}

OdResult OdDbMLeader::getGeomExtents(OdGeExtents3d& extents) const {
  OdGeExtents3d all;
  for (const auto& line : leaderLines()) {
    for (const OdGePoint3d& point : line)
      all.addPoint(point);
  }
  const GroupList context = levelOf(groups_, kContext);
  const GroupList branches = levelOf(groups_, kBranch);
  OdGePoint3d point;
  for (std::size_t i = branches.find(10); i < branches.size(); i = branches.find(10, i + 1)) {
    if (drawing::tripleAt(branches, i, point))
      all.addPoint(point);
  }
  if (contentType() == kMTextContent) { // the location lies on the upper edge: left, in the middle or right
    const double width = drawing::rawReal(context, 43), height = std::max(drawing::rawReal(context, 44), textHeight());
    const OdGeVector3d along = textDirection() * width, down = textDirection().crossProduct(normal()) * height;
    const auto side = static_cast<double>(drawing::rawInteger(context, 171, 1) - 1);
    const OdGePoint3d corner = textLocation() - along * (side / 2);
    for (const OdGeVector3d& to : {OdGeVector3d(), along, down, along + down})
      all.addPoint(corner + to);
  }
  const auto* block = drawing::getIf<OdDbBlockTableRecord>(blockContentId());
  const auto matrix = findMatrix(groups_);
  OdGeExtents3d contents;
  if (block != nullptr && matrix && block->getGeomExtents(contents) == eOk) {
    contents.transformBy(readMatrix(groups_, *matrix));
    all.addExt(contents);
  }
  extents.addExt(all);
  return all.isValidExtents() ? eOk : eNotApplicable;
}
