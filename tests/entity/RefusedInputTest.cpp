#include "EntityFixture.h"

#include "dbattdef.h"
#include "dbgroup.h"
#include "dbmtext.h"
#include "dbsymutl.h"
#include "dbtext.h"
#include "ScreenRecord.h"

#include <functional>

namespace
{
/// What a maker may fill in: 1 for success, 0 for failure.
using Call = std::function<int(AcDbObjectId&, AcDbObjectIdArray&)>;
struct NamedCall {
    std::string name;
    Call make;
};
using Calls = std::vector<NamedCall>;

const AcGePoint3d here(3, 4, 5);

class MakersOfTexts : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ed::screen() = {};
        ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, m_line), 1);
        ASSERT_EQ(CMakeEnt::MakeText({0, 0, 0}, L"text", m_text, 1.0), 1);
        ASSERT_EQ(CMakeEnt::MakeText({0, 0, 0}, L"gone", m_erased, 1.0), 1);
        Open<AcDbText>(m_erased, AcDb::kForWrite)->erase();
        ASSERT_EQ(CMakeEnt::MakeGroup(L"TAKEN", listOf({m_line, m_text}), m_group), 1);
        ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"HELD", L"txt.shx", 3.0, 0.8, 0.1), 1);
        turnUcs();
    }

    static AcDbObjectIdArray listOf(std::initializer_list<AcDbObjectId> ids)
    {
        AcDbObjectIdArray list;
        for (const AcDbObjectId& id : ids)
            list.append(id);
        return list;
    }
    unsigned groupCount() const
    {
        return Open<AcDbDictionary>(database()->groupDictionaryId())->numEntries();
    }
    int styleCount() const
    {
        const AcDbTextStyleTablePointer table(database());
        int count = 0;
        AcDbTextStyleTableIterator* at = nullptr;
        table->newIterator(at);
        for (const std::unique_ptr<AcDbTextStyleTableIterator> owner(at); !at->done(); at->step())
            ++count;
        return count;
    }
    struct Counts {
        int entities, styles, open;
        unsigned groups;
        bool operator==(const Counts& other) const
        {
            return entities == other.entities && styles == other.styles && open == other.open &&
                   groups == other.groups;
        }
    };
    Counts counts() const
    {
        return {entityCount(), styleCount(), headless::openObjects(*database()), groupCount()};
    }

    /// Fails for a call that succeeds, or leaves anything behind.
    void expectRefused(const NamedCall& call)
    {
        const AcDbObjectIdArray before = listOf({m_line});
        AcDbObjectIdArray ids = before;
        AcDbObjectId id = m_line;
        EXPECT_EQ(call.make(id, ids), 0) << call.name;
        EXPECT_EQ(id, m_line) << call.name;
        EXPECT_TRUE(ids == before) << call.name;
        EXPECT_TRUE(ed::screen().lines.empty()) << call.name;
    }
    void expectRefused(const Calls& calls)
    {
        for (const NamedCall& call : calls) {
            const Counts before = counts();
            expectRefused(call);
            EXPECT_TRUE(counts() == before) << call.name;
        }
    }

    Calls atPoint(const AcGePoint3d& at) const;
    Calls withSize(double size) const;
    Calls withText(const wchar_t* text) const;
    Calls withName(const CString& name) const;
    Calls withGroup(const AcDbObjectIdArray& ids) const;
    Calls withObject(AcDbObjectId object) const;
    Calls good();

    AcDbObjectId m_line, m_text, m_erased, m_group;
};

