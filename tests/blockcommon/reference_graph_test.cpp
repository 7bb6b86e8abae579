// Trees of references: what is followed and what is not, chains there and back, what stops the making of a tree, that
// no depth overflows the stack, and which references may be edited in place.
#include "blockcommon/reference_graph.h"
#include "morvane/host_api.h"
#include "morvane/testing.h"
#include "tests/support/drawings.h"

#include "DbDictionary.h"
#include "DbDxf.h"

#include <filesystem>
#include <fstream>
#include <stdlib.h>

namespace {

using namespace RefUtils;
using namespace tests;
namespace fs = std::filesystem;

class ReferenceGraph : public testing::Test {
protected:
  ReferenceGraph() {
    std::string pattern = (fs::temp_directory_path() / "graph-XXXXXX").string();
    root_ = fs::canonical(::mkdtemp(pattern.data()));
    std::ofstream(root_ / "site.dxf") << "x";
    host_.host().paths().setDrive(L'P', root_.string());
    host_.host().searchPath().setFolders({root_.string()});
    const auto window = forWrite<OdDbBlockTableRecord>(window_);
    const auto extension = forWrite<OdDbDictionary>(window->createExtensionDictionary());
    extension->setAt(L"ACAD_ENHANCEDBLOCK", OdDbDictionary::createObject().get());
  }
  ~ReferenceGraph() override { fs::remove_all(root_); }

  OdDbObjectId block(const wchar_t* name) { return addBlock(*database_, name); }
  OdDbObjectId show(OdDbObjectId shown, OdDbObjectId into = {}) { return addReference(*database_, shown, into); }
  OdDbObjectId showArray(OdDbObjectId shown, OdDbObjectId into = {}) {
    const OdDbMInsertBlockPtr array = OdDbMInsertBlock::createObject();
    array->setBlockTableRecord(shown);
    return forWrite<OdDbBlockTableRecord>(into.isNull() ? database_->getModelSpaceId() : into)
        ->appendOdDbEntity(array.get());
  }
  OdDbObjectId xref(const wchar_t* name, const wchar_t* path) {
    const OdDbObjectId id = block(name);
    forWrite<OdDbBlockTableRecord>(id)->setXref(path);
    return id;
  }
  // External drawings are as their paths say; any other is missing.
  void load() {
    drawing::XrefLoader loader;
    loader.find = [](const OdString& saved, const OdDbDatabase&) { return saved == L"gone" ? "" : saved.toUtf8(); };
    loader.open = [](const std::string& path) {
      drawing::ReadResult read;
      read.database = OdDbDatabase::create();
      if (path == "default")
        read.database->setHeaderVar("XEDIT", {});
      else
        read.database->setHeaderInt("XEDIT", 290, path == "off" ? 0 : 1);
      return read;
    };
    drawing::loadXrefs(*database_, loader);
  }

