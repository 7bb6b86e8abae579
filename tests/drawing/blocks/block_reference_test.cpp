// Where a reference puts its block, against the transformation worked out by hand; and that an attribute made from its
// definition stands where the definition's box lands: every justification, mirrored or not, under every matrix that a
// reference can have, and where the reference is moved again.
#include "Ge/GeUtil.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <array>
#include <cmath>

using namespace tests;

namespace {

// The corners of a text's letters, and the top of its thickness: left to right along the line, then upwards.
std::array<OdGePoint3d, 5> corners(const OdDbText& text) {
  const double share[] = {0, 0.5, 1, 0, 0.5, 0}, rise[] = {0, 0, 0.5, 1};
  const auto across = text.horizontalMode();
  const bool byPosition = (across == OdDbText::kLeft && text.verticalMode() == OdDbText::kBase) ||
                          across == OdDbText::kAligned || across == OdDbText::kFit;
  const OdGePoint3d base = byPosition ? text.position() : text.alignmentPoint();
  const double width = 7 * text.height() * text.widthFactor(), left = -width * share[across];
  const double bottom = -text.height() * rise[text.verticalMode()];
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(text.normal());
  const double c = std::cos(text.rotation()), s = std::sin(text.rotation());
  const auto at = [&](double x, double y) {
    const double slanted = x + y * std::tan(text.oblique());
    return base + plane * OdGeVector3d(slanted * c - y * s, slanted * s + y * c, 0);
  };
  const OdGePoint3d low = at(left, bottom);
  return {low, at(left + width, bottom), at(left, bottom + text.height()), at(left + width, bottom + text.height()),
          low + text.normal() * text.thickness()};
}

struct Placing {
  const char* what;
  OdGePoint3d position;
  OdGeVector3d normal;
  double rotation;
  OdGeScale3d scale;
};
const Placing kPlacings[] = {
    {"plain", {1, 2, 3}, {0, 0, 1}, 0, {1, 1, 1}},
    {"turned", {1, 2, 3}, {0, 0, 1}, 0.7, {2, 2, 2}},
    {"unequal", {-5, 0, 0}, {0, 0, 1}, 2.5, {2, 3, 4}},
    {"mirrored in x", {-5, 0, 0}, {0, 0, 1}, 1.2, {-1, 1, 1}},
    {"mirrored in y", {0, 5, 0}, {0, 0, 1}, 0.2, {2, -3, 1}},
    {"both", {0, 0, 9}, {0, 0, 1}, 1, {-2, -2, 1}},
    {"far and from below", {1e6, -1e6, 3}, {0, 0, -1}, 0.3, {1, 2, 1}},
    {"standing", {9, 8, 7}, {1, 2, 0}, 0.3, {1, -2, 5}},
    {"z turned over", {1, 0, 0}, {0, 0, 1}, 0.4, {3, 1, -2}},
};

class PlacedReference : public testing::Test {
protected:
  OdDbAttributeDefinitionPtr define(int across, int up, double rotation, double oblique) {
    const OdDbAttributeDefinitionPtr made = addTo<OdDbAttributeDefinition>(block_);
    made->setTag(L"TAG");
    made->setTextString(L"default");
    made->setHeight(2);
    made->setWidthFactor(0.8);
    made->setPosition({13, 24, 30});
    made->setAlignmentPoint({17, 24.5, 30});
    made->setHorizontalMode(static_cast<OdDbText::HorizontalMode>(across));
    made->setVerticalMode(static_cast<OdDbText::VerticalMode>(up));
    made->setRotation(rotation);
    made->setOblique(oblique);
    made->setThickness(0.5);
    made->setColorIndex(5);
    made->setInvisible(true);
    made->setVerifiable(true);
    return made;
  }
  OdDbObjectId place(const Placing& row, bool array) {
    const OdDbObjectId space = database_->getModelSpaceId();
    const auto made = array ? OdDbBlockReferencePtr(addTo<OdDbMInsertBlock>(space)) : addTo<OdDbBlockReference>(space);
    made->setBlockTableRecord(block_);
    made->setNormal(row.normal);
    made->setPosition(row.position);
    made->setRotation(row.rotation);
    made->setScaleFactors(row.scale);
    return made->objectId();
  }
  OdGeMatrix3d toWorld(const OdDbBlockReference& reference) const {
    return reference.blockTransform() *
           OdGeMatrix3d::translation(OdGePoint3d() - forRead<OdDbBlockTableRecord>(block_)->origin());
  }

  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  const OdDbObjectId block_ = [this] {
    const OdDbObjectId id = addBlock(*database_, L"door");
    forWrite<OdDbBlockTableRecord>(id)->setOrigin({10, 20, 30});
    return id;
  }();
};

// Scale, turn about z, tilt into the plane (its x axis by the rule of drawing files), move.
OdGePoint3d byHand(const Placing& row, const OdGePoint3d& p) {
  const double x = p.x * row.scale.sx, y = p.y * row.scale.sy, z = p.z * row.scale.sz;
  const double u = x * std::cos(row.rotation) - y * std::sin(row.rotation);
  const double v = x * std::sin(row.rotation) + y * std::cos(row.rotation);
  const OdGeVector3d n = row.normal.normal();
  const bool nearZ = std::fabs(n.x) < 1.0 / 64 && std::fabs(n.y) < 1.0 / 64;
  const OdGeVector3d across = (nearZ ? OdGeVector3d(0, 1, 0) : OdGeVector3d(0, 0, 1)).crossProduct(n);
  const OdGeVector3d xAxis = across * (1 / across.length());
  return row.position + xAxis * u + n.crossProduct(xAxis) * v + n * z;
}

TEST_F(PlacedReference, PutsPointsWhereItsPartsSayWhateverTheOriginOfTheBlock) {
  for (const Placing& row : kPlacings) {
    const OdGeMatrix3d matrix = forRead<OdDbBlockReference>(place(row, false))->blockTransform();
    const auto apart = forWrite<OdDbBlockReference>(addReference(*database_, block_));
    EXPECT_EQ(apart->setBlockTransform(matrix), eOk) << row.what;
    for (const OdGePoint3d& point : {OdGePoint3d(0, 0, 0), OdGePoint3d(1, 0, 0), OdGePoint3d(-2, 3, 5)}) {
      EXPECT_LT((matrix * point - byHand(row, point)).length(), 1e-9) << row.what;
      EXPECT_LT((apart->blockTransform() * point - matrix * point).length(), 1e-9) << row.what;
    }
  }
  expectRoundTrip(*database_);
}

TEST_F(PlacedReference, RefusesShearAndFlatness) {
  const auto turned = forWrite<OdDbBlockReference>(place(kPlacings[1], false));
  const std::string before = drawing::canonicalDump(*database_);
  EXPECT_EQ(turned->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(2, 1, 1))), eCannotTransform);
  EXPECT_EQ(turned->setBlockTransform(OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0))), eCannotTransform);
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database_)), "");
}