/// Every maker that takes a point, at one.
Calls MakersOfTexts::atPoint(const AcGePoint3d& at) const
{
    Calls calls = {
        {"MakeText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(at, L"a", id, 1.0, 0.5); }},
        {"MakeText aligned",
         [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(at, L"a", id, 1.0, kAligTopRight, 0.5); }},
        {"MakeMText", [=](AcDbObjectId& id, auto&) {
             return CMakeEnt::MakeMText(at, L"a", AcDbObjectId(), 1.0, 0.0, id);
         }}};
    for (const _Text_Class kind : {kTextClassLine, kTextClassParagraph, kTextClassAttribute})
        calls.push_back({"MakeText of class " + std::to_string(kind), [=](AcDbObjectId& id, auto&) {
                             return CMakeEnt::MakeText(kSoftCommon, at, L"a", id, kAligCenter, kind, 0.5);
                         }});
    using Dimensions = int (*)(const AcGePoint3d&, AcDbObjectIdArray&, int, double, CGTStringW);
    for (const Dimensions make :
         {CMakeEnt::MakeCoordDim1, CMakeEnt::MakeCoordDim2, CMakeEnt::MakeCoordDim3, CMakeEnt::MakeCoordDim4})
        calls.push_back(
            {"MakeCoordDim", [=](auto&, AcDbObjectIdArray& ids) { return make(at, ids, 0, 5.0, L""); }});
    return calls;
}

/// Every maker that takes a height, length, width, factor or angle, with a bad one.
Calls MakersOfTexts::withSize(double size) const
{
    Calls calls = {
        {"MakeText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, L"a", id, size); }},
        {"MakeText aligned",
         [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, L"a", id, size, kAligRight, 0.0); }},
        {"MakeMText", [=](AcDbObjectId& id,
                          auto&) { return CMakeEnt::MakeMText(here, L"a", AcDbObjectId(), size, 0.0, id); }},
        {"MakeCoordDim",
         [=](auto&, AcDbObjectIdArray& ids) { return CMakeEnt::MakeCoordDim3(here, ids, 1, size); }},
        {"MakeTxtStyle factor",
         [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"HELD", L"romans.shx", 1.0, size, 0.0); }},
        {"MakeTxtStyle new",
         [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"NEW", L"romans.shx", 1.0, size, 0.0); }}};
    if (size == 0.0) return calls; // which is a good width and angle
    calls.push_back({"MakeMText width", [=](AcDbObjectId& id, auto&) {
                         return CMakeEnt::MakeMText(here, L"a", AcDbObjectId(), 1.0, size, id);
                     }});
    calls.push_back({"MakeTxtStyle height", [=](auto&, auto&) {
                         return CMakeEnt::MakeTxtStyle(L"HELD", L"romans.shx", size, 1.0, 0.0);
                     }});
    calls.push_back({"DrawPl width",
                     [=](auto&, AcDbObjectIdArray& ids) { return CMakeEnt::DrawPl(ids, L"", 256, size); }});
    calls.push_back({"DrawPlCmd width",
                     [=](AcDbObjectId& id, auto&) { return CMakeEnt::DrawPlCmd(id, L"", 256, size); }});
    calls.push_back({"DrawPlWithDoubleElastic width", [=](AcDbObjectId& id, auto&) {
                         return CMakeEnt::DrawPlWithDoubleElastic(id, L"", 256, size);
                     }});
    return calls;
}

/// Every maker of single lines, with a text that is none.
Calls MakersOfTexts::withText(const wchar_t* text) const
{
    Calls calls = {
        {"MakeText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, text, id, 1.0); }},
        {"MakeText aligned",
         [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, text, id, 1.0, kAligRight, 0.0); }}};
    if (!text) {
        calls.push_back({"MakeMText", [=](AcDbObjectId& id, auto&) {
                             return CMakeEnt::MakeMText(here, text, AcDbObjectId(), 1.0, 0.0, id);
                         }});
        return calls;
    }
    calls.push_back(
        {"CopyText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::CopyText(m_text, text, id); }});
    calls.push_back({"MakeText attribute", [=](AcDbObjectId& id, auto&) {
                         return CMakeEnt::MakeText(kSoftCommon, here, text, id, kAligLeft,
                                                   kTextClassAttribute);
                     }});
    return calls;
}

/// Every maker that takes a name, with one that is not allowed or not there.
Calls MakersOfTexts::withName(const CString& name) const
{
    const AcDbObjectIdArray entities = listOf({m_line});
    return {{"MakeTxtStyle",
             [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(name, L"txt.shx", 1.0, 1.0, 0.0); }},
            {"MakeGroup", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeGroup(name, entities, id); }},
            {"MakeCoordDim",
             [=](auto&, AcDbObjectIdArray& ids) {
                 return name.IsEmpty() ? 0 : CMakeEnt::MakeCoordDim2(here, ids, 0, 5.0, name);
             }},
            {"DrawPlCmd",
             [=](AcDbObjectId& id, auto&) { return name.IsEmpty() ? 0 : CMakeEnt::DrawPlCmd(id, name); }},
            {"SeekBj",
             [=](AcDbObjectId& id, auto&) { return name.IsEmpty() ? 0 : CMakeEnt::SeekBj(here, name, id); }},
            {"ExplodNoNameGroup", [=](auto&, auto&) { return CMakeEnt::ExplodNoNameGroup(name); }}};
}

Calls MakersOfTexts::withGroup(const AcDbObjectIdArray& ids) const
{
    return {{"MakeGroup", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeGroup(L"NEW", ids, id); }},
            {"MakeNoNameGroup", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeNoNameGroup(ids, id); }}};
}

