// Loading external references never changes the drawing that refers to them, ends for every shape of references
// between drawings, and opens each drawing once.
#include "drawing/xref.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <map>

using drawing::XrefStatus;

namespace tests {
namespace {

OdDbObjectId addXref(OdDbDatabase& database, const OdString& name, const OdString& path, bool overlay = false) {
  const OdDbObjectId block = addBlock(database, name);
  forWrite<OdDbBlockTableRecord>(block)->setXref(path, overlay);
  addReference(database, block);
  return block;
}

// Drawings by path, kept as the bytes of their files.
class Shelf {
public:
  // Each word of `refers` is the path of a drawing that is attached, or overlaid after a "+".
  void put(const std::string& path, const std::vector<std::string>& refers) {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    addText(*database, OdString::fromUtf8(path));
    for (const std::string& word : refers) {
      const bool overlay = word[0] == '+';
      const OdString to = OdString::fromUtf8(word.substr(overlay ? 1 : 0));
      OdString name = L"to " + to;
      while (!database->symbol(OdDb::kBlockTable, name).isNull()) // names are unique, paths need not be
        name += L" again";
      addXref(*database, name, to, overlay);
    }
    files[path] = drawing::writeDrawingToMemory(*database);
  }
  drawing::XrefLoader loader() {
    return {[this](const OdString& saved, const OdDbDatabase&) {
              const std::string path = saved.toUtf8();
              return files.count(path) != 0 ? path : std::string();
            },
            [this](const std::string& path) {
              ++opened[path];
              drawing::ReadResult read = drawing::readDrawingFromMemory(files[path], path);
              if (!read.database.isNull())
                read.database->fileInfo().path = path;
              return read;
            }};
  }
  OdDbDatabasePtr host(const std::string& path) {
    OdDbDatabasePtr database = drawing::readDrawingFromMemory(files[path], path).database;
    database->fileInfo().path = path;
    return database;
  }
  std::map<std::string, std::string> files;
  std::map<std::string, int> opened;
};

// "b(c x) d(c)": what is loaded below a drawing. "!" not found, "#" refused, "@" a cycle, "-" not followed, "~"
// unloaded.
std::string tree(const OdDbDatabase& database) {
  std::string text;
  const auto table = forRead<OdDbSymbolTable>(database.getBlockTableId());
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr block = iterator->getRecord();
    if (!block->isFromExternalReference())
      continue;
    const std::map<XrefStatus, std::string> marks = {{XrefStatus::kNotLoaded, "?"},   {XrefStatus::kNotFound, "!"},
                                                     {XrefStatus::kRefused, "#"},     {XrefStatus::kCycle, "@"},
                                                     {XrefStatus::kNotFollowed, "-"}, {XrefStatus::kUnloaded, "~"}};
    const auto mark = marks.find(block->xrefStatus());
    text += (text.empty() ? "" : " ") + block->pathName().toUtf8() + (mark == marks.end() ? "" : mark->second);
    if (const OdDbDatabase* below = block->xrefDatabase(); below != nullptr) {
      const std::string inner = tree(*below);
      text += inner.empty() ? "" : "(" + inner + ")";
    }
  }
  return text;
}

std::string codes(const drawing::Report& report) {
  std::string text;
  for (const drawing::Issue& issue : report.issues())
    text += (text.empty() ? "" : " ") + issue.code.substr(5);
  return text;
}

TEST(Xref, LoadsEveryKindOfReferenceAndReportsFailures) {
  Shelf shelf;
  shelf.put("leaf", {});
  shelf.put("one", {"leaf"});
  shelf.put("two", {"one"});
  shelf.put("three", {"two"});
  shelf.put("over", {"+leaf", "one"});
  shelf.put("ping", {"pong"});
  shelf.put("pong", {"ping", "leaf"});
  shelf.put("self", {"self"});
  shelf.put("twice", {"one", "leaf", "one"});
  shelf.files["broken"] = "no drawing";
  shelf.files["cut"] = shelf.files["one"].substr(0, shelf.files["one"].rfind("EOF"));
  shelf.files["binary.dwg"] = std::string("AC1032\0\0\0\0", 10);
  const struct {
    std::vector<std::string> refers;
    const char* tree;
    const char* issues;
  } rows[] = {
      {{"leaf"}, "leaf", ""},
      {{"+leaf"}, "leaf", ""}, // the host's own overlays are followed
      {{"three"}, "three(two(one(leaf)))", ""},
      {{"over"}, "over(leaf- one(leaf))", ""},
      {{"+over"}, "over(leaf- one(leaf))", ""},
      {{"twice"}, "twice(one(leaf) leaf one(leaf))", ""},
      {{"two", "one"}, "two(one(leaf)) one(leaf)", ""},
      {{"ping"}, "ping(pong(ping@ leaf))", "cycle"},
      {{"ping", "pong"}, "ping(pong(ping@ leaf)) pong(ping@ leaf)", "cycle"},
      {{"self"}, "self(self@)", "cycle"},
      {{"host"}, "host@", "cycle"},
      {{"gone"}, "gone!", "not-found"},
      {{"gone", "leaf"}, "gone! leaf", "not-found"},
      {{"cut"}, "cut(leaf)", "repaired"},
      {{"broken", "broken"}, "broken# broken#", "refused refused"},
      {{"binary.dwg"}, "binary.dwg#", "refused"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.tree);
    shelf.put("host", row.refers);
    const OdDbDatabasePtr host = shelf.host("host");
    shelf.opened.clear();
    const drawing::Report report = drawing::loadXrefs(*host, shelf.loader());
    EXPECT_EQ(tree(*host), row.tree);
    EXPECT_EQ(codes(report), row.issues);
    EXPECT_EQ(report.outcome(), drawing::Outcome::kWhole);
    for (const auto& [path, times] : shelf.opened)
      EXPECT_EQ(times, 1) << path;
  }
}

// What its user unloaded stays so, in the file too.
TEST(Xref, LoadingChangesNeitherFileNorDumpNorUndo) {
  Shelf shelf;
  shelf.put("leaf", {});
  shelf.put("away", {});
  shelf.put("host", {"leaf", "+leaf2", "gone", "away"});
  shelf.put("leaf2", {"leaf"});
  const OdDbDatabasePtr host = shelf.host("host");
  addLayer(*host, L"to leaf|Walls");
  forWrite<OdDbBlockTableRecord>(host->symbol(OdDb::kBlockTable, L"to away"))->setIsUnloaded(true);
  host->startUndoRecord();
  addText(*host, L"a step");
  const std::string file = drawing::writeDrawingToMemory(*host), dump = drawing::canonicalDump(*host);
  const std::uint64_t changes = host->changeCount();
  drawing::loadXrefs(*host, shelf.loader());
  drawing::loadXrefs(*host, shelf.loader()); // once more lets go of the first
  EXPECT_EQ(host->changeCount(), changes);
  EXPECT_EQ(drawing::writeDrawingToMemory(*host), file);
  EXPECT_EQ(drawing::canonicalDump(*host), dump);
  ASSERT_EQ(host->undo(), eOk);
  ASSERT_EQ(host->redo(), eOk);
  EXPECT_EQ(drawing::canonicalDump(*host), dump);
  EXPECT_EQ(tree(*host), "leaf leaf2(leaf) gone! away~");
  const OdDbDatabasePtr again = expectRoundTrip(*host);
  EXPECT_EQ(tree(*again), "leaf? leaf2? gone? away?"); // nothing but the references is in the file
  EXPECT_TRUE(forRead<OdDbSymbolTableRecord>(again->symbol(OdDb::kLayerTable, L"TO LEAF|WALLS"))->isDependent());
  EXPECT_EQ(codes(drawing::loadXrefs(*again, shelf.loader())), "not-found unloaded");
  EXPECT_EQ(shelf.opened.count("away"), 0u);
}

TEST(Xref, ACycleResolvesToItsDrawingWhileThatExists) {
  Shelf shelf;
  shelf.put("pong", {"host"});
  shelf.put("host", {"pong"});
  OdDbDatabasePtr host = shelf.host("host");
  drawing::loadXrefs(*host, shelf.loader());
  const auto to = forRead<OdDbBlockTableRecord>(host->symbol(OdDb::kBlockTable, L"to pong"));
  const OdDbDatabasePtr pong(to->xrefDatabase());
  ASSERT_FALSE(pong.isNull());
  const auto back = forRead<OdDbBlockTableRecord>(pong->symbol(OdDb::kBlockTable, L"to host"));
  EXPECT_EQ(back->xrefDatabase(), nullptr);
  EXPECT_EQ(back->xrefDatabase(true), host.get());
  host.release();
  EXPECT_EQ(back->xrefDatabase(true), nullptr);
}

TEST(Xref, KeepsItsLimits) {
  Shelf shelf;
  for (int n = 0; n < 10; ++n)
    shelf.put("d" + std::to_string(n), {"d" + std::to_string(n + 1)});
  const struct {
    drawing::XrefLimits limits;
    const char* tree;
  } rows[] = {{{100, 3}, "d1(d2(d3(d4#)))"}, {{2, 100}, "d1(d2(d3#))"}};
  for (const auto& row : rows) {
    const OdDbDatabasePtr host = shelf.host("d0");
    EXPECT_EQ(codes(drawing::loadXrefs(*host, shelf.loader(), row.limits)), "limit");
    EXPECT_EQ(tree(*host), row.tree);
  }
}

} // namespace
} // namespace tests
