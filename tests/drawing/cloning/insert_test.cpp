// A drawing put into another as a block: whatever names the two have in common, each reference shows what it showed,
// the target keeps what it has, the source stays as it was, and a block never comes to contain itself.
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <map>
#include <sstream>

namespace {

using namespace tests;

// "name: contents; name: contents". Contents are words: "#name" is a reference, anything else a text.
std::vector<std::pair<std::string, std::string>> blocksOf(const std::string& written) {
  std::vector<std::pair<std::string, std::string>> blocks;
  std::istringstream parts(written);
  for (std::string part; std::getline(parts >> std::ws, part, ';');)
    blocks.emplace_back(part.substr(0, part.find(':')), part.substr(part.find(':') + 1));
  return blocks;
}

OdString wide(const std::string& text) {
  return OdString::fromUtf8(text);
}

OdDbObjectId blockOf(OdDbDatabase& database, const std::string& name) {
  return name == "file" ? database.getModelSpaceId() : database.symbol(OdDb::kBlockTable, wide(name));
}

void build(OdDbDatabase& database, const std::string& written) {
  const auto blocks = blocksOf(written);
  for (const auto& [name, contents] : blocks) {
    if (blockOf(database, name).isNull())
      addBlock(database, name[0] == '*' ? L"*U" : wide(name));
  }
  for (const auto& [name, contents] : blocks) {
    std::istringstream words(contents);
    for (std::string word; words >> word;) {
      if (word[0] == '#')
        addReference(database, blockOf(database, word.substr(1)), blockOf(database, name));
      else
        addText(database, wide(word), blockOf(database, name));
    }
  }
}

std::string contentsOf(OdDbObjectId block) {
  std::string words;
  for (auto it = forRead<OdDbBlockTableRecord>(block)->newIterator(); !it->done(); it->step()) {
    OdString word;
    if (const OdDbTextPtr text = OdDbText::cast(it->entity()); !text.isNull())
      word = text->textString();
    else
      word = L"#" + forRead<OdDbBlockTableRecord>(OdDbBlockReferencePtr(it->entity())->blockTableRecord())->getName();
    words += " " + word.toUtf8();
  }
  return words;
}

// As above, in order of the names.
std::string definitionsOf(const OdDbDatabase& database) {
  std::map<std::string, std::string> found;
  const OdDbBlockTablePtr table = database.getBlockTableId().safeOpenObject();
  for (auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr block = iterator->getRecordId().safeOpenObject();
    if (!block->isLayout())
      found[block->getName().toUtf8()] = contentsOf(block->objectId());
  }
  std::string all;
  for (const auto& [name, contents] : found)
    all += (all.empty() ? "" : "; ") + name + ":" + contents;
  return all;
}

TEST(Insert, ResolvesNamesThatBothDrawingsHave) {
  const struct {
    const char *what, *target, *source, *result; // of inserting as "door"
    std::size_t renamed;
  } rows[] = {
      {"nothing in common", "lamp: T", "hinge: S; file: x #hinge", "door: x #hinge; hinge: S; lamp: T", 0},
      {"same name, same content", "hinge: h", "hinge: h; file: #hinge", "door: #hinge; hinge: h", 0},
      {"same name, other content", "hinge: T", "hinge: S; file: #hinge", "door: #hinge; hinge: T", 0},
      {"same name, no content", "hinge:", "hinge: S; file: #hinge", "door: #hinge; hinge:", 0},
      {"other letter case", "HINGE: T", "Hinge: S; file: #Hinge", "HINGE: T; door: #HINGE", 0},
      {"anonymous", "*U1: T", "*U1: S; file: #*U1", "*U1: T; *U2: S; door: #*U2", 0},
      {"nobody shows it", "", "hinge: S; file: x", "door: x", 0},
      {"its own nested block", "", "door: S; file: x #door", "door: x #door-2; door-2: S", 1},
      {"free name taken", "door-2: T", "DOOR: S; file: #DOOR", "DOOR-3: S; door: #DOOR-3; door-2: T", 1},
      {"free name comes along", "", "door-2: 2; door: S #door-2; file: #door",
       "door: #door-3; door-2: 2; door-3: S #door-2", 1},
      {"refilled", "door: T #hinge; hinge: T; room: #door", "hinge: S; file: x #hinge",
       "door: x #hinge; hinge: T; room: #door", 0},
      {"at depth three", "c: T", "c: S; b: #c; a: #b; file: #a", "a: #b; b: #c; c: T; door: #a", 0},
      {"itself at depth three", "", "door: S; b: #door; a: #b; file: #a #door",
       "a: #b; b: #door-2; door: #a #door-2; door-2: S", 1},
      {"the target's leads back", "door: T; frame: #door", "frame: S; file: #frame",
       "door: #frame-2; frame: #door; frame-2: S", 1},
      {"through others", "door: T; wall: #door; frame: #wall", "frame: S; file: #frame",
       "door: #frame-2; frame: #wall; frame-2: S; wall: #door", 1},
      {"an empty file", "door: T", "", "door:", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const OdDbDatabasePtr target = OdDbDatabase::create(), source = OdDbDatabase::create();
    build(*target, row.target);
    build(*source, row.source);
    skewHandles(*target);
    const OdDbObjectId present = target->symbol(OdDb::kBlockTable, L"door");
    const std::string before = drawing::canonicalDump(*source);
    OdDbObjectId made;
    expectUndoRestores(*target, [&] { made = target->insert(L"door", source.get(), true); });
    EXPECT_TRUE(present.isNull() || made == present);
    EXPECT_EQ(definitionsOf(*target), row.result);
    EXPECT_EQ(target->insertReport().count("clone.renamed"), row.renamed);
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*source)), "");
    expectSound(*target);
    expectRoundTrip(*target);
  }
}

