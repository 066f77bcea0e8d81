#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "dbents.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

/// A record as a file has it and the box around what it describes.
struct Sample {
    const char* name;
    PackedGroups groups;
    std::unique_ptr<AcDbEntity> (*make)();
    AcGePoint3d min, max; ///< of the extents; equal infinities: the class has none
    bool isEndless = false;
};

template <class T>
std::unique_ptr<AcDbEntity> makeNew()
{
    return std::make_unique<T>();
}

/// Entities with an upside-down normal: in object coordinates their X axis runs against the world's.
std::vector<Sample> samples()
{
    return {
        {"LINE", groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbLine"}, {39, 2.0}, {10, 1.0}, {20, 2.0},
                           {30, 3.0}, {11, 4.0}, {21, 6.0}, {31, 3.0}}),
         makeNew<AcDbLine>, {1, 2, 3}, {4, 6, 5}},
        {"POINT", groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbPoint"}, {10, 1.0}, {20, 2.0}, {30, 3.0},
                            {39, 4.0}, {210, 0.0}, {220, 0.0}, {230, -1.0}, {50, 30.0}}),
         makeNew<AcDbPoint>, {1, 2, -1}, {1, 2, 3}},
        {"RAY", groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbRay"}, {10, 1.0}, {20, 2.0}, {30, 0.0},
                          {11, 0.6}, {21, 0.8}, {31, 0.0}}),
         makeNew<AcDbRay>, {}, {}, true},
        {"SOLID", groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbTrace"}, {10, 0.0}, {20, 0.0}, {30, 1.0},
                            {11, 4.0}, {21, 0.0}, {31, 1.0}, {12, 0.0}, {22, 3.0}, {32, 1.0}, {13, 4.0}, {23, 3.0},
                            {33, 1.0}, {210, 0.0}, {220, 0.0}, {230, -1.0}}),
         makeNew<AcDbSolid>, {-4, 0, -1}, {0, 3, -1}},
        {"3DFACE", groupsOf({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbFace"}, {10, 0.0}, {20, 0.0}, {30, 0.0},
                             {11, 4.0}, {21, 0.0}, {31, 1.0}, {12, 4.0}, {22, 3.0}, {32, 2.0}, {13, 0.0}, {23, 3.0},
                             {33, 1.0}, {70, 5.0}}),
         makeNew<AcDbFace>, {0, 0, 0}, {4, 3, 2}},
    };
}
} // namespace

class EntityRecord : public DatabaseFixture
{
};

TEST_F(EntityRecord, IsWrittenAsItWasRead)
{
    for (const Sample& sample : samples()) {
        const std::unique_ptr<AcDbEntity> entity = sample.make();
        EXPECT_EQ(rewritten(*entity, sample.groups, &mDatabase), textOf(sample.groups)) << sample.name;
    }
}

TEST_F(EntityRecord, ExtentsAreThoseOfItsShape)
{
    for (const Sample& sample : samples()) {
        const std::unique_ptr<AcDbEntity> entity = sample.make();
        rewritten(*entity, sample.groups, &mDatabase);
        AcDbExtents extents;
        ASSERT_EQ(entity->getGeomExtents(extents), sample.isEndless ? Acad::eInvalidExtents : Acad::eOk) << sample.name;
        if (sample.isEndless) continue;
        EXPECT_TRUE(extents.minPoint().isEqualTo(sample.min)) << sample.name;
        EXPECT_TRUE(extents.maxPoint().isEqualTo(sample.max)) << sample.name;
    }
}

