// The attributes of a drawing as a table: out and in again without loss, rows that do not fit told one by one, and no
// table that is damaged changes anything. Old references follow their block with their values.
#include "console/attributes/attribute_sync.h"
#include "console/attributes/attributes.h"
#include "console/messages/csv.h"
#include "tests/console/console_run.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include "DbField.h"

namespace {

using namespace tests;
using console::CsvFault;

TEST(Csv, RoundTripsAndReportsWhereItIsDamaged) {
  const std::vector<std::string> odd = {"", "a,b", "say \"x\"", "two\r\nlines", " blank ", "\xE9", "'"};
  const console::CsvTable back = console::parseCsv("\xEF\xBB\xBF" + console::csvRow(odd) + console::csvRow({"end"}));
  ASSERT_EQ(back.rows.size(), 2U);
  EXPECT_EQ(back.rows[0].cells, odd);
  EXPECT_EQ(back.rows[1].line, 3U);
  const struct {
    const char* text;
    std::size_t rows;
    std::optional<CsvFault> fault;
    std::size_t line;
  } cases[] = {{"", 0, {}, 0},
               {"\n\r\na\n", 1, {}, 0},
               {"a,\n,", 2, {}, 0},
               {"\"\"", 0, {}, 0},
               {"a\n\"b\nc", 1, CsvFault::kQuoteOpen, 2},
               {"a\n\"b\n\"c\nd", 1, CsvFault::kQuoteInside, 3},
               {"a\nb\"c,d\"\n", 1, CsvFault::kQuoteInside, 2}};
  for (const auto& one : cases) {
    const console::CsvTable table = console::parseCsv(one.text);
    EXPECT_EQ(table.rows.size(), one.rows) << one.text;
    EXPECT_EQ(table.fault, one.fault) << one.text;
    EXPECT_EQ(table.faultLine, one.line) << one.text;
  }
}

// Two references of "door" (two tags TAG, one constant, one of several lines), one inside the block "house"; a third
// on a locked layer.
class AttributeTable : public testing::Test {
protected:
  AttributeTable() {
    const OdDbObjectId door = addBlock(*database_, L"door"), house = addBlock(*database_, L"house");
    first_ = fill(addReference(*database_, door));
    fill(addReference(*database_, door, house));
    const OdDbObjectId walls = addLayer(*database_, L"walls");
    locked_ = addReference(*database_, door);
    addAttribute(locked_, L"TAG", L"locked");
    forWrite<OdDbEntity>(locked_)->setLayer(walls);
    forWrite<OdDbLayerTableRecord>(walls)->setIsLocked(true);
    in_ = scratch_.save(*database_, "in.dxf");
  }
  static OdDbObjectId fill(OdDbObjectId reference) {
    addAttribute(reference, L"TAG", L"a,\"b\"");
    addAttribute(reference, L"tag", L"\u00e9\u4e2d");
    const auto lines = forWrite<OdDbAttribute>(addAttribute(reference, L"LINES", L""));
    const OdDbMTextPtr text = OdDbMText::createObject();
    text->setContents(L"one\\Ptwo");
    lines->setMTextAttribute(text.get());
    lines->setInvisible(true);
    OdDbField::setField(*lines, OdDbField::createObject());
    return reference;
  }
  std::string handle(OdDbObjectId id) const { return id.getHandle().ascii(); }
  Outcome import(const std::string& table, const std::string& more = "--force") {
    return runMorvane({"attributes", in_, "--import", scratch_.write("t.csv", table), "-o", out(), more});
  }
  std::string out() const { return scratch_.path("out.dxf"); }
  std::string dumpOf(const std::string& path) { return drawing::canonicalDump(*drawing::readDrawing(path).database); }

