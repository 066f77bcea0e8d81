#include "afxelement.h"
#include "ArchiveObjectMap.h"
#include "Utf16Text.h"

#include <algorithm>
#include <vector>

// The length in front of a text: one byte; from 255 on the byte FF and two bytes; from FFFE on FF, FFFF and
// four bytes; from FFFFFFFF on FF, FFFF, FFFFFFFF and eight. FF FFFE in front of all that marks UTF-16.

namespace
{
constexpr BYTE wordFollows = 0xff;
constexpr WORD isUtf16 = 0xfffe;
constexpr WORD longFollows = 0xffff;
constexpr DWORD hugeFollows = 0xffffffff;

struct TextHead {
    bool wide = false;
    ULONGLONG length = 0; ///< in units of that width
};

void writeLength(CArchive& archive, size_t length)
{
    if (length < wordFollows) {
        archive << static_cast<BYTE>(length);
        return;
    }
    archive << wordFollows;
    if (length < isUtf16)
        archive << static_cast<WORD>(length);
    else
        archive << longFollows << static_cast<DWORD>(length);
}

TextHead readHead(CArchive& archive)
{
    TextHead head;
    BYTE byte;
    archive >> byte;
    if (byte != wordFollows) return {false, byte};
    WORD word;
    archive >> word;
    if (word == isUtf16) {
        head.wide = true;
        archive >> byte;
        if (byte != wordFollows) return {true, byte};
        archive >> word;
    }
    if (word != longFollows) return {head.wide, word};
    DWORD dword;
    archive >> dword;
    head.length = dword;
    if (dword == hugeFollows) archive >> head.length;
    return head;
}

/// Reads that many bytes, taking memory only as the data bear the number out.
std::string readBytes(CArchive& archive, ULONGLONG count)
{
    constexpr ULONGLONG step = 0x10000;
    std::string bytes;
    while (bytes.size() < count) {
        const size_t had = bytes.size();
        const size_t block = static_cast<size_t>(std::min(step, count - had));
        bytes.resize(had + block);
        archive.EnsureRead(&bytes[had], static_cast<UINT>(block));
    }
    return bytes;
}

std::u16string unitsOf(const std::string& bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    for (size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(static_cast<BYTE>(bytes[2 * i]) |
                                         (static_cast<BYTE>(bytes[2 * i + 1]) << 8));
    return units;
}

void writeUnits(CArchive& archive, const std::u16string& units)
{
    for (const char16_t unit : units)
        archive << static_cast<WORD>(unit);
}

CString readWide(CArchive& archive, ULONGLONG length)
{
    // A length that doubled is no number any more is no length of a text in any file.
    if (length > INT_MAX) AfxThrowArchiveException(CArchiveException::endOfFile, archive.m_strFileName);
    return mfc::fromUtf16(unitsOf(readBytes(archive, length * 2)));
}

CStringA readNarrow(CArchive& archive, ULONGLONG length)
{
    if (length > INT_MAX) AfxThrowArchiveException(CArchiveException::endOfFile, archive.m_strFileName);
    const std::string bytes = readBytes(archive, length);
    return CStringA(bytes.data(), static_cast<int>(bytes.size()));
}
} // namespace

CArchive& AFXAPI operator<<(CArchive& archive, const CString& text)
{
    const std::u16string units = mfc::toUtf16(text, static_cast<size_t>(text.GetLength()));
    archive << wordFollows << isUtf16;
    writeLength(archive, units.size());
    writeUnits(archive, units);
    return archive;
}

CArchive& AFXAPI operator<<(CArchive& archive, const CStringA& text)
{
    writeLength(archive, static_cast<size_t>(text.GetLength()));
    archive.WriteItems(text.GetString(), text.GetLength(), 1);
    return archive;
}

CArchive& AFXAPI operator>>(CArchive& archive, CString& text)
{
    const TextHead head = readHead(archive);
    text = head.wide ? readWide(archive, head.length) : CString(readNarrow(archive, head.length));
    return archive;
}

CArchive& AFXAPI operator>>(CArchive& archive, CStringA& text)
{
    const TextHead head = readHead(archive);
    text = head.wide ? CStringA(readWide(archive, head.length)) : readNarrow(archive, head.length);
    return archive;
}

template <>
void AFXAPI SerializeElements<CString>(CArchive& archive, CString* elements, INT_PTR count)
{
    for (; count > 0; --count, ++elements)
        archive.IsStoring() ? archive << *elements : archive >> *elements;
}

template <>
void AFXAPI SerializeElements<CStringA>(CArchive& archive, CStringA* elements, INT_PTR count)
{
    for (; count > 0; --count, ++elements)
        archive.IsStoring() ? archive << *elements : archive >> *elements;
}

void CArchive::WriteString(LPCTSTR text)
{
    writeUnits(*this, mfc::toUtf16(text, std::wcslen(text)));
}

/// Takes one unit; false when fewer than two bytes are left.
bool CArchive::getUnit(std::uint16_t& unit)
{
    while (m_limit - m_current < 2) {
        const std::ptrdiff_t had = m_limit - m_current;
        if (fillBuffer() == had) return false;
    }
    *this >> unit;
    return true;
}

bool CArchive::readLine(CString& text, size_t maximum)
{
    checkLoading();
    std::u16string units;
    std::uint16_t unit = 0;
    bool ended = false;
    while (!ended && units.size() < maximum && getUnit(unit)) {
        ended = unit == '\n' || unit == '\r';
        if (!ended) units += static_cast<char16_t>(unit);
    }
    // The unit just read still lies in the buffer, so one that is no line feed can be given back.
    if (ended && unit == '\r' && getUnit(unit) && unit != '\n') m_current -= 2;
    text = mfc::fromUtf16(units);
    return ended || !units.empty();
}

BOOL CArchive::ReadString(CString& text)
{
    return readLine(text, SIZE_MAX);
}

LPTSTR CArchive::ReadString(LPTSTR text, UINT maximum)
{
    CString line;
    const bool found = readLine(line, maximum);
    std::copy_n(line.GetString(), line.GetLength() + 1, text);
    return found ? text : nullptr;
}