TEST_F(EntityRecord, AMapAndItsInverseChangeNothing)
{
    // A turn out of the plane, a mirror and a uniform scale, which every class allows.
    const AcGeMatrix3d map = AcGeMatrix3d().setToRotation(0.7, AcGeVector3d(1, 2, 3), AcGePoint3d(5, -4, 3)) *
                             AcGeMatrix3d().setToScaling(2.5, AcGePoint3d(1, 1, 0)) *
                             AcGeMatrix3d().setToMirroring(AcGePlane(AcGePoint3d(2, 0, 0), AcGeVector3d(1, 1, 0)));
    for (const Sample& sample : samples()) {
        if (sample.isEndless) continue;
        const std::unique_ptr<AcDbEntity> entity = sample.make();
        rewritten(*entity, sample.groups, &mDatabase);
        ASSERT_EQ(entity->transformBy(map), Acad::eOk) << sample.name;
        ASSERT_EQ(entity->transformBy(map.inverse()), Acad::eOk) << sample.name;
        AcDbExtents extents;
        ASSERT_EQ(entity->getGeomExtents(extents), Acad::eOk) << sample.name;
        EXPECT_TRUE(extents.isEqualTo(AcDbExtents(sample.min, sample.max), AcGeTol())) << sample.name;
    }
}

TEST_F(EntityRecord, PropertiesAreKeptAsTheFileHasThem)
{
    const PackedGroups groups = groupsOf({{100, "AcDbEntity"}, {8, "0"}, {62, 3.0}, {370, 35.0}, {48, 2.5}, {60, 1.0},
                                          {420, 16711935.0}, {440, 33554559.0}, {100, "AcDbLine"}, {10, 0.0}, {20, 0.0},
                                          {30, 0.0}, {11, 1.0}, {21, 0.0}, {31, 0.0}});
    AcDbLine line;
    EXPECT_EQ(rewritten(line, groups, &mDatabase), textOf(groups));
    EXPECT_EQ(line.color().red(), 255);
    EXPECT_EQ(line.color().green(), 0);
    EXPECT_EQ(line.color().blue(), 255);
    EXPECT_EQ(line.lineWeight(), AcDb::kLnWt035);
    EXPECT_EQ(line.visibility(), AcDb::kInvisible);
    EXPECT_EQ(line.transparency().alpha(), 127);
}

TEST_F(EntityRecord, AColourNumberOutOfRangeIsReportedAndLeftOut)
{
    AcDbLine line;
    const PackedGroups groups = groupsOf({{100, "AcDbEntity"}, {62, 400.0}});
    ListSource source(groups, &mDatabase);
    dxfRead(line, source);
    EXPECT_EQ(source.reports, 1);
    EXPECT_EQ(line.colorIndex(), 256);
}

class TextEntity : public DatabaseFixture
{
protected:
    std::unique_ptr<AcDbText> textOf(const wchar_t* string, double height)
    {
        auto text = std::make_unique<AcDbText>(AcGePoint3d(10, 20, 0), string, AcDbObjectId(), height, 0.0);
        return text;
    }

    AcDbExtents extentsOf(const AcDbEntity& entity)
    {
        AcDbExtents extents;
        EXPECT_EQ(entity.getGeomExtents(extents), Acad::eOk);
        return extents;
    }
};

TEST_F(TextEntity, CapitalLettersReachItsHeight)
{
    const AcDbExtents extents = extentsOf(*textOf(L"HE", 3.0));
    // Flat letters stand on the baseline and are as high as the letter A.
    EXPECT_NEAR(extents.minPoint().y, 20.0, 1e-6);
    EXPECT_NEAR(extents.maxPoint().y, 23.0, 0.05);
    EXPECT_GT(extents.minPoint().x, 10.0 - 1e-9);
}

TEST_F(TextEntity, AlignmentMovesThePositionAndNotTheAlignmentPoint)
{
    const std::unique_ptr<AcDbText> text = textOf(L"HOUSE", 2.0);
    const AcGePoint3d hook(100, 50, 0);
    text->setHorizontalMode(AcDb::kTextRight);
    text->setVerticalMode(AcDb::kTextTop);
    text->setAlignmentPoint(hook);
    ASSERT_EQ(text->adjustAlignment(), Acad::eOk);
    EXPECT_TRUE(text->alignmentPoint().isEqualTo(hook));
    EXPECT_NEAR(text->position().y, 48.0, 1e-9);
    const double width = hook.x - text->position().x;
    EXPECT_GT(width, 4.0);
    // A centred text begins half as far from the point.
    text->setHorizontalMode(AcDb::kTextCenter);
    text->adjustAlignment();
    EXPECT_NEAR(hook.x - text->position().x, width / 2.0, 1e-9);
}

