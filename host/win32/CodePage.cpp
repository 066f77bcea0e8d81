// Before the headers of this layer, whose _WIN32 would make ICU take the platform for another one.
#include <unicode/ucnv.h>

#include "CodePage.h"

#include "AnsiCodePage.h"
#include "winnls.h"

#include <memory>
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

void setTrails(CodePage& page, int from, int to)
{
    for (int byte = from; byte <= to; ++byte)
        page.isTrail[static_cast<std::size_t>(byte)] = true;
}

void setByteRoles(CodePage& page)
{
    if (page.number == 1252) return;
    for (std::size_t byte = 0x81; byte <= 0xFE; ++byte)
        page.isLead[byte] = true;
    setTrails(page, 0x40, 0x7E);
    setTrails(page, page.number == 936 ? 0x80 : 0xA1, 0xFE);
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
    for (std::size_t i = 0; bytes.data() + i != to; ++i) {
        std::uint16_t& code = page.bytes[characters[static_cast<std::size_t>(origins[i])]];
        code = static_cast<std::uint16_t>(code << 8 | static_cast<unsigned char>(bytes[i]));
    }
}

/// A character is direct when its bytes stand for it and not for a similar one.
void fillDirect(CodePage& page)
{
    for (std::size_t c = 0x80; c < 0x10000; ++c) {
        const std::uint16_t code = page.bytes[c];
        const std::uint16_t back = code > 0xFF ? page.pair[code] : page.single[code];
        page.direct[c] = back == c ? code : 0;
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

template <class Sink>
bool putBytes(Sink& sink, std::uint16_t code)
{
    if (code > 0xFF) return sink.put(static_cast<char>(code >> 8), static_cast<char>(code));
    return sink.put(static_cast<char>(code));
}

template <class Sink>
bool putDefault(Sink& sink, char32_t c, std::uint16_t code)
{
    const bool isSupplementary = c > 0xFFFF && c <= 0x10FFFF;
    return putBytes(sink, code) && (!isSupplementary || putBytes(sink, code));
}

template <class Sink>
Converted encode(const std::uint16_t* table, const wchar_t* at, const wchar_t* end, Sink sink,
                 std::uint16_t defaultBytes)
{
    bool usedDefault = false;
    while (at != end) {
        const char32_t c = static_cast<char32_t>(*at);
        if (c < 0x80) {
            const std::size_t run = asciiRun(at, end);
            if (!sink.putRun(at, run)) return {sink.length(), Outcome::full, usedDefault};
            at += run;
            continue;
        }
        const std::uint16_t code = c < 0x10000 ? table[c] : 0;
        if (!(code ? putBytes(sink, code) : putDefault(sink, c, defaultBytes)))
            return {sink.length(), Outcome::full, usedDefault};
        usedDefault |= code == 0;
        ++at;
    }
    return {sink.length(), Outcome::done, usedDefault};
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
    if (codePage == 936) {
        static const auto page = makeTables(936, "windows-936-2000");
        return page.get();
    }
    if (codePage == 950) {
        static const auto page = makeTables(950, "windows-950-2000");
        return page.get();
    }
    if (codePage == 1252) {
        static const auto page = makeTables(1252, "ibm-5348_P100-1997");
        return page.get();
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
    if (!to) return encode(table, start, start + text.size(), CountingSink<char>(), rules.defaultBytes);
    return encode(table, start, start + text.size(), BufferSink<char>(to, capacity), rules.defaultBytes);
}
} // namespace win32
