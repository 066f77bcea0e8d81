/// What all classes of entities have in common: their records, their maps, and what damaged records do to
/// them.

#include "CurveSamples.h"
#include "DatabaseFixture.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmline.h"
#include "dbpolymesh.h"
#include "dbregion.h"
#include "dbviewport.h"
#include "Drawn.h"
#include "RecordLists.h"

#include <functional>

namespace
{
struct EntitySample {
    std::string name;
    /// Made in a drawing that has the block "PART".
    std::function<std::unique_ptr<AcDbEntity>(AcDbObjectId part)> make;
};

void PrintTo(const EntitySample& sample, std::ostream* out)
{
    *out << sample.name;
}

template <class Entity, class... Arguments>
EntitySample sample(const char* name, Arguments... arguments)
{
    return {name, [=](AcDbObjectId) { return std::make_unique<Entity>(arguments...); }};
}

std::unique_ptr<AcDbEntity> hatch(AcDbObjectId)
{
    auto made = std::make_unique<AcDbHatch>();
    AcGePoint2dArray corners;
    AcGeDoubleArray bulges;
    for (const AcGePoint2d& corner :
         {AcGePoint2d(0, 0), AcGePoint2d(4, 0), AcGePoint2d(4, 3), AcGePoint2d(0, 3)}) {
        corners.append(corner);
        bulges.append(0.2);
    }
    made->setPattern(AcDbHatch::kPreDefined, L"ANSI31");
    made->appendLoop(AcDbHatch::kPolyline, corners, bulges);
    return made;
}

std::unique_ptr<AcDbEntity> mtext(AcDbObjectId)
{
    auto made = std::make_unique<AcDbMText>();
    made->setContents(L"{\\H1.5x;two}\\Plines");
    made->setLocation(AcGePoint3d(1, 2, 3));
    made->setTextHeight(2.0);
    made->setWidth(30.0);
    return made;
}

std::unique_ptr<AcDbEntity> leader(AcDbObjectId)
{
    auto made = std::make_unique<AcDbLeader>();
    for (const AcGePoint3d& at : {AcGePoint3d(0, 0, 0), AcGePoint3d(3, 4, 0), AcGePoint3d(8, 4, 0)})
        made->appendVertex(at);
    return made;
}

std::unique_ptr<AcDbEntity> mline(AcDbObjectId)
{
    auto made = std::make_unique<AcDbMline>();
    const PackedGroups groups = groupsOf(
        {{100, "AcDbMline"}, {2, "STANDARD"}, {40, 1.0}, {70, 1.0},  {71, 1.0},  {72, 2.0},  {73, 1.0},
         {10, 0.0},          {20, 0.0},       {30, 0.0}, {210, 0.0}, {220, 0.0}, {230, 1.0}, {11, 0.0},
         {21, 0.0},          {31, 0.0},       {12, 1.0}, {22, 0.0},  {32, 0.0},  {13, 0.0},  {23, 1.0},
         {33, 0.0},          {74, 2.0},       {41, 0.5}, {41, 0.0},  {75, 0.0},  {11, 10.0}, {21, 0.0},
         {31, 0.0},          {12, 1.0},       {22, 0.0}, {32, 0.0},  {13, 0.0},  {23, 1.0},  {33, 0.0},
         {74, 2.0},          {41, 0.5},       {41, 0.0}, {75, 0.0}});
    ListSource source(groups);
    dxfRead(*made, source);
    return made;
}

std::unique_ptr<AcDbEntity> region(AcDbObjectId)
{
    AcDbCircle circle(AcGePoint3d(1, 2, 0), AcGeVector3d::kZAxis, 3.0);
    AcDbVoidPtrArray curves, made;
    curves.append(&circle);
    AcDbRegion::createFromCurves(curves, made);
    return std::unique_ptr<AcDbEntity>(static_cast<AcDbEntity*>(made[0]));
}

std::unique_ptr<AcDbEntity> viewport(AcDbObjectId)
{
    auto made = std::make_unique<AcDbViewport>();
    made->setCenterPoint(AcGePoint3d(100, 80, 0));
    made->setWidth(200.0);
    made->setHeight(160.0);
    return made;
}

template <class Endless>
std::unique_ptr<AcDbEntity> endless(AcDbObjectId)
{
    auto made = std::make_unique<Endless>();
    made->setBasePoint(AcGePoint3d(1, 2, 3));
    made->setUnitDir(AcGeVector3d(0.6, 0.0, 0.8));
    return made;
}

std::vector<EntitySample> otherSamples()
{
    using P = AcGePoint3d;
    return {
        sample<AcDbPoint>("Point", P(1, 2, 3)),
        sample<AcDbSolid>("Solid", P(0, 0, 1), P(4, 0, 1), P(0, 3, 1), P(4, 3, 1)),
        sample<AcDbTrace>("Trace", P(0, 0, 1), P(4, 0, 1), P(0, 3, 1), P(4, 3, 1)),
        sample<AcDbFace>("Face", P(0, 0, 0), P(4, 0, 1), P(4, 3, 2), P(0, 3, 1)),
        sample<AcDbText>("Text", P(1, 2, 3), L"text", AcDbObjectId(), 2.5, 0.3),
        sample<AcDbAttributeDefinition>("AttributeDefinition", P(1, 2, 3), L"value", L"TAG", L"prompt"),
        sample<AcDbAttribute>("Attribute", P(1, 2, 3), L"value", L"TAG"),
        sample<AcDb2dVertex>("Vertex2d", P(1, 2, 0), 0.5, 1.0, 2.0),
        sample<AcDb3dPolylineVertex>("Vertex3d", P(1, 2, 3)),
        sample<AcDbPolygonMeshVertex>("MeshVertex", P(1, 2, 3)),
        sample<AcDbPolyFaceMeshVertex>("FaceMeshVertex", P(1, 2, 3)),
        sample<AcDbFaceRecord>("FaceRecord", Adesk::Int16(1), Adesk::Int16(-2), Adesk::Int16(3),
                               Adesk::Int16(4)),
        sample<AcDbAlignedDimension>("AlignedDimension", P(0, 0, 0), P(30, 40, 0), P(0, 50, 0)),
        sample<AcDbRotatedDimension>("RotatedDimension", 0.5, P(0, 0, 0), P(30, 40, 0), P(0, 50, 0)),
        sample<AcDbRadialDimension>("RadialDimension", P(0, 0, 0), P(30, 40, 0), 10.0),
        sample<AcDbDiametricDimension>("DiametricDimension", P(0, 0, 0), P(30, 40, 0), 10.0),
        sample<AcDbRadialDimensionLarge>("JoggedDimension", P(0, 0, 0), P(50, 0, 0), P(20, 5, 0), P(30, 5, 0),
                                         0.8),
        sample<AcDbOrdinateDimension>("OrdinateDimension", true, P(10, 20, 0), P(15, 40, 0)),
        sample<AcDb2LineAngularDimension>("AngularDimension", P(0, 0, 0), P(50, 0, 0), P(0, 0, 0),
                                          P(0, 50, 0), P(30, 30, 0)),
        sample<AcDb3PointAngularDimension>("ThreePointDimension", P(0, 0, 0), P(50, 0, 0), P(0, 50, 0),
                                           P(30, 30, 0)),
        sample<AcDbArcDimension>("ArcDimension", P(0, 0, 0), P(50, 0, 0), P(0, 50, 0), P(40, 40, 0)),
        {"BlockReference",
         [](AcDbObjectId part) { return std::make_unique<AcDbBlockReference>(P(5, 6, 7), part); }},
        {"BlockGrid",
         [](AcDbObjectId part) {
             return std::make_unique<AcDbMInsertBlock>(P(5, 6, 7), part, std::uint16_t(3), std::uint16_t(2),
                                                       20.0, 10.0);
         }},
        {"Hatch", hatch},
        {"MText", mtext},
        {"Leader", leader},
        {"Multiline", mline},
        {"Region", region},
        {"Viewport", viewport},
        {"Ray", endless<AcDbRay>},
        {"ConstructionLine", endless<AcDbXline>},
    };
}

std::vector<EntitySample> entitySamples()
{
    std::vector<EntitySample> all = otherSamples();
    for (const CurveSample& curve : curveSamples())
        all.push_back({curve.name, [curve](AcDbObjectId) { return curve.make(); }});
    return all;
}

/// The record with one of its groups changed into others, or none.
PackedGroups withGroup(const PackedGroups& groups, int index, const std::vector<DxfGroup>& replacements)
{
    PackedGroups changed;
    DxfGroup group;
    int number = 0;
    for (std::size_t at = 0; groups.read(at, group); ++number) {
        if (number != index) changed.append(group);
        if (number == index) {
            for (const DxfGroup& replacement : replacements)
                changed.append(replacement);
        }
    }
    return changed;
}

/// What a damaged or hostile file may have in place of a group: nothing, the group twice, and values of its
/// kind that mean nothing.
std::vector<std::vector<DxfGroup>> damages(const DxfGroup& group)
{
    std::vector<std::vector<DxfGroup>> all{{}, {group, group}};
    const auto add = [&](auto set) {
        all.push_back({group});
        set(all.back().front());
    };
    static const std::string longText(400, 'x');
    switch (group.kind) {
    case DxfKind::real:
        for (const double value : {0.0, -1.0, 1e300, -1e300})
            add([=](DxfGroup& changed) { changed.real = value; });
        break;
    case DxfKind::text:
        for (const std::string_view value :
             {std::string_view(), std::string_view(longText), std::string_view("*")})
            add([=](DxfGroup& changed) { changed.text = value; });
        break;
    case DxfKind::integer:
    case DxfKind::handle:
        for (const std::int64_t value : {0LL, -1LL, 3LL, 32767LL, 2147483647LL, 0x7FFFFFFFFFFFFFFFLL})
            add([=](DxfGroup& changed) { changed.integer = value; });
        break;
    case DxfKind::binary:
        add([](DxfGroup& changed) { changed.text = {}; });
        break;
    }
    return all;
}

class EntityClass : public DatabaseFixture, public testing::WithParamInterface<EntitySample>
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        AcDbBlockTable* table = nullptr;
        ASSERT_EQ(mDatabase.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* block = new AcDbBlockTableRecord;
        block->setName(L"PART");
        ASSERT_EQ(table->add(mPart, block), Acad::eOk);
        table->close();
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(3, 1, 0));
        ASSERT_EQ(block->appendAcDbEntity(line), Acad::eOk);
        line->close();
        block->close();
        mEntity = GetParam().make(mPart);
    }
    std::unique_ptr<AcDbEntity> makeNew() const
    {
        return std::unique_ptr<AcDbEntity>(static_cast<AcDbEntity*>(mEntity->isA()->create()));
    }
    /// A new object of the class, read from groups.
    std::unique_ptr<AcDbEntity> read(const PackedGroups& groups)
    {
        std::unique_ptr<AcDbEntity> made = makeNew();
        ListSource source(groups, &mDatabase);
        dxfRead(*made, source);
        return made;
    }
    /// Asks all that a drawing asks of its entities.
    static void use(AcDbEntity& entity)
    {
        AcDbExtents extents;
        AcGePoint3dArray points;
        AcDbIntArray modes, ids;
        AcDbVoidPtrArray pieces;
        entity.completeRead();
        entity.getGeomExtents(extents);
        entity.getGripPoints(points, modes, ids);
        for (int mode = AcDb::kOsModeEnd; mode <= AcDb::kOsModeCentroid; ++mode)
            entity.getOsnapPoints(static_cast<AcDb::OsnapMode>(mode), 0, AcGePoint3d(1, 1, 0),
                                  AcGePoint3d(9, 9, 0), AcGeMatrix3d::kIdentity, points, ids);
        drawnLines(entity);
        entity.explode(pieces);
        for (void* piece : pieces)
            delete static_cast<AcDbEntity*>(piece);
        const std::unique_ptr<AcRxObject> copy(entity.clone());
        static_cast<AcDbEntity&>(*copy).transformBy(AcGeMatrix3d().setToScaling(2.0));
    }

    AcDbObjectId mPart;
    std::unique_ptr<AcDbEntity> mEntity;
};
} // namespace

