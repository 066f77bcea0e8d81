#include "TextMakers.h"

#include "dbgroup.h"
#include <cmath>

namespace
{
TEST_F(MakersOfTexts, PointsThatAreNoneAddNothing)
{
    for (const AcGePoint3d& at : {AcGePoint3d(kNan, 0, 0), AcGePoint3d(0, kInf, 0), AcGePoint3d(0, 0, -kInf)})
        expectRefused(atPoint(at));
}

TEST_F(MakersOfTexts, SizesOutOfRangeAddAndChangeNothing)
{
    for (const double size : {0.0, -1.0, kNan, kInf, -kInf})
        expectRefused(withSize(size));
    for (const double oblique : {kNan, kInf, -kInf, 1.6, -1.6}) // 85 degrees are 1.4835
        expectRefused({{"MakeTxtStyle", [=](auto&, auto&) {
                            return CMakeEnt::MakeTxtStyle(L"HELD", L"romans.shx", 1.0, 1.0, oblique);
                        }}});
    for (const double rotation : {kNan, kInf}) {
        expectRefused({{"MakeText", [=](AcDbObjectId& id, auto&) {
                            return CMakeEnt::MakeText(here, L"a", id, 1.0, rotation);
                        }}});
        for (const _Text_Class kind : {kTextClassLine, kTextClassParagraph, kTextClassAttribute})
            expectRefused({{"MakeText of class", [=](AcDbObjectId& id, auto&) {
                                return CMakeEnt::MakeText(kSoftCommon, here, L"a", id, kAligLeft, kind,
                                                          rotation);
                            }}});
    }
    const AcDbTextStyleTableRecordPointer held(L"HELD", database());
    EXPECT_EQ(held->fileName(), L"txt.shx");
    EXPECT_EQ(held->textSize(), 3.0);
    EXPECT_EQ(held->xScale(), 0.8);
}

TEST_F(MakersOfTexts, TextsThatAreNoLineAddNothing)
{
    for (const wchar_t* text : {static_cast<const wchar_t*>(nullptr), L"a\nb", L"a\rb", L"\n"})
        expectRefused(withText(text));
}

TEST_F(MakersOfTexts, UnknownAlignmentsAndClassesAddNothing)
{
    // Numbers that the enumerations can hold and give no name to.
    for (const auto aligment : {static_cast<_Aligment>(13), static_cast<_Aligment>(15)})
        for (const _Text_Class kind : {kTextClassLine, kTextClassParagraph, kTextClassAttribute})
            expectRefused({{"alignment", [=](AcDbObjectId& id, auto&) {
                                return CMakeEnt::MakeText(kSoftCommon, here, L"a", id, aligment, kind);
                            }}});
    expectRefused({{"class", [=](AcDbObjectId& id, auto&) {
                        return CMakeEnt::MakeText(kSoftCommon, here, L"a", id, kAligLeft,
                                                  static_cast<_Text_Class>(3));
                    }}});
}

TEST_F(MakersOfTexts, BadNamesAddNothing)
{
    for (const CString& name : {CString(L""), CString(L'n', 300), CString(L"a|b"), CString(L"*x"),
                                CString(L"a<b"), CString(L"a\tb"), CString(L"a/b"), CString(L"a;b")}) {
        SCOPED_TRACE(name.GetString());
        expectRefused(withName(name));
    }
    const AcDbObjectIdArray entities = listOf({m_line});
    expectRefused({{"MakeGroup",
                    [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeGroup(L"taken", entities, id); }}});
    for (const wchar_t* font : {L"", L",", L",gbcbig.shx", L" "})
        expectRefused({{"MakeTxtStyle",
                        [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"NEW", font, 1.0, 1.0, 0.0); }}});
}

TEST_F(MakersOfTexts, ObjectsThatAreNoneAddNothing)
{
    for (const AcDbObjectId& object :
         {AcDbObjectId(), m_erased, database()->layerZero(), database()->modelSpaceId(), m_group})
        expectRefused(withObject(object));
    expectRefused(withGroup(AcDbObjectIdArray()));
    AcDbDatabase other;
    expectRefused(withObject(other.textstyle()));
    acdbHostApplicationServices()->setWorkingDatabase(&other);
    AcDbObjectId foreign;
    ASSERT_EQ(CMakeEnt::MakeText(here, L"a", foreign, 1.0), 1);
    acdbHostApplicationServices()->setWorkingDatabase(database());
    expectRefused(withGroup(listOf({m_line, foreign})));
    const AcDbObjectId style = AcDbTextStyleTableRecordPointer(L"HELD", database())->objectId();
    Open<AcDbTextStyleTableRecord>(style, AcDb::kForWrite)->erase();
    expectRefused(withObject(style));
    const Open<AcDbText> held(m_text, AcDb::kForWrite);
    expectRefused(withObject(m_text));
}