TEST_F(TextEntity, LiesAtItsAlignmentPointWhateverItsPositionSays)
{
    // Files of other programs repeat the alignment point as the position.
    const std::unique_ptr<AcDbText> text = textOf(L"HOUSE", 2.0);
    text->setHorizontalMode(AcDb::kTextCenter);
    text->setAlignmentPoint(AcGePoint3d(100, 50, 0));
    text->setPosition(AcGePoint3d(100, 50, 0));
    AcDbExtents extents;
    ASSERT_EQ(text->getGeomExtents(extents), Acad::eOk);
    EXPECT_NEAR((extents.minPoint().x + extents.maxPoint().x) / 2.0, 100.0, 0.3); // side bearings differ
    EXPECT_EQ(text->position(), AcGePoint3d(100, 50, 0));
}

TEST_F(TextEntity, BadValuesAreRefused)
{
    AcDbText text;
    EXPECT_EQ(text.setHeight(0.0), Acad::eInvalidInput);
    EXPECT_EQ(text.setWidthFactor(-1.0), Acad::eInvalidInput);
    EXPECT_EQ(text.setOblique(1.5), Acad::eInvalidInput); // 86 degrees
    EXPECT_EQ(text.setTextString(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(text.setTextString(L"two\nlines"), Acad::eInvalidInput);
    EXPECT_EQ(text.setTextStyle(mDatabase.layerZero()), Acad::eInvalidTextStyle);
}

/// A block with a unit square's diagonal and an attribute definition, at the origin.
class BlockReference : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        AcDbBlockTable* table = nullptr;
        ASSERT_EQ(mDatabase.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* block = new AcDbBlockTableRecord;
        block->setName(L"DOOR");
        block->setOrigin(AcGePoint3d(1, 0, 0));
        ASSERT_EQ(table->add(mBlock, block), Acad::eOk);
        table->close();
        append(*block, new AcDbLine(AcGePoint3d(1, 0, 0), AcGePoint3d(3, 1, 0)));
        append(*block, new AcDbAttributeDefinition(AcGePoint3d(0, 0, 0), L"", L"MARK", L"Mark?"));
        block->close();
    }

    static AcDbObjectId append(AcDbBlockTableRecord& block, AcDbEntity* entity)
    {
        AcDbObjectId id;
        EXPECT_EQ(block.appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }

    AcDbObjectId insert(AcDbBlockReference* reference)
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, mDatabase.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        const AcDbObjectId id = append(*space, reference);
        space->close();
        return id;
    }

    AcDbObjectId mBlock;
};

TEST_F(BlockReference, ShowsItsBlockScaledAndTurned)
{
    AcDbBlockReference reference(AcGePoint3d(10, 20, 0), mBlock);
    reference.setScaleFactors(AcGeScale3d(2, 3, 1));
    reference.setRotation(pi / 2);
    // The line's far end: (3-1, 1) scaled to (4, 3), turned to (-3, 4), moved.
    AcDbExtents extents;
    ASSERT_EQ(reference.getGeomExtents(extents), Acad::eOk);
    EXPECT_TRUE(extents.isEqualTo(AcDbExtents(AcGePoint3d(7, 20, 0), AcGePoint3d(10, 24, 0))));

    AcDbVoidPtrArray pieces;
    ASSERT_EQ(reference.explode(pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), 2);
    const auto* line = AcDbLine::cast(static_cast<AcDbEntity*>(pieces[0]));
    ASSERT_TRUE(line);
    EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(7, 24, 0)));
    for (int i = 0; i < pieces.length(); ++i) delete static_cast<AcDbEntity*>(pieces[i]);
}