/// Every maker that takes an object, with one that it cannot use.
Calls MakersOfTexts::withObject(AcDbObjectId object) const
{
    Calls calls = withGroup(listOf({m_line, object}));
    calls.push_back(
        {"CopyText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::CopyText(object, L"b", id); }});
    if (!object.isNull())
        calls.push_back({"MakeMText", [=](AcDbObjectId& id, auto&) {
                             return CMakeEnt::MakeMText(here, L"a", object, 1.0, 0.0, id);
                         }});
    return calls;
}

/// Every maker, as it succeeds. The interactive ones have answers waiting.
Calls MakersOfTexts::good()
{
    Calls calls = atPoint(here);
    calls.push_back(
        {"CopyText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::CopyText(m_text, L"b", id); }});
    calls.push_back({"DrawPl", [=](auto&, AcDbObjectIdArray& ids) {
                         answer(L"0,0 1,0  ");
                         return CMakeEnt::DrawPl(ids);
                     }});
    calls.push_back({"DrawPlCmd", [=](AcDbObjectId& id, auto&) {
                         answer(L"0,0 1,0 1,1 c ");
                         return CMakeEnt::DrawPlCmd(id);
                     }});
    calls.push_back({"DrawPlWithDoubleElastic", [=](AcDbObjectId& id, auto&) {
                         answer(L"0,0 1,0 1,1 c ");
                         return CMakeEnt::DrawPlWithDoubleElastic(id);
                     }});
    return calls;
}

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
    for (const double rotation : {kNan, kInf})
        expectRefused({{"MakeText", [=](AcDbObjectId& id, auto&) {
                            return CMakeEnt::MakeText(here, L"a", id, 1.0, rotation);
                        }}});
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
    const Open<AcDbText> held(m_text, AcDb::kForWrite);
    expectRefused(withObject(m_text));
}

TEST_F(MakersOfTexts, PointsThatAreNotThereAreNotDrawnNorSought)
{
    for (const double bad : {kNan, kInf}) {
        AcGePoint3dArray points;
        points.append({0, 0, 0});
        points.append({1, 0, 0});
        points.append({bad, 1, 0});
        expectRefused({{"MakeGrPl", [=](auto&, auto&) { return CMakeEnt::MakeGrPl(points, 1, 1); }},
                       {"SeekBj", [=](AcDbObjectId& id, auto&) {
                            return CMakeEnt::SeekBj({bad, 0, 0}, L"", id);
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
    Calls calls = good();
    const Calls groups = withGroup(listOf({m_line}));
    calls.insert(calls.end(), groups.begin(), groups.end());
    calls.push_back({"MakeTxtStyle new",
                     [](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"NEW", L"txt.shx", 1.0, 1.0, 0.0); }});
    calls.push_back({"MakeTxtStyle", [](auto&, auto&) {
                         return CMakeEnt::MakeTxtStyle(L"HELD", L"txt.shx", 1.0, 1.0, 0.0);
                     }});
    m_lock.unlock();
    expectRefused(calls);
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
    for (const NamedCall& call : atPoint(here)) {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        expectRefused(call);
        acdbHostApplicationServices()->setWorkingDatabase(working);
    }
    EXPECT_TRUE(counts() == before);
}

TEST_F(MakersOfTexts, LockedAndFrozenCurrentLayersTakeAllTheSame)
{
    const AcDbObjectId layer = addLayer(L"LOCKED", true);
    database()->setClayer(layer);
    for (const NamedCall& call : good()) {
        AcDbObjectId id;
        AcDbObjectIdArray ids;
        EXPECT_EQ(call.make(id, ids), 1) << call.name;
        const AcDbObjectId made = ids.isEmpty() ? id : ids.last();
        const Open<AcDbEntity> entity(made);
        ASSERT_EQ(entity.openStatus(), Acad::eOk) << call.name;
        EXPECT_EQ(entity->layerId() == layer, call.name != "CopyText") << call.name;
    }
}
} // namespace
