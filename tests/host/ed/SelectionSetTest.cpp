#include "SelectionSet.h"
#include "SelectionFixture.h"
#include "dbobjptr.h"

namespace
{
class SelectionSets : public SelectionTest
{
};
} // namespace

TEST_F(SelectionSets, KeepTheOrderOfAdditionAndHoldEachEntityOnce)
{
    const AcDbObjectId a = addLine(0, 0, 1, 0), b = addLine(0, 1, 1, 1), c = addLine(0, 2, 1, 2);
    const Set set = setOf({c, a, b, a});
    EXPECT_EQ(idsOf(set.name), (Ids{c, a, b}));
    ads_name entity;
    nameOf(a, entity);
    EXPECT_EQ(acedSSMemb(entity, set.name), RTNORM);
    EXPECT_EQ(acedSSDel(entity, set.name), RTNORM);
    EXPECT_EQ(acedSSMemb(entity, set.name), RTERROR);
    EXPECT_EQ(acedSSDel(entity, set.name), RTERROR);
    EXPECT_EQ(idsOf(set.name), (Ids{c, b}));
    EXPECT_EQ(acedSSAdd(entity, set.name, entity), RTNORM);
    EXPECT_EQ(idsOf(set.name), (Ids{c, b, a}));
}

TEST_F(SelectionSets, CountEntitiesThatWereErased)
{
    const AcDbObjectId a = addLine(0, 0, 1, 0);
    const Set set = setOf({a});
    ads_name entity;
    nameOf(a, entity);
    ASSERT_EQ(acdbEntDel(entity), RTNORM);
    EXPECT_EQ(idsOf(set.name), Ids{a});
    ads_name other;
    EXPECT_EQ(acedSSAdd(entity, nullptr, other), RTERROR);
}

TEST_F(SelectionSets, NamesThatAreNoneAreRefused)
{
    const AcDbObjectId a = addLine(0, 0, 1, 0);
    ads_name entity, freed, nothing = {0, 0};
    nameOf(a, entity);
    ASSERT_EQ(acedSSAdd(entity, nullptr, freed), RTNORM);
    ASSERT_EQ(acedSSFree(freed), RTNORM);
    Adesk::Int32 count = 7;
    ads_name result;
    AcDbObjectId id;
    for (const std::int64_t* bad : {freed, entity, nothing, static_cast<std::int64_t*>(nullptr)}) {
        EXPECT_EQ(acedSSFree(bad), RTERROR);
        EXPECT_EQ(acedSSLength(bad, &count), RTERROR);
        EXPECT_EQ(acedSSName(bad, 0, result), RTERROR);
        EXPECT_EQ(acedSSDel(entity, bad), RTERROR);
        EXPECT_EQ(acedSSMemb(entity, bad), RTERROR);
    }
    EXPECT_EQ(count, 7);
    EXPECT_EQ(acdbGetObjectId(id, freed), Acad::eInvalidAdsName); // and no crash
    const Set set = setOf({a});
    EXPECT_EQ(acedSSAdd(set.name, set.name, result), RTERROR);
    EXPECT_EQ(acedSSName(set.name, 1, result), RTERROR);
    EXPECT_EQ(acedSSName(set.name, -1, result), RTERROR);
    EXPECT_EQ(acedSSLength(set.name, static_cast<Adesk::Int32*>(nullptr)), RTERROR);
}

TEST_F(SelectionSets, BelongToTheirDocument)
{
    const Set set = setOf({addLine(0, 0, 1, 0)});
    ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    long count = 0;
    EXPECT_EQ(acedSSLength(set.name, &count), RTERROR);
    ASSERT_EQ(acDocManager->activateDocument(document()), Acad::eOk);
    EXPECT_EQ(acedSSLength(set.name, &count), RTNORM);
    EXPECT_EQ(count, 1);
}

