#include "VariantType.h"

#include "winerror.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace
{
constexpr ULONGLONG largestData = 0x7fffffff;
constexpr ULONG largestLockCount = 0xffff;
constexpr UINT largestDimension = 0xffff;

// The type of the elements stands before the array, where its users do not look.
struct Header {
    alignas(16) VARTYPE type;
};

Header& headerOf(SAFEARRAY* array)
{
    return *(reinterpret_cast<Header*>(array) - 1);
}
VARTYPE typeOf(SAFEARRAY* array)
{
    return headerOf(array).type;
}

bool isElementType(VARTYPE type)
{
    return type == VT_VARIANT || win32::sizeOfType(type) > 0;
}

USHORT featuresOf(VARTYPE type)
{
    switch (type) {
    case VT_BSTR:
        return FADF_HAVEVARTYPE | FADF_BSTR;
    case VT_UNKNOWN:
        return FADF_UNKNOWN;
    case VT_DISPATCH:
        return FADF_DISPATCH;
    case VT_VARIANT:
        return FADF_HAVEVARTYPE | FADF_VARIANT;
    default:
        return FADF_HAVEVARTYPE;
    }
}

// The size of all elements in bytes, or false when it is 2 GiB or more. Two bounds can make an upper one
// beyond a LONG; such an array has no valid index for its last elements.
bool dataSize(const SAFEARRAYBOUND* bounds, UINT dimensions, std::size_t elementSize, std::size_t& size)
{
    ULONGLONG bytes = elementSize;
    for (UINT i = 0; i < dimensions; ++i) {
        const LONGLONG last = static_cast<LONGLONG>(bounds[i].lLbound) + bounds[i].cElements - 1;
        if (last > std::numeric_limits<LONG>::max()) return false;
        bytes *= bounds[i].cElements;
        if (bytes > largestData) return false;
    }
    size = static_cast<std::size_t>(bytes);
    return true;
}

std::size_t elementCount(const SAFEARRAY* array)
{
    std::size_t count = 1;
    for (USHORT i = 0; i < array->cDims; ++i)
        count *= array->rgsabound[i].cElements;
    return count;
}

char* elementAt(const SAFEARRAY* array, std::size_t place)
{
    return static_cast<char*>(array->pvData) + place * array->cbElements;
}

SAFEARRAY* allocateDescriptor(UINT dimensions)
{
    const std::size_t size = sizeof(Header) + sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
    auto* block = static_cast<char*>(std::calloc(1, size));
    return block ? reinterpret_cast<SAFEARRAY*>(block + sizeof(Header)) : nullptr;
}

void freeArray(SAFEARRAY* array)
{
    std::free(array->pvData);
    std::free(&headerOf(array));
}

SAFEARRAY* withData(SAFEARRAY* array, std::size_t size)
{
    array->pvData = std::calloc(std::max<std::size_t>(size, 1), 1);
    if (array->pvData) return array;
    freeArray(array);
    return nullptr;
}

SAFEARRAY* create(VARTYPE type, UINT dimensions, const SAFEARRAYBOUND* bounds)
{
    std::size_t size = 0;
    if (!dataSize(bounds, dimensions, win32::sizeOfType(type), size)) return nullptr;
    SAFEARRAY* array = allocateDescriptor(dimensions);
    if (!array) return nullptr;
    headerOf(array).type = type;
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = featuresOf(type);
    array->cbElements = static_cast<ULONG>(win32::sizeOfType(type));
    std::reverse_copy(bounds, bounds + dimensions, array->rgsabound);
    return withData(array, size);
}

HRESULT clearElements(SAFEARRAY* array, std::size_t from, std::size_t to)
{
    HRESULT result = S_OK;
    for (std::size_t i = from; i < to && SUCCEEDED(result); ++i)
        result = win32::clearValue(typeOf(array), elementAt(array, i));
    return result;
}

HRESULT findBound(SAFEARRAY* array, UINT dimension, const SAFEARRAYBOUND*& bound)
{
    if (!array) return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims) return DISP_E_BADINDEX;
    bound = &array->rgsabound[array->cDims - dimension];
    return S_OK;
}

HRESULT find(SAFEARRAY* array, const LONG* indices, void*& element)
{
    if (!array || !indices) return E_INVALIDARG;
    std::size_t place = 0, step = 1;
    for (USHORT i = 0; i < array->cDims; ++i) {
        const SAFEARRAYBOUND& bound = array->rgsabound[array->cDims - 1 - i];
        const LONGLONG offset = static_cast<LONGLONG>(indices[i]) - bound.lLbound;
        if (offset < 0 || offset >= bound.cElements) return DISP_E_BADINDEX;
        place += static_cast<std::size_t>(offset) * step;
        step *= bound.cElements;
    }
    element = elementAt(array, place);
    return S_OK;
}

bool isPassedDirectly(VARTYPE type)
{
    return type == VT_BSTR || type == VT_UNKNOWN || type == VT_DISPATCH;
}

// The new value is complete before the old one goes: either may hold the other.
HRESULT replace(VARTYPE type, void* element, const void* value)
{
    VARIANT made{}; // as large as the largest element
    const HRESULT copied = win32::copyValue(type, &made, value);
    if (FAILED(copied)) return copied;
    const HRESULT cleared = win32::clearValue(type, element);
    if (SUCCEEDED(cleared))
        std::memcpy(element, &made, win32::sizeOfType(type));
    else
        win32::clearValue(type, &made);
    return cleared;
}

