#include <unicode/ucnv.h>

#include "CodePage.h"

#include "AnsiCodePage.h"
#include "KnownCodePages.h"
#include "winnls.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <vector>

namespace
{
using namespace win32;
using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

Converter openConverter(const char* name)
{
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &status), ucnv_close);
    if (U_FAILURE(status)) throw std::runtime_error(std::string("no converter ") + name);
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_SKIP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_SKIP, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter.get(), true);
    return converter;
}

/// Decodes all of `bytes` and calls use(index of the source byte, character) for each character.
template <class Use>
void decodeAll(UConverter* converter, const std::vector<char>& bytes, Use use)
{
    std::vector<UChar> characters(bytes.size() + 1);
    std::vector<std::int32_t> origins(characters.size());
    UErrorCode status = U_ZERO_ERROR;
    UChar* to = characters.data();
    const char* from = bytes.data();
    ucnv_reset(converter);
    ucnv_toUnicode(converter, &to, to + characters.size(), &from, from + bytes.size(), origins.data(), true,
                   &status);
    for (std::size_t i = 0; characters.data() + i != to; ++i)
        use(static_cast<std::size_t>(origins[i]), characters[i]);
}

void setRange(std::array<bool, 256>& bytes, std::size_t from, std::size_t to)
{
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(from),
              bytes.begin() + static_cast<std::ptrdiff_t>(to) + 1, true);
}

/// Shift JIS: 0xA1 ... 0xDF are half-width katakana, characters of one byte.
void setJapaneseRoles(CodePage& page)
{
    setRange(page.isLead, 0x81, 0x9F);
    setRange(page.isLead, 0xE0, 0xFC);
    setRange(page.isTrail, 0x40, 0x7E);
    setRange(page.isTrail, 0x80, 0xFC);
}

void setKoreanRoles(CodePage& page)
{
    setRange(page.isLead, 0x81, 0xFE);
    setRange(page.isTrail, 0x41, 0x5A);
    setRange(page.isTrail, 0x61, 0x7A);
    setRange(page.isTrail, 0x81, 0xFE);
}

void setChineseRoles(CodePage& page)
{
    setRange(page.isLead, 0x81, 0xFE);
    setRange(page.isTrail, 0x40, 0x7E);
    setRange(page.isTrail, page.number == 936 ? 0x80 : 0xA1, 0xFE);
}

void setByteRoles(CodePage& page)
{
    if (!hasTwoByteCharacters(page.number)) return;
    if (page.number == 932)
        setJapaneseRoles(page);
    else if (page.number == 949)
        setKoreanRoles(page);
    else
        setChineseRoles(page);
}

void fillSingles(CodePage& page, UConverter* converter)
{
    std::vector<char> bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (!page.isLead[static_cast<std::size_t>(byte)]) bytes.push_back(static_cast<char>(byte));
    decodeAll(converter, bytes, [&](std::size_t origin, UChar c) {
        page.single[static_cast<unsigned char>(bytes[origin])] = c;
    });
}

void fillPairs(CodePage& page, UConverter* converter)
{
    std::vector<char> bytes;
    for (unsigned code = 0x8100; code <= 0xFEFE; ++code)
        if (page.isLead[code >> 8] && page.isTrail[code & 0xFF]) {
            bytes.push_back(static_cast<char>(code >> 8));
            bytes.push_back(static_cast<char>(code));
        }
    decodeAll(converter, bytes, [&](std::size_t origin, UChar c) {
        const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
        if (origin % 2 == 0) page.pair[byteAt(origin) << 8 | byteAt(origin + 1)] = c;
    });
}

void fillBytes(CodePage& page, UConverter* converter)
{
    std::vector<UChar> characters;
    for (unsigned c = 0x80; c < 0x10000; ++c)
        if (c < 0xD800 || c > 0xDFFF) characters.push_back(static_cast<UChar>(c));
    std::vector<char> bytes(characters.size() * 2);
    std::vector<std::int32_t> origins(bytes.size());
    UErrorCode status = U_ZERO_ERROR;
    char* to = bytes.data();
    const UChar* from = characters.data();
    ucnv_fromUnicode(converter, &to, to + bytes.size(), &from, from + characters.size(), origins.data(), true,
                     &status);
    page.bytes.fill(CodePage::noBytes);
    for (std::uint16_t c = 0; c < 0x80; ++c)
        page.bytes[c] = c;
    for (std::size_t i = 0; bytes.data() + i != to; ++i) {
        std::uint16_t& code = page.bytes[characters[static_cast<std::size_t>(origins[i])]];
        const std::uint16_t before = code == CodePage::noBytes ? 0 : code;
        code = static_cast<std::uint16_t>(before << 8 | static_cast<unsigned char>(bytes[i]));
    }
}