TEST_F(MakersOfTexts, TablesThatSomebodyHoldsTakeNothing)
{
    AcDbObjectId anonymous;
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(listOf({m_line}), anonymous), 1);
    const AcDbObjectIdArray lines = listOf({m_line});
    const auto style = [](const wchar_t* name) {
        return CMakeEnt::MakeTxtStyle(name, L"romans.shx", 1.0, 1.0, 0.0);
    };
    AcDbObjectIdArray ids;
    AcDbObjectId id;
    {
        const Open<AcDbDictionary> groups(database()->groupDictionaryId(), AcDb::kForWrite);
        EXPECT_EQ(CMakeEnt::MakeGroup(L"NEW", lines, id), 0);
        EXPECT_EQ(CMakeEnt::MakeNoNameGroup(lines, id), 0);
        EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L""), 0);
        const AcDbTextStyleTablePointer styles(database(), AcDb::kForWrite);
        EXPECT_EQ(style(L"NEW"), 0);
    }
    {
        const AcDbTextStyleTableRecordPointer held(L"HELD", database());
        EXPECT_EQ(style(L"HELD"), 0);
        EXPECT_EQ(held->fileName(), L"txt.shx");
    }
    EXPECT_TRUE(id.isNull());
    EXPECT_FALSE(anonymous.isErased());
    EXPECT_EQ(groupCount(), 2u);
    EXPECT_EQ(style(L"HELD"), 1);
}

/// Whether the box of every entity is made of numbers.
bool hasNumbersOnly(AcDbDatabase& drawing)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId(), AcDb::kForRead);
    for (const AcDbObjectId& id : space->entityIds()) {
        AcDbExtents box;
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) continue;
        if (entity->getGeomExtents(box) != Acad::eOk) return false;
        for (const AcGePoint3d& corner : {box.minPoint(), box.maxPoint()})
            if (!std::isfinite(corner.x) || !std::isfinite(corner.y) || !std::isfinite(corner.z))
                return false;
    }
    return true;
}

TEST_F(MakersOfTexts, HugeNumbersAreRefusedOrMakeASoundDrawing)
{
    const double half = std::sqrt(0.5);
    setUcs({10, 20, 0}, {half, half, 0}, {-half, half, 0}); // sums of two coordinates
    for (const double huge : {1e15, -1e100, 1e150, 1.7e308}) {
        Calls calls = withSize(huge);
        for (const AcGePoint3d& at : {AcGePoint3d(huge, 0, 0), AcGePoint3d(huge, huge, 0)}) {
            const Calls placed = atPoint(at);
            calls.insert(calls.end(), placed.begin(), placed.end());
            for (const Dimensions make : dimensions)
                calls.push_back({"MakeCoordDim to the end", [=](auto&, AcDbObjectIdArray& ids) {
                                     return make(at, ids, 0, std::fabs(huge), L"");
                                 }});
        }
        for (const NamedCall& call : calls) {
            if (call.name.find("DrawPl") == 0) continue; // they would ask
            AcDbObjectId id;
            AcDbObjectIdArray ids;
            const int before = entityCount();
            const int result = call.make(id, ids);
            EXPECT_EQ(entityCount() > before, result == 1 && call.name.find("Style") == call.name.npos)
                << call.name << ' ' << huge;
        }
    }
    EXPECT_TRUE(hasNumbersOnly(*database()));
    SavedEntities saved(*database());
    EXPECT_FALSE(saved.drawing().needsRecovery());
    EXPECT_TRUE(hasNumbersOnly(saved.drawing()));
}

