#pragma once

/// The control codes of single-line texts:
///
///     %%c %%d %%p     the signs for diameter, degrees and plus/minus
///     %%u %%o %%k     underline, overline, strike-through: on, and off again
///     %%nnn           the character with this decimal number, 1 ... 255
///     %%%             a percent sign
///     \U+XXXX         the character of Unicode with this hexadecimal number
///     \M+nXXXX        the character with these bytes in code page n (1: 932, 2: 950, 3: 949, 4: 1361, 5:
///     936)
///
/// Letters may be in either case. What looks like a code and is none stays as it stands.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lettering
{
/// Lines that go with a text.
struct TextLines {
    bool under = false, over = false, through = false;
    bool operator==(const TextLines& other) const
    {
        return under == other.under && over == other.over && through == other.through;
    }
};

/// Characters with the same lines.
struct TextRun {
    std::wstring text;
    TextLines lines;
};

/// A character that was written as a code, and the length of the code; 0 when there is none.
struct CodedCharacter {
    std::uint32_t character = 0;
    std::size_t length = 0;
};

/// The code at text[at] that stands for a character, whether with percent signs or with a backslash.
CodedCharacter codedCharacter(std::wstring_view text, std::size_t at);

/// Appends a character, as two units where wchar_t has 16 bits and it needs them.
void appendCharacter(std::wstring& text, std::uint32_t character);
/// The character at text[at], and moves behind it. A half of a pair alone is itself.
std::uint32_t takeCharacter(std::wstring_view text, std::size_t& at);

/// The text without its codes, in runs of which no two neighbours have the same lines. No run is empty.
std::vector<TextRun> decodeTextCodes(std::wstring_view text);
/// The same without the lines.
std::wstring plainText(std::wstring_view text);
} // namespace lettering