void expectSamePlaces(const std::array<OdGePoint3d, 5>& is, const std::array<OdGePoint3d, 5>& wanted) {
  for (std::size_t i = 0; i < is.size(); ++i)
    EXPECT_LT((is[i] - wanted[i]).length(), 1e-9) << "corner " << i;
}

TEST_F(PlacedReference, AttributesHaveTheDefinitionsBoxTransformed) {
  for (int across = OdDbText::kLeft; across <= OdDbText::kFit; ++across) {
    for (int up = OdDbText::kBase; up <= OdDbText::kTop; ++up) {
      const OdDbAttributeDefinitionPtr definition = define(across, up, 0.3 * up, 0.2 * (up - 1));
      for (const Placing& row : kPlacings) {
        SCOPED_TRACE(testing::Message() << row.what << ", justified " << across << ", " << up);
        const auto reference = forWrite<OdDbBlockReference>(place(row, across % 2 == 1));
        const OdGeMatrix3d matrix = toWorld(*reference);
        std::array<OdGePoint3d, 5> wanted = corners(*definition);
        for (OdGePoint3d& corner : wanted)
          corner = matrix * corner;
        // The top of the thickness goes along the normal of the new plane.
        const OdGeVector3d normal = (wanted[1] - wanted[0]).crossProduct(wanted[2] - wanted[0]).normal();
        wanted[4] = wanted[0] + normal * (wanted[4] - wanted[0]).dotProduct(normal);
        const OdDbAttributePtr attribute = OdDbAttribute::createObject();
        attribute->setAttributeFromBlock(definition, matrix);
        expectSamePlaces(corners(*attribute), wanted);
        EXPECT_EQ(attribute->tag() + attribute->textString(), L"TAGdefault");
        EXPECT_TRUE(attribute->colorIndex() == 5 && attribute->isInvisible() && attribute->isVerifiable());
        EXPECT_GT(attribute->height(), 0);
        EXPECT_GT(attribute->widthFactor(), 0);
        reference->appendAttribute(attribute);
        const OdGeMatrix3d mirror = OdGeMatrix3d::mirroring(OdGePoint3d(), OdGeVector3d(1, 2, 0).normal());
        EXPECT_EQ(reference->transformBy(mirror), eOk);
        for (OdGePoint3d& corner : wanted)
          corner = mirror * corner;
        expectSamePlaces(corners(*attribute), wanted);
      }
    }
  }
  expectRoundTrip(*database_);
}

