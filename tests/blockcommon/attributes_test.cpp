// Attributes of new references: what is asked and in which words, what stays when the user gives up, and that no
// reference is left open and no layer unlocked on any way out.
#include "DbDictionary.h"
#include "DbField.h"
#include "Ge/GeUtil.h"
#include "blockcommon/attributes.h"
#include "morvane/drawing_tools.h"
#include "tests/support/open_document.h"
#include "tests/support/oracles.h"

namespace {

using namespace insertCommon;
using namespace tests;

enum Kind { kPlain = 0, kConstant = 1, kVerify = 2, kPreset = 4, kMulti = 8 };

struct Definition {
  const wchar_t *tag, *prompt = L"", *value = L"";
  int kind = kPlain;
};

class Attributes : public OpenDocument {
protected:
  OdDbObjectId define(const Definition& wanted) {
    const auto made = addTo<OdDbAttributeDefinition>(block_);
    made->setTag(wanted.tag);
    made->setPrompt(wanted.prompt);
    made->setConstant((wanted.kind & kConstant) != 0);
    made->setVerifiable((wanted.kind & kVerify) != 0);
    made->setPreset((wanted.kind & kPreset) != 0);
    made->setTextString(wanted.value);
    if ((wanted.kind & kMulti) != 0) {
      const OdDbMTextPtr lines = OdDbMText::createObject();
      lines->setContents(wanted.value);
      made->setMTextAttributeDefinition(lines.get());
    }
    return made->objectId();
  }
  void newBlock(const std::vector<Definition>& definitions) {
    block_ = addBlock(*database_, L"part" + OdString(std::to_wstring(++blocks_)));
    for (const Definition& definition : definitions)
      define(definition);
    addText(*database_, L"no definition", block_);
    reference_ = addReference(*database_, block_);
  }
  OdDbBlockReferencePtr reference() { return forRead<OdDbBlockReference>(reference_); }
  OdDbObjectIdArray attributes() { return reference()->attributeIds(); }
  std::vector<OdString> values() {
    std::vector<OdString> all;
    for (const OdDbObjectId& id : attributes())
      all.push_back(forRead<OdDbAttribute>(id)->textString());
    return all;
  }
  void expectClosed() {
    EXPECT_FALSE(reference()->isWriteEnabled());
    EXPECT_TRUE(LayerTools::isLayerLocked(walls_));
  }
  static OdDbObjectId addField(OdDbObjectId definition) {
    return OdDbField::setField(*forWrite<OdDbEntity>(definition), OdDbField::createObject());
  }

