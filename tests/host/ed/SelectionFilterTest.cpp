#include "SelectionFixture.h"

#include "dbregapp.h"
#include "dbtext.h"

namespace
{
/// A drawing with entities of known names, and filters that tell which of them they take.
class SelectionFilters : public SelectionTest
{
protected:
    void SetUp() override
    {
        SelectionTest::SetUp();
        mNamed = {{L"line", addLine(0, 0, 10, RTDXF0, L"Walls")}, {L"circle", addCircle(50, 50, 5, L"WINDOWS")}};
        auto text = std::make_unique<AcDbText>(AcGePoint3d(5, 60, 0), L"Room 12", AcDbObjectId(), 2.5, 0.0);
        text->setColorIndex(1);
        mNamed.push_back({L"text", add(std::move(text), L"Notes")});
        auto large = std::make_unique<AcDbCircle>(AcGePoint3d(80, 50, 2), AcGeVector3d::kZAxis, 25.0);
        large->setColorIndex(3);
        large->setLinetypeScale(2.0);
        mNamed.push_back({L"large", add(std::move(large), L"Walls")});
        attachData(mNamed[0].id, L"QM_TAG");
        attachData(mNamed[2].id, L"OTHER");
    }

    /// The names of what a filter takes, in the order of their making; "error" when the filter is refused.
    std::wstring taken(resbuf* filter)
    {
        const Ids ids = get(L"X", nullptr, nullptr, filter);
        acutRelRb(filter);
        std::wstring names;
        for (const Named& named : mNamed) {
            if (std::find(ids.begin(), ids.end(), named.id) != ids.end())
                names += (names.empty() ? L"" : L" ") + named.name;
        }
        return names;
    }
    template <class... Args>
    std::wstring taken(int type, Args... args)
    {
        return taken(acutBuildList(type, args..., RTNONE));
    }
    /// Whether a filter is refused, and not only takes nothing.
    template <class... Args>
    bool isRefused(Args... args)
    {
        resbuf* faulty = acutBuildList(args..., RTNONE);
        resbuf* last = faulty;
        while (last->rbnext) last = last->rbnext;
        // An alternative that takes everything would be taken if the rest could be read.
        resbuf* any = acutBuildList(-4, L"<OR", RTDXF0, L"*", -4, L"<AND", RTNONE);
        resbuf* end = acutBuildList(-4, L"AND>", -4, L"OR>", RTNONE);
        last->rbnext = end;
        any->rbnext->rbnext->rbnext = faulty;
        return taken(any).empty();
    }

private:
    struct Named {
        std::wstring name;
        AcDbObjectId id;
    };
    void attachData(AcDbObjectId id, const wchar_t* application)
    {
        acdbRegApp(application);
        resbuf* data = acutBuildList(1001, application, 1000, L"value", RTNONE);
        AcDbObject* object = nullptr;
        acdbOpenAcDbObject(object, id, AcDb::kForWrite);
        EXPECT_EQ(object->setXData(data), Acad::eOk);
        object->close();
        acutRelRb(data);
    }
    std::vector<Named> mNamed;
};
} // namespace

TEST_F(SelectionFilters, ReadNamesAsPatternsInAnyCase)
{
    EXPECT_EQ(taken(RTDXF0, L"circle"), L"circle large");
    EXPECT_EQ(taken(RTDXF0, L"LINE,TEXT"), L"line text");
    EXPECT_EQ(taken(RTDXF0, L"*", 8, L"W*"), L"line circle large");
    EXPECT_EQ(taken(8, L"~w*"), L"text");
    EXPECT_EQ(taken(6, L"BYLAYER", RTDXF0, L"[LT]*"), L"line text");
    EXPECT_EQ(taken(410, L"model", 67, 0, RTDXF0, L"LINE"), L"line");
    EXPECT_EQ(taken(RTDXF0, L"ARC"), L"");
}

