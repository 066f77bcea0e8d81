#include "MatrixCases.h"

#include <afxwin.h>
#include <climits>
#include <cstdint>
#include <cstring>
#include <vector>

namespace
{
using Bytes = std::vector<BYTE>;

const CMatrix numbers2x3 = fromRows({{1, 2}, {3, 4}, {5, 6}});

Bytes stored(const CMatrix& matrix)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    CMatrix(matrix).Serialize(archive);
    archive.Close();
    Bytes bytes(static_cast<size_t>(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

void load(CMatrix& matrix, Bytes bytes)
{
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive archive(&file, CArchive::load);
    matrix.Serialize(archive);
}

/// The cause of the failure to load these bytes; the matrix must be as it was.
int faultOf(const Bytes& bytes)
{
    CMatrix matrix = numbers2x3;
    const int cause = archiveFaultOf([&] { load(matrix, bytes); });
    EXPECT_EQ(matrix, numbers2x3);
    return cause;
}

Bytes header(LONG columns, LONG rows, LONG version = 1)
{
    Bytes bytes = {'t', 'a', 'M', 'C', 'C', 'x', 'i', 'r'};
    for (const LONG number : {version, columns, rows})
        for (int i = 0; i < 4; ++i)
            bytes.push_back(static_cast<BYTE>(static_cast<DWORD>(number) >> (8 * i)));
    return bytes;
}

/// A safe array of these dimensions, first one first, filled with 1, 2, 3 ... in the order of its data.
class Variant
{
public:
    Variant(VARTYPE type, std::vector<SAFEARRAYBOUND> bounds)
    {
        VariantInit(&m_value);
        m_value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        m_value.parray = SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
        if (type == VT_R8) fill();
    }
    explicit Variant(const VARIANT& value) : m_value(value) {}
    ~Variant() { VariantClear(&m_value); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& get() { return m_value; }
    std::vector<double> data() const
    {
        size_t count = 1;
        for (UINT i = 0; i < SafeArrayGetDim(m_value.parray); ++i)
            count *= m_value.parray->rgsabound[i].cElements;
        const double* const first = static_cast<const double*>(m_value.parray->pvData);
        return {first, first + count};
    }

private:
    void fill()
    {
        double* const numbers = static_cast<double*>(m_value.parray->pvData);
        const size_t count = data().size();
        for (size_t i = 0; i < count; ++i)
            numbers[i] = static_cast<double>(i + 1);
    }

    VARIANT m_value;
};

std::string faultOfArray(Variant&& variant)
{
    return thrownBy([&] { CMatrix matrix(variant.get()); });
}

/// Looks like a file that cannot tell its length.
class Stream : public CMemFile
{
public:
    ULONGLONG GetLength() const override { AfxThrowNotSupportedException(); }
};
} // namespace

TEST(MatrixArchive, HasMarksSizesAndColumns)
{
    Bytes expected = header(2, 3);
    for (const double number : {1, 3, 5, 2, 4, 6}) { // column by column
        std::uint64_t bits;
        std::memcpy(&bits, &number, sizeof bits);
        for (int i = 0; i < 8; ++i)
            expected.push_back(static_cast<BYTE>(bits >> (8 * i)));
    }
    EXPECT_EQ(stored(numbers2x3), expected);
    EXPECT_EQ(stored(CMatrix()).size(), 28u);
}

TEST(MatrixArchive, GivesBackWhatWasStored)
{
    for (const CMatrix& matrix : {numbers2x3, CMatrix(), CMatrix(0, 4), randomMatrix(130, 77, 1)}) {
        CMatrix loaded;
        load(loaded, stored(matrix));
        EXPECT_EQ(loaded, matrix);
    }
}

TEST(MatrixArchive, SeveralMatricesFollowOneAnother)
{
    CMemFile file;
    CArchive storing(&file, CArchive::store);
    CMatrix first = randomMatrix(50, 40, 2), second = numbers2x3;
    storing << &first << &second << &first;
    storing.Close();
    file.SeekToBegin();
    CArchive loading(&file, CArchive::load);
    CMatrix *one = nullptr, *two = nullptr, *again = nullptr;
    loading >> one >> two >> again;
    EXPECT_EQ(*one, first);
    EXPECT_EQ(*two, second);
    EXPECT_EQ(again, one);
    delete one;
    delete two;
}

TEST(MatrixArchive, WrongMarksAreAWrongClass)
{
    Bytes bytes = stored(numbers2x3);
    for (const size_t at : {0u, 3u, 4u, 7u}) {
        Bytes wrong = bytes;
        wrong[at] ^= 1;
        EXPECT_EQ(faultOf(wrong), CArchiveException::badClass);
    }
    EXPECT_EQ(faultOf(header(0, 0, 2)), CArchiveException::badSchema);
}

// No such sizes fit into memory, so that taking it first would be another exception.
TEST(MatrixArchive, AbsurdSizesFailBeforeMemoryIsTaken)
{
    EXPECT_EQ(faultOf(header(INT_MAX, INT_MAX)), CArchiveException::endOfFile);
    EXPECT_EQ(faultOf(header(1 << 30, 1 << 20)), CArchiveException::endOfFile);
    EXPECT_EQ(faultOf(header(-1, 1)), CArchiveException::badIndex);
    EXPECT_EQ(faultOf(header(1, INT_MIN)), CArchiveException::badIndex);
    EXPECT_EQ(faultOf(header(-1, -1)), CArchiveException::badIndex);
}

TEST(MatrixArchive, EveryShorterFileEndsTooEarly)
{
    for (const CMatrix& matrix : {numbers2x3, randomMatrix(30, 40, 3)}) {
        Bytes bytes = stored(matrix);
        while (!bytes.empty()) {
            bytes.pop_back();
            ASSERT_EQ(faultOf(bytes), CArchiveException::endOfFile) << bytes.size();
        }
    }
}

TEST(MatrixArchive, FileWithoutLengthIsReadToItsEnd)
{
    const CMatrix matrix = randomMatrix(40, 40, 4);
    Bytes bytes = stored(matrix);
    Stream file;
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    CArchive archive(&file, CArchive::load);
    CMatrix loaded;
    loaded.Serialize(archive);
    EXPECT_EQ(loaded, matrix);
}

TEST(MatrixClass, IsMadeFromItsName)
{
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject(L"CMatrix"));
    ASSERT_TRUE(made && made->IsKindOf(RUNTIME_CLASS(CMatrix)) && made->IsSerializable());
    EXPECT_EQ(static_cast<CMatrix&>(*made), CMatrix());
}

TEST(MatrixSafeArray, HasColumnsFirst)
{
    const Variant variant(numbers2x3.GetSafeArray());
    const SAFEARRAY* const array = const_cast<Variant&>(variant).get().parray;
    EXPECT_EQ(const_cast<Variant&>(variant).get().vt, 8197);
    ASSERT_EQ(array->cDims, 2);
    EXPECT_EQ(array->rgsabound[1].cElements, 2u); // stored in reverse: the first dimension is the last
    EXPECT_EQ(array->rgsabound[0].cElements, 3u);
    EXPECT_EQ(array->cLocks, 0u);
    EXPECT_EQ(variant.data(), (std::vector<double>{1, 3, 5, 2, 4, 6}));
}

TEST(MatrixSafeArray, ComesBackAsItWent)
{
    const CMatrix matrix = randomMatrix(70, 33, 5);
    Variant variant(matrix.GetSafeArray());
    EXPECT_EQ(CMatrix(variant.get()), matrix);
    EXPECT_EQ(variant.get().parray->cLocks, 0u);
    VARIANT reference{};
    reference.vt = VT_ARRAY | VT_R8 | VT_BYREF;
    reference.pparray = &variant.get().parray;
    EXPECT_EQ(CMatrix(reference), matrix);
}

// Element (x, y) is at (x - lower1) * 3 - lower2 + y of the data 1 ... 6. Bounds 0 and 1: at 3x + y - 1;
// bounds -1 and 0: at 3x + 3 + y; bounds 1 and -3: at 3x + y, as without bounds.
TEST(MatrixSafeArray, LowerBoundsShiftByTheFormula)
{
    const auto matrixOf = [](LONG lower1, LONG lower2) {
        Variant variant(VT_R8, {{2, lower1}, {3, lower2}});
        return CMatrix(variant.get());
    };
    EXPECT_EQ(matrixOf(0, 0), fromRows({{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(matrixOf(0, 1), fromRows({{0, 3}, {1, 4}, {2, 5}}));
    EXPECT_EQ(matrixOf(-1, 0), fromRows({{4, 0}, {5, 0}, {6, 0}}));
    EXPECT_EQ(matrixOf(1, -3), fromRows({{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(matrixOf(1, 1), fromRows({{0, 0}, {0, 1}, {0, 2}}));
    EXPECT_EQ(matrixOf(INT_MIN, 0), CMatrix(2, 3));
    EXPECT_EQ(matrixOf(INT_MAX - 1, INT_MAX - 2), CMatrix(2, 3));
}

TEST(MatrixSafeArray, OtherVariantsAreToldApart)
{
    VARIANT number{};
    number.vt = VT_R8;
    EXPECT_EQ(thrownBy([&] { CMatrix matrix(number); }), "Not a SafeArray");
    EXPECT_EQ(faultOfArray(Variant(VT_I2, {{2, 0}, {2, 0}})), "Not a double SafeArray"); // 2 has no bit of 5
    EXPECT_EQ(faultOfArray(Variant(VT_BSTR, {{2, 0}, {2, 0}})), "Not a double SafeArray");
    EXPECT_EQ(faultOfArray(Variant(VT_R8, {{2, 0}})), "SafeArray, incorrect number of dimensions");
    EXPECT_EQ(faultOfArray(Variant(VT_R8, {{2, 0}, {2, 0}, {2, 0}})),
              "SafeArray, incorrect number of dimensions");
    VARIANT nothing{};
    nothing.vt = VT_ARRAY | VT_R8;
    EXPECT_EQ(thrownBy([&] { CMatrix matrix(nothing); }), "SafeArray, incorrect number of dimensions");
}

// 3 shares a bit with 5. Its data, four integers, are two doubles long.
TEST(MatrixSafeArray, ArrayOfATypeThatSharesABitIsReadAsFarAsItGoes)
{
    Variant variant(VT_I4, {{2, 0}, {2, 0}});
    const double numbers[] = {1.5, 2.5};
    std::memcpy(variant.get().parray->pvData, numbers, sizeof numbers);
    EXPECT_EQ(CMatrix(variant.get()), fromRows({{1.5, 0}, {2.5, 0}}));
}

TEST(MatrixSafeArray, LockedTooOftenCannotBeRead)
{
    Variant variant(VT_R8, {{2, 0}, {2, 0}});
    while (SUCCEEDED(SafeArrayLock(variant.get().parray)))
        ;
    EXPECT_EQ(thrownBy([&] { CMatrix matrix(variant.get()); }), "SafeArray access error");
    while (SUCCEEDED(SafeArrayUnlock(variant.get().parray)))
        ;
}