  const OdDbObjectId walls_ = [this] {
    const OdDbObjectId id = addLayer(*database_, L"Walls");
    LayerTools::lockOrUnlockLayer(id, true);
    return id;
  }();
  OdDbObjectId block_, reference_;
  int blocks_ = 0;
};

constexpr wchar_t kCancel[] = L"\x1b";

TEST_F(Attributes, PromptWithTheseTexts) {
  const wchar_t *const verified = L"V <d> : \n验证属性值\nV <1> : ", *const next = L"下一行或 <已完成>: ";
  const struct {
    const char* what;
    std::vector<Definition> definitions;
    std::vector<OdString> answers, values;
    OdString shown; // below the header
  } cases[] = {
      {"prompt and default", {{L"W", L"Width", L"9"}}, {L"a b"}, {L"a b"}, L"Width <9> : "},
      {"tag, no default", {{L"W"}}, {L""}, {L""}, L"\nW: "},
      {"default kept", {{L"W", L"100%s", L"5%d"}}, {L""}, {L"5%d"}, L"100%s <5%d> : "},
      {"header once, behind what is not asked",
       {{L"C", L"", L"c", kConstant}, {L"P", L"", L"p", kPreset | kVerify}, {L"A"}, {L"B"}},
       {L"1", L"2"},
       {L"p", L"1", L"2"},
       L"\nA: \nB: "},
      {"nothing to ask", {{L"C", L"", L"c", kConstant}, {L"P", L"", L"p", kPreset}}, {}, {L"p"}, L""},
      {"verified, changed", {{L"V", L"", L"d", kVerify}}, {L"1", L"2"}, {L"2"}, verified},
      {"verified, kept", {{L"V", L"", L"d", kVerify}}, {L"1", L""}, {L"1"}, verified},
      {"verified, empty", {{L"V", L"", L"", kVerify}}, {L"", L"x"}, {L"x"}, L"\nV: \n验证属性值\nV: "},
      {"lines", {{L"M", L"", L"", kMulti}}, {L"a", L"b", L""}, {L"a\\Pb"}, OdString(L"\nM: ") + next + next},
      {"lines, default kept",
       {{L"M", L"Say", L"{\\fArial;a}\\Pb%s", kMulti}},
       {L""},
       {L"{\\fArial;a}\\Pb%s"},
       L"\nSay - 默认值:\n    a\n    b%s\nSay <接受默认值> : "},
      {"lines, none", {{L"M", L"", L"", kMulti}}, {L""}, {L""}, L"\nM: "},
      {"lines verified",
       {{L"M", L"", L"d", kMulti | kVerify}},
       {L"a%d", L"b", L"", L""},
       {L"a%d\\Pb"},
       OdString(L"\nM - 默认值:\n    d\nM <接受默认值> : ") + next + next +
           L"\n验证属性值\nM - 默认值:\n    a%d\n    b\nM <接受默认值> : "},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.what);
    newBlock(one.definitions);
    host_.answerWith({});
    EXPECT_TRUE(processAttributesForInsert(reference(), false)); // makes them
    EXPECT_EQ(host_.takeOutput(), L"");
    host_.answerWith(one.answers);
    EXPECT_TRUE(processAttributesForInsert(reference(), false));
    EXPECT_EQ(host_.takeOutput(), one.shown.isEmpty() ? L"" : L"\n输入属性值\n" + one.shown);
    EXPECT_EQ(values(), one.values);
    EXPECT_EQ(host_.remainingAnswers(), 0U);
    expectClosed();
    for (const OdDbObjectId& id : attributes()) {
      const OdDbMTextPtr lines = forRead<OdDbAttribute>(id)->getMTextAttribute();
      EXPECT_TRUE(lines.isNull() || lines->contents() == forRead<OdDbAttribute>(id)->textString());
    }
  }
  expectSound(*database_);
}

TEST_F(Attributes, KeepWhatWasGivenBeforeACancelAtAnyQuestion) {
  const std::vector<OdString> answers = {L"1", L"2", L"3", L"4", L"", L"5"};
  const std::vector<std::vector<OdString>> left = {{L"a", L"v", L"m"}, {L"1", L"v", L"m"}, {L"1", L"2", L"m"},
                                                   {L"1", L"3", L"m"}, {L"1", L"3", L"m"}, {L"1", L"3", L"4"}};
  for (std::size_t given = 0; given < answers.size(); ++given) {
    newBlock({{L"A", L"", L"a"}, {L"V", L"", L"v", kVerify}, {L"M", L"", L"m", kMulti | kVerify}});
    processAttributesForInsert(reference(), true);
    for (const OdDbObjectId& id : attributes())
      forWrite<OdDbEntity>(id)->setLayer(walls_);
    std::vector<OdString> typed(answers.begin(), answers.begin() + static_cast<std::ptrdiff_t>(given));
    typed.push_back(kCancel);
    host_.answerWith(typed);
    EXPECT_FALSE(processAttributesForInsert(reference(), false)) << given;
    EXPECT_EQ(values(), left[given]) << given;
    expectClosed();
  }
}