HRESULT resize(SAFEARRAY* array, std::size_t count, std::size_t size)
{
    const std::size_t before = elementCount(array);
    const HRESULT cleared = clearElements(array, std::min(count, before), before);
    if (FAILED(cleared)) return cleared;
    void* data = std::realloc(array->pvData, std::max<std::size_t>(size, 1));
    if (!data) return E_OUTOFMEMORY;
    array->pvData = data;
    if (count > before) std::memset(elementAt(array, before), 0, (count - before) * array->cbElements);
    return S_OK;
}
} // namespace

SAFEARRAY* WINAPI SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds)
{
    if (!isElementType(type) || !bounds || dimensions == 0 || dimensions > largestDimension) return nullptr;
    return create(type, dimensions, bounds);
}

SAFEARRAY* WINAPI SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count)
{
    SAFEARRAYBOUND bound{count, lowerBound};
    SAFEARRAY* const vector = SafeArrayCreate(type, 1, &bound);
    if (vector) vector->fFeatures |= FADF_CREATEVECTOR;
    return vector;
}

HRESULT WINAPI SafeArrayDestroy(SAFEARRAY* array)
{
    if (!array) return S_OK;
    if (array->cLocks > 0) return DISP_E_ARRAYISLOCKED;
    const HRESULT cleared = clearElements(array, 0, elementCount(array));
    if (SUCCEEDED(cleared)) freeArray(array);
    return cleared;
}

HRESULT WINAPI SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy)
{
    if (!copy) return E_INVALIDARG;
    *copy = nullptr;
    if (!array) return S_OK;
    SAFEARRAY* made = allocateDescriptor(array->cDims);
    if (!made) return E_OUTOFMEMORY;
    headerOf(made).type = typeOf(array);
    std::memcpy(made, array, sizeof(SAFEARRAY) + (array->cDims - 1u) * sizeof(SAFEARRAYBOUND));
    made->cLocks = 0;
    made = withData(made, elementCount(array) * array->cbElements);
    if (!made) return E_OUTOFMEMORY;
    HRESULT result = S_OK;
    for (std::size_t i = 0; i < elementCount(array) && SUCCEEDED(result); ++i)
        result = win32::copyValue(typeOf(array), elementAt(made, i), elementAt(array, i));
    if (SUCCEEDED(result))
        *copy = made;
    else
        SafeArrayDestroy(made);
    return result;
}

HRESULT WINAPI SafeArrayRedim(SAFEARRAY* array, SAFEARRAYBOUND* newBound)
{
    if (!array || !newBound) return E_INVALIDARG;
    if (array->cLocks > 0 || (array->fFeatures & FADF_FIXEDSIZE)) return DISP_E_ARRAYISLOCKED;
    const SAFEARRAYBOUND before = std::exchange(array->rgsabound[0], *newBound);
    std::size_t size = 0;
    const bool fits = dataSize(array->rgsabound, array->cDims, array->cbElements, size);
    array->rgsabound[0] = before;
    if (!fits) return E_OUTOFMEMORY;
    const HRESULT result = resize(array, size / array->cbElements, size);
    if (SUCCEEDED(result)) array->rgsabound[0] = *newBound;
    return result;
}

HRESULT WINAPI SafeArrayLock(SAFEARRAY* array)
{
    if (!array) return E_INVALIDARG;
    if (array->cLocks == largestLockCount) return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT WINAPI SafeArrayUnlock(SAFEARRAY* array)
{
    if (!array) return E_INVALIDARG;
    if (array->cLocks == 0) return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT WINAPI SafeArrayAccessData(SAFEARRAY* array, void** data)
{
    if (!array || !data) return E_INVALIDARG;
    const HRESULT locked = SafeArrayLock(array);
    *data = SUCCEEDED(locked) ? array->pvData : nullptr;
    return locked;
}

HRESULT WINAPI SafeArrayUnaccessData(SAFEARRAY* array)
{
    return SafeArrayUnlock(array);
}

UINT WINAPI SafeArrayGetDim(SAFEARRAY* array)
{
    return array ? array->cDims : 0;
}

UINT WINAPI SafeArrayGetElemsize(SAFEARRAY* array)
{
    return array ? array->cbElements : 0;
}

HRESULT WINAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    const SAFEARRAYBOUND* found = nullptr;
    const HRESULT result = bound ? findBound(array, dimension, found) : E_INVALIDARG;
    if (SUCCEEDED(result)) *bound = found->lLbound;
    return result;
}

HRESULT WINAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    const SAFEARRAYBOUND* found = nullptr;
    const HRESULT result = bound ? findBound(array, dimension, found) : E_INVALIDARG;
    if (SUCCEEDED(result))
        *bound = static_cast<LONG>(static_cast<LONGLONG>(found->lLbound) + found->cElements - 1);
    return result;
}

HRESULT WINAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type)
{
    if (!array || !type) return E_INVALIDARG;
    *type = typeOf(array);
    return S_OK;
}

HRESULT WINAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value)
{
    void* element = nullptr;
    const HRESULT found = value ? find(array, indices, element) : E_INVALIDARG;
    return SUCCEEDED(found) ? win32::copyValue(typeOf(array), value, element) : found;
}

HRESULT WINAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value)
{
    void* element = nullptr;
    const HRESULT found = find(array, indices, element);
    if (FAILED(found)) return found;
    const VARTYPE type = typeOf(array);
    if (isPassedDirectly(type)) return replace(type, element, &value);
    return value ? replace(type, element, value) : E_INVALIDARG;
}

HRESULT WINAPI SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** data)
{
    return data ? find(array, indices, *data) : E_INVALIDARG;
}
