#include "Thrown.h"

#include <afxcoll.h>

#include <gtest/gtest.h>

#include <string>

TEST(StringMap, KeysAreFoundByTextAndCase)
{
    CMapStringToString map;
    map.SetAt(L"Layer", L"0");
    map[L"layer"] = L"1";
    CString value = L"unchanged";
    EXPECT_FALSE(map.Lookup(L"LAYER", value));
    EXPECT_EQ(value, L"unchanged");
    EXPECT_TRUE(map.Lookup(CString(L"Layer"), value));
    EXPECT_EQ(value, L"0");
    map.SetAt(L"Layer", L"2");
    EXPECT_EQ(map[L"Layer"], L"2");
    EXPECT_EQ(map.GetCount(), 2);
}

TEST(StringMap, EveryPairIsVisitedWhileTheVisitedAreRemoved)
{
    CMapStringToString map;
    map.InitHashTable(3);
    CString key, value;
    for (int i = 0; i < 1000; ++i)
        map.SetAt(std::to_wstring(i).c_str(), std::to_wstring(2 * i).c_str());
    int visited = 0;
    for (POSITION place = map.GetStartPosition(); place; ++visited) {
        map.GetNextAssoc(place, key, value);
        ASSERT_EQ(std::stoi(value.GetString()), 2 * visited);
        if (visited % 2) {
            ASSERT_TRUE(map.RemoveKey(key));
        }
    }
    EXPECT_EQ(visited, 1000);
    EXPECT_EQ(map.GetCount(), 500);
    EXPECT_FALSE(map.RemoveKey(L"1"));
    EXPECT_TRUE(map.Lookup(L"998", value));
    map.RemoveAll();
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    EXPECT_FALSE(map.RemoveKey(L"998"));
}

TEST(Map, NumbersAreKeysToo)
{
    CMap<int, int, CString, LPCTSTR> map;
    map.SetAt(-5, L"minus five");
    EXPECT_TRUE(map[7].IsEmpty());
    EXPECT_EQ(map.GetCount(), 2);
    ASSERT_NE(map.PLookup(-5), nullptr);
    EXPECT_EQ(map.PLookup(-5)->value, L"minus five");
    EXPECT_EQ(map.PGetNextAssoc(map.PGetFirstAssoc())->key, 7);
}

TEST(List, PlacesStayValidWhileOthersAreRemoved)
{
    CStringList list;
    list.AddTail(L"b");
    const POSITION b = list.GetHeadPosition();
    list.AddHead(L"a");
    const POSITION d = list.AddTail(L"d");
    list.InsertBefore(d, L"c");
    list.RemoveAt(b);
    EXPECT_EQ(list.RemoveHead(), L"a");
    EXPECT_EQ(list.GetHead(), L"c");
    EXPECT_EQ(list.GetAt(d), L"d");
    EXPECT_EQ(list.Find(L"d"), d);
    EXPECT_EQ(list.Find(L"d", d), nullptr);
    EXPECT_EQ(list.FindIndex(1), d);
    EXPECT_EQ(list.FindIndex(2), nullptr);
    EXPECT_EQ(list.RemoveTail(), L"d");
    EXPECT_EQ(list.RemoveTail(), L"c");
    EXPECT_EQ(thrown<CInvalidArgException>([&] { list.RemoveTail(); }), 1);
}