TEST_F(Attributes, TakeTheirDefaultsFromAHostThatCannotPrompt) {
  newBlock({{L"A", L"", L"a"}, {L"M", L"", L"m", kMulti | kVerify}});
  processAttributesForInsert(reference(), false);
  forWrite<OdDbAttribute>(attributes()[0])->setTextString(L"old");
  host_.answerWith({OdString(L'x', 5000), L""});
  host_.failOperation("mvsiedGetString", 2); // once, behind the first answer
  EXPECT_TRUE(processAttributesForInsert(reference(), false));
  EXPECT_EQ(values(), (std::vector<OdString>{OdString(L'x', 4095), L"m"}));
  mv_arbitDict_unregister(kEditGetServer);
  EXPECT_TRUE(processAttributesForInsert(reference(), false));
  EXPECT_EQ(values(), (std::vector<OdString>{L"a", L"m"}));
}

TEST_F(Attributes, AreNotOverwrittenByADefaultWhoseFieldIsErased) {
  const struct {
    const wchar_t* answer;
    bool lost, verify;
    const wchar_t* value;
  } cases[] = {{L"", false, false, L"d"}, {L"", true, false, L"old"}, {L"d", true, false, L"old"},
               {L"D", true, false, L"D"}, {L"x", true, true, L"x"},   {L"", true, true, L"old"}};
  for (const auto& one : cases) {
    newBlock({});
    const OdDbObjectId definition = define({L"A", L"", L"d", one.verify ? kVerify : kPlain});
    const OdDbObjectId field = addField(definition);
    if (one.lost) // while the dictionary still names it
      forWrite<OdDbField>(field)->erase();
    processAttributesForInsert(reference(), false);
    forWrite<OdDbAttribute>(attributes()[0])->setTextString(L"old");
    host_.answerWith({one.answer, L""});
    EXPECT_TRUE(processAttributesForInsert(reference(), false));
    EXPECT_EQ(values()[0], one.value) << one.verify << one.answer;
  }
}

// Something else under a field's name throws, and whatever was opened is let go of.
TEST_F(Attributes, LeaveNothingOpenAfterAnException) {
  newBlock({{L"A", L"", L"a"}});
  const OdDbObjectId field = addField(entitiesOf(block_)[0]);
  forWrite<OdDbDictionary>(forRead<OdDbField>(field)->ownerId())->setAt(L"TEXT", OdDbXrecord::createObject());
  for (const bool asks : {false, true}) { // the first makes the attribute
    if (asks)
      forWrite<OdDbEntity>(attributes()[0])->setLayer(walls_);
    EXPECT_THROW(processAttributesForInsert(reference(), false), OdError_NotThatKindOfClass);
    expectClosed();
    EXPECT_THROW(blockUtils::processBlockTbRefAsDefaultAttri(reference()), OdError_NotThatKindOfClass);
    expectClosed();
  }
  forWrite<OdDbBlockReference>(reference_)->setBlockTableRecord(walls_);
  OdDbObjectIdArray ids;
  EXPECT_THROW(getAllAttributeDefinesOfBlk(reference(), ids), OdError_NotThatKindOfClass);
  EXPECT_THROW(hasAttribute(reference()), OdError_NotThatKindOfClass);
  EXPECT_THROW(processAttributesForInsert(reference(), true), OdError_NotThatKindOfClass);
  EXPECT_THROW(isExistAnnoPO(walls_), OdError_NotThatKindOfClass);
  EXPECT_THROW(addAnnoToObj(reference_, true), OdError_NotThatKindOfClass);
  EXPECT_THROW(updateFiledAttributeDefines(reference_), OdError_NotThatKindOfClass);
  expectClosed();
}