TEST_F(MakersOfTexts, PointsThatAreNotThereAreNotDrawnNorSought)
{
    for (const double bad : {kNan, kInf, -kInf}) {
        AcGePoint3dArray points;
        points.append({0, 0, 0});
        points.append({1, 0, 0});
        points.append({bad, 1, 0});
        expectRefused({{"MakeGrPl", [=](auto&, auto&) { return CMakeEnt::MakeGrPl(points, 1, 1); }},
                       {"SeekBj",
                        [=](AcDbObjectId& id, auto&) {
                            return CMakeEnt::SeekBj({bad, 0, 0}, L"", id);
                        }},
                       {"SeekBj", [=](AcDbObjectId& id, auto&) {
                            return CMakeEnt::SeekBj({0, 0, bad}, L"", id);
                        }}});
        points.setLogicalLength(1);
        expectRefused({{"MakeGrPl", [=](auto&, auto&) { return CMakeEnt::MakeGrPl(points, 1, 1); }}});
        points.append({1, 0, 0});
        for (const int color : {-2, 257})
            expectRefused({{"MakeGrPl", [=](auto&, auto&) { return CMakeEnt::MakeGrPl(points, color, 0); }}});
    }
}

TEST_F(MakersOfTexts, UnlockedDocumentTakesNothing)
{
    AcDbObjectId anonymous;
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(listOf({m_line}), anonymous), 1);
    Calls calls = all();
    calls.push_back({"ExplodNoNameGroup", [](auto&, auto&) { return CMakeEnt::ExplodNoNameGroup(L""); }});
    unlock();
    expectRefused(calls);
    EXPECT_FALSE(anonymous.isErased());
}

TEST_F(MakersOfTexts, SpaceThatSomebodyHoldsTakesNothing)
{
    for (const AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite})
        for (const NamedCall& call : good()) {
            const Open<AcDbBlockTableRecord> held(database()->modelSpaceId(), mode);
            expectRefused(call);
        }
    EXPECT_EQ(entityCount(), 2);
}

TEST_F(MakersOfTexts, NothingIsMadeWithoutADrawing)
{
    const Counts before = counts();
    AcDbDatabase* const working = acdbHostApplicationServices()->workingDatabase();
    for (const NamedCall& call : all()) {
        if (call.name == "CopyText") continue; // goes by the drawing of the text
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        expectRefused(call);
        acdbHostApplicationServices()->setWorkingDatabase(working);
    }
    EXPECT_TRUE(counts() == before);
}

void expectTaken(const NamedCall& call, AcDbObjectId layer)
{
    AcDbObjectId id;
    AcDbObjectIdArray ids;
    EXPECT_EQ(call.make(id, ids), 1) << call.name;
    const AcDbEntityPointer entity(ids.isEmpty() ? id : ids.last(), AcDb::kForRead);
    ASSERT_EQ(entity.openStatus(), Acad::eOk) << call.name;
    EXPECT_EQ(entity->layerId(), layer) << call.name;
}

/// The properties of a layer in whose way nothing may be.
const std::pair<const wchar_t*, void (*)(AcDbLayerTableRecord&)> states[] = {
    {L"LOCKED", [](AcDbLayerTableRecord& layer) { layer.setIsLocked(true); }},
    {L"FROZEN", [](AcDbLayerTableRecord& layer) { layer.setIsFrozen(true); }},
    {L"OFF", [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); }}};

TEST_F(MakersOfTexts, CurrentLayersThatAreLockedFrozenOrOffTakeAllTheSame)
{
    for (const auto& [name, change] : states) {
        const AcDbObjectId layer = addLayer(name);
        ASSERT_EQ(database()->setClayer(layer), Acad::eOk);
        change(*Open<AcDbLayerTableRecord>(layer, AcDb::kForWrite));
        for (const NamedCall& call : good())
            expectTaken(call, call.name == "CopyText" ? database()->layerZero() : layer);
    }
}

TEST_F(MakersOfTexts, NamedLayersThatAreLockedFrozenOrOffTakeAllTheSame)
{
    for (const auto& [name, change] : states) {
        const AcDbObjectId layer = addLayer(name);
        change(*Open<AcDbLayerTableRecord>(layer, AcDb::kForWrite));
        const CString named = name;
        expectTaken({"DrawPl",
                     [=](auto&, AcDbObjectIdArray& ids) {
                         answer(L"0,0 1,0  ");
                         return CMakeEnt::DrawPl(ids, named);
                     }},
                    layer);
        expectTaken({"DrawPlCmd",
                     [=](AcDbObjectId& id, auto&) {
                         answer(L"0,0 1,0  ");
                         return CMakeEnt::DrawPlCmd(id, named);
                     }},
                    layer);
        expectTaken({"DrawPlWithDoubleElastic",
                     [=](AcDbObjectId& id, auto&) {
                         answer(L"0,0 1,0 1,1  ");
                         return CMakeEnt::DrawPlWithDoubleElastic(id, named);
                     }},
                    layer);
    }
}
} // namespace
