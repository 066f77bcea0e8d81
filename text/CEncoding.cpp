#include "CEncoding.h"

#include "Utf8Codec.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <limits>

namespace
{
/// Prints a diagnostic `count` times. A target of millions of cells can ask for as many diagnostics, so
/// they leave in large pieces.
void printDiagnostics(const char* diagnostic, std::size_t count)
{
    constexpr std::size_t perPiece = 4096;
    std::string piece;
    for (std::size_t i = 0; i < std::min(count, perPiece); ++i)
        piece += diagnostic;
    for (; count >= perPiece; count -= perPiece)
        std::fwrite(piece.data(), 1, piece.size(), stdout);
    std::fwrite(piece.data(), 1, count * std::char_traits<char>::length(diagnostic), stdout);
}

template <class Cell>
std::uint32_t terminate(Cell* dst, std::uint32_t dstSize, std::size_t written)
{
    const std::size_t end = std::min<std::size_t>(written, dstSize - 1);
    dst[end] = 0;
    return static_cast<std::uint32_t>(end + 1);
}

std::uint32_t clampedSize(std::uint64_t size)
{
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(size, std::numeric_limits<std::uint32_t>::max()));
}

bool staysInUrl(unsigned char byte)
{
    return std::isalnum(byte) || byte == '-' || byte == '_' || byte == '.' || byte == '~';
}

void readHexDigit(char digit, unsigned& value)
{
    const auto code = static_cast<unsigned char>(digit);
    if (code >= '0' && code <= '9') value = code - '0';
    if (code >= 'A' && code <= 'Z') value = code - 55u;
    if (code >= 'a' && code <= 'z') value = code - 87u;
}
} // namespace

std::uint32_t CEncoding::UTF8ToUnicode16(const std::uint8_t* src, std::uint32_t srcLen, std::uint16_t* dst,
                                         std::uint32_t dstSize)
{
    if (!dst || dstSize == 0) return clampedSize(std::uint64_t{srcLen} + 1);
    const auto done = utf8codec::decode(src, src ? srcLen : 0, dst, dstSize);
    printDiagnostics("error!/n", done.diagnostics);
    return terminate(dst, dstSize, done.written);
}

std::uint32_t CEncoding::Unicode16ToUTF8(const std::uint16_t* src, std::uint32_t srcLen, char* dst,
                                         std::uint32_t dstSize)
{
    if (!dst || dstSize == 0) return clampedSize(std::uint64_t{srcLen} * 3 + 1);
    const auto done = utf8codec::encode(src, src ? srcLen : 0, dst, dstSize);
    printDiagnostics("error/n", done.diagnostics);
    return terminate(dst, dstSize, done.written);
}

std::string CEncoding::UrlEncode(const std::string& text)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (staysInUrl(byte))
            escaped += c;
        else if (c == ' ')
            escaped += '+';
        else
            escaped.append({'%', digits[byte >> 4], digits[byte & 15]});
    }
    return escaped;
}

std::string CEncoding::UrlDecode(const std::string& text)
{
    std::string plain;
    plain.reserve(text.size());
    unsigned high = 0, low = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%' || text.size() - i < 3) {
            plain += text[i] == '+' ? ' ' : text[i];
            continue;
        }
        readHexDigit(text[++i], high);
        readHexDigit(text[++i], low);
        plain += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
    }
    return plain;
}