TEST_F(Attributes, AreMadeOnceMoreWheneverTheirNumberDiffers) {
  newBlock({{L"A", L"", L"a"}, {L"C", L"", L"c", kConstant}, {L"P", L"", L"p", kPreset}});
  addAttribute(reference_, L"A", L"own");
  expectUndoRestores(*database_, [&] { EXPECT_TRUE(processAttributesForInsert(reference(), false)); });
  EXPECT_EQ(values(), (std::vector<OdString>{L"own", L"a", L"p"}));
  EXPECT_TRUE(processAttributesForInsert(reference(), true));
  EXPECT_EQ(values(), (std::vector<OdString>{L"own", L"a", L"p", L"a", L"p"}));
  expectClosed();
  newBlock({{L"C", L"", L"c", kConstant}});
  for (const bool defaults : {false, true})
    EXPECT_TRUE(processAttributesForInsert(reference(), defaults));
  EXPECT_TRUE(attributes().isEmpty());
  EXPECT_TRUE(hasAttribute(reference()));
  newBlock({});
  EXPECT_FALSE(hasAttribute(reference()));
  EXPECT_TRUE(processAttributesForInsert(reference(), true));
}

// The insertion with defaults corrects by the origins of block and space, the one without by none.
TEST_F(Attributes, LieWhereTheBlockLies) {
  newBlock({});
  const OdDbObjectId definition = define({L"A", L"", L"a"});
  forWrite<OdDbAttributeDefinition>(definition)->setPosition({11, 22, 33});
  forWrite<OdDbBlockTableRecord>(block_)->setOrigin({10, 20, 30});
  forWrite<OdDbBlockTableRecord>(qzutads::currentSpaceId())->setOrigin({0.5, 1, 2});
  const auto placed = forWrite<OdDbBlockReference>(reference_);
  placed->setPosition({100, 0, 0});
  placed->setScaleFactors(OdGeScale3d(2, -2, 2));
  placed->setRotation(kPi / 2);
  EXPECT_TRUE(processAttributesForInsert(placed, true));
  EXPECT_TRUE(placed->isWriteEnabled()); // as the caller had it
  EXPECT_TRUE(forRead<OdDbText>(attributes()[0])->position().isEqualTo({102, 1, 2}, OdGeTol(1e-9)));
  forWrite<OdDbEntity>(attributes()[0])->erase();
  EXPECT_FALSE(placed->hasAttributes());
  EXPECT_TRUE(processAttributesForInsert(placed, false));
  EXPECT_TRUE(forRead<OdDbText>(attributes()[0])->position().isEqualTo({144, 22, 66}, OdGeTol(1e-9)));
}

TEST_F(Attributes, RefuseWhatIsNotThereOrMayNotChange) {
  newBlock({{L"A", L"", L"a"}});
  OdDbObjectIdArray ids{walls_};
  for (const bool defaults : {false, true})
    EXPECT_FALSE(processAttributesForInsert(nullptr, defaults));
  EXPECT_FALSE(addDefaultAttributeToBlk(nullptr));
  EXPECT_FALSE(processAttributesFieldsForInsert(nullptr, ids));
  EXPECT_FALSE(hasAttribute(nullptr));
  EXPECT_TRUE(hasPresetAttribute(nullptr));
  getAllAttributeDefinesOfBlk(nullptr, ids);
  getAllAttributesOfBlkRef(nullptr, ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{walls_}));
  setAttriAnnoByBlockRef(nullptr);
  blockUtils::processBlockTbRefAsDefaultAttri(nullptr);
  const OdDbBlockReferencePtr free = OdDbBlockReference::createObject();
  free->setBlockTableRecord(block_);
  EXPECT_FALSE(addDefaultAttributeToBlk(free));
  EXPECT_THROW(addDefaultAttributeToBlk(reference()), OdError); // open for read
  forWrite<OdDbEntity>(reference_)->setLayer(walls_);
  for (const bool defaults : {false, true})
    EXPECT_FALSE(processAttributesForInsert(reference(), defaults));
  EXPECT_THROW(blockUtils::processBlockTbRefAsDefaultAttri(reference()), OdError);
  expectClosed();
  EXPECT_TRUE(attributes().isEmpty());
  LayerTools::lockOrUnlockLayer(walls_, false);
  host_.host().documents().close(document_);
  EXPECT_FALSE(processAttributesForInsert(reference(), true)); // no current space
  blockUtils::processBlockTbRefAsDefaultAttri(reference());
  EXPECT_EQ(values(), (std::vector<OdString>{L"a"}));
}

