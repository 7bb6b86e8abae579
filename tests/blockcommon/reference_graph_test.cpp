// Trees of references: what is followed and what is not, chains there and back, what stops the making of a tree, that
// no depth overflows the stack, and which references may be edited in place.
#include "blockcommon/reference_graph.h"
#include "morvane/host_api.h"
#include "morvane/testing.h"
#include "tests/support/dynamic_blocks.h"

#include "drawing/file.h"

namespace {

using namespace RefUtils;
using namespace tests;

class ReferenceGraph : public testing::Test {
protected:
  ReferenceGraph() { host_.host().searchPath().setFolders({"examples/drawings"}); }

  OdDbObjectId block(const wchar_t* name) { return addBlock(*database_, name); }
  OdDbObjectId show(OdDbObjectId shown, OdDbObjectId into = {}) { return addReference(*database_, shown, into); }
  OdDbObjectId showArray(OdDbObjectId shown, OdDbObjectId into) {
    const auto array = addTo<OdDbMInsertBlock>(into);
    array->setBlockTableRecord(shown);
    return array->objectId();
  }
  OdDbObjectId xref(const wchar_t* path) {
    const OdDbObjectId id = block((OdString(L"by ") + path).c_str());
    forWrite<OdDbBlockTableRecord>(id)->setXref(path);
    return id;
  }
  // External drawings are as their paths say.
  void load() {
    drawing::XrefLoader loader;
    loader.find = [](const OdString& saved, const OdDbDatabase&) { return saved == L"gone" ? "" : saved.toUtf8(); };
    loader.open = [](const std::string& path) {
      drawing::ReadResult read;
      read.database = OdDbDatabase::create();
      read.database->setHeaderVar("XEDIT", {});
      if (path != "unset")
        read.database->setHeaderInt("XEDIT", 290, path == "on");
      return read;
    };
    drawing::loadXrefs(*database_, loader);
  }

