#pragma once

/// Every maker of texts, groups, styles and dimensions, and every one that asks the user, with one input or
/// another.

#include "SavedEntities.h"

#include "EntityFixture.h"

#include "dbtext.h"
#include "ScreenRecord.h"

#include <functional>

/// What a maker may fill in: 1 for success, 0 for failure.
using Call = std::function<int(AcDbObjectId&, AcDbObjectIdArray&)>;
struct NamedCall {
    std::string name;
    Call make;
};
using Calls = std::vector<NamedCall>;

inline const AcGePoint3d here(3, 4, 5);

using Dimensions = int (*)(const AcGePoint3d&, AcDbObjectIdArray&, int, double, CGTStringW);
inline const Dimensions dimensions[] = {CMakeEnt::MakeCoordDim1, CMakeEnt::MakeCoordDim2,
                                        CMakeEnt::MakeCoordDim3, CMakeEnt::MakeCoordDim4};

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
    /// All makers of `good`, and those of groups and styles.
    Calls all();

    AcDbObjectId m_line, m_text, m_erased, m_group;
};