TEST_F(SelectionFilters, ReadContentsOfTextsInTheirCase)
{
    EXPECT_EQ(taken(1, L"Room ##"), L"text");
    EXPECT_EQ(taken(1, L"room ##"), L"");
}

TEST_F(SelectionFilters, CompareNumbersAndPointsByCoordinate)
{
    EXPECT_EQ(taken(-4, L">=", 40, 5.0, RTDXF0, L"CIRCLE"), L"circle large");
    EXPECT_EQ(taken(-4, L">", 40, 5.0, RTDXF0, L"CIRCLE"), L"large");
    EXPECT_EQ(taken(-4, L"<>", 62, 256), L"text large");
    EXPECT_EQ(taken(62, 256), L"line circle"); // by layer, which files leave out
    EXPECT_EQ(taken(48, 1.0, RTDXF0, L"CIRCLE"), L"circle");
    EXPECT_EQ(taken(-4, L"&", 62, 2), L"large"); // 3 has the bit 2, 1 and 256 do not
    EXPECT_EQ(taken(-4, L"&=", 62, 3), L"large");
    const ads_point point = {50, 50, 0};
    EXPECT_EQ(taken(10, point), L"circle");
    EXPECT_EQ(taken(-4, L">,*,>", 10, point), L"large");
    EXPECT_EQ(taken(-4, L">=,=", 10, point), L"circle large"); // z may be anything
    EXPECT_EQ(taken(-4, L"<,<,*", 10, point), L"line");
}

TEST_F(SelectionFilters, JoinConditions)
{
    EXPECT_EQ(
        taken(-4, L"<or", RTDXF0, L"LINE", -4, L"<AND", RTDXF0, L"CIRCLE", -4, L">", 40, 10.0, -4, L"AND>", -4, L"OR>"),
        L"line large");
    EXPECT_EQ(taken(-4, L"<NOT", RTDXF0, L"CIRCLE", -4, L"NOT>"), L"line text");
    EXPECT_EQ(taken(-4, L"<XOR", RTDXF0, L"CIRCLE", 8, L"Walls", -4, L"XOR>"), L"line circle");
}

TEST_F(SelectionFilters, FindExtendedDataOfApplications)
{
    EXPECT_EQ(taken(-3, 1001, L"qm_*"), L"line");
    EXPECT_EQ(taken(RTDXF0, L"LINE,TEXT", -3, 1001, L"QM_TAG,OTHER"), L"line text");
    EXPECT_EQ(taken(-3, 1001, L"QM_TAG", 1001, L"OTHER"), L""); // both
}

TEST_F(SelectionFilters, PassOverWhatNamesOneEntity)
{
    const ads_name nobody = {0, 0};
    EXPECT_EQ(taken(5, L"FFFF", RTDXF0, L"LINE"), L"line");
    EXPECT_EQ(taken(-1, nobody, RTDXF0, L"LINE"), L"line");
}

TEST_F(SelectionFilters, AreRefusedWhenFaulty)
{
    EXPECT_FALSE(isRefused(RTDXF0, L"LINE"));
    EXPECT_TRUE(isRefused(-4, L"<AND", RTDXF0, L"LINE"));
    EXPECT_TRUE(isRefused(RTDXF0, L"LINE", -4, L"OR>"));
    EXPECT_TRUE(isRefused(-4, L"<XOR", RTDXF0, L"LINE", -4, L"XOR>"));
    EXPECT_TRUE(isRefused(-4, L"<NOT", RTDXF0, L"LINE", 8, L"0", -4, L"NOT>"));
    EXPECT_TRUE(isRefused(-4, L"<OR", -4, L"OR>"));
    EXPECT_TRUE(isRefused(-4, L"=>", 40, 1.0));
    EXPECT_TRUE(isRefused(-4, L"&", 40, 1.0));
    EXPECT_TRUE(isRefused(-4, L"<", 8, L"0"));
    EXPECT_TRUE(isRefused(RTLONG, 5));
    EXPECT_EQ(taken(-4, L"="), L"");
    EXPECT_EQ(status(), RTERROR);
}
