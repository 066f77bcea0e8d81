#include "mscrt.h"

#include "CaseMap.h"

namespace crt
{
wchar_t toUpper(wchar_t character)
{
    return win32::toUpper(character);
}
wchar_t toLower(wchar_t character)
{
    return win32::toLower(character);
}
} // namespace crt

int _wcsicmp(const wchar_t* first, const wchar_t* second)
{
    for (;; ++first, ++second) {
        const wchar_t a = win32::toLower(*first), b = win32::toLower(*second);
        if (a != b) return a < b ? -1 : 1;
        if (!a) return 0;
    }
}
