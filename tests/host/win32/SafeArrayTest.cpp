#include <windows.h>

#include <gtest/gtest.h>

TEST(SafeArray, FirstIndexRunsFastestAndBoundsLieReversed)
{
    SAFEARRAYBOUND bounds[] = {{2, 1}, {3, -1}};
    SAFEARRAY* array = SafeArrayCreate(VT_I4, 2, bounds);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->rgsabound[0].cElements, 3u);
    LONG low = 0, high = 0, indices[] = {2, 0}, value = 42, read = 0;
    EXPECT_EQ(SafeArrayGetLBound(array, 2, &low), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, 2, &high), S_OK);
    EXPECT_EQ(low, -1);
    EXPECT_EQ(high, 1);
    EXPECT_EQ(SafeArrayPutElement(array, indices, &value), S_OK);
    EXPECT_EQ(static_cast<LONG*>(array->pvData)[1 + 1 * 2], 42);
    EXPECT_EQ(SafeArrayGetElement(array, indices, &read), S_OK);
    EXPECT_EQ(read, 42);
    indices[1] = 2;
    EXPECT_EQ(SafeArrayGetElement(array, indices, &read), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetLBound(array, 3, &low), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetLBound(array, 0, &low), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, AbsurdSizesAndTypesGiveNull)
{
    SAFEARRAYBOUND huge[] = {{0xffffffff, 0}, {0xffffffff, 0}, {0xffffffff, 0}}, none[] = {{1, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_R8, 3, huge), nullptr);
    EXPECT_EQ(SafeArrayCreateVector(VT_R8, 0, 0x10000000), nullptr);
    EXPECT_EQ(SafeArrayCreateVector(VT_I1, 0x7fffffff, 2), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, none), nullptr);
    for (int type : {+VT_EMPTY, +VT_NULL, 14, VT_I4 | VT_BYREF, VT_I4 | VT_ARRAY, 99})
        EXPECT_EQ(SafeArrayCreateVector(static_cast<VARTYPE>(type), 0, 1), nullptr) << type;
    SAFEARRAY* empty = SafeArrayCreateVector(VT_BSTR, 5, 0);
    LONG high = 0;
    EXPECT_EQ(SafeArrayGetUBound(empty, 1, &high), S_OK);
    EXPECT_EQ(high, 4);
    EXPECT_EQ(SafeArrayDestroy(empty), S_OK);
}

TEST(SafeArray, StringsAreCopiedInAndOut)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, 3);
    BSTR name = SysAllocString(L"层"), read = nullptr;
    LONG index = 1;
    EXPECT_EQ(SafeArrayPutElement(array, &index, name), S_OK);
    EXPECT_EQ(SafeArrayPutElement(array, &index, name), S_OK);
    SysFreeString(name);
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(SafeArrayGetElement(copy, &index, &read), S_OK);
    EXPECT_STREQ(read, L"层");
    SysFreeString(read);
    EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
}

TEST(SafeArray, LockedArrayIsNeitherDestroyedNorResized)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, 4);
    void* data = nullptr;
    SAFEARRAYBOUND bound{8, 0};
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayRedim(array, &bound), DISP_E_ARRAYISLOCKED);
    VARIANT holder{};
    holder.vt = VT_ARRAY | VT_UI1;
    holder.parray = array;
    EXPECT_EQ(VariantClear(&holder), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayUnlock(array), E_UNEXPECTED);
    EXPECT_EQ(VariantClear(&holder), S_OK);
}

TEST(SafeArray, ResizingKeepsWhatStays)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 3);
    for (LONG i = 0; i < 3; ++i) {
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = SysAllocString(i == 0 ? L"first" : L"other");
        EXPECT_EQ(SafeArrayPutElement(array, &i, &value), S_OK);
        VariantClear(&value);
    }
    SAFEARRAYBOUND one{1, 0}, many{1000, 0}, huge{0xffffffff, 0};
    EXPECT_EQ(SafeArrayRedim(array, &one), S_OK);
    EXPECT_EQ(SafeArrayRedim(array, &many), S_OK);
    EXPECT_EQ(SafeArrayRedim(array, &huge), E_OUTOFMEMORY);
    VARIANT* elements = static_cast<VARIANT*>(array->pvData);
    EXPECT_STREQ(elements[0].bstrVal, L"first");
    EXPECT_EQ(elements[1].vt, VT_EMPTY);
    EXPECT_EQ(elements[999].vt, VT_EMPTY);
    EXPECT_EQ(array->rgsabound[0].cElements, 1000u);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}
