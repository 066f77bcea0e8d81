#include "Thrown.h"

#include <afxcoll.h>
#include <afxtempl.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{
std::wstring joined(const CStringArray& array)
{
    std::wstring text;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        text += std::wstring(array[i]) + L' ';
    return text;
}

/// An element that holds its own address, as one with a small buffer does: a byte-wise move breaks it.
struct SelfPointing {
    SelfPointing() : self(this) {}
    SelfPointing(const SelfPointing& o) : value(o.value), self(this) {}
    SelfPointing& operator=(const SelfPointing& o)
    {
        value = o.value;
        return *this;
    }
    int value = 0;
    SelfPointing* self;
};
} // namespace

TEST(Array, IndexOutsideThrowsAndChangesNothing)
{
    CUIntArray array;
    array.Add(7);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array.GetAt(1); }), 1);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array[-1] = 2; }), 1);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array.SetAt(1, 2); }), 1);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array.RemoveAt(0, 2); }), 1);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array.InsertAt(-1, 2); }), 1);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array.SetSize(-1); }), 1);
    EXPECT_EQ(thrown<CInvalidArgException>([&] { array.Append(array); }), 1);
    EXPECT_EQ(array.GetUpperBound(), 0);
    EXPECT_EQ(array[0], 7u);
}

TEST(Array, SizeBeyondMemoryThrowsAndKeepsTheElements)
{
    CStringArray array;
    array.Add(L"kept");
    EXPECT_EQ(thrown<CMemoryException>([&] { array.SetSize(PTRDIFF_MAX / 4); }), 1);
    EXPECT_EQ(joined(array), L"kept ");
}

TEST(Array, GrowingOverwritesNoElementAndClearsNewOnes)
{
    CUIntArray array;
    array.SetAtGrow(3, 9);
    EXPECT_EQ(array.GetSize(), 4);
    EXPECT_EQ(array[2], 0u);
    array.SetSize(1);
    array.SetSize(4);
    EXPECT_EQ(array[3], 0u);
}

TEST(Array, BlockGrowsByTheSetStep)
{
    CUIntArray array;
    array.SetSize(1, 100);
    const UINT* block = array.GetData();
    while (array.GetSize() < 100)
        array.Add(1);
    EXPECT_EQ(array.GetData(), block);
}

TEST(Array, OwnElementAsArgumentSurvivesGrowing)
{
    CStringArray array;
    array.Add(L"a rather long text that has a block of its own");
    for (int i = 0; i < 100; ++i)
        array.Add(array[0]);
    array.InsertAt(0, array[100], 30);
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        ASSERT_EQ(array[i], array[0]);
    EXPECT_EQ(array.GetSize(), 131);
    EXPECT_FALSE(array[0].IsEmpty());
}

TEST(Array, InsertAndRemoveShiftTheRest)
{
    CStringArray array, middle;
    array.Add(L"a");
    array.Add(L"d");
    middle.Add(L"b");
    middle.Add(L"c");
    array.InsertAt(1, &middle);
    EXPECT_EQ(joined(array), L"a b c d ");
    array.InsertAt(5, L"f");
    EXPECT_EQ(joined(array), L"a b c d  f ");
    array.RemoveAt(1, 4);
    EXPECT_EQ(joined(array), L"a f ");
    EXPECT_EQ(array.Append(middle), 2);
    EXPECT_EQ(joined(array), L"a f b c ");
    array.Copy(middle);
    EXPECT_EQ(joined(array), L"b c ");
    array.FreeExtra();
    EXPECT_EQ(joined(array), L"b c ");
}

TEST(Array, ElementsAreRelocatedByTheirConstructors)
{
    CArray<SelfPointing> array;
    for (int i = 0; i < 50; ++i) {
        SelfPointing element;
        element.value = i;
        array.InsertAt(0, element);
    }
    array.RemoveAt(10, 5);
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        ASSERT_EQ(array[i].self, &array[i]);
    EXPECT_EQ(array[0].value, 49);
    EXPECT_EQ(array[10].value, 34);
}

TEST(Array, ElementsAreDestroyedOnce)
{
    const auto shared = std::make_shared<int>(1);
    {
        CArray<std::shared_ptr<int>> array;
        for (int i = 0; i < 20; ++i)
            array.Add(shared);
        array.RemoveAt(3, 7);
        EXPECT_EQ(shared.use_count(), 14);
        array.SetSize(2);
        EXPECT_EQ(shared.use_count(), 3);
    }
    EXPECT_EQ(shared.use_count(), 1);
}