/// A character is direct when its bytes stand for it and not for a similar one.
void fillDirect(CodePage& page)
{
    page.direct = page.bytes;
    for (std::size_t c = 0x80; c < 0x10000; ++c) {
        const std::uint16_t code = page.bytes[c];
        const std::uint16_t back = code > 0xFF ? page.pair[code] : page.single[code];
        if (back != c) page.direct[c] = CodePage::noBytes;
    }
}

std::unique_ptr<const CodePage> makeTables(UINT number, const char* converterName)
{
    auto page = std::make_unique<CodePage>();
    page->number = number;
    const Converter converter = openConverter(converterName);
    setByteRoles(*page);
    fillSingles(*page, converter.get());
    fillPairs(*page, converter.get());
    fillBytes(*page, converter.get());
    fillDirect(*page);
    return page;
}

template <class Sink>
Converted decode(const CodePage& page, const unsigned char* at, const unsigned char* end, Sink sink,
                 bool strict)
{
    while (at != end) {
        if (*at < 0x80) {
            const std::size_t run = asciiRun(at, end);
            if (!sink.putRun(at, run)) return {sink.length(), Outcome::full};
            at += run;
            continue;
        }
        const bool isPair = page.isLead[*at] && end - at >= 2 && page.isTrail[at[1]];
        const std::uint16_t c = isPair ? page.pair[at[0] << 8 | at[1]] : page.single[*at];
        if (c == 0 && strict) return {sink.length(), Outcome::invalid};
        if (!sink.put(c ? static_cast<wchar_t>(c) : L'?')) return {sink.length(), Outcome::full};
        at += isPair ? 2 : 1;
    }
    return {sink.length(), Outcome::done};
}

bool isSupplementary(char32_t c)
{
    return c - 0x10000 < 0x100000;
}

constexpr std::size_t charactersInBlock = 16;

bool isAsciiBlock(const wchar_t* at)
{
    std::uint32_t all = 0;
    for (std::size_t i = 0; i < charactersInBlock; ++i)
        all |= static_cast<std::uint32_t>(at[i]);
    return all < 0x80;
}

std::uint16_t bytesOf(const std::uint16_t* table, wchar_t wide)
{
    const auto c = static_cast<std::uint32_t>(wide);
    return table[c < 0xFFFF ? c : 0xFFFF]; // U+FFFF is in no page
}

std::size_t sizeOf(std::uint16_t code)
{
    return code > 0xFF ? 2 : 1;
}

/// What text takes. The loop has no branch that depends on the text: mixed text would mispredict it.
Converted measure(const std::uint16_t* table, const wchar_t* at, const wchar_t* end,
                  std::uint16_t defaultBytes)
{
    std::size_t length = 0, missing = 0, supplementary = 0;
    const auto add = [&](wchar_t c) {
        const std::uint16_t code = bytesOf(table, c);
        length += sizeOf(code);
        missing += code == CodePage::noBytes;
        supplementary += isSupplementary(static_cast<char32_t>(c));
    };
    for (; static_cast<std::size_t>(end - at) >= charactersInBlock; at += charactersInBlock) {
        if (isAsciiBlock(at))
            length += charactersInBlock;
        else
            std::for_each(at, at + charactersInBlock, add);
    }
    std::for_each(at, end, add);
    // A missing character was counted with two bytes.
    length += (missing + supplementary) * sizeOf(defaultBytes) - missing * 2;
    return {length, Outcome::done, missing > 0};
}

