#include "RxObject.h"

#include <gtest/gtest.h>

#include <set>

namespace rx_object_test {

class Shape : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(Shape);
};

class Round : public Shape {
public:
  ODRX_DECLARE_MEMBERS(Round);
  inline static int alive = 0;
  Round() { ++alive; }
  Round(const Round& other) : Shape(other) { ++alive; }
  ~Round() override { --alive; }
  int radius() const { return 5; }
};

class Square : public Shape {
public:
  ODRX_DECLARE_MEMBERS(Square);
};

class Painter : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(Painter);
};

ODRX_DEFINE_MEMBERS_ABSTRACT(Shape, OdRxObject);
ODRX_DEFINE_MEMBERS(Round, Shape, "TESTROUND");
ODRX_DEFINE_MEMBERS(Square, Shape, "");
ODRX_DEFINE_MEMBERS(Painter, OdRxObject, "");

TEST(SmartPtr, CountsItsObject) {
  {
    OdSmartPtr<Round> one = Round::createObject();
    OdSmartPtr<Shape> same = one;
    EXPECT_EQ(one->numRefs(), 2U);
    const Round copy(*one); // on the stack: never released
    EXPECT_EQ(copy.numRefs(), 0U);
    one = OdSmartPtr<Round>(one.get()); // from its own object
    OdSmartPtr<Round>& alias = one;
    one = alias;
    one = std::move(alias);
    EXPECT_EQ(one->numRefs(), 2U);
    one.release();
    EXPECT_TRUE(one.isNull());
    EXPECT_EQ(same->numRefs(), 1U);
    const OdSmartPtr<Shape> taken(same.detach(), kTakeReference);
    EXPECT_EQ(taken->numRefs(), 1U);
    EXPECT_EQ(Round::alive, 2);
  }
  EXPECT_EQ(Round::alive, 0);
}

TEST(SmartPtr, RefusesToFollowNull) {
  const OdSmartPtr<Round> none;
  try {
    (void)none->radius();
    FAIL();
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), eNullObjectPtr);
  }
  EXPECT_THROW((void)(*none).radius(), OdError);
  EXPECT_TRUE(OdSmartPtr<Square>(OdSmartPtr<Shape>()).isNull()); // null is of every class
  EXPECT_TRUE(Round::cast(nullptr).isNull());
}

TEST(SmartPtr, ChecksTheClassWhenConverting) {
  const OdRxObjectPtr object = Round::createObject();
  EXPECT_EQ(OdSmartPtr<Round>(object)->radius(), 5);
  EXPECT_TRUE(Square::cast(object).isNull());
  EXPECT_EQ(Shape::cast(object).get(), object.get());
  try {
    const OdSmartPtr<Square> wrong(object);
    FAIL();
  } catch (const OdError_NotThatKindOfClass& error) {
    EXPECT_EQ(error.fromClass(), Round::desc());
    EXPECT_EQ(error.toClass(), Square::desc());
    EXPECT_EQ(error.code(), eNotThatKindOfClass);
    EXPECT_GE(error.description().find(L"Round"), 0);
    EXPECT_GE(error.description().find(L"Square"), 0);
  }
  EXPECT_EQ(object->numRefs(), 1U);
}

TEST(ClassRegistry, KnowsClassesByNameAndRecordName) {
  EXPECT_EQ(odrxClassDictionary().find("Square"), Square::desc());
  EXPECT_EQ(odrxClassDictionary().find("square"), nullptr);
  EXPECT_EQ(odrxClassDictionary().findByDxfName("TESTROUND"), Round::desc());
  EXPECT_EQ(odrxClassDictionary().findByDxfName(""), nullptr);
  EXPECT_EQ(Round::desc()->myParent(), Shape::desc());
  EXPECT_TRUE(Round::desc()->isDerivedFrom(OdRxObject::desc()));
  EXPECT_FALSE(Shape::desc()->isDerivedFrom(Round::desc()));
  EXPECT_TRUE(Shape::desc()->create().isNull()); // abstract
}

TEST(ClassRegistry, MakesNothingOfARemovedClass) {
  odrxClassDictionary().remove(Round::desc());
  EXPECT_TRUE(Round::createObject().isNull());
  EXPECT_EQ(odrxClassDictionary().findByDxfName("TESTROUND"), nullptr);
  odrxClassDictionary().add(Round::desc());
  EXPECT_FALSE(Round::createObject().isNull());
}

TEST(ProtocolExtension, IsInheritedUntilReplaced) {
  const OdRxObjectPtr general = Painter::createObject(), special = Painter::createObject();
  const OdRxObjectPtr round = Round::createObject(), square = Square::createObject();
  EXPECT_TRUE(Painter::cast(round).isNull());

  EXPECT_TRUE(Shape::desc()->addX(Painter::desc(), general).isNull());
  EXPECT_TRUE(Round::desc()->addX(Painter::desc(), special).isNull());
  EXPECT_EQ(Painter::cast(round).get(), special.get());
  EXPECT_EQ(Painter::cast(square).get(), general.get());
  EXPECT_EQ(Round::desc()->addX(Painter::desc(), general).get(), special.get());
  EXPECT_EQ(Round::desc()->delX(Painter::desc()).get(), general.get());
  EXPECT_EQ(Painter::cast(round).get(), general.get());
  EXPECT_EQ(Shape::desc()->delX(Painter::desc()).get(), general.get());
  EXPECT_TRUE(Shape::desc()->delX(Painter::desc()).isNull());
  EXPECT_TRUE(Painter::cast(square).isNull());
  EXPECT_EQ(general->numRefs(), 1U); // the classes let go
}

TEST(OdError, SaysWhatItIs) {
  EXPECT_STREQ(OdError_InvalidIndex().what(), "Invalid Execution.");
  EXPECT_EQ(OdError_InvalidIndex().code(), eInvalidIndex);
  EXPECT_STREQ(OdError(OdString(L"T\u00FCr")).what(), "T\xC3\xBCr");
  EXPECT_EQ(resultText(static_cast<OdResult>(9999)), L"Error 9999.");
  std::set<std::wstring> sentences;
  const OdResult codes[] = {eOk, eInvalidInput, eOutOfMemory, eWasErased, eCannotTransform, eClassNotRegistered};
  for (OdResult code : codes)
    EXPECT_TRUE(sentences.insert(resultText(code).str()).second) << code;
}

} // namespace rx_object_test
