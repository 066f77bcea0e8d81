#include "Screen.h"

#include <cstdlib>

namespace
{
std::string utf8(const std::u32string& text)
{
    std::string bytes;
    for (const char32_t c : text) {
        if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else if (c < 0x800) {
            bytes += {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 63))};
        } else {
            bytes += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 63)),
                      static_cast<char>(0x80 | (c & 63))};
        }
    }
    return bytes;
}

std::u32string withoutEnd(const std::u32string& line)
{
    const std::size_t last = line.find_last_not_of(U' ');
    return last == std::u32string::npos ? U"" : line.substr(0, last + 1);
}

/// How many bytes a UTF-8 character has that begins with this one.
std::size_t sizeOf(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : 3;
}

char32_t decoded(const std::string& bytes)
{
    char32_t code = static_cast<unsigned char>(bytes[0]) & (bytes.size() == 2 ? 0x1F : 0x0F);
    for (std::size_t i = 1; i < bytes.size(); ++i)
        code = code << 6 | (static_cast<unsigned char>(bytes[i]) & 63);
    return code;
}
} // namespace

namespace arxhost
{
void Screen::take(const std::string& bytes)
{
    for (const char byte : bytes) {
        const bool inEscape = !mSequence.empty() && mSequence[0] == 27;
        if (!mSequence.empty() || byte == 27 || (byte & 0x80)) {
            mSequence += byte;
            const bool first = mSequence.size() < 3;
            if (inEscape && !first && byte >= '@') escape(byte);
            if (inEscape && mSequence.size() == 2 && byte != '[' && byte != '(') mSequence.clear();
            if (!inEscape && byte != 27 && mSequence.size() == sizeOf(mSequence[0])) {
                const char32_t character = decoded(mSequence);
                mSequence.clear();
                put(character);
            }
        } else {
            control(byte);
        }
    }
}

std::u32string& Screen::current()
{
    if (mRow >= mLines.size()) mLines.resize(mRow + 1);
    return mLines[mRow];
}

void Screen::put(char32_t character)
{
    std::u32string& line = current();
    if (line.size() <= mColumn) line.resize(mColumn + 1, U' ');
    line[mColumn++] = character;
}

void Screen::control(char byte)
{
    if (byte == '\r')
        mColumn = 0;
    else if (byte == '\n')
        ++mRow, current();
    else if (byte == '\b')
        mColumn -= mColumn > 0;
    else if (byte >= ' ')
        put(static_cast<char32_t>(byte));
}

/// ESC [ number letter
void Screen::escape(char final)
{
    const int given = std::atoi(mSequence.c_str() + 2);
    const std::size_t count = given > 0 ? static_cast<std::size_t>(given) : 1;
    const bool bracket = mSequence[1] == '[';
    mSequence.clear();
    if (!bracket) return;
    if (final == 'C') mColumn += count;
    if (final == 'D') mColumn -= std::min(count, mColumn);
    if (final == 'A') mRow -= std::min(count, mRow);
    if (final == 'B') mRow += count;
    if (final == 'P' && mColumn < current().size()) current().erase(mColumn, count);
    if (final == '@' && mColumn < current().size()) current().insert(mColumn, count, U' ');
    if (final == 'K' || final == 'J') current().resize(std::min(mColumn, current().size()));
    if (final == 'J') mLines.resize(mRow + 1);
}

std::string Screen::text() const
{
    std::string all;
    for (const std::u32string& line : mLines)
        all += (all.empty() && &line == &mLines[0] ? "" : "\n") + utf8(withoutEnd(line));
    return all;
}

std::string Screen::line() const
{
    return utf8(mLines[mRow].substr(0, mColumn));
}
} // namespace arxhost