TEST_P(EntityClass, ReadsWhatItWrites)
{
    for (const DxfVersion version : {DxfVersion::r2000, DxfVersion::r2018}) {
        const PackedGroups groups = written(*mEntity, version);
        EXPECT_EQ(textOf(written(*read(groups), version)), textOf(groups));
        // Attributes tell their two groups 280 by the tag between them, which a new one does not have.
        if (mEntity->isKindOf(AcDbAttribute::desc()) || mEntity->isKindOf(AcDbAttributeDefinition::desc()))
            continue;
        const PackedGroups ofNew = written(*makeNew(), version);
        EXPECT_EQ(textOf(written(*read(ofNew), version)), textOf(ofNew)) << "a new one";
    }
}

TEST_P(EntityClass, AMapAndItsInverseChangeNothing)
{
    // A turn within the plane and one out of it, a mirror and a uniform scale, which every class allows.
    const AcGeMatrix3d map = AcGeMatrix3d().setToRotation(0.7, AcGeVector3d(1, 2, 3), AcGePoint3d(5, -4, 3)) *
                             AcGeMatrix3d().setToScaling(2.5, AcGePoint3d(1, 1, 0));
    AcDbExtents before, after;
    const Acad::ErrorStatus status = mEntity->getGeomExtents(before);
    const Acad::ErrorStatus mapped = mEntity->transformBy(map);
    if (mapped != Acad::eOk) {
        // Viewports keep to their sheet, vertices of flat polylines to the plane that only the polyline
        // knows.
        EXPECT_TRUE(AcDbViewport::cast(mEntity.get()) || AcDb2dVertex::cast(mEntity.get()));
        return;
    }
    ASSERT_EQ(mEntity->transformBy(map.inverse()), Acad::eOk);
    ASSERT_EQ(mEntity->getGeomExtents(after), status);
    if (status != Acad::eOk) return;
    EXPECT_LT(before.minPoint().distanceTo(after.minPoint()), 1e-7);
    EXPECT_LT(before.maxPoint().distanceTo(after.maxPoint()), 1e-7);
}

