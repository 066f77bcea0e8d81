#include "Utf8.h"

#include "Utf8Block.h"

#include <algorithm>

namespace
{
using namespace win32;

bool isTrail(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

/// What may follow a lead byte: the number of trail bytes, and the range of the first one, which keeps
/// out overlong forms, surrogates and values above U+10FFFF.
struct LeadRule {
    unsigned trails;
    unsigned char low;
    unsigned char high;
};

LeadRule ruleOf(unsigned char lead)
{
    if (lead < 0xC2) return {0, 0, 0};
    if (lead < 0xE0) return {1, 0x80, 0xBF};
    if (lead == 0xE0) return {2, 0xA0, 0xBF};
    if (lead == 0xED) return {2, 0x80, 0x9F};
    if (lead < 0xF0) return {2, 0x80, 0xBF};
    if (lead == 0xF0) return {3, 0x90, 0xBF};
    if (lead < 0xF4) return {3, 0x80, 0xBF};
    if (lead == 0xF4) return {3, 0x80, 0x8F};
    return {0, 0, 0};
}

struct Sequence {
    char32_t code;
    unsigned bytes; ///< of the character, or of the maximal subpart
    bool valid;
};

/// Reads the sequence that starts with a byte above 0x7F.
Sequence readSequence(const unsigned char* at, const unsigned char* end)
{
    const LeadRule rule = ruleOf(*at);
    if (rule.trails == 0) return {replacementCharacter, 1, false};
    char32_t code = *at & (0x3F >> rule.trails);
    for (unsigned i = 1; i <= rule.trails; ++i) {
        const bool follows =
            at + i < end && (i == 1 ? at[i] >= rule.low && at[i] <= rule.high : isTrail(at[i]));
        if (!follows) return {replacementCharacter, i, false};
        code = code << 6 | (at[i] & 0x3F);
    }
    return {code, rule.trails + 1, true};
}

/// Takes plain blocks as long as they come, for measuring and for writing.
const unsigned char* takeBlocks(const unsigned char* at, const unsigned char* end,
                                CountingSink<wchar_t>& sink)
{
    while (static_cast<std::size_t>(end - at) >= Utf8Block::readable) {
        const Utf8Block block = readUtf8Block(at);
        if (!block.isPlain) break;
        sink.took(countUtf8Block(block));
        at += block.bytes;
    }
    return at;
}

const unsigned char* takeBlocks(const unsigned char* at, const unsigned char* end, BufferSink<wchar_t>& sink)
{
    while (static_cast<std::size_t>(end - at) >= Utf8Block::readable) {
        wchar_t* const to = sink.reserve(Utf8Block::size);
        if (!to) break;
        const Utf8Block block = readUtf8Block(at);
        if (!block.isPlain) break;
        sink.took(decodeUtf8Block(block, at, to));
        at += block.bytes;
    }
    return at;
}

/// Takes characters one by one up to a place, or beyond it by part of a character.
template <class Sink>
Outcome takeCharacters(const unsigned char*& at, const unsigned char* until, const unsigned char* end,
                       Sink& sink, bool strict)
{
    while (at < until) {
        const Sequence sequence = *at < 0x80 ? Sequence{*at, 1, true} : readSequence(at, end);
        if (!sequence.valid && strict) return Outcome::invalid;
        if (!sink.put(static_cast<wchar_t>(sequence.code))) return Outcome::full;
        at += sequence.bytes;
    }
    return Outcome::done;
}

template <class Sink>
Converted decode(const unsigned char* at, const unsigned char* end, Sink sink, bool strict)
{
    Outcome outcome = Outcome::done;
    while (at != end && outcome == Outcome::done) {
        at = takeBlocks(at, end, sink);
        const auto left = static_cast<std::size_t>(end - at);
        outcome = takeCharacters(at, at + std::min(left, Utf8Block::size), end, sink, strict);
    }
    return {sink.length(), outcome};
}

template <class Sink>
bool putCode(Sink& sink, char32_t c)
{
    const auto trail = [c](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) return sink.put(static_cast<char>(c));
    if (c < 0x800) return sink.put(static_cast<char>(0xC0 | c >> 6), trail(0));
    if (c < 0x10000) return sink.put(static_cast<char>(0xE0 | c >> 12), trail(6), trail(0));
    return sink.put(static_cast<char>(0xF0 | c >> 18), trail(12), trail(6), trail(0));
}

/// Reads one character of wide text; a surrogate pair counts two units.
Sequence readWide(const wchar_t* at, const wchar_t* end)
{
    const char32_t c = static_cast<char32_t>(*at);
    if (c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF)) return {c, 1, true};
    if (isHighSurrogate(c) && end - at >= 2 && isLowSurrogate(static_cast<char32_t>(at[1])))
        return {combineSurrogates(c, static_cast<char32_t>(at[1])), 2, true};
    return {replacementCharacter, 1, false};
}

template <class Sink>
Converted encode(const wchar_t* at, const wchar_t* end, Sink sink, bool strict)
{
    while (at != end) {
        if (static_cast<char32_t>(*at) < 0x80) {
            const std::size_t run = asciiRun(at, end);
            if (!sink.putRun(at, run)) return {sink.length(), Outcome::full};
            at += run;
        } else {
            const Sequence sequence = readWide(at, end);
            if (!sequence.valid && strict) return {sink.length(), Outcome::invalid};
            if (!putCode(sink, sequence.code)) return {sink.length(), Outcome::full};
            at += sequence.bytes;
        }
    }
    return {sink.length(), Outcome::done};
}
} // namespace

namespace win32
{
Converted utf8ToWide(std::string_view text, wchar_t* to, std::size_t capacity, bool strict)
{
    const auto* start = reinterpret_cast<const unsigned char*>(text.data());
    if (!to) return decode(start, start + text.size(), CountingSink<wchar_t>(), strict);
    return decode(start, start + text.size(), BufferSink<wchar_t>(to, capacity), strict);
}

Converted wideToUtf8(std::wstring_view text, char* to, std::size_t capacity, bool strict)
{
    const wchar_t* start = text.data();
    if (!to) return encode(start, start + text.size(), CountingSink<char>(), strict);
    return encode(start, start + text.size(), BufferSink<char>(to, capacity), strict);
}
} // namespace win32