TEST(Insert, RefusesWhatIsNoOrdinaryBlock) {
  const OdDbDatabasePtr target = OdDbDatabase::create(), source = OdDbDatabase::create();
  addText(*source, L"x");
  forWrite<OdDbBlockTableRecord>(addBlock(*target, L"Site"))->setXref(L"site.dxf");
  addBlock(*target, L"Site|Tree");
  const std::string before = drawing::canonicalDump(*target);
  for (const wchar_t* name : {L"", L"*Model_Space", L"*PAPER_SPACE", L"*Paper_Space7", L"site", L"Site|Tree"})
    EXPECT_TRUE(target->insert(name, source.get(), true).isNull()) << OdString(name).toUtf8();
  EXPECT_TRUE(target->insert(L"door", nullptr, true).isNull());
  for (const bool preserve : {true, false})
    EXPECT_TRUE(target->insert(L"door", target.get(), preserve).isNull());
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*target)), "");
}

// -- References to a block. --

TEST(BlockReferences, AreListedWithoutTraversingTheDrawing) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  constexpr int kBlocks = 300;
  OdDbObjectIdArray blocks, references;
  for (int i = 0; i < kBlocks; ++i) {
    OdString name;
    blocks.append(addBlock(*database, name.format(L"block %d", i)));
    references.append(addReference(*database, blocks[static_cast<unsigned>(i)]));
  }
  std::size_t looks = 0;
  for (const OdDbObjectId& block : blocks)
    looks += forRead<OdDbBlockTableRecord>(block)->referenceHistory().size();
  EXPECT_EQ(looks, std::size_t{kBlocks}); // and not their square
  // One that goes to and fro does not make it longer and longer.
  for (int i = 0; i < 100 * kBlocks; ++i)
    forWrite<OdDbBlockReference>(references[static_cast<unsigned>(i % 3)])->setBlockTableRecord(blocks[i % 2 ? 7 : 8]);
  EXPECT_LT(forRead<OdDbBlockTableRecord>(blocks[7])->referenceHistory().size(), 200u);
}

TEST(BlockReferences, AreTheExistingOnesHoweverTheyWereAdded) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId door = addBlock(*database, L"door"), room = addBlock(*database, L"room");
  const OdDbObjectId inModule = addReference(*database, door, room), roomShown = addReference(*database, room);
  const OdDbObjectId first = addReference(*database, door);
  const auto referring = [&](bool direct = true) {
    OdDbObjectIdArray ids;
    forRead<OdDbBlockTableRecord>(door)->getBlockReferenceIds(ids, direct, false);
    return ids;
  };
  EXPECT_EQ(referring(), (OdDbObjectIdArray{inModule, first}));
  EXPECT_EQ(referring(false), (OdDbObjectIdArray{inModule, roomShown, first}));
  const auto step = [&](auto change, const OdDbObjectIdArray& after) {
    const OdDbObjectIdArray before = referring();
    database->startUndoRecord();
    change();
    EXPECT_EQ(referring(), after);
    database->undo();
    EXPECT_EQ(referring(), before);
    database->redo();
    EXPECT_EQ(referring(), after);
  };
  step([&] { forWrite<OdDbEntity>(first)->erase(); }, {inModule});
  step([&] { OdDbEntityPtr(first.safeOpenObject(OdDb::kForWrite, true))->erase(false); }, {inModule, first});
  step([&] { forWrite<OdDbBlockReference>(first)->setBlockTableRecord(room); }, {inModule});
  step([&] { forWrite<OdDbBlockReference>(first)->setBlockTableRecord(door); }, {inModule, first});
  step([&] { forWrite<OdDbBlockTableRecord>(room)->erase(); }, {first});
  const OdDbIdMapping mapping = cloned({first}, database->getPaperSpaceId());
  EXPECT_EQ(referring(), (OdDbObjectIdArray{first, mapping.valueOf(first)}));
  const drawing::ReadResult read = drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(*database));
  const OdDbBlockTableRecordPtr there = read.database->symbol(OdDb::kBlockTable, L"door").safeOpenObject();
  EXPECT_EQ(there->getBlockReferenceIds().size(), 2u);
}

} // namespace
