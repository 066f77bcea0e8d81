#include "AlgorString.h"

#include "VariantText.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace
{
bool isHighSurrogate(wchar_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(wchar_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// Whether a cut at `at` would part the halves of a surrogate pair.
bool partsPair(const wchar_t* text, size_t length, size_t at)
{
    return at > 0 && at < length && isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]);
}

int narrowSize(const wchar_t* text, size_t length)
{
    return WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(length), nullptr, 0, nullptr, nullptr);
}

/// The number of units at the start of a text whose narrow form is whole characters of at most `room` bytes.
/// Every unit or pair is at least one byte, so that the answer is found without measuring the whole text.
size_t fittingUnits(const wchar_t* text, size_t length, int room)
{
    size_t taken = 0;
    for (size_t step = 4096; step > 0; step /= 2) {
        while (taken < length) {
            size_t end = std::min(length, taken + step);
            end += partsPair(text, length, end);
            const int bytes = narrowSize(text + taken, end - taken);
            if (bytes > room) break;
            taken = end;
            room -= bytes;
        }
    }
    return taken;
}
} // namespace

AlgorString& AlgorString::Instance()
{
    static AlgorString instance;
    return instance;
}

int AlgorString::CStr2Char(char* dst, int size, const CString& text) const
{
    return WChar2Char(dst, size, text.GetString());
}

int AlgorString::WChar2Char(char* dst, int size, const wchar_t* text) const
{
    if (!dst || size < 1) return 0;
    const size_t length = text ? fittingUnits(text, std::wcslen(text), size - 1) : 0;
    const int written = length ? WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(length), dst, size - 1,
                                                     nullptr, nullptr)
                               : 0;
    dst[written] = '\0';
    return written;
}

int AlgorString::Char2WChar(wchar_t* dst, int size, const char* text) const
{
    if (!dst || size < 1) return 0;
    const int needed = text ? MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0) : 0;
    std::wstring wide(std::max(needed, 1), L'\0');
    if (needed > 0) MultiByteToWideChar(CP_ACP, 0, text, -1, &wide[0], needed);
    size_t length = std::min<size_t>(wide.size() - 1, static_cast<size_t>(size) - 1);
    if (partsPair(wide.data(), wide.size(), length)) --length;
    std::wmemcpy(dst, wide.data(), length);
    dst[length] = L'\0';
    return static_cast<int>(length);
}

int AlgorString::Count(const CString& text, wchar_t character) const
{
    const wchar_t* const begin = text.GetString();
    return static_cast<int>(std::count(begin, begin + text.GetLength(), character));
}

CString AlgorString::VariantToCString(const VARIANT& value) const
{
    return varianttext::text(value, varianttext::Style::exact);
}

CString AlgorString::Varint2CStr(const VARIANT& value) const
{
    return varianttext::text(value, varianttext::Style::cell);
}
