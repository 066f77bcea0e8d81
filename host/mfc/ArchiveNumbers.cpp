#include "ArchiveObjectMap.h"

#include <cstring>
#include <type_traits>

namespace
{
constexpr DWORD_PTR longCountMark = 0xffff;
constexpr DWORD_PTR hugeCountMark = 0xffffffff;

template <size_t bytes>
using BitsOf = std::conditional_t<bytes == 4, std::uint32_t, std::uint64_t>;
} // namespace

template <class TYPE>
CArchive& CArchive::putNumber(TYPE value)
{
    checkStoring();
    if (m_limit - m_current < static_cast<std::ptrdiff_t>(sizeof value)) writeBuffer();
    auto bits = static_cast<std::make_unsigned_t<TYPE>>(value);
    for (size_t i = 0; i < sizeof value; ++i)
        *m_current++ = static_cast<BYTE>(bits >> (8 * i));
    return *this;
}

template <class TYPE>
CArchive& CArchive::getNumber(TYPE& value)
{
    checkLoading();
    while (m_limit - m_current < static_cast<std::ptrdiff_t>(sizeof value)) {
        const std::ptrdiff_t had = m_limit - m_current;
        if (fillBuffer() == had) AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
    }
    ULONGLONG bits = 0;
    for (size_t i = 0; i < sizeof value; ++i)
        bits |= static_cast<ULONGLONG>(*m_current++) << (8 * i);
    value = static_cast<TYPE>(bits);
    return *this;
}

template <class TYPE>
CArchive& CArchive::putFloating(TYPE value)
{
    BitsOf<sizeof value> bits;
    std::memcpy(&bits, &value, sizeof value);
    return putNumber(bits);
}

template <class TYPE>
CArchive& CArchive::getFloating(TYPE& value)
{
    BitsOf<sizeof value> bits;
    getNumber(bits);
    std::memcpy(&value, &bits, sizeof value);
    return *this;
}

CArchive& CArchive::operator<<(BYTE value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(WORD value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(LONG value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(DWORD value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(float value)
{
    return putFloating(value);
}
CArchive& CArchive::operator<<(double value)
{
    return putFloating(value);
}
CArchive& CArchive::operator<<(LONGLONG value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(ULONGLONG value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(short value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(char value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(signed char value)
{
    return putNumber(value);
}
CArchive& CArchive::operator<<(bool value)
{
    return putNumber(static_cast<BYTE>(value ? 1 : 0));
}

CArchive& CArchive::operator<<(wchar_t value)
{
    const auto unit = static_cast<WORD>(value);
    ENSURE(static_cast<wchar_t>(unit) == value);
    return putNumber(unit);
}

CArchive& CArchive::operator>>(BYTE& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(WORD& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(LONG& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(DWORD& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(float& value)
{
    return getFloating(value);
}
CArchive& CArchive::operator>>(double& value)
{
    return getFloating(value);
}
CArchive& CArchive::operator>>(LONGLONG& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(ULONGLONG& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(short& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(char& value)
{
    return getNumber(value);
}
CArchive& CArchive::operator>>(signed char& value)
{
    return getNumber(value);
}

CArchive& CArchive::operator>>(bool& value)
{
    BYTE byte;
    getNumber(byte);
    value = byte != 0;
    return *this;
}

CArchive& CArchive::operator>>(wchar_t& value)
{
    WORD unit;
    getNumber(unit);
    value = static_cast<wchar_t>(unit);
    return *this;
}

void CArchive::WriteCount(DWORD_PTR count)
{
    if (count < longCountMark) {
        *this << static_cast<WORD>(count);
        return;
    }
    *this << static_cast<WORD>(longCountMark);
    if (count < hugeCountMark)
        *this << static_cast<DWORD>(count);
    else
        *this << static_cast<DWORD>(hugeCountMark) << static_cast<ULONGLONG>(count);
}

DWORD_PTR CArchive::ReadCount()
{
    WORD shortCount;
    *this >> shortCount;
    if (shortCount != longCountMark) return shortCount;
    DWORD longCount;
    *this >> longCount;
    if (longCount != hugeCountMark) return longCount;
    ULONGLONG hugeCount;
    *this >> hugeCount;
    return static_cast<DWORD_PTR>(hugeCount);
}

CArchive& AFXAPI operator<<(CArchive& archive, const SIZE& size)
{
    return archive << size.cx << size.cy;
}

CArchive& AFXAPI operator>>(CArchive& archive, SIZE& size)
{
    return archive >> size.cx >> size.cy;
}

CArchive& AFXAPI operator<<(CArchive& archive, const POINT& point)
{
    return archive << point.x << point.y;
}

CArchive& AFXAPI operator>>(CArchive& archive, POINT& point)
{
    return archive >> point.x >> point.y;
}

CArchive& AFXAPI operator<<(CArchive& archive, const RECT& rect)
{
    return archive << rect.left << rect.top << rect.right << rect.bottom;
}

CArchive& AFXAPI operator>>(CArchive& archive, RECT& rect)
{
    return archive >> rect.left >> rect.top >> rect.right >> rect.bottom;
}
