#include "DxfGroup.h"

#include "Stub.h"
#include "dbsymtb.h"

#include <array>

namespace
{
constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;

struct KindRange {
    int first, last;
    DxfKind kind;
};

// What is not listed is text.
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

constexpr int firstCode = -2, lastCode = 1071;

constexpr std::array<DxfKind, lastCode - firstCode + 1> makeKindTable()
{
    std::array<DxfKind, lastCode - firstCode + 1> table{};
    for (const KindRange& range : kinds) {
        for (int code = range.first; code <= range.last; ++code) {
            table[static_cast<std::size_t>(code - firstCode)] = range.kind;
        }
    }
    return table;
}

constexpr auto kindTable = makeKindTable();

void appendUtf8(std::uint32_t c, std::string& to)
{
    if (c < 0x80) {
        to += static_cast<char>(c);
        return;
    }
    const int trailing = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    to += static_cast<char>(leads[trailing] | c >> 6 * trailing);
    for (int i = trailing - 1; i >= 0; --i) to += static_cast<char>(0x80 | (c >> 6 * i & 0x3F));
}

bool isHighSurrogate(std::uint32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(std::uint32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

/// The character at `at`, which moves behind it. Texts of groups are well formed but for halves of characters.
std::uint32_t takeCharacter(std::string_view text, std::size_t& at)
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0xC0) return lead;
    const int trailing = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::uint32_t value = lead & (0x3Fu >> trailing);
    for (int i = 0; i < trailing && at < text.size(); ++i) {
        value = value << 6 | (static_cast<unsigned char>(text[at++]) & 0x3F);
    }
    return value;
}

wchar_t* putWide(std::uint32_t c, wchar_t* to)
{
    if (sizeof(wchar_t) == 2 && c > 0xFFFF) {
        *to++ = static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        c = 0xDC00 + ((c - 0x10000) & 0x3FF);
    }
    *to++ = static_cast<wchar_t>(c);
    return to;
}
} // namespace

DxfKind dxfKindOf(int code)
{
    if (code < firstCode || code > lastCode) return DxfKind::text;
    return kindTable[static_cast<std::size_t>(code - firstCode)];
}

CString wideOf(std::string_view utf8)
{
    CString result;
    const int length = static_cast<int>(utf8.size());
    if (length == 0) return result;
    wchar_t* const buffer = result.GetBuffer(length);
    wchar_t* end = buffer;
    for (std::size_t at = 0; at < utf8.size();) end = putWide(takeCharacter(utf8, at), end);
    result.ReleaseBufferSetLength(static_cast<int>(end - buffer));
    return result;
}

std::string utf8Of(const CString& text)
{
    std::string utf8;
    const int length = text.GetLength();
    utf8.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        auto c = static_cast<std::uint32_t>(text[i]);
        const auto next = i + 1 < length ? static_cast<std::uint32_t>(text[i + 1]) : 0u;
        if (isHighSurrogate(c) && isLowSurrogate(next)) {
            c = 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00);
            ++i;
        }
        appendUtf8(c, utf8);
    }
    return utf8;
}

double DxfSource::angleOf(const DxfGroup& group) const { return group.real * radiansPerDegree; }
void DxfSink::angle(int code, double radians) { real(code, radians / radiansPerDegree); }
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
