#include "NaturalOrder.h"

#include <afx.h>

#include <climits>

namespace
{
using naturalorder::Comparison;
using naturalorder::Ending;
using naturalorder::isOfNumber;
using naturalorder::Rest;
using naturalorder::singlePoint;
using naturalorder::takeNumberChunk;
using naturalorder::upperOf;

unsigned codeOf(wchar_t c)
{
    return static_cast<unsigned>(c);
}

bool isAscii(wchar_t c)
{
    return codeOf(c) < 128;
}

/// Han, kana, hangul, symbols and punctuation of these scripts: they have no case.
bool isEastAsian(wchar_t c)
{
    return codeOf(c) >= 0x2e80 && codeOf(c) < 0xa640;
}

bool mayHaveCase(wchar_t c)
{
    return !isAscii(c) && !isEastAsian(c);
}

/// Below 0, 0 or above 0 as the first text's chunk comes before, equals or comes behind the second's.
/// Consumes both when they are equal.
int compareTextChunks(Rest& a, Rest& b, bool ignoreCase)
{
    for (; !a.endsTextChunk() && !b.endsTextChunk(); ++a.at, ++b.at) {
        if (*a.at == *b.at) continue;
        const unsigned first = codeOf(ignoreCase ? upperOf(*a.at) : *a.at);
        const unsigned second = codeOf(ignoreCase ? upperOf(*b.at) : *b.at);
        if (first != second) return first < second ? -1 : 1;
    }
    return static_cast<int>(b.endsTextChunk()) - static_cast<int>(a.endsTextChunk());
}

/// Compares two chunks of which at least one is of digits and points. A number comes before what is none;
/// a single point compares with text by its code.
int compareWithNumber(Rest& a, Rest& b, bool ignoreCase)
{
    const bool bothNumbers = a.startsNumber() && b.startsNumber();
    if (!bothNumbers) {
        Rest number = a.startsNumber() ? a : b;
        const wchar_t other = a.startsNumber() ? *b.at : *a.at;
        const unsigned code = codeOf(ignoreCase ? upperOf(other) : other);
        const bool numberFirst = takeNumberChunk(number) != singlePoint || L'.' < code;
        return numberFirst == a.startsNumber() ? -1 : 1;
    }
    const int first = takeNumberChunk(a), second = takeNumberChunk(b);
    if (first == second) return 0;
    if (first == singlePoint || second == singlePoint) return second == singlePoint ? -1 : 1;
    return first < second ? -1 : 1;
}

Ending endingOf(const Rest& a, const Rest& b)
{
    if (a.isEmpty()) return b.isEmpty() ? Ending::bothRanOut : Ending::firstRanOut;
    return Ending::secondRanOut;
}

bool decidedByForeignLetters(const Rest& a, const Rest& b)
{
    return !a.isEmpty() && !b.isEmpty() && (mayHaveCase(*a.at) || mayHaveCase(*b.at));
}
} // namespace

namespace naturalorder
{
wchar_t upperOf(wchar_t c)
{
    if (isAscii(c)) return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - (L'a' - L'A')) : c;
    if (isEastAsian(c)) return c;
    CString text(c);
    return text.MakeUpper().GetAt(0);
}

int takeNumberChunk(Rest& rest)
{
    const wchar_t* const start = rest.at;
    long long value = 0;
    for (; !rest.isEmpty() && *rest.at >= L'0' && *rest.at <= L'9'; ++rest.at)
        if (value <= INT_MAX) value = value * 10 + (*rest.at - L'0');
    while (rest.startsNumber())
        ++rest.at;
    if (rest.at - start == 1 && *start == L'.') return singlePoint;
    return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

Comparison compare(std::wstring_view a, std::wstring_view b, bool ignoreCase)
{
    Rest first{a.data(), a.data() + a.size()}, second{b.data(), b.data() + b.size()};
    while (!first.isEmpty() && !second.isEmpty()) {
        const bool numbers = first.startsNumber() || second.startsNumber();
        const int order = numbers ? compareWithNumber(first, second, ignoreCase)
                                  : compareTextChunks(first, second, ignoreCase);
        if (order != 0)
            return {order < 0 ? Ending::firstBefore : Ending::secondBefore,
                    !numbers && decidedByForeignLetters(first, second)};
    }
    return {endingOf(first, second), false};
}

// Why this is an order that CompareTowStr never contradicts. Chunks by themselves have a strict weak order:
// numbers come first, by their values; the others follow, by the codes of their characters. A text is the
// sequence of its chunks, and sequences are compared by their first chunks that differ, a sequence that is
// the beginning of another one first: a lexicographic order, which is strict and weak because that of the
// chunks is. CompareTowStr answers by the same first difference, or 0 where there is none or it calls the
// texts equal as a whole; so its answers other than 0 are this order's, and they cannot go round in a
// circle. Empty texts are set behind all others by both.
bool sortsBefore(std::wstring_view a, std::wstring_view b)
{
    if (a.empty() || b.empty()) return !a.empty();
    const Ending ending = compare(a, b, true).ending;
    return ending == Ending::firstBefore || ending == Ending::firstRanOut;
}

int leadingInteger(std::wstring_view text)
{
    std::size_t at = 0;
    const bool negative = at < text.size() && text[at] == L'-';
    if (negative || (at < text.size() && text[at] == L'+')) ++at;
    long long value = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at)
        if (value <= INT_MAX) value = value * 10 + (text[at] - L'0');
    if (negative) return value > INT_MAX ? INT_MIN : static_cast<int>(-value);
    return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}
} // namespace naturalorder
