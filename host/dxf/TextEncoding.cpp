#include "TextEncoding.h"

#include "CodePageName.h"
#include "TextEscape.h"

#include <windows.h>

namespace dxf
{
namespace
{
bool isPlain(unsigned char byte)
{
    return byte < 0x80 && byte != '^' && byte != '\\';
}

std::size_t plainRun(std::string_view bytes)
{
    std::size_t count = 0;
    while (count < bytes.size() && isPlain(static_cast<unsigned char>(bytes[count])))
        ++count;
    return count;
}

void appendAscii(std::string_view bytes, std::wstring& to)
{
    const std::size_t start = to.size();
    to.resize(start + bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i)
        to[start + i] = static_cast<wchar_t>(bytes[i]);
}

/// The length of the UTF-8 sequence at `bytes`, and its character; 1 and a kept byte when it is ill-formed
/// (overlong, a surrogate, above U+10FFFF, cut off). Source: table 3-7 of the Unicode standard.
std::size_t utf8Sequence(std::string_view bytes, std::uint32_t& character)
{
    const auto byteAt = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
    };
    const unsigned lead = byteAt(0);
    character = keptByte(static_cast<unsigned char>(lead));
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 1;
    if (length == 1) return 1;
    std::uint32_t value = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) return 1;
        value = value << 6 | (byteAt(i) & 0x3F);
    }
    const std::uint32_t least = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
    if (value < least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return 1;
    character = value;
    return length;
}

void decodeUtf8(std::string_view bytes, std::wstring& to)
{
    for (std::size_t i = 0; i < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80) {
            to += static_cast<wchar_t>(byte);
            ++i;
            continue;
        }
        std::uint32_t character;
        i += utf8Sequence(bytes.substr(i), character);
        appendCharacter(character, to);
    }
}

void appendUtf8(std::uint32_t c, std::string& to)
{
    if (c < 0x800) {
        to += static_cast<char>(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            to += static_cast<char>(0xE0 | c >> 12);
        } else {
            to += static_cast<char>(0xF0 | c >> 18);
            to += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        }
        to += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    }
    to += static_cast<char>(0x80 | (c & 0x3F));
}

/// The character at text[at]: two units where they make up a pair.
std::uint32_t characterAt(std::wstring_view text, std::size_t& at)
{
    const auto unit = static_cast<std::uint32_t>(text[at++]);
    if (!isHighSurrogate(unit) || at == text.size()) return unit;
    const auto next = static_cast<std::uint32_t>(text[at]);
    if (!isLowSurrogate(next)) return unit;
    ++at;
    return joinSurrogates(unit, next);
}

/// Appends the bytes of one UTF-16 unit in a code page; false when the page has not got it.
bool appendInPage(UINT codePage, wchar_t c, std::string& to)
{
    char bytes[8];
    BOOL usedDefault = FALSE;
    const int count = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &c, 1, bytes, sizeof bytes, nullptr,
                                          &usedDefault);
    if (count <= 0 || usedDefault) return false;
    to.append(bytes, static_cast<std::size_t>(count));
    return true;
}

void appendControl(wchar_t c, std::string& to)
{
    to += '^';
    to += c == L'^' ? ' ' : static_cast<char>('@' + c);
}
} // namespace

TextEncoding::TextEncoding() : TextEncoding(CP_UTF8) {}

TextEncoding::TextEncoding(UINT codePage) : _codePage(codePage), _isKnown(IsValidCodePage(codePage)) {}

TextEncoding TextEncoding::ofHeader(FileVersion version, std::string_view codePageName, UINT codePage)
{
    if (isUtf8(version)) return TextEncoding();
    const UINT named = codePageOfName(codePageName);
    if (named) return TextEncoding(named);
    return TextEncoding(codePage ? codePage : GetACP());
}

std::wstring TextEncoding::decode(std::string_view bytes) const
{
    std::wstring text;
    decode(bytes, text);
    return text;
}

void TextEncoding::decode(std::string_view bytes, std::wstring& to) const
{
    const std::size_t plain = plainRun(bytes);
    appendAscii(bytes.substr(0, plain), to);
    if (plain == bytes.size()) return;
    // A trail byte of a two-byte character can be a caret or a backslash: characters first, then escapes.
    const std::size_t start = to.size();
    decodeBytes(bytes.substr(plain), to);
    unescape(to, start);
}

void TextEncoding::decodeBytes(std::string_view bytes, std::wstring& to) const
{
    if (_codePage == CP_UTF8)
        decodeUtf8(bytes, to);
    else
        decodePage(bytes, to);
}

void TextEncoding::decodePage(std::string_view bytes, std::wstring& to) const
{
    for (std::size_t i = 0; i < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80) {
            to += static_cast<wchar_t>(byte);
            ++i;
            continue;
        }
        const bool isPair = _isKnown && i + 1 < bytes.size() && IsDBCSLeadByteEx(_codePage, byte);
        const int length = isPair ? 2 : 1;
        wchar_t wide[2];
        const int count =
            _isKnown ? MultiByteToWideChar(_codePage, MB_ERR_INVALID_CHARS, bytes.data() + i, length, wide, 2)
                     : 0;
        if (count == 1) {
            to += wide[0];
            i += static_cast<std::size_t>(length);
        } else {
            to += keptByte(byte);
            ++i;
        }
    }
}

std::string TextEncoding::encode(std::wstring_view text) const
{
    std::string bytes;
    encode(text, bytes);
    return bytes;
}

void TextEncoding::encode(std::wstring_view text, std::string& to) const
{
    to.reserve(to.size() + text.size());
    for (std::size_t i = 0; i < text.size();) {
        const wchar_t c = text[i];
        if (c == L'\\' && startsEscape(text, i)) {
            appendEscape(L'\\', to);
            ++i;
        } else if (c >= 0 && (c < 0x20 || c == L'^')) {
            appendControl(c, to);
            ++i;
        } else if (c >= 0 && c < 0x80) {
            to += static_cast<char>(c);
            ++i;
        } else {
            encodeCharacter(characterAt(text, i), to);
        }
    }
}

void TextEncoding::encodeCharacter(std::uint32_t character, std::string& to) const
{
    const auto unit = static_cast<wchar_t>(character);
    const bool isUnit = character <= 0xFFFF;
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (isUnit && (isKeptByte(unit) || unit == keptCaret))
        to += static_cast<char>(character & 0xFF);
    else if (character > 0x10FFFF)
        appendEscape(0xFFFD, to);
    else if (_codePage == CP_UTF8 && !isSurrogate)
        appendUtf8(character, to);
    else if (isSurrogate || !isUnit || !_isKnown || !appendInPage(_codePage, unit, to))
        appendEscape(character, to);
}
} // namespace dxf
