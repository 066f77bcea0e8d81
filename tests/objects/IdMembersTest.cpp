/// Every member that takes an id, on every kind of id: results, and that reading changes nothing. No member
/// takes a layer; that of an entity may be locked, frozen, off or erased.

#include "QmCADLib.h"

#include "DrawingTest.h"

#include "db2dpl.h"
#include "dbblkref.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbextent.h"
#include "dbface.h"
#include "dbpl.h"
#include "dbspline.h"

#include <limits>

namespace
{
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// What the members answer for one id; points are those that GetCurvePoints appends to an empty array.
struct Answers {
    bool hasHandle;
    int polyline, curve, points;
    Acad::ErrorStatus extents, contents;
    bool operator==(const Answers& other) const
    {
        return hasHandle == other.hasHandle && polyline == other.polyline && curve == other.curve &&
               points == other.points && extents == other.extents && contents == other.contents;
    }
};

std::ostream& operator<<(std::ostream& out, const Answers& a)
{
    return out << "handle " << a.hasHandle << ", polyline " << a.polyline << ", curve " << a.curve << " with "
               << a.points << " points, extents " << a.extents << ", contents " << a.contents;
}

Answers answersFor(AcDbObjectId id)
{
    Answers is = {};
    CString handle = L"before";
    CFamStuPub::ObjectIdToHandleStr(id, handle);
    is.hasHandle = !handle.IsEmpty();
    AcGePoint3dArray vertices, points;
    is.polyline = CFamStuEnt::GetPolylinePoints(id, vertices, 1);
    is.curve = CFamStuEnt::GetCurvePoints(id, points, 1);
    is.points = points.length();
    AcDbExtents box;
    is.extents = CFamStuEnt::GetEntExtents(box, id);
    const AcDbObjectPointer<AcDbEntity> opened(id, AcDb::kForRead);
    is.contents = CFamStuEnt::getBlkRefExtByFilerError(opened.object(), box);
    return is;
}

constexpr auto ok = Acad::eOk, none = Acad::eInvalidExtents, noReference = Acad::eNotThatKindOfClass;
constexpr auto notOpened = Acad::eNullObjectPointer;

class IdMembers : public headless::DrawingTest
{
protected:
    struct Case {
        const char* name;
        AcDbObjectId id;
        Answers wanted;
    };

    AcDbObjectId erasedLine() const
    {
        const AcDbObjectId id = addLine({0, 0, 0}, {1, 1, 0});
        erase(id);
        return id;
    }
    template <class Change>
    AcDbObjectId lineOnLayer(const wchar_t* name, Change change) const
    {
        const AcDbObjectId layer = addLayer(name), id = addLine({0, 0, 0}, {1, 1, 0});
        EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->setLayer(layer), ok);
        const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        change(*record.object());
        return id;
    }
    AcDbObjectId reference(AcDbObjectId block, const AcGePoint3d& at = {1, 2, 3}) const
    {
        return add(new AcDbBlockReference(at, block));
    }
    AcDbObjectId referenceToErased() const
    {
        const AcDbObjectId block = addBlock(L"gone");
        add(new AcDbPoint(AcGePoint3d::kOrigin), block);
        const AcDbObjectId id = reference(block);
        erase(block);
        return id;
    }
    AcDbObjectId dotBlock() const
    {
        const AcDbObjectId block = addBlock(L"dot");
        add(new AcDbPoint(AcGePoint3d::kOrigin), block);
        return block;
    }

