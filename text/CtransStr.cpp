#include "CtransStr.h"

#include <new>
#include <random>
#include <string>

namespace
{
constexpr LCID chineseOfChina = 0x0804;

struct Replacement {
    const wchar_t* from;
    const wchar_t* to;
};

template <size_t Count>
CString replaceAll(CString text, const Replacement (&replacements)[Count])
{
    for (const Replacement& each : replacements)
        text.Replace(each.from, each.to);
    return text;
}

CString mapChinese(const CString& text, DWORD flags)
{
    const int length = text.GetLength();
    const int size = length ? LCMapStringW(chineseOfChina, flags, text.GetString(), length, nullptr, 0) : 0;
    if (size <= 0) return text;
    std::wstring mapped(size, L'\0');
    if (LCMapStringW(chineseOfChina, flags, text.GetString(), length, &mapped[0], size) != size) return text;
    return CString(mapped.data(), size);
}

/// The system's message for an error code; empty when it has none.
std::wstring systemMessage(DWORD code)
{
    constexpr DWORD longestMessage = 0x7FFF; // FormatMessage never gives more than 64 KB
    std::wstring text(longestMessage, L'\0');
    text.resize(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                               &text[0], longestMessage, nullptr));
    return text;
}

std::mt19937& randomSource()
{
    thread_local std::mt19937 source{std::random_device{}()};
    return source;
}

bool isBetween(wchar_t c, wchar_t first, wchar_t last)
{
    return c >= first && c <= last;
}

/// The 32 digits of a new identifier; empty when the system makes none.
CString newIdentifier()
{
    GUID id = {};
    if (FAILED(CoCreateGuid(&id)) || IsEqualGUID(id, GUID_NULL)) return CString();
    CString text;
    text.Format(L"%08X%04X%04X", static_cast<unsigned>(id.Data1), id.Data2, id.Data3);
    for (const unsigned char byte : id.Data4)
        text.AppendFormat(L"%02X", byte);
    return text;
}

/// A zeroed array with one element more than a text takes; raises E_OUTOFMEMORY when there is no room for it.
template <class Char>
Char* newZeroed(int size)
{
    Char* const array = new (std::nothrow) Char[static_cast<size_t>(size) + 1]();
    if (!array) AtlThrow(E_OUTOFMEMORY);
    return array;
}
} // namespace

wchar_t* CtransStr::CharToWchar(const char* text)
{
    const int size = text ? MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0) : 0;
    wchar_t* wide = newZeroed<wchar_t>(size);
    if (size > 0) MultiByteToWideChar(CP_ACP, 0, text, -1, wide, size);
    return wide;
}

char* CtransStr::WcharToChar(const wchar_t* text)
{
    const int size = text ? WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr) : 0;
    char* narrow = newZeroed<char>(size);
    if (size > 0) WideCharToMultiByte(CP_ACP, 0, text, -1, narrow, size, nullptr, nullptr);
    return narrow;
}

CString CtransStr::Simple2Tra(const CString& text)
{
    return mapChinese(text, LCMAP_TRADITIONAL_CHINESE);
}

CString CtransStr::Tra2Simple(const CString& text)
{
    return mapChinese(text, LCMAP_SIMPLIFIED_CHINESE);
}

CString CtransStr::FullQuote2Half(CString text)
{
    return replaceAll(text, {{L"\u2019", L"'"}, {L"Φ", L"%%C"}, {L"°", L"%%D"}, {L"±", L"%%P"}});
}

CString CtransStr::HalfQuote2Full(CString text)
{
    return replaceAll(text, {{L"'", L"\u2019"},
                             {L"%%C", L"Φ"},
                             {L"%%c", L"Φ"},
                             {L"%%D", L"°"},
                             {L"%%d", L"°"},
                             {L"%%P", L"±"},
                             {L"%%p", L"±"}});
}

CString CtransStr::rePlaceSpace(const CString& text, const CString& replacement)
{
    // One pass: a replacement that holds blanks itself must not be replaced again.
    std::wstring result;
    for (int i = 0; i < text.GetLength(); ++i) {
        const wchar_t c = text[i];
        if (c == L' ' || c == L'\t' || c == 0x00A0 || c == 0x3000)
            result.append(replacement.GetString(), replacement.GetLength());
        else
            result += c;
    }
    return CString(result.data(), static_cast<int>(result.size()));
}

int CtransStr::IsSingleZiMu(CString text, int letterCase)
{
    if (text.GetLength() != 1) return 0;
    const bool upper = isBetween(text[0], L'A', L'Z');
    const bool lower = isBetween(text[0], L'a', L'z');
    switch (letterCase) {
    case 0:
        return upper || lower;
    case 1:
        return upper;
    case 2:
        return lower;
    default:
        return 0;
    }
}

int CtransStr::RandomInt(int low, int high)
{
    if (low > high) std::swap(low, high);
    return std::uniform_int_distribution<int>(low, high)(randomSource());
}

CString CtransStr::GetTempTableName()
{
    const CString id = newIdentifier();
    return L"TMP_" + (id.IsEmpty() ? GenTimeZoneStr() : id);
}

CString CtransStr::ErrorMessage()
{
    const DWORD code = GetLastError();
    if (code == 0) return L"错误码为0,系统无法找到错误原因！";
    const std::wstring reason = systemMessage(code);
    SetLastError(code);
    CString number;
    number.Format(L"%lu", static_cast<unsigned long>(code));
    CString text;
    text.Format(L"%s错误原因：%s", number.GetString(), reason.empty() ? L"未知错误！" : reason.c_str());
    return text;
}
