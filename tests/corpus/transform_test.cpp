// Every entity of real drawings goes where a matrix takes it, or says no and stays; the way back leads to where it was.
#include "DbBlockTable.h"
#include "DbDxf.h"
#include "DbEntity.h"
#include "tests/support/drawings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

namespace {

std::string textOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in)
    ADD_FAILURE() << path << " is missing";
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::vector<std::string> paths() {
  const char* folder = std::getenv("BLOCKCOMMON_CORPUS");
  if (folder == nullptr) {
    ADD_FAILURE() << "BLOCKCOMMON_CORPUS is not set";
    return {};
  }
  std::istringstream list(textOf(std::string(folder) + "/FILES.tsv"));
  std::vector<std::string> all;
  std::string line;
  std::getline(list, line); // headings
  while (std::getline(list, line))
    all.push_back(std::string(folder) + "/" + line.substr(0, line.find('\t')));
  return all;
}

bool near(const OdGePoint3d& a, const OdGePoint3d& b, double size) {
  return a.distanceTo(b) <= 1e-8 * (1 + size);
}

bool sameBox(const OdGeExtents3d& a, const OdGeExtents3d& b) {
  const double size = a.minPoint().asVector().length() + a.maxPoint().asVector().length();
  return near(a.minPoint(), b.minPoint(), size) && near(a.maxPoint(), b.maxPoint(), size);
}

// Quarter turns, scales and moves: boxes of points go to boxes.
OdGeMatrix3d boxToBox(double scale) {
  return OdGeMatrix3d::translation({100, -20, 3}) * OdGeMatrix3d::scaling(scale) *
         OdGeMatrix3d::rotation(1.5707963267948966, OdGeVector3d::kZAxis);
}

// Kinds that cannot grow, and parts that follow their owner only.
const std::set<std::string> kMayRefuse{
    "3DSOLID", "REGION", "ACAD_PROXY_ENTITY", "VIEWPORT", "VERTEX", "POLYLINE", "BLOCK", "ENDBLK", "3DLINE"};

void check(OdDbEntity& entity, const std::string& where, const OdGeMatrix3d& matrix) {
  OdGeExtents3d before, after, back;
  const bool sized = entity.getGeomExtents(before) == eOk;
  if (entity.transformBy(matrix) != eOk) {
    EXPECT_EQ(kMayRefuse.count(entity.dxfName()), 1u) << where;
    return;
  }
  const bool stillSized = entity.getGeomExtents(after) == eOk;
  EXPECT_EQ(sized, stillSized) << where;
  if (sized && before.isValidExtents()) {
    OdGeExtents3d wanted = before;
    wanted.transformBy(matrix);
    EXPECT_TRUE(sameBox(after, wanted)) << where;
  }
  ASSERT_EQ(entity.transformBy(matrix.inverse()), eOk) << where;
  if (sized && before.isValidExtents()) {
    EXPECT_EQ(entity.getGeomExtents(back), eOk) << where;
    EXPECT_TRUE(sameBox(back, before)) << where;
  }
}

TEST(Transform, EveryEntityGoesAndComesBack) {
  for (const std::string& path : paths()) {
    const drawing::ReadResult read = drawing::readDrawingFromMemory(textOf(path));
    for (OdDbObjectId id : read.database.isNull() ? std::vector<OdDbObjectId>() : read.database->allIds()) {
      const OdDbEntityPtr entity = OdDbEntity::cast(id.safeOpenObject(OdDb::kForWrite).get());
      if (entity.isNull())
        continue;
      const double scale = entity->dxfName() == "ACAD_TABLE" ? 1 : 2;
      check(*entity, path + " " + entity->dxfName() + " " + id.getHandle().ascii(), boxToBox(scale));
    }
  }
}

} // namespace