TEST_P(EntityClass, CopyWritesTheSameAndIsItsOwn)
{
    const std::string before = textOf(written(*mEntity));
    const std::unique_ptr<AcRxObject> clone(mEntity->clone());
    auto& copy = static_cast<AcDbEntity&>(*clone);
    EXPECT_EQ(copy.isA(), mEntity->isA());
    EXPECT_EQ(textOf(written(copy)), before);
    copy.transformBy(AcGeMatrix3d().setToTranslation(AcGeVector3d(1, 2, 0)));
    EXPECT_EQ(textOf(written(*mEntity)), before);
}

TEST_P(EntityClass, ADamagedRecordMakesAnObjectThatWrites)
{
    const PackedGroups groups = written(*mEntity);
    DxfGroup group;
    int index = 0;
    for (std::size_t at = 0; groups.read(at, group); ++index) {
        for (const std::vector<DxfGroup>& damage : damages(group)) {
            SCOPED_TRACE(testing::Message() << "group " << group.code << ", the " << index << "th, value "
                                            << (damage.empty() ? 0.0 : damage[0].real) << " "
                                            << (damage.empty() ? 0 : damage[0].integer));
            const std::unique_ptr<AcDbEntity> damaged = read(withGroup(groups, index, damage));
            use(*damaged);
            const PackedGroups repaired = written(*damaged);
            // A group that stood twice is kept behind the others, where the next reader takes it.
            const PackedGroups settled = written(*read(repaired));
            EXPECT_EQ(textOf(written(*read(settled))), textOf(settled));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, EntityClass, testing::ValuesIn(entitySamples()),
                         [](const testing::TestParamInfo<EntitySample>& info) { return info.param.name; });
