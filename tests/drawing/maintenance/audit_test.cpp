// The audit: every way in which a drawing can fall apart has a code, is mended when that is asked for, and is not found
// again, neither in memory nor in the file that is written.
#include "DbDictionary.h"
#include "DbLayout.h"
#include "drawing/audit.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <functional>

using namespace tests;

namespace {

// A block "door" that model space shows, with an attribute, and a layer. An id that a file mentions and never brings
// leads nowhere.
struct House {
  House() {
    const OdDbDatabasePtr made = OdDbDatabase::create();
    const OdDbObjectId block = addBlock(*made, L"door");
    addText(*made, L"inside", block);
    addLayer(*made, L"walls");
    const OdDbObjectId shown = addReference(*made, block);
    addAttribute(shown, L"TAG", L"value");
    const OdDbObjectId line = addText(*made, L"x");
    std::string bytes = drawing::writeDrawingToMemory(*made);
    bytes.insert(bytes.rfind("  0\nENDSEC\n"), "  0\nXRECORD\n5\nFFF0\n100\nAcDbXrecord\n280\n1\n340\nFFFF\n");
    database = drawing::readDrawingFromMemory(bytes).database;
    door = database->symbol(OdDb::kBlockTable, L"door");
    layer = database->symbol(OdDb::kLayerTable, L"walls");
    reference = database->objectIdOf(shown.getHandle());
    text = database->objectIdOf(line.getHandle());
    const auto record = forWrite<OdDbXrecord>(database->objectIdOf(0xFFF0));
    nowhere = record->groups().idOf(record->groups()[0]);
    record->erase();
  }
  OdSmartPtr<OdDbLayout> layout() const {
    return forWrite<OdDbLayout>(forRead<OdDbBlockTableRecord>(database->getPaperSpaceId())->getLayoutId());
  }
  void change(OdDbObjectId id, const std::function<void(OdDbObject&)>& how) const { how(*forWrite<OdDbObject>(id)); }

  OdDbDatabasePtr database;
  OdDbObjectId door, layer, reference, text, nowhere;
};

struct AuditCase {
  const char* code;
  std::function<void(House&)> damage;
};

const AuditCase kAuditCases[] = {
    {"audit.in-no-list", [](House& h) { h.database->addObject(OdDbText::createObject().get(), h.door); }},
    {"audit.in-no-list", [](House& h) { h.database->addObject(OdDbAttribute::createObject().get(), h.door); }},
    {"audit.owner-does-not-list", [](House& h) { h.change(h.text, [&](OdDbObject& o) { o.setOwnerId(h.door); }); }},
    {"audit.owner-missing", [](House& h) { h.database->addObject(OdDbXrecord::createObject().get(), h.nowhere); }},
    {"audit.entry-to-nothing",
     [](House& h) { forWrite<OdDbDictionary>(h.database->getNamedObjectsDictionaryId())->setAt(L"GHOST", h.nowhere); }},
    {"audit.reference-to-nothing",
     [](House& h) { h.change(h.text, [&](OdDbObject& o) { o.unmodelledGroups().reference(340, h.nowhere); }); }},
    {"audit.reference-to-other-drawing",
     [](House& h) {
       static const OdDbDatabasePtr other = OdDbDatabase::create();
       h.change(h.text, [&](OdDbObject& o) { o.unmodelledGroups().reference(340, other->getModelSpaceId()); });
     }},
    {"audit.no-layer",
     [](House& h) {
       forWrite<OdDbText>(h.text)->setLayer(h.layer);
       forWrite<OdDbLayerTableRecord>(h.layer)->erase();
     }},
    {"audit.reference-without-block", [](House& h) { forWrite<OdDbBlockTableRecord>(h.door)->erase(); }},
    {"audit.block-without-ends",
     [](House& h) { forWrite<OdDbEntity>(forRead<OdDbBlockTableRecord>(h.door)->blockEndId())->erase(); }},
    {"audit.sequence-without-end",
     [](House& h) { forWrite<OdDbEntity>(forRead<OdDbBlockReference>(h.reference)->sequenceEndId())->erase(); }},
    {"audit.layout-without-block", [](House& h) { h.layout()->setBlockTableRecordId(h.nowhere); }},
    {"audit.layout-without-block", [](House& h) { h.layout()->setBlockTableRecordId(h.database->getModelSpaceId()); }},
    {"audit.space-without-layout", [](House& h) { h.layout()->erase(); }},
    {"audit.block-of-no-layout", [](House& h) { forWrite<OdDbBlockTableRecord>(h.door)->setLayoutId(h.nowhere); }},
    {"audit.name-illegal", [](House& h) { forWrite<OdDbLayerTableRecord>(h.layer)->setName(L" in?out/ "); }},
    {"audit.block-cycle",
     [](House& h) {
       const OdDbObjectId inner = addReference(*h.database, h.reference, h.door);
       h.change(inner, [&](OdDbObject& o) {
         class Redirect final : public drawing::ReferenceVisitor {
         public:
           OdDbObjectId from, to;
           void visit(OdDbObjectId& id, OdDb::ReferenceType) override { id = id == from ? to : id; }
         } redirect;
         redirect.from = h.reference;
         redirect.to = h.door;
         o.visitReferences(redirect);
       });
     }},
};

std::string issuesOf(const drawing::Report& report) {
  std::string all;
  for (const drawing::Issue& issue : report.issues())
    all += issue.code + " " + describe(issue) + "\n";
  return all;
}

TEST(Audit, FindsAndRepairsEveryFault) {
  for (const AuditCase& row : kAuditCases) {
    SCOPED_TRACE(row.code);
    House house;
    row.damage(house);
    const std::string before = drawing::canonicalDump(*house.database);
    const drawing::Report found = drawing::auditDrawing(*house.database);
    EXPECT_TRUE(found.has(row.code)) << issuesOf(found);
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*house.database)), "") << "only looking changed it";
    expectUndoRestores(*house.database, [&] {
      const drawing::Report repaired = drawing::auditDrawing(*house.database, true);
      for (const drawing::Issue& issue : repaired.issues())
        EXPECT_FALSE(issue.done.empty()) << issue.code;
      EXPECT_EQ(repaired.outcome(), drawing::Outcome::kRepaired);
    });
    expectSound(*house.database);
    if (const OdDbDatabasePtr again = expectRoundTrip(*house.database); !again.isNull())
      expectSound(*again);
  }
}

TEST(Audit, ReportsWhatItDoesNotRepair) {
  House house;
  forWrite<OdDbBlockTableRecord>(house.door)->attachEntity(house.text);
  EXPECT_TRUE(drawing::auditDrawing(*house.database).has("audit.listed-twice"));
  EXPECT_EQ(drawing::auditDrawing(*house.database).outcome(), drawing::Outcome::kRepaired);
}

// A reference that was kept unread and holds nothing that could be looked at.
TEST(Audit, AcceptsReferencesWithoutGroups) {
  const drawing::ReadResult read = readWell(dxf(section("ENTITIES", "0|INSERT\n5|34\n330|1 70\n")));
  EXPECT_EQ(drawing::auditDrawing(*read.database).outcome(), drawing::Outcome::kWhole);
}

} // namespace
