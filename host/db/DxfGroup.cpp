#include "DxfGroup.h"

#include "Stub.h"
#include "dbsymtb.h"

#include <algorithm>
#include <iterator>

namespace
{
struct KindRange {
    int first, last;
    DxfKind kind;
};

// What is not listed is text. In ascending order.
constexpr KindRange kinds[] = {
    {-2, -1, DxfKind::handle},     {5, 5, DxfKind::handle},       {10, 59, DxfKind::real},
    {60, 99, DxfKind::integer},    {105, 105, DxfKind::handle},   {110, 149, DxfKind::real},
    {160, 179, DxfKind::integer},  {210, 239, DxfKind::real},     {270, 299, DxfKind::integer},
    {310, 319, DxfKind::binary},   {320, 369, DxfKind::handle},   {370, 389, DxfKind::integer},
    {390, 399, DxfKind::handle},   {400, 409, DxfKind::integer},  {420, 429, DxfKind::integer},
    {440, 459, DxfKind::integer},  {460, 469, DxfKind::real},     {480, 481, DxfKind::handle},
    {1004, 1004, DxfKind::binary}, {1005, 1005, DxfKind::handle}, {1010, 1059, DxfKind::real},
    {1060, 1071, DxfKind::integer},
};
} // namespace

DxfKind dxfKindOf(int code)
{
    const auto after = std::upper_bound(std::begin(kinds), std::end(kinds), code,
                                        [](int wanted, const KindRange& range) { return wanted < range.first; });
    if (after == std::begin(kinds)) return DxfKind::text;
    const KindRange& range = *std::prev(after);
    return code <= range.last ? range.kind : DxfKind::text;
}

CString DxfGroup::wide() const
{
    const int length = static_cast<int>(text.size());
    CString result;
    if (length == 0) return result;
    wchar_t* buffer = result.GetBuffer(length);
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, buffer, length);
    result.ReleaseBufferSetLength(units);
    return result;
}

std::string utf8Of(const CString& text)
{
    const int length = text.GetLength();
    const int bytes = length ? WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr) : 0;
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    if (bytes) WideCharToMultiByte(CP_UTF8, 0, text, length, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

void DxfSink::wide(int code, const CString& value) { text(code, utf8Of(value)); }

void DxfSink::point(int code, double x, double y)
{
    real(code, x);
    real(code + 10, y);
}

void DxfSink::point(int code, double x, double y, double z)
{
    point(code, x, y);
    real(code + 20, z);
}

void DxfSink::record(int code, AcDbStub* stub)
{
    if (stub && stub->object) wide(code, static_cast<const AcDbSymbolTableRecord*>(stub->object)->name());
}
