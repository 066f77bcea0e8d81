#include "TextCodes.h"

#include <windows.h>

#include <cwctype>

namespace lettering
{
namespace
{
/// The value of `count` digits at text[at]; -1 when one of them is none.
int digits(std::wstring_view text, std::size_t at, std::size_t count, int base)
{
    if (at > text.size() || text.size() - at < count) return -1;
    int value = 0;
    for (const wchar_t c : text.substr(at, count)) {
        const std::size_t digit =
            std::wstring_view(L"0123456789ABCDEF")
                .find(static_cast<wchar_t>(c >= L'a' && c <= L'f' ? c - L'a' + L'A' : c));
        if (digit >= static_cast<std::size_t>(base)) return -1;
        value = value * base + static_cast<int>(digit);
    }
    return value;
}

bool isPercentCode(std::wstring_view text, std::size_t at)
{
    return text.substr(at, 2) == L"%%" && at + 2 < text.size();
}

CodedCharacter numbered(std::wstring_view text, std::size_t at)
{
    const int number = digits(text, at + 2, 3, 10);
    if (number <= 0 || number > 255) return {};
    // Where AutoCAD's own shape fonts keep the three signs.
    constexpr wchar_t signs[] = {0xB0, 0xB1, 0x2300};
    const bool isSign = number >= 127 && number <= 129;
    return {static_cast<std::uint32_t>(isSign ? signs[number - 127] : number), 5};
}

CodedCharacter percentCode(std::wstring_view text, std::size_t at)
{
    if (!isPercentCode(text, at)) return {};
    switch (text[at + 2]) {
    case L'c':
    case L'C':
        return {0x2300, 3};
    case L'd':
    case L'D':
        return {0xB0, 3};
    case L'p':
    case L'P':
        return {0xB1, 3};
    case L'%':
        return {L'%', 3};
    default:
        return numbered(text, at);
    }
}

bool isPair(int high, int low)
{
    return high >= 0xD800 && high < 0xDC00 && low >= 0xDC00 && low < 0xE000;
}

std::uint32_t joined(int high, int low)
{
    return static_cast<std::uint32_t>(0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00));
}

int unicodeUnit(std::wstring_view text, std::size_t at)
{
    if (at >= text.size() || text[at] != L'\\' || text.substr(at + 1, 2) != L"U+") return -1;
    return digits(text, at + 3, 4, 16);
}

CodedCharacter unicodeCode(std::wstring_view text, std::size_t at)
{
    constexpr std::size_t length = 7;
    const int unit = unicodeUnit(text, at);
    const int next = unit < 0 ? -1 : unicodeUnit(text, at + length);
    if (isPair(unit, next)) return {joined(unit, next), 2 * length};
    return unit > 0 ? CodedCharacter{static_cast<std::uint32_t>(unit), length} : CodedCharacter{};
}

CodedCharacter codePageCode(std::wstring_view text, std::size_t at)
{
    constexpr UINT pages[] = {932, 950, 949, 1361, 936};
    if (text.substr(at, 3) != L"\\M+") return {};
    const int page = digits(text, at + 3, 1, 10), code = digits(text, at + 4, 4, 16);
    if (page < 1 || page > 5 || code <= 0) return {};
    const std::string both = {static_cast<char>(code >> 8), static_cast<char>(code)};
    const std::string character = code < 0x100 ? both.substr(1) : both;
    wchar_t wide[2];
    const int count = MultiByteToWideChar(pages[page - 1], MB_ERR_INVALID_CHARS, character.data(),
                                          static_cast<int>(character.size()), wide, 2);
    return count == 1 ? CodedCharacter{static_cast<std::uint32_t>(wide[0]), 8} : CodedCharacter{};
}

/// Which line %%u, %%o or %%k at text[at] switches; null when none of them stands there.
bool* switched(TextLines& lines, std::wstring_view text, std::size_t at)
{
    if (!isPercentCode(text, at)) return nullptr;
    switch (text[at + 2]) {
    case L'u':
    case L'U':
        return &lines.under;
    case L'o':
    case L'O':
        return &lines.over;
    case L'k':
    case L'K':
        return &lines.through;
    default:
        return nullptr;
    }
}

/// The text that further characters with these lines go to.
std::wstring& openText(std::vector<TextRun>& runs, const TextLines& lines)
{
    if (runs.empty() || !(runs.back().lines == lines)) runs.push_back({{}, lines});
    return runs.back().text;
}

/// How many characters from text[at], one at least, hold no start of a code behind the first.
std::size_t plainLength(std::wstring_view text, std::size_t at)
{
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != L'%' && text[end] != L'\\')
        ++end;
    return end - at;
}
} // namespace

CodedCharacter codedCharacter(std::wstring_view text, std::size_t at)
{
    if (at >= text.size()) return {};
    if (text[at] == L'%') return percentCode(text, at);
    if (text[at] != L'\\') return {};
    const CodedCharacter unicode = unicodeCode(text, at);
    return unicode.length ? unicode : codePageCode(text, at);
}

void appendCharacter(std::wstring& text, std::uint32_t character)
{
    if (sizeof(wchar_t) == 2 && character > 0xFFFF) {
        text += static_cast<wchar_t>(0xD7C0 + (character >> 10));
        text += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
    } else {
        text += static_cast<wchar_t>(character);
    }
}

std::uint32_t takeCharacter(std::wstring_view text, std::size_t& at)
{
    const auto first = static_cast<std::uint32_t>(text[at++]);
    const int next = at < text.size() ? static_cast<int>(text[at]) : 0;
    if (!isPair(static_cast<int>(first), next)) return first;
    ++at;
    return joined(static_cast<int>(first), next);
}

std::vector<TextRun> decodeTextCodes(std::wstring_view text)
{
    std::vector<TextRun> runs;
    TextLines lines;
    for (std::size_t at = 0; at < text.size();) {
        if (bool* line = switched(lines, text, at)) {
            *line = !*line;
            at += 3;
        } else if (const CodedCharacter coded = codedCharacter(text, at); coded.length) {
            appendCharacter(openText(runs, lines), coded.character);
            at += coded.length;
        } else {
            const std::size_t length = plainLength(text, at);
            openText(runs, lines) += text.substr(at, length);
            at += length;
        }
    }
    return runs;
}

std::wstring plainText(std::wstring_view text)
{
    std::wstring plain;
    for (const TextRun& run : decodeTextCodes(text))
        plain += run.text;
    return plain;
}
} // namespace lettering
