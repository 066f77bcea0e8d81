#include "CMatrix.h"
#include "dense/Transposition.h"
#include "MatrixMessages.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace
{
using std::int64_t;

/// The data of a safe array, accessible as long as this lives.
class ArrayData
{
public:
    explicit ArrayData(SAFEARRAY* array) : m_array(array)
    {
        if (FAILED(SafeArrayAccessData(array, &m_data))) throw matrixmessages::noAccess;
    }
    ~ArrayData() { SafeArrayUnaccessData(m_array); }
    ArrayData(const ArrayData&) = delete;
    ArrayData& operator=(const ArrayData&) = delete;

    double* get() const { return static_cast<double*>(m_data); }

private:
    SAFEARRAY* m_array;
    void* m_data = nullptr;
};

struct Bounds {
    LONG lower, upper;

    int count() const
    {
        const int64_t wide = int64_t{upper} - lower + 1;
        if (wide < 0 || wide > std::numeric_limits<int>::max()) throw matrixmessages::noAccess;
        return static_cast<int>(wide);
    }
};

SAFEARRAY* arrayIn(const VARIANT& variant)
{
    if (!(variant.vt & VT_ARRAY)) throw matrixmessages::notSafeArray;
    if (!(variant.vt & VT_R8)) throw matrixmessages::notDoubles;
    SAFEARRAY* const array = !(variant.vt & VT_BYREF) ? variant.parray
                             : variant.pparray        ? *variant.pparray
                                                      : nullptr;
    if (SafeArrayGetDim(array) != 2) throw matrixmessages::wrongDimensions;
    return array;
}

Bounds boundsOf(SAFEARRAY* array, UINT dimension)
{
    Bounds bounds{};
    if (FAILED(SafeArrayGetLBound(array, dimension, &bounds.lower)) ||
        FAILED(SafeArrayGetUBound(array, dimension, &bounds.upper)))
        throw matrixmessages::noAccess;
    return bounds;
}

/// to[i] = from[i - shift] for i in [0, toCount) where i - shift is in [0, fromCount).
void copyShifted(const double* from, int64_t fromCount, double* to, int64_t toCount, int64_t shift)
{
    const int64_t first = std::max<int64_t>(0, shift);
    const int64_t count = std::min(toCount - first, fromCount - (first - shift));
    if (count > 0)
        std::memcpy(to + first, from + (first - shift), static_cast<std::size_t>(count) * sizeof(double));
}
} // namespace

CMatrix::CMatrix(VARIANT& variant) : CMatrix(0, 0)
{
    SAFEARRAY* const array = arrayIn(variant);
    const Bounds first = boundsOf(array, 1), second = boundsOf(array, 2);
    // The data hold the columns one after the other, and a shift in them is what the lower bounds amount to.
    CMatrix byColumns(second.count(), first.count());
    const auto count = static_cast<int64_t>(byColumns.Count());
    const int64_t doubles = count * SafeArrayGetElemsize(array) / static_cast<int64_t>(sizeof(double));
    const int64_t shift = int64_t{first.lower} * second.count() + second.lower;
    {
        const ArrayData data(array);
        copyShifted(data.get(), doubles, byColumns.m_block, count, shift);
    }
    *this = byColumns.GetTransposed();
}

VARIANT CMatrix::GetSafeArray() const
{
    VARIANT result;
    VariantInit(&result);
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(m_columns), 0}, {static_cast<ULONG>(m_rows), 0}};
    SAFEARRAY* const array = SafeArrayCreate(VT_R8, 2, bounds);
    if (!array) return result;
    const ArrayData data(array);
    const auto columns = static_cast<std::size_t>(m_columns), rows = static_cast<std::size_t>(m_rows);
    dense::transpose({m_block, columns}, columns, rows, {data.get(), rows});
    result.vt = VT_ARRAY | VT_R8;
    result.parray = array;
    return result;
}
