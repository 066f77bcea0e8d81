// First: its integer types do not look at those of Windows.
#include <unicode/uchar.h>

#include "mscrt.h"


namespace crt
{
wchar_t toUpper(wchar_t character)
{
    return static_cast<wchar_t>(u_toupper(static_cast<UChar32>(character)));
}
wchar_t toLower(wchar_t character)
{
    return static_cast<wchar_t>(u_tolower(static_cast<UChar32>(character)));
}
} // namespace crt

int _wcsicmp(const wchar_t* first, const wchar_t* second)
{
    for (;; ++first, ++second) {
        const wchar_t a = crt::toLower(*first), b = crt::toLower(*second);
        if (a != b) return a < b ? -1 : 1;
        if (!a) return 0;
    }
}
