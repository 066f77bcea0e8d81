#include "NaturalKey.h"

#include "NaturalOrder.h"

// The bytes of a key: for a number 1 and the count of its value's bytes together, then these bytes, high
// ones first; for any other chunk `textMark` and its characters in upper case. Characters begin with bytes
// above all marks, so the mark of the next chunk, or the 0 behind the last one, ends a chunk in front of
// one that has more characters, and a text in front of one that has more chunks.

namespace
{
constexpr unsigned numberMark = 1, textMark = 6, firstCharacter = 8, lastMark = 0xff;

class KeyWriter
{
public:
    bool isFull() const { return m_size == sizeof(m_key.words); }
    const naturalorder::Key& key() const { return m_key; }

    void put(unsigned byte)
    {
        if (isFull()) return;
        m_key.words[m_size / 8] |= std::uint64_t{byte} << (56 - 8 * (m_size % 8));
        ++m_size;
    }

    /// The following bytes stay 0: what comes next is left to the comparison of the texts.
    void close() { m_size = sizeof(m_key.words); }

private:
    naturalorder::Key m_key;
    std::size_t m_size = 0;
};

void putNumber(KeyWriter& key, unsigned value)
{
    unsigned bytes = 0;
    while (bytes < 4 && value >> (8 * bytes) != 0)
        ++bytes;
    key.put(numberMark + bytes);
    while (bytes > 0)
        key.put(value >> (8 * --bytes) & 0xff);
}

/// The bytes of UTF-8, whose order is that of the characters.
void putCharacter(KeyWriter& key, wchar_t character)
{
    const std::uint64_t code = std::uint64_t{static_cast<unsigned>(character)} + firstCharacter;
    if (code < 0x80) return key.put(static_cast<unsigned>(code));
    if (code >= 0x110000) {
        key.put(0xf8);
        return key.close();
    }
    const int trails = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    key.put(static_cast<unsigned>((lastMark << (7 - trails) & lastMark) | code >> (6 * trails)));
    for (int left = trails - 1; left >= 0; --left)
        key.put(static_cast<unsigned>(0x80 | (code >> (6 * left) & 0x3f)));
}
} // namespace

namespace naturalorder
{
Key keyOf(std::wstring_view text)
{
    KeyWriter key;
    if (text.empty()) {
        key.put(lastMark);
        return key.key();
    }
    Rest rest{text.data(), text.data() + text.size()};
    while (!rest.isEmpty() && !key.isFull()) {
        const bool number = rest.startsNumber();
        const int value = number ? takeNumberChunk(rest) : singlePoint;
        if (value != singlePoint) {
            putNumber(key, static_cast<unsigned>(value));
            continue;
        }
        key.put(textMark);
        if (number) putCharacter(key, L'.');
        for (; !number && !rest.endsTextChunk() && !key.isFull(); ++rest.at)
            putCharacter(key, upperOf(*rest.at));
    }
    return key.key();
}
} // namespace naturalorder