  const Scratch scratch_;
  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  OdDbObjectId first_, locked_;
  std::string in_;
};

TEST_F(AttributeTable, GoesOutAndInWithoutChange) {
  const Outcome table = runMorvane({"attributes", in_, "--csv"});
  EXPECT_EQ(table.status, 0) << table.shown;
  const std::string h = handle(first_);
  EXPECT_EQ(table.results.substr(0, table.results.find("two")),
            "handle,block,tag,ordinal,value,flags\r\n" + h + ",door,TAG,1,\"a,\"\"b\"\"\",\r\n" + h +
                ",door,tag,2,\u00e9\u4e2d,\r\n" + h + ",door,LINES,1,one\\P");
  const console::CsvTable rows = console::parseCsv(table.results);
  ASSERT_EQ(rows.rows.size(), 8U);
  EXPECT_EQ(rows.rows[3].cells.back(), "invisible multi-line");
  const Outcome run = import(table.results);
  EXPECT_EQ(run.status, 4) << run.shown; // the locked one
  EXPECT_NE(run.shown.find("0 values changed, 6 unchanged, 1 row does not match"), std::string::npos) << run.shown;
  EXPECT_EQ(firstDifference(dumpOf(in_), dumpOf(out())), "");
  const Outcome json = runMorvane({"attributes", in_, "--json"});
  EXPECT_NE(json.results.find("\"value\": \"a,\\\"b\\\"\""), std::string::npos) << json.results;
}

TEST_F(AttributeTable, SetsWhatFitsAndReportsWhatDoesNot) {
  const std::string h = handle(first_);
  const Names handles{{"$H", h}, {"$L", handle(locked_)}};
  const Outcome run = import(filled("Value,tag,HANDLE,ordinal,block\nx y,TAG,$H,2,DOOR\n"
                                    "\"three\r\nlines\nhere\",lines,$H,,\n\"a\nb\",TAG,$H,1,\nagain,tag,$H,2,\n"
                                    "v,TAG,$H,3,\nv,TAG,$H,one,\nv,OTHER,$H,1,\nv,TAG,$H0,1,\nv,TAG,zz,1,\n"
                                    "v,LINES,$H,1,window\nv,TAG,$L,1,\n",
                                    handles));
  EXPECT_EQ(run.status, 4);
  const std::string one = "reference " + h + " ";
  const std::string told[] = {"6: TAG is a single-line attribute and cannot contain line breaks.",
                              "8: line 2 already sets this attribute",
                              "9: " + one + "has 2 attributes \"TAG\", and none with the number \"3\"",
                              "10: " + one + "has 2 attributes \"TAG\", and none with the number \"one\"",
                              "11: " + one + "has no attribute \"OTHER\"",
                              "12: reference \"" + h + "0\" not found",
                              "13: reference \"zz\" not found",
                              "14: " + one + "is to block \"door\", not \"window\"",
                              "15: TAG is on a locked layer."};
  std::string wanted;
  for (const std::string& line : told)
    wanted += scratch_.path("t.csv") + ", line " + line + "\n";
  wanted += "2 values changed, 0 unchanged, 9 rows do not match.\n";
  EXPECT_EQ(run.shown.substr(run.shown.size() - std::min(run.shown.size(), wanted.size())), wanted);
  const OdDbDatabasePtr read = drawing::readDrawing(out()).database;
  const console::ReferenceAttributes after(*forRead<OdDbBlockReference>(read->objectIdOf(first_.getHandle())));
  EXPECT_EQ(after.findEntered(L"TAG")->value, L"a,\"b\"");
  EXPECT_EQ(after.findEntered(L"Tag#2")->value, L"x y");
  const auto lines = forRead<OdDbAttribute>(after.findEntered(L"#3")->attribute);
  EXPECT_EQ(lines->getMTextAttribute()->contents(), L"three\\Plines\\Phere");
  EXPECT_FALSE(OdDbField::hasFields(*lines)); // or the next program would compute the old value again
  for (const wchar_t* none : {L"TAG#0", L"TAG#3", L"#4", L"#", L"", L"TAG#-1", L"TAG#2x"})
    EXPECT_EQ(after.findEntered(none), nullptr) << OdString(none).toUtf8();
}

TEST_F(AttributeTable, LeavesTheDrawingAloneWhenItIsNone) {
  const std::pair<const char*, const char*> cases[] = {
      {"handle,tag\n1,2\n", "no column \"value\""},
      {"", "no column \"handle\""},
      {"handle,tag,value\n1,\"A\"b,v\n", "line 2: a quote is inside"},
      {"handle,tag,value\n1,A,\"v\n", "line 2: a quote is not closed"},
      {"handle,tag,value\n1,A,v\n1,A,v,w\n", "line 3: 4 cells instead of 3"}};
  for (const auto& [table, part] : cases) {
    const Outcome run = import(table);
    EXPECT_EQ(run.status, 1) << table;
    EXPECT_NE(run.shown.find(part), std::string::npos) << run.shown;
    EXPECT_FALSE(std::filesystem::exists(out())) << table;
  }
  const Names names{{"$F", in_}, {"$OUT", out()}, {"$NONE", scratch_.path("none.csv")}};
  expectRun("attributes $F --import $NONE -o $OUT", names, 3, "none.csv");
  for (const char* more : {"-o $OUT", "--import $F", "--csv --json", "--csv --import $F -o $OUT"})
    expectRun(std::string("attributes $F ") + more, names, 2, "");
  EXPECT_FALSE(std::filesystem::exists(out()));
}

// Attributes follow the definitions in place, look and order; values stay with their tags.
TEST(AttributeSync, KeepsValuesAndEndsInTheOrderOfTheDefinitions) {
  const struct {
    std::vector<OdString> old, definitions, after;
    std::size_t kept; // objects that stay, from the front
  } cases[] = {
      {{L"A=1", L"B=2"}, {L"A", L"B"}, {L"A=1", L"B=2"}, 2},
      {{L"A=1", L"B=2"}, {L"B", L"A"}, {L"B=2", L"A=1"}, 1},
      {{L"a=1", L"A=2", L"A=3"}, {L"A", L"A"}, {L"A=1", L"A=2"}, 2},
      {{L"X=9", L"B=2"}, {L"A", L"B", L"B"}, {L"A=default", L"B=2", L"B=default"}, 0},
      {{L"B=2"}, {}, {}, 0},
      {{}, {L"A"}, {L"A=default"}, 0},
  };
  for (const auto& one : cases) {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    const OdDbObjectId block = addBlock(*database, L"door"), reference = addReference(*database, block);
    forWrite<OdDbBlockTableRecord>(block)->setOrigin({1, 0, 0});
    forWrite<OdDbBlockReference>(reference)->setPosition({10, 0, 0});
    const auto split = [](const OdString& text) { return text.find(L'='); };
    for (const OdString& old : one.old)
      addAttribute(reference, old.left(split(old)), old.mid(split(old) + 1));
    const OdDbObjectIdArray before = forRead<OdDbBlockReference>(reference)->attributeIds();
    for (const OdString& tag : one.definitions) {
      const OdDbAttributeDefinitionPtr made = addTo<OdDbAttributeDefinition>(block);
      made->setTag(tag);
      made->setTextString(L"default");
      made->setPosition({3, 0, 0});
    }
    console::SyncedAttributes synced;
    expectUndoRestores(*database, [&] { synced = console::syncAttributes(block); });
    EXPECT_EQ(synced.references, 1U);
    const OdDbObjectIdArray ids = forRead<OdDbBlockReference>(reference)->attributeIds();
    std::vector<OdString> after;
    for (const OdDbObjectId& id : ids) {
      const auto attribute = forRead<OdDbAttribute>(id);
      after.push_back(attribute->tag() + L"=" + attribute->textString());
      EXPECT_EQ(attribute->position(), OdGePoint3d(12, 0, 0));
    }
    EXPECT_EQ(after, one.after);
    EXPECT_EQ(synced.surplus.size() +
                  static_cast<std::size_t>(std::count_if(after.begin(), after.end(),
                                                         [](const OdString& row) { return row.find(L"default") < 0; })),
              one.old.size());
    for (std::size_t i = 0; i < ids.size(); ++i)
      EXPECT_EQ(i < one.kept, before.contains(ids[static_cast<unsigned>(i)])) << i;
    expectSound(*database);
  }
}

} // namespace
