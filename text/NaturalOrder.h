#pragma once

/// The comparison of names behind CFamStuStr::CompareTowStr and CFamStuStr::SortStrArray.

#include <string_view>

namespace naturalorder
{
/// How the comparison of two texts ended, chunk by chunk.
enum class Ending {
    firstBefore, ///< a chunk of the first text comes before that of the second
    secondBefore,
    firstRanOut, ///< no chunk differed, and the second text has more
    secondRanOut,
    bothRanOut,
};

struct Comparison {
    Ending ending;
    /// Whether letters of other alphabets decided, which can differ in upper case and not in lower case.
    bool byForeignLetters;
};

Comparison compare(std::wstring_view a, std::wstring_view b, bool ignoreCase);

/// Whether the first text comes before the second in a sorted list, without regard to case.
bool sortsBefore(std::wstring_view a, std::wstring_view b);

/// Whether the character belongs to a chunk of digits and points.
constexpr bool isOfNumber(wchar_t c)
{
    return (c >= L'0' && c <= L'9') || c == L'.';
}

/// What is left of a text that is consumed chunk by chunk.
struct Rest {
    const wchar_t* at;
    const wchar_t* end;

    bool isEmpty() const { return at == end; }
    bool startsNumber() const { return at != end && isOfNumber(*at); }
    bool endsTextChunk() const { return at == end || isOfNumber(*at); }
};

/// Takes a chunk of digits and points off.
/// @return its value, at most 2147483647, or singlePoint for "." alone, which is no number
int takeNumberChunk(Rest& rest);
constexpr int singlePoint = -1;

/// The upper-case character that CString::MakeUpper gives.
wchar_t upperOf(wchar_t c);

/// The whole number at the start of a text, behind a sign if there is one; the nearest of 32 bits when it
/// is too large, 0 when there is none.
int leadingInteger(std::wstring_view text);
} // namespace naturalorder
