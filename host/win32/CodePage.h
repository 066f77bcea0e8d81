#pragma once

#include "ConversionSink.h"

#include <array>
#include <string_view>

namespace win32
{
/// One code page of one or two bytes a character, as direct tables.
struct CodePage {
    UINT number;
    std::array<bool, 256> isLead;
    std::array<bool, 256> isTrail;
    std::array<std::uint16_t, 256> single;   ///< character of a single byte
    std::array<std::uint16_t, 65536> pair;   ///< character of lead << 8 | trail; 0: none
    std::array<std::uint16_t, 65536> bytes;  ///< byte or lead << 8 | trail of a character, or noBytes
    std::array<std::uint16_t, 65536> direct; ///< the same without best-fit characters

    static constexpr std::uint16_t noBytes = 0xFFFF; // no page has the lead byte 0xFF

    bool hasPairs() const { return isLead[0x81]; }
};

/// The number that a code page argument stands for: CP_ACP, CP_OEMCP and CP_THREAD_ACP are the ANSI code
/// page. Other values come back unchanged.
UINT resolveCodePage(UINT codePage);

/// The tables of a resolved code page, made when first asked for; null for UTF-8 and for an unknown page.
const CodePage* codePageTables(UINT codePage);

/// Narrow to wide text. A lead byte without a trail byte, and a byte or pair without a character, becomes
/// '?'; only a byte that can be a trail is taken with its lead. `strict`: it ends the conversion as
/// invalid instead. A null `to` measures; otherwise at most `capacity` characters are written.
Converted pageToWide(const CodePage& page, std::string_view text, wchar_t* to, std::size_t capacity,
                     bool strict);

struct EncodeRules {
    bool bestFit = true;              ///< take a similar character where the page has not the same
    std::uint16_t defaultBytes = '?'; ///< a byte, or lead << 8 | trail
};

/// Wide to narrow text. A character that the page has not becomes the default character, twice for a
/// supplementary character (once for each of its UTF-16 units).
Converted wideToPage(const CodePage& page, std::wstring_view text, char* to, std::size_t capacity,
                     const EncodeRules& rules);
} // namespace win32