  morvane::ScriptedHost host_;
  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  const OdDbObjectId space_ = database_->getModelSpaceId(), leaf_ = block(L"leaf");
};

// "room(door door)", external references in brackets.
std::string textOf(const CRefGraphNode& node) {
  std::string text = node.isXref ? "[" + node.name.toUtf8() + "]" : node.name.toUtf8();
  for (OdArray<CRefGraphNode*>::size_type at = 0; at < node.children.size(); ++at)
    text += (at == 0 ? "(" : " ") + textOf(*node.children[at]);
  return node.children.isEmpty() ? text : text + ")";
}

CRefGraphNode* rootOf(CRefGraph& graph, OdDbObjectId id) {
  OdDbObjectIdArray chain{id};
  return graph.find(chain);
}

TEST_F(ReferenceGraph, FollowsReferencesInTheirOrder) {
  const OdDbObjectId window = block(L"window"), room = block(L"room"), site = block(L"site"), top = block(L"top");
  makeDynamic(window);
  show(leaf_, window);
  const OdDbObjectId shape = addShape(window), first = show(leaf_, room), second = show(leaf_, room);
  addText(*database_, L"x", room);
  forWrite<OdDbEntity>(show(leaf_, room))->erase();
  showArray(leaf_, room);
  show(window, site), show(leaf_, site), show(shape, site);
  forWrite<OdDbBlockTableRecord>(site)->setXref(L"C:\\site.dxf");
  for (const OdDbObjectId shown : {room, window, site, room, shape})
    show(shown, top);
  const OdDbObjectId picked = show(top), elsewhere = show(top);
  CRefGraph graph;
  graph.create(picked);
  const CRefGraphNode* root = rootOf(graph, picked);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(textOf(*root), "top(room(leaf leaf) window(leaf) [C:\\site.dxf](leaf) room(leaf leaf) window(leaf))");
  CRefGraphNode* deep = root->children[3]->children[1];
  OdDbObjectIdArray chain{picked};
  EXPECT_TRUE(graph.getRefStack(chain, deep));
  EXPECT_EQ(chain, (OdDbObjectIdArray{second, root->children[3]->refId, picked}));
  EXPECT_EQ(graph.find(chain), deep);
  const OdDbObjectIdArray wrong[] = {
      {}, {elsewhere}, {first, chain[1], elsewhere}, {first, picked}, {picked, chain[1]}, {picked, picked}};
  for (OdDbObjectIdArray toNothing : wrong)
    EXPECT_EQ(graph.find(toNothing), nullptr);
  EXPECT_FALSE(graph.getRefStack(chain, nullptr));
  EXPECT_TRUE(chain.isEmpty());
}

TEST_F(ReferenceGraph, StopsAtWhatDoesNotOpen) {
  const OdDbObjectId text = addText(*database_, L"x"), gone = block(L"gone"), half = block(L"half");
  const OdDbObjectId lost = show(gone), wrong = show(leaf_), erased = show(leaf_), partly = show(half);
  show(gone, half);
  for (const OdDbObjectId id : {wrong, show(leaf_, half)})
    forWrite<OdDbBlockReference>(id)->setBlockTableRecord(database_->getLayerZeroId());
  show(leaf_, half);
  for (const OdDbObjectId id : {gone, erased})
    forWrite<OdDbObject>(id)->erase();
  const struct {
    OdDbObjectId id;
    const char* tree; // null: no root
    bool throws;
  } rows[] = {
      {{}, nullptr, false},   {erased, nullptr, false},
      {text, nullptr, true},  {lost, "", false},
      {wrong, "", true},      {partly, "half( )", true}, // what was made so far
      {leaf_, nullptr, true}, {showArray(leaf_, space_), "leaf", false},
  };
  for (const auto& row : rows) {
    CRefGraph graph;
    bool threw = false;
    try {
      graph.create(row.id);
    } catch (const OdError_NotThatKindOfClass&) {
      threw = true;
    }
    EXPECT_EQ(threw, row.throws) << row.id.number();
    const CRefGraphNode* root = rootOf(graph, row.id);
    EXPECT_EQ(root == nullptr ? "none" : textOf(*root), row.tree == nullptr ? "none" : row.tree);
    if (root == nullptr || !threw) {
      EXPECT_EQ(graph.checkXref(), root == nullptr);
    }
  }
  CRefGraphNode node, *none = nullptr, *some = &node;
  EXPECT_THROW(fillRefGraph(none, lost.safeOpenObject()), OdError);
  EXPECT_THROW(fillRefGraph(some, nullptr), OdError);
}

TEST_F(ReferenceGraph, NeedsNoStackForDepth) {
  OdDbObjectId shown = xref(L"site");
  for (int level = 0; level < 100'000; ++level) {
    const OdDbObjectId around = block((L"b" + std::to_wstring(level)).c_str());
    show(shown, around);
    shown = around;
  }
  CRefGraph graph;
  graph.create(show(shown));
  EXPECT_TRUE(graph.checkXref()); // the innermost one
  CRefGraphNode top, *at = &top;
  for (int level = 0; level < 1'000'000; ++level) {
    at->children = {nullptr, new CRefGraphNode};
    at = at->children[1];
  }
  OdString found;
  EXPECT_FALSE(checkXrefS(&top, found));
}

TEST_F(ReferenceGraph, FirstExternalReferenceDecidesAboutEditing) {
  const OdDbObjectId plain = show(leaf_), off = show(xref(L"off")), on = show(xref(L"on")),
                     unset = show(xref(L"unset"));
  const OdDbObjectId missing = show(xref(L"gone")), unloadedBlock = xref(L"unloaded"), text = addText(*database_, L"x");
  forWrite<OdDbBlockTableRecord>(unloadedBlock)->setIsUnloaded(true);
  const OdDbObjectId unloaded = showArray(unloadedBlock, space_);
  const OdDbObjectId hidden = xref(L"off too"), around = block(L"around"); // what is picked counts, as it is shown
  makeDynamic(hidden);
  show(xref(L"off below"), around);
  const OdDbObjectId shape = show(addShape(hidden)), outside = show(around);
  load();
  const std::pair<OdDbObjectIdArray, bool> rows[] = {
      {{plain}, true},      {{off}, false},         {{plain, off}, false},   {{}, true},
      {{shape}, true},      {{outside}, true},      {{on, off}, true},       {{plain, OdDbObjectId(), off}, true},
      {{unset, off}, true}, {{missing, off}, true}, {{unloaded, off}, true}, {{shape, outside, off}, false},
      {{off, text}, false}, {{off, plain}, false},
  };
  for (const auto& [ids, isAllowed] : rows) {
    OdDbObjectIdArray picked = ids;
    OdString path = L"as before";
    EXPECT_EQ(checkXEdit(picked, path), isAllowed);
    EXPECT_EQ(path, isAllowed ? L"as before" : L"off");
  }
  OdString path;
  for (const OdDbObjectId& external : {off, on, unset, missing, unloaded, shape, outside}) { // whatever their state
    CRefGraph graph;
    graph.create(external);
    EXPECT_TRUE(graph.checkXref());
    EXPECT_EQ(isXrefBlk(external, path), external != outside);
  }
  OdDbObjectIdArray picked{plain, text};
  EXPECT_THROW(checkXEdit(picked, path), OdError_NotThatKindOfClass);
  forWrite<OdDbObject>(leaf_)->erase();
  EXPECT_THROW(checkXEdit(picked, path), OdError);
}

TEST_F(ReferenceGraph, ExternalReferencesAreFoundAtAnyDepth) {
  const OdDbObjectId site = xref(L"room.dxf"), gone = xref(L"gone.dxf"), text = addText(*database_, L"x");
  const OdDbObjectId inner = block(L"inner"), middle = block(L"middle"), both = block(L"both"), array = block(L"array");
  show(leaf_, inner), show(site, inner), show(inner, middle), show(middle, both), show(gone, both);
  showArray(site, array); // arrays are no part of the tree
  addTo<OdDbAttributeDefinition>(site);
  const OdString before = L"as before", found = mvdbSystemServices().findFile(L"room.dxf");
  ASSERT_FALSE(found.isEmpty());
  const struct {
    OdDbObjectId id;
    bool isXref;
    OdString path; // of isXrefBlk
    bool below;
    OdString pathBelow;
  } rows[] = {
      {show(leaf_), false, before, false, before},         {show(site), true, found, true, found},
      {showArray(site, space_), true, found, true, found}, {show(gone), true, L"", true, L""},
      {show(middle), false, before, true, found},          {show(both), false, before, true, found}, // the first of two
      {show(array), false, before, false, before},         {{}, false, before, true, before},        // no tree
  };
  for (const auto& row : rows) {
    OdString path = before, pathBelow = before;
    SCOPED_TRACE(&row - rows);
    EXPECT_EQ(isXrefBlk(row.id, path), row.isXref);
    EXPECT_EQ(path, row.path);
    EXPECT_EQ(hasAttdef(row.id), row.isXref && row.path == found);
    CRefGraph graph;
    graph.create(row.id);
    EXPECT_EQ(graph.checkXref(), row.below);
    checkXrefS(rootOf(graph, row.id), pathBelow);
    EXPECT_EQ(pathBelow, row.pathBelow);
  }
  OdString path;
  EXPECT_FALSE(isXrefBlk(text, path));
  EXPECT_THROW(hasAttdef(text), OdError_NotThatKindOfClass);
}

} // namespace