// Lines of text keep their shape: under equal scales, mirrored or not, they stand in the box transformed; under unequal
// ones on its line, upright.
TEST_F(PlacedReference, AttributesOfSeveralLinesTakeContentsAndPlace) {
  const OdDbMTextPtr lines = OdDbMText::createObject();
  lines->setContents(L"{\\fArial|b1;bold}\\Ptwo");
  lines->setTextHeight(2);
  lines->setWidth(10);
  lines->setLocation({12, 25, 30});
  lines->setRotation(0.4);
  for (int attachment = OdDbMText::kTopLeft; attachment <= OdDbMText::kBottomRight; ++attachment) {
    lines->setAttachment(static_cast<OdDbMText::AttachmentPoint>(attachment));
    const OdDbAttributeDefinitionPtr definition = define(0, 0, 0.4, 0);
    definition->setMTextAttributeDefinition(lines);
    for (const Placing& row : kPlacings) {
      SCOPED_TRACE(testing::Message() << row.what << ", attached " << attachment);
      const auto reference = forWrite<OdDbBlockReference>(place(row, false));
      const OdGeMatrix3d matrix = toWorld(*reference);
      const OdDbAttributePtr attribute = OdDbAttribute::createObject();
      attribute->setAttributeFromBlock(definition, matrix);
      const OdDbMTextPtr made = attribute->getMTextAttribute();
      ASSERT_FALSE(made.isNull());
      EXPECT_EQ(made->contents(), lines->contents());
      EXPECT_EQ(attribute->textString(), lines->contents());
      EXPECT_EQ(made->attachment(), attachment);
      EXPECT_LT((made->location() - matrix * lines->location()).length(), 1e-9);
      const OdGeVector3d along = matrix * lines->direction(),
                         up = matrix * lines->normal().crossProduct(lines->direction());
      EXPECT_LT((made->direction().normal() - along.normal()).length(), 1e-9);
      EXPECT_LT((made->normal() - along.crossProduct(up).normal()).length(), 1e-9);
      EXPECT_NEAR(made->width(), 10 * along.length(), 1e-9);
      EXPECT_NEAR(made->textHeight(), 2 * along.crossProduct(up).length() / along.length(), 1e-9);
      reference->appendAttribute(attribute);
    }
  }
  expectRoundTrip(*database_);
}

} // namespace
