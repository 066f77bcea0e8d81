#include "RegexPattern.h"

#include <climits>
#include <cwctype>

namespace regex
{
namespace
{
bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}
bool isLetter(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

wchar_t controlCharacter(wchar_t letter)
{
    if (!isLetter(letter)) throw Malformed();
    return static_cast<wchar_t>(letter % 32);
}

wchar_t onlyCharacter(const std::wstring& name)
{
    if (name.size() != 1) throw Malformed();
    return name[0];
}

void addClass(CharacterSet& set, const std::wstring& name)
{
    if (name == L"d" || name == L"s" || name == L"w") return set.addEscape(name[0]);
    std::string narrow;
    for (const wchar_t c : name) {
        if (!isLetter(c)) throw Malformed();
        narrow += static_cast<char>(c);
    }
    const std::wctype_t named = std::wctype(narrow.c_str());
    if (!named) throw Malformed();
    set.add(named);
}
} // namespace

bool isClassEscape(wchar_t c)
{
    return c == L'd' || c == L'D' || c == L's' || c == L'S' || c == L'w' || c == L'W';
}

bool PatternText::skip(wchar_t c)
{
    if (!sees(c)) return false;
    ++m_at;
    return true;
}

bool PatternText::skip(const wchar_t* text)
{
    const wchar_t* at = m_at;
    for (; *text; ++text, ++at)
        if (at == m_end || *at != *text) return false;
    m_at = at;
    return true;
}

wchar_t PatternText::take()
{
    if (atEnd()) throw Malformed();
    return *m_at++;
}

void PatternText::expect(wchar_t c)
{
    if (take() != c) throw Malformed();
}

int PatternText::number()
{
    if (atEnd() || !isDigit(*m_at)) throw Malformed();
    long long value = 0;
    while (!atEnd() && isDigit(*m_at) && value <= INT_MAX)
        value = value * 10 + (take() - L'0');
    if (value > INT_MAX) throw Malformed();
    return static_cast<int>(value);
}

wchar_t PatternText::escapedCharacter(wchar_t c)
{
    switch (c) {
    case L't':
        return L'\t';
    case L'n':
        return L'\n';
    case L'v':
        return L'\v';
    case L'f':
        return L'\f';
    case L'r':
        return L'\r';
    case L'0':
        if (!atEnd() && isDigit(*m_at)) throw Malformed();
        return L'\0';
    case L'c':
        return controlCharacter(take());
    case L'x':
        return hexadecimal(2);
    case L'u':
        return hexadecimal(4);
    default:
        if (isLetter(c) || isDigit(c) || c == L'_') throw Malformed();
        return c;
    }
}

wchar_t PatternText::hexadecimal(int digits)
{
    unsigned value = 0;
    for (int i = 0; i < digits; ++i) {
        const wchar_t c = take();
        if (isDigit(c))
            value = value * 16 + static_cast<unsigned>(c - L'0');
        else if ((c >= L'a' && c <= L'f') || (c >= L'A' && c <= L'F'))
            value = value * 16 + static_cast<unsigned>(c % 32) + 9;
        else
            throw Malformed();
    }
    return static_cast<wchar_t>(value);
}

CharacterSet PatternText::bracket()
{
    CharacterSet set;
    if (skip(L'^')) set.negate();
    while (!skip(L']'))
        bracketItem(set);
    return set;
}

void PatternText::bracketItem(CharacterSet& set)
{
    const std::optional<wchar_t> first = bracketCharacter(set);
    if (!first || !isRangeAhead()) {
        if (first) set.add(*first, *first);
        return;
    }
    ++m_at;
    const std::optional<wchar_t> last = bracketCharacter(set);
    if (last && *last < *first) throw Malformed();
    set.add(*first, last ? *last : *first);
    if (!last) set.add(L'-', L'-');
}

bool PatternText::isRangeAhead() const
{
    return m_end - m_at > 1 && m_at[0] == L'-' && m_at[1] != L']';
}

std::optional<wchar_t> PatternText::bracketCharacter(CharacterSet& set)
{
    if (skip(L"[:")) {
        addClass(set, nameUntil(L':'));
        return std::nullopt;
    }
    if (skip(L"[.")) return onlyCharacter(nameUntil(L'.'));
    if (skip(L"[=")) return onlyCharacter(nameUntil(L'='));
    if (!skip(L'\\')) return take();
    const wchar_t c = take();
    if (c == L'b') return L'\b';
    if (!isClassEscape(c)) return escapedCharacter(c);
    set.addEscape(c);
    return std::nullopt;
}

std::wstring PatternText::nameUntil(wchar_t mark)
{
    std::wstring name;
    while (!sees(mark))
        name += take();
    ++m_at;
    expect(L']');
    return name;
}
} // namespace regex
