// Groups in the nested runs of a multileader.
#pragma once

#include "DbMLeader.h"

#include <optional>
#include <utility>
#include <vector>

namespace drawing {

struct MLeaderBranch {
  OdGePoint3d landing; // where its lines meet
  OdGeVector3d dogleg; // from there to the note, unit length
  double doglegLength = 0;
  std::vector<std::vector<OdGePoint3d>> lines; // each from its arrow on, without the landing
};
std::vector<MLeaderBranch> mleaderBranches(const OdDbMLeader& leader);
// The groups of its note, without those of the branches.
GroupList mleaderContext(const OdDbMLeader& leader);
// Of a note that is a block: its attribute definitions and their texts.
std::vector<std::pair<OdDbObjectId, OdString>> mleaderAttributes(const OdDbMLeader& leader);
OdDbObjectId mleaderArrow(const OdDbMLeader& leader); // null: the usual one
// Colours of the parts are one number: how it is meant, and an index or red, green and blue. None: that of the leader.
std::optional<OdCmColor> mleaderColor(std::int64_t raw);

} // namespace drawing
