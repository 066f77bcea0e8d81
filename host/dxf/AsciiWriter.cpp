#include "AsciiWriter.h"

#include "NumberText.h"

#include <array>

namespace dxf
{
namespace
{
/// The line of a group code: at most four digits and the line end.
struct CodeLine {
    char bytes[6];
    unsigned char length;
};

constexpr CodeLine makeCodeLine(int code)
{
    CodeLine line{{' ', ' ', ' ', '\r', '\n', 0}, 5};
    const int width = code > 999 ? 4 : 3;
    for (int i = width; i > 0 && (code > 0 || i == width); code /= 10)
        line.bytes[--i] = static_cast<char>('0' + code % 10);
    line.bytes[width] = '\r';
    line.bytes[width + 1] = '\n';
    line.length = static_cast<unsigned char>(width + 2);
    return line;
}

constexpr std::array<CodeLine, lastGroupCode + 1> makeCodeLines()
{
    std::array<CodeLine, lastGroupCode + 1> lines{};
    for (int code = 0; code <= lastGroupCode; ++code)
        lines[static_cast<std::size_t>(code)] = makeCodeLine(code);
    return lines;
}
constexpr auto codeLines = makeCodeLines();

bool hasLineEnd(std::string_view text)
{
    return std::memchr(text.data(), '\n', text.size()) || std::memchr(text.data(), '\r', text.size());
}

/// The text of a binary file may hold the bytes of a line end themselves.
std::string withoutLineEnds(std::string_view text)
{
    std::string line;
    for (const char c : text) {
        if (c == '\n')
            line += "^J";
        else if (c == '\r')
            line += "^M";
        else
            line += c;
    }
    return line;
}
} // namespace

AsciiWriter::AsciiWriter(ByteSink& sink, const TextEncoding& encoding) : GroupWriter(encoding), _out(sink) {}

/// Room for a value of up to 512 bytes behind the written code.
char* AsciiWriter::startGroup(int code)
{
    const CodeLine& line = codeLines[static_cast<std::size_t>(code)];
    char* const to = _out.room(OutputBuffer::largestPiece);
    std::memcpy(to, line.bytes, sizeof line.bytes);
    return to + line.length;
}

void AsciiWriter::endGroup(char* end)
{
    std::memcpy(end, "\r\n", 2);
    _out.advance(end + 2);
}

void AsciiWriter::putText(int code, std::string_view encoded)
{
    if (!encoded.empty() && hasLineEnd(encoded))
        putLine(code, withoutLineEnds(encoded));
    else
        putLine(code, encoded);
}

void AsciiWriter::putLine(int code, std::string_view line)
{
    char* const to = startGroup(code);
    if (line.size() <= OutputBuffer::largestPiece / 2) {
        line.copy(to, line.size());
        endGroup(to + line.size());
    } else {
        _out.advance(to);
        _out.append(line);
        _out.append("\r\n");
    }
}

void AsciiWriter::putReal(int code, double value)
{
    endGroup(writeReal(startGroup(code), value));
}

void AsciiWriter::putInteger(int code, std::int64_t value)
{
    endGroup(writeInteger(startGroup(code), value));
}

void AsciiWriter::putHandle(int code, std::uint64_t value)
{
    endGroup(writeHex(startGroup(code), value));
}

void AsciiWriter::putChunk(int code, std::string_view bytes)
{
    endGroup(writeHexData(startGroup(code), bytes));
}

bool AsciiWriter::putMalformed(const Group& group)
{
    putText(group.code(), group.text());
    return true;
}
} // namespace dxf