/// Writes a block for which there is room whatever it holds. Returns the end of what was written; null when
/// a character is missing, with anything in the room.
char* encodeBlock(const std::uint16_t* table, const wchar_t* at, char* to)
{
    if (isAsciiBlock(at))
        return std::transform(at, at + charactersInBlock, to, [](wchar_t c) { return char(c); });
    bool isMissing = false;
    for (std::size_t i = 0; i < charactersInBlock; ++i) {
        const std::uint16_t code = bytesOf(table, at[i]);
        const std::uint32_t isPair = (0xFFu - code) >> 31; // arithmetic, lest it become a branch
        to[0] = static_cast<char>(code >> 8);
        to[isPair] = static_cast<char>(code);
        to += 1 + isPair;
        isMissing |= code == CodePage::noBytes;
    }
    return isMissing ? nullptr : to;
}

/// Writes one character or its replacement. Returns the end of what was written; null when there is no room.
char* encodeOne(std::uint16_t code, std::size_t times, char* to, const char* toEnd)
{
    if (static_cast<std::size_t>(toEnd - to) < sizeOf(code) * times) return nullptr;
    for (; times > 0; --times) {
        if (code > 0xFF) *to++ = static_cast<char>(code >> 8);
        *to++ = static_cast<char>(code);
    }
    return to;
}

Converted encode(const std::uint16_t* table, const wchar_t* at, const wchar_t* end, char* start,
                 std::size_t capacity, std::uint16_t defaultBytes)
{
    bool usedDefault = false;
    char* to = start;
    const char* const toEnd = start + capacity;
    const auto result = [&](Outcome outcome) {
        return Converted{static_cast<std::size_t>(to - start), outcome, usedDefault};
    };
    while (at != end) {
        const bool isRoomy = static_cast<std::size_t>(end - at) >= charactersInBlock &&
                             static_cast<std::size_t>(toEnd - to) >= 2 * charactersInBlock;
        if (char* const next = isRoomy ? encodeBlock(table, at, to) : nullptr) {
            to = next;
            at += charactersInBlock;
            continue;
        }
        const wchar_t* const stop = isRoomy ? at + charactersInBlock : at + 1;
        for (; at != stop; ++at) {
            const std::uint16_t code = bytesOf(table, *at);
            const bool isMissing = code == CodePage::noBytes;
            const std::size_t times = isSupplementary(static_cast<char32_t>(*at)) ? 2 : 1;
            char* const next = encodeOne(isMissing ? defaultBytes : code, times, to, toEnd);
            if (!next) return result(Outcome::full);
            usedDefault |= isMissing;
            to = next;
        }
    }
    return result(Outcome::done);
}
} // namespace

namespace win32
{
UINT resolveCodePage(UINT codePage)
{
    return codePage == CP_ACP || codePage == CP_OEMCP || codePage == CP_THREAD_ACP ? ansiCodePage()
                                                                                   : codePage;
}

const CodePage* codePageTables(UINT codePage)
{
    static std::array<std::once_flag, knownCodePageCount> isMade;
    static std::array<std::unique_ptr<const CodePage>, knownCodePageCount> tables;
    for (std::size_t i = 0; i < knownCodePageCount; ++i)
        if (knownCodePages[i].number == codePage) {
            std::call_once(isMade[i], [i] {
                tables[i] = makeTables(knownCodePages[i].number, knownCodePages[i].converter);
            });
            return tables[i].get();
        }
    return nullptr;
}

Converted pageToWide(const CodePage& page, std::string_view text, wchar_t* to, std::size_t capacity,
                     bool strict)
{
    const auto* start = reinterpret_cast<const unsigned char*>(text.data());
    if (!to) return decode(page, start, start + text.size(), CountingSink<wchar_t>(), strict);
    return decode(page, start, start + text.size(), BufferSink<wchar_t>(to, capacity), strict);
}

Converted wideToPage(const CodePage& page, std::wstring_view text, char* to, std::size_t capacity,
                     const EncodeRules& rules)
{
    const std::uint16_t* table = rules.bestFit ? page.bytes.data() : page.direct.data();
    const wchar_t* start = text.data();
    if (!to) return measure(table, start, start + text.size(), rules.defaultBytes);
    return encode(table, start, start + text.size(), to, capacity, rules.defaultBytes);
}
} // namespace win32