TEST_F(Attributes, ReportWhetherTheirLayersAreLocked) {
  const struct {
    std::vector<bool> locked;
    bool any, all;
  } cases[] = {{{}, false, true},
               {{false}, false, false},
               {{true, true}, true, true},
               {{false, true}, true, false},
               {{true, false, true}, true, false}};
  for (const auto& one : cases) {
    newBlock({});
    for (const bool locked : one.locked) {
      const OdDbObjectId id = addAttribute(reference_, L"A", L"");
      if (locked)
        forWrite<OdDbEntity>(id)->setLayer(walls_);
    }
    bool all = !one.all;
    EXPECT_EQ(isAllAttributeInLockLayer(reference_, all), one.any) << one.locked.size();
    EXPECT_EQ(all, one.all) << one.locked.size();
  }
  for (const OdDbObjectId& id : {OdDbObjectId(), walls_, addText(*database_, L"t")}) {
    bool all = false;
    EXPECT_FALSE(isAllAttributeInLockLayer(id, all));
    EXPECT_TRUE(all);
  }
}

TEST_F(Attributes, NeedAQuestionOnlyWhenOneIsNeitherPresetNorConstant) {
  const std::pair<std::vector<Definition>, bool> cases[] = {
      {{}, true},
      {{{L"P", L"", L"", kPreset}, {L"C", L"", L"", kConstant}}, true},
      {{{L"P", L"", L"", kPreset}, {L"A", L"", L"", kVerify}}, false}};
  for (const auto& [definitions, answer] : cases) {
    newBlock(definitions);
    EXPECT_EQ(hasPresetAttribute(forRead<OdDbBlockTableRecord>(block_)), answer);
  }
}

// The hooks look at attributes, definitions and fields, and change nothing.
TEST_F(Attributes, HooksChangeNothing) {
  newBlock({{L"A", L"", L"a"}, {L"B", L"", L"b"}});
  const OdDbObjectId field = addField(entitiesOf(block_)[0]);
  const OdDbFieldPtr child = OdDbField::createObject();
  child->setFieldCode(L"\\AcExpr (1+1)");
  forWrite<OdDbField>(field)->appendChild(child.get());
  OdDbObjectIdArray none, ids;
  EXPECT_FALSE(processAttributesFieldsForInsert(reference(), none));
  processAttributesForInsert(reference(), true);
  getAllAttributesOfBlkRef(reference(), ids);
  forWrite<OdDbEntity>(ids[1])->setLayer(walls_);
  const std::string before = drawing::canonicalDump(*database_);
  EXPECT_TRUE(processAttributesFieldsForInsert(reference(), none));
  EXPECT_TRUE(processAttributesFieldsForInsert(reference(), ids));
  updateFiledAttributeDefines(block_);
  updateFiledAttributeDefines(OdDbObjectId());
  setAttriAnnoByBlockRef(reference()); // passes over the one on the locked layer
  addAnnoToObj(block_, true);
  EXPECT_FALSE(commonFun::isAnnotativeObject(reference_) || commonFun::isAnnotativeObject(OdDbObjectId()));
  EXPECT_TRUE(isExistAnnoPO(block_));
  EXPECT_FALSE(isExistAnnoPO(OdDbObjectId()));
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database_)), "");
  const OdResBufPtr mark = OdResBuf::make(1001, L"AcadAnnoPO");
  mark->setNext(OdResBuf::makeInteger(1070, 1));
  forWrite<OdDbBlockTableRecord>(block_)->setXData(mark.get());
  EXPECT_FALSE(isExistAnnoPO(block_));
}

} // namespace