TEST_F(BlockReference, AMapOfTheReferenceIsTheMapOfItsTransform)
{
    AcDbBlockReference reference(AcGePoint3d(10, 20, 5), mBlock);
    reference.setScaleFactors(AcGeScale3d(2, -3, 1));
    reference.setRotation(0.4);
    const AcGeMatrix3d before = reference.blockTransform();
    const AcGeMatrix3d maps[] = {
        AcGeMatrix3d().setToMirroring(AcGePlane(AcGePoint3d(1, 1, 1), AcGeVector3d(1, 0.5, 0))),
        AcGeMatrix3d().setToRotation(1.1, AcGeVector3d(1, 1, 1), AcGePoint3d(1, 2, 3)),
        AcGeMatrix3d().setToScaling(-2.0),
    };
    for (const AcGeMatrix3d& map : maps) {
        AcDbBlockReference copy(reference);
        ASSERT_EQ(copy.transformBy(map), Acad::eOk);
        EXPECT_TRUE(copy.blockTransform().isEqualTo(map * before, AcGeTol()));
    }
    AcGeMatrix3d shear;
    shear.entry[0][1] = 0.5;
    EXPECT_EQ(reference.transformBy(shear), Acad::eCannotScaleNonUniformly);
    EXPECT_TRUE(reference.blockTransform().isEqualTo(before, AcGeTol()));
}

TEST_F(BlockReference, AttributesBelongToItAndFollowIt)
{
    const AcDbObjectId id = insert(new AcDbBlockReference(AcGePoint3d(0, 0, 0), mBlock));
    AcDbBlockReference* reference = nullptr;
    ASSERT_EQ(acdbOpenObject(reference, id, AcDb::kForWrite), Acad::eOk);
    auto* attribute = new AcDbAttribute(AcGePoint3d(1, 1, 0), L"T-1", L"mark");
    AcDbObjectId attributeId;
    ASSERT_EQ(reference->appendAttribute(attributeId, attribute), Acad::eOk);
    EXPECT_STREQ(attribute->tagConst(), L"MARK");
    EXPECT_EQ(attribute->ownerId(), id);
    attribute->close();
    reference->transformBy(AcGeMatrix3d().setToTranslation(AcGeVector3d(5, 0, 0)));
    const std::unique_ptr<AcDbObjectIterator> walk(reference->attributeIterator());
    EXPECT_EQ(walk->objectId(), attributeId);
    walk->step();
    EXPECT_TRUE(walk->done());
    EXPECT_EQ(reference->erase(), Acad::eOk);
    reference->close();
    EXPECT_TRUE(attributeId.isErased());
    ASSERT_EQ(acdbOpenObject(attribute, attributeId, AcDb::kForRead, true), Acad::eOk);
    EXPECT_TRUE(attribute->position().isEqualTo(AcGePoint3d(6, 1, 0)));
    attribute->close();
}

TEST_F(BlockReference, ABlockThatShowsItselfEnds)
{
    AcDbBlockTableRecord* block = nullptr;
    ASSERT_EQ(acdbOpenObject(block, mBlock, AcDb::kForWrite), Acad::eOk);
    append(*block, new AcDbBlockReference(AcGePoint3d(1, 0, 0), mBlock));
    block->close();
    AcDbBlockReference reference(AcGePoint3d(0, 0, 0), mBlock);
    AcDbExtents extents;
    EXPECT_EQ(reference.getGeomExtents(extents), Acad::eOk);
}

TEST_F(BlockReference, RowsAndColumnsRepeatIt)
{
    AcDbMInsertBlock grid(AcGePoint3d(0, 0, 0), mBlock, 3, 2, 10.0, 5.0);
    AcDbExtents extents;
    ASSERT_EQ(grid.getGeomExtents(extents), Acad::eOk);
    EXPECT_TRUE(extents.isEqualTo(AcDbExtents(AcGePoint3d(0, 0, 0), AcGePoint3d(22, 6, 0))));
    EXPECT_EQ(grid.setRows(0), Acad::eInvalidInput);
}