    std::vector<Case> casesOfIds() const
    {
        const Answers line = {true, 0, 1, 2, ok, noReference};
        return {
            {"null", AcDbObjectId(), {false, 0, 0, 0, Acad::eNullObjectId, notOpened}},
            {"erased", erasedLine(), {false, 0, 0, 0, Acad::eWasErased, notOpened}},
            {"layer", database()->layerZero(), {true, 0, 0, 0, noReference, notOpened}},
            {"on a locked layer", lineOnLayer(L"locked", [](auto& layer) { layer.setIsLocked(true); }), line},
            {"on a frozen layer", lineOnLayer(L"frozen", [](auto& layer) { layer.setIsFrozen(true); }), line},
            {"on a layer that is off", lineOnLayer(L"off", [](auto& layer) { layer.setIsOff(true); }), line},
            {"on an erased layer", lineOnLayer(L"erased", [](auto& layer) { layer.erase(); }), line},
        };
    }
    std::vector<Case> casesOfCurves() const
    {
        const double turn = 8.0 * std::atan(1.0);
        return {
            {"line without length", addLine({1, 1, 0}, {1, 1, 0}), {true, 0, 1, 2, ok, noReference}},
            {"line to no number", addLine({0, 0, 0}, {nan, 1, 0}), {true, 0, 1, 2, none, noReference}},
            {"endless line", addLine({0, 0, 0}, {infinity, 1, 0}), {true, 0, 1, 2, none, noReference}},
            {"arc of a whole turn",
             add(new AcDbArc(AcGePoint3d::kOrigin, 1, 0, turn)),
             {true, 0, 1, 2, ok, noReference}},
            {"new ellipse", add(new AcDbEllipse), {true, 0, 0, 0, none, noReference}},
            {"new spline", add(new AcDbSpline), {true, 0, 0, 0, none, noReference}},
            {"polyline without vertices", add(new AcDbPolyline), {true, 1, 0, 0, none, noReference}},
            {"old one without vertices", add(new AcDb2dPolyline), {true, 0, 0, 0, none, noReference}},
            {"text", add(new AcDbText(AcGePoint3d::kOrigin, L"x")), {true, 0, 0, 0, ok, noReference}},
            {"face with a bad corner",
             add(new AcDbFace({0, 0, 0}, {1, 0, 0}, {1, nan, 0}, {0, 1, 0})),
             {true, 0, 0, 0, none, noReference}},
        };
    }
    std::vector<Case> casesOfReferences() const
    {
        const AcDbObjectId dot = dotBlock();
        return {
            {"reference", reference(dot), {true, 0, 0, 0, ok, ok}},
            {"reference to nothing", reference(AcDbObjectId()), {true, 0, 0, 0, none, Acad::eNullObjectId}},
            {"reference to an erased block", referenceToErased(), {true, 0, 0, 0, ok, Acad::eWasErased}},
            {"reference to an empty block", reference(addBlock(L"empty")), {true, 0, 0, 0, none, none}},
            {"reference at no number", reference(dot, {nan, 0, 0}), {true, 0, 0, 0, none, none}},
            {"reference at the end of the world",
             reference(dot, {0, -infinity, 0}),
             {true, 0, 0, 0, none, none}},
        };
    }
    void expectAll(const std::vector<Case>& cases) const
    {
        const int before = entityCount();
        for (const Case& one : cases)
            EXPECT_EQ(answersFor(one.id), one.wanted) << one.name;
        EXPECT_EQ(entityCount(), before);
    }
};

TEST_F(IdMembers, AnswerForIdsOfEveryState)
{
    expectAll(casesOfIds());
}
TEST_F(IdMembers, AnswerForCurvesOfEveryKind)
{
    expectAll(casesOfCurves());
}
TEST_F(IdMembers, AnswerForReferencesOfEveryKind)
{
    expectAll(casesOfReferences());
}

// The good one lies beside all others, so that a box which took anything from the bad one would show it.
TEST_F(IdMembers, ListsPassOverWhatFailsAndTellOfTheLast)
{
    const AcDbObjectId good = addLine({100, 100, 100}, {200, 200, 200});
    for (const auto& cases : {casesOfIds(), casesOfCurves(), casesOfReferences()}) {
        for (const Case& one : cases) {
            if (one.wanted.extents == ok) continue;
            SCOPED_TRACE(one.name);
            AcDbObjectIdArray ids;
            for (const AcDbObjectId id : {one.id, good, one.id})
                ids.append(id);
            AcDbExtents box;
            EXPECT_EQ(CFamStuEnt::GetEntExtents(box, ids), one.wanted.extents);
            EXPECT_EQ(box.minPoint(), AcGePoint3d(100, 100, 100));
            EXPECT_EQ(box.maxPoint(), AcGePoint3d(200, 200, 200));
            ids.removeLast();
            EXPECT_EQ(CFamStuEnt::GetEntExtents(box, ids), ok);
        }
    }
}

TEST_F(IdMembers, ReferencesWhoseBlockIsOpenForWriteSayWhy)
{
    const AcDbObjectId dot = dotBlock(), id = reference(dot);
    const AcDbObjectPointer<AcDbBlockTableRecord> writer(dot, AcDb::kForWrite);
    const AcDbObjectPointer<AcDbEntity> opened(id, AcDb::kForRead);
    AcDbExtents box({1, 1, 1}, {2, 2, 2});
    EXPECT_EQ(CFamStuEnt::getBlkRefExtByFilerError(opened.object(), box), Acad::eWasOpenForWrite);
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(2, 2, 2));
}
} // namespace