TEST_F(SelectionSets, AreAtMost128)
{
    const AcDbObjectId a = addLine(0, 0, 1, 0);
    for (int i = 0; i < 128; ++i) setOf({});
    ads_name ss;
    EXPECT_EQ(acedSSAdd(nullptr, nullptr, ss), RTERROR);
    EXPECT_TRUE(ads_name_nil(ss));
    EXPECT_TRUE(get(L"X").empty());
    EXPECT_EQ(status(), RTERROR);
    EXPECT_FALSE(a.isNull());
}

TEST_F(SelectionSets, WhatIsSelectedBeforeACommandStaysForThoseThatUseIt)
{
    const AcDbObjectId a = addLine(0, 0, 1, 0), b = addLine(0, 1, 1, 1);
    const Set set = setOf({a, b});
    ASSERT_EQ(acedSSSetFirst(nullptr, set.name), RTNORM);
    EXPECT_EQ(get(L"_I"), (Ids{a, b}));
    resbuf *grips = nullptr, *pickfirst = nullptr;
    ASSERT_EQ(acedSSGetFirst(&grips, &pickfirst), RTNORM);
    EXPECT_EQ(idsOf(pickfirst->resval.rlname), (Ids{a, b}));
    EXPECT_EQ(acedSSFree(grips->resval.rlname), RTNORM);
    EXPECT_EQ(acedSSFree(pickfirst->resval.rlname), RTNORM);
    acutRelRb(grips);
    acutRelRb(pickfirst);
    AcDbObjectIdArray current;
    EXPECT_EQ(acedGetCurrentSelectionSet(current), Acad::eOk);
    EXPECT_EQ(current.length(), 2);
    EXPECT_EQ(get(nullptr), (Ids{a, b})); // answers the question, once
    EXPECT_NE(takeOutput().find(L"2 found"), std::wstring::npos);
    EXPECT_TRUE(get(L"I").empty());

    ASSERT_EQ(acedSSSetFirst(set.name, nullptr), RTNORM);
    asCommand([&] { EXPECT_TRUE(get(L"I").empty()); }); // a command without ACRX_CMD_USEPICKSET
    EXPECT_EQ(acedSSGetFirst(nullptr, &pickfirst), RTERROR);
    EXPECT_EQ(acedSSSetFirst(nullptr, nullptr), RTNORM);
}

// The places of a set without some of its members are those of a list without them, whichever way it is walked.
TEST(SelectionSet, PlacesAreThoseOfAListAfterRemovals)
{
    std::vector<AcDbObjectId> list;
    std::vector<char> objects(200); // addresses to make ids of
    for (char& object : objects) list.push_back(AcDbObjectId().setFromOldId(reinterpret_cast<std::intptr_t>(&object)));
    ed::SelectionSet set(list);
    std::size_t place = 3;
    while (!list.empty()) {
        place = (place * 7 + 5) % list.size();
        ASSERT_EQ(set.at(place), list[place]);
        ASSERT_TRUE(set.remove(list[place]));
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(place));
        ASSERT_EQ(set.size(), list.size());
        for (std::size_t i = list.size(); i-- > 0;) ASSERT_EQ(set.at(i), list[i]);
        ASSERT_EQ(set.ids(), list);
    }
    EXPECT_FALSE(set.remove(AcDbObjectId()));
}

TEST_F(SelectionSets, TransformMovesEveryEntityOfASet)
{
    const AcDbObjectId first = addLine(0, 0, 1, 0), second = addCircle(5, 5, 1);
    ads_name names[2], set;
    acdbGetAdsName(names[0], first);
    acdbGetAdsName(names[1], second);
    acedSSAdd(names[0], nullptr, set);
    acedSSAdd(names[1], set, set);
    ads_matrix move = {{1, 0, 0, 10}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_EQ(acedXformSS(set, move), RTNORM);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(first)->endPoint(), AcGePoint3d(11, 0, 0));
    EXPECT_EQ(AcDbObjectPointer<AcDbCircle>(second)->center(), AcGePoint3d(15, 5, 0));
    acedSSFree(set);
    EXPECT_EQ(acedXformSS(set, move), RTERROR);
}