  morvane::ScriptedHost host_;
  fs::path root_;
  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  const OdDbObjectId leaf_ = block(L"leaf"), window_ = block(L"window");
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

TEST_F(ReferenceGraph, FollowsPlainReferencesInTheirOrder) {
  const OdDbObjectId shape = block(L"*U"), room = block(L"room"), site = block(L"site"), top = block(L"top");
  show(leaf_, window_);
  const OdDbObjectId twice[] = {show(leaf_, room), show(leaf_, room)};
  addText(*database_, L"x", room);
  forWrite<OdDbEntity>(show(leaf_, room))->erase();
  showArray(leaf_, room);
  for (const OdDbObjectId shown : {window_, leaf_, window_})
    show(shown, site);
  forWrite<OdDbBlockTableRecord>(site)->setXref(L"C:\\site.dxf");
  for (const OdDbObjectId shown : {room, window_, site, room, shape})
    show(shown, top);
  CRefGraph graph;
  const OdDbObjectId picked = show(top), elsewhere = show(top);
  graph.create(picked);
  const CRefGraphNode* root = rootOf(graph, picked);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(textOf(*root), "top(room(leaf leaf) window(leaf) [C:\\site.dxf](leaf) room(leaf leaf) *U1)");
  const auto& rooms = root->children;
  EXPECT_NE(rooms[0]->refId, rooms[3]->refId); // two references with a subtree each
  EXPECT_NE(rooms[0]->children[1], rooms[3]->children[1]);
  OdDbObjectIdArray chain{picked};
  EXPECT_TRUE(graph.getRefStack(chain, rooms[3]->children[1]));
  EXPECT_EQ(chain, (OdDbObjectIdArray{twice[1], rooms[3]->refId, picked}));
  EXPECT_EQ(graph.find(chain), rooms[3]->children[1]);
  for (const OdDbObjectIdArray& wrong : {OdDbObjectIdArray{},
                                         {elsewhere},
                                         {twice[1], rooms[3]->refId, elsewhere},
                                         {twice[1], picked},
                                         {picked, rooms[3]->refId},
                                         {picked, picked}}) {
    OdDbObjectIdArray chainToNothing = wrong;
    EXPECT_EQ(graph.find(chainToNothing), nullptr);
  }
  EXPECT_FALSE(graph.getRefStack(chain, nullptr));
  EXPECT_TRUE(chain.isEmpty());
}

TEST_F(ReferenceGraph, StopsAtWhatDoesNotOpen) {
  const OdDbObjectId text = addText(*database_, L"x"), gone = block(L"gone"), odd = block(L"odd"),
                     half = block(L"half");
  const OdDbObjectId lost = show(gone), wrong = show(odd), erased = show(leaf_), array = showArray(odd);
  const OdDbObjectId first = show(leaf_, half), second = show(odd, half);
  show(leaf_, half);
  const OdDbObjectId partly = show(half);
  forWrite<OdDbObject>(gone)->erase();
  forWrite<OdDbEntity>(erased)->erase();
  forWrite<OdDbBlockReference>(wrong)->setBlockTableRecord(database_->getLayerZeroId());
  forWrite<OdDbBlockReference>(first)->setBlockTableRecord(gone);
  forWrite<OdDbBlockReference>(second)->setBlockTableRecord(database_->getLayerZeroId());
  const struct {
    const char* what;
    OdDbObjectId id;
    bool throws;
    const char* tree; // null: no root
    bool checkXref;
  } rows[] = {
      {"null", {}, false, nullptr, true},
      {"erased", erased, false, nullptr, true},
      {"no reference", text, true, nullptr, true},
      {"definition", leaf_, true, nullptr, true},
      {"erased definition", lost, false, "", false},
      {"layer as definition", wrong, true, "", false},
      {"layer further down", partly, true, "half( )", false}, // what was made so far
      {"array", array, false, "odd", false},
  };
  for (const auto& row : rows) {
    CRefGraph graph;
    if (row.throws)
      EXPECT_THROW(graph.create(row.id), OdError_NotThatKindOfClass) << row.what;
    else
      EXPECT_NO_THROW(graph.create(row.id)) << row.what;
    const CRefGraphNode* root = rootOf(graph, row.id);
    ASSERT_EQ(root == nullptr, row.tree == nullptr) << row.what;
    if (root != nullptr) {
      EXPECT_EQ(textOf(*root), row.tree) << row.what;
    }
    if (row.id != wrong && row.id != partly) { // their checks throw as their making did
      EXPECT_EQ(graph.checkXref(), row.checkXref) << row.what;
    }
  }
  CRefGraphNode node, *none = nullptr, *some = &node;
  EXPECT_THROW(fillRefGraph(none, lost.safeOpenObject()), OdError);
  EXPECT_THROW(fillRefGraph(some, nullptr), OdError);
  EXPECT_EQ(findChildNode(nullptr, lost), nullptr);
}

TEST_F(ReferenceGraph, NeedsNoStackForDepth) {
  constexpr int kBlocks = 100'000, kNodes = 1'000'000;
  OdDbObjectId shown = xref(L"site", L"site.dxf");
  for (int level = 0; level < kBlocks; ++level) {
    const OdDbObjectId around = block((L"b" + std::to_wstring(level)).c_str());
    show(shown, around);
    shown = around;
  }
  CRefGraph graph;
  graph.create(show(shown));
  EXPECT_TRUE(graph.checkXref()); // the innermost one
  CRefGraphNode top, *at = &top;
  for (int level = 0; level < kNodes; ++level) {
    at->children = {nullptr, new CRefGraphNode};
    at = at->children[1];
  }
  OdString found = L"as before";
  EXPECT_FALSE(checkXrefS(&top, found));
  EXPECT_FALSE(checkXrefS(nullptr, found));
  EXPECT_EQ(found, L"as before");
}

TEST_F(ReferenceGraph, FirstExternalReferenceDecidesAboutEditing) {
  const OdDbObjectId plain = show(leaf_), off = show(xref(L"off", L"off")), on = show(xref(L"on", L"on"));
  const OdDbObjectId usual = show(xref(L"default", L"default")), missing = show(xref(L"gone", L"gone"));
  const OdDbObjectId unloadedBlock = xref(L"unloaded", L"off"), unloaded = showArray(unloadedBlock);
  forWrite<OdDbBlockTableRecord>(unloadedBlock)->setIsUnloaded(true);
  load();
  const struct {
    OdDbObjectIdArray ids;
    const wchar_t* refusedBy; // null: may be edited
  } rows[] = {
      {{}, nullptr},
      {{plain}, nullptr},
      {{off}, L"off"},
      {{plain, off}, L"off"},
      {{on, off}, nullptr},
      {{usual, off}, nullptr},
      {{missing, off}, nullptr},
      {{unloaded, off}, nullptr},
      {{OdDbObjectId(), off}, nullptr},
      {{off, on}, L"off"},
  };
  for (const auto& row : rows) {
    OdDbObjectIdArray ids = row.ids;
    OdString path = L"as before";
    EXPECT_EQ(checkXEdit(ids, path), row.refusedBy == nullptr);
    EXPECT_EQ(path, row.refusedBy == nullptr ? L"as before" : row.refusedBy);
  }
  OdString path;
  OdDbObjectIdArray ids{plain, addText(*database_, L"x")};
  EXPECT_THROW(checkXEdit(ids, path), OdError_NotThatKindOfClass);
  forWrite<OdDbObject>(leaf_)->erase();
  try {
    ADD_FAILURE() << checkXEdit(ids, path);
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eWasErased);
  }
}

TEST_F(ReferenceGraph, ExternalReferencesAreFoundAtAnyDepth) {
  const OdDbObjectId site = xref(L"site", L"site.dxf"), gone = xref(L"gone", L"gone.dxf");
  const OdDbObjectId inner = block(L"inner"), middle = block(L"middle"), both = block(L"both"), array = block(L"array");
  show(leaf_, inner), show(site, inner), show(inner, middle);
  show(middle, both), show(gone, both);
  showArray(site, array); // arrays are no part of the tree
  const auto definition = OdDbAttributeDefinition::createObject();
  forWrite<OdDbBlockTableRecord>(site)->appendOdDbEntity(definition.get());
  const OdString before = L"as before", found = L"P:\\site.dxf";
  const OdDbObjectId erased = show(site), text = addText(*database_, L"x");
  forWrite<OdDbEntity>(erased)->erase();
  const struct {
    const char* what;
    OdDbObjectId id;
    bool isXref;
    OdString path; // of isXrefBlk
    bool below;
    OdString pathBelow;
    bool attributes;
  } rows[] = {
      {"plain", show(leaf_), false, before, false, before, false},
      {"external", show(site), true, found, true, found, true},
      {"array of external", showArray(site), true, found, true, found, true},
      {"not found", show(gone), true, L"", true, L"", false},
      {"three levels down", show(middle), false, before, true, found, false},
      {"the first of two", show(both), false, before, true, found, false},
      {"array within", show(array), false, before, false, before, false},
      {"erased", erased, false, before, true, before, false},
      {"null", {}, false, before, true, before, false},
  };
  for (const auto& row : rows) {
    OdString path = before, pathBelow = before;
    EXPECT_EQ(isXrefBlk(row.id, path), row.isXref) << row.what;
    EXPECT_EQ(path, row.path) << row.what;
    CRefGraph graph;
    graph.create(row.id);
    EXPECT_EQ(graph.checkXref(), row.below) << row.what;
    checkXrefS(rootOf(graph, row.id), pathBelow);
    EXPECT_EQ(pathBelow, row.pathBelow) << row.what;
    EXPECT_EQ(hasAttdef(row.id), row.attributes) << row.what;
  }
  OdString path = before;
  EXPECT_FALSE(isXrefBlk(text, path));
  EXPECT_THROW(hasAttdef(text), OdError_NotThatKindOfClass);
}

} // namespace
