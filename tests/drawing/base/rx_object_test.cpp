#include "RxObject.h"

#include <gtest/gtest.h>

#include <set>

namespace rx_object_test {

class Shape : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(Shape);
};

class Round : public Shape {
public:
  MVDRAWING_DECLARE_CLASS(Round);
  inline static int alive = 0;
  Round() { ++alive; }
  Round(const Round& other) : Shape(other) { ++alive; }
  ~Round() override { --alive; }
  int radius() const { return 5; }
};

class Square : public Shape {
public:
  MVDRAWING_DECLARE_CLASS(Square);
};

class Painter : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(Painter);
};

MVDRAWING_DEFINE_ABSTRACT_CLASS(Shape, OdRxObject);
MVDRAWING_DEFINE_CLASS(Round, Shape, "TESTROUND");
MVDRAWING_DEFINE_CLASS(Square, Shape, "");
MVDRAWING_DEFINE_CLASS(Painter, OdRxObject, "");

TEST(SmartPtr, CountsItsObject) {
  {
    OdSmartPtr<Round> one = Round::createObject();
    OdSmartPtr<Shape> same = one;
    EXPECT_EQ(one->referenceCount(), 2U);
    const Round copy(*one); // on the stack: never released
    EXPECT_EQ(copy.referenceCount(), 0U);
    one = OdSmartPtr<Round>(one.get()); // from its own object
    OdSmartPtr<Round>& alias = one;
    one = alias;
    one = std::move(alias);
    EXPECT_EQ(one->referenceCount(), 2U);
    one.release();
    EXPECT_TRUE(one.isNull());
    EXPECT_EQ(same->referenceCount(), 1U);
    const OdSmartPtr<Shape> taken(same.detach(), kTakeReference);
    EXPECT_EQ(taken->referenceCount(), 1U);
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
  EXPECT_EQ(object->referenceCount(), 1U);
}

TEST(ClassRegistry, KnowsClassesByNameAndRecordName) {
  EXPECT_EQ(classRegistry().find("Square"), Square::desc());
  EXPECT_EQ(classRegistry().find("square"), nullptr);
  EXPECT_EQ(classRegistry().findByDxfName("TESTROUND"), Round::desc());
  EXPECT_EQ(classRegistry().findByDxfName(""), nullptr);
  EXPECT_EQ(Round::desc()->parent(), Shape::desc());
  EXPECT_TRUE(Round::desc()->isDerivedFrom(OdRxObject::desc()));
  EXPECT_FALSE(Shape::desc()->isDerivedFrom(Round::desc()));
  EXPECT_TRUE(Shape::desc()->create().isNull()); // abstract
}

TEST(ClassRegistry, MakesNothingOfARemovedClass) {
  classRegistry().remove(Round::desc());
  EXPECT_TRUE(Round::createObject().isNull());
  EXPECT_EQ(classRegistry().findByDxfName("TESTROUND"), nullptr);
  classRegistry().add(Round::desc());
  EXPECT_FALSE(Round::createObject().isNull());
}

TEST(ProtocolExtension, IsInheritedUntilReplaced) {
  const OdRxObjectPtr general = Painter::createObject(), special = Painter::createObject();
  const OdRxObjectPtr round = Round::createObject(), square = Square::createObject();
  EXPECT_TRUE(Painter::cast(round).isNull());

  EXPECT_TRUE(Shape::desc()->setExtension(Painter::desc(), general).isNull());
  EXPECT_TRUE(Round::desc()->setExtension(Painter::desc(), special).isNull());
  EXPECT_EQ(Painter::cast(round).get(), special.get());
  EXPECT_EQ(Painter::cast(square).get(), general.get());
  EXPECT_EQ(Round::desc()->setExtension(Painter::desc(), general).get(), special.get());
  EXPECT_EQ(Round::desc()->removeExtension(Painter::desc()).get(), general.get());
  EXPECT_EQ(Painter::cast(round).get(), general.get());
  EXPECT_EQ(Shape::desc()->removeExtension(Painter::desc()).get(), general.get());
  EXPECT_TRUE(Shape::desc()->removeExtension(Painter::desc()).isNull());
  EXPECT_TRUE(Painter::cast(square).isNull());
  EXPECT_EQ(general->referenceCount(), 1U); // the classes let go
}

TEST(OdError, DescribesItself) {
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
