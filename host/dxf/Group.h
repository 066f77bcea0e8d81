#pragma once

#include "GroupKind.h"

#include <string>
#include <string_view>

namespace dxf
{
/// One group of a drawing file: a code and its value.
///
/// A group owns nothing. Its text is a view into the reader's Input (or into what the caller gave) and is
/// valid as long as that; the numbers are copies.
class Group
{
public:
    Group() = default;
    static Group ofText(int code, std::string_view encoded);
    static Group ofReal(int code, double value);
    static Group ofInteger(int code, std::int64_t value);
    static Group ofHandle(int code, std::uint64_t value);
    static Group ofChunk(int code, std::string_view bytes);

    int code() const { return _code; }
    GroupKind kind() const { return _kind; }
    bool is(int code, std::string_view text) const { return _code == code && _text == text; }

    /// The value could not be read at all: numbers are 0, a chunk is empty. In an ASCII file text() still
    /// is what the line holds. So is a group 5 in the dimension styles of R12: there it names a block.
    bool isMalformed() const { return _isMalformed; }

    /// Where the group starts: the line of its code, counted from 1, in an ASCII file, the offset of its
    /// first byte in a binary one. 0 for a group that was not read.
    std::size_t position() const { return _position; }

    /// The bytes of a text in the encoding of its file, escapes included (TextEncoding decodes them); of
    /// a number in an ASCII file its line without blanks at the ends; of a chunk see appendBytes.
    std::string_view text() const { return _text; }

    /// The number of a real, or of an integer as a double; 0 for other kinds.
    double real() const
    {
        if (_kind == GroupKind::real) return _real;
        return isInteger(_kind) ? static_cast<double>(_integer) : 0.0;
    }

    /// The number of an integer kind as it stands in the file, also where it is too large for that kind.
    /// A real is cut to its integer part when that fits into 64 bits; 0 for other kinds.
    std::int64_t integer() const
    {
        if (isInteger(_kind)) return _integer;
        return _kind == GroupKind::real && _real > -9.2e18 && _real < 9.2e18
                   ? static_cast<std::int64_t>(_real)
                   : 0;
    }
    bool boolean() const { return integer() != 0; }
    std::uint64_t handle() const
    {
        return _kind == GroupKind::handle ? static_cast<std::uint64_t>(_integer) : 0;
    }

    /// Appends the bytes of a chunk; nothing for other kinds.
    void appendBytes(std::string& to) const;

private:
    friend class AsciiReader;
    friend class BinaryReader;
    explicit Group(int code) : _code(static_cast<std::int16_t>(code)), _kind(kindOf(code)) {}

    std::int16_t _code = 0;
    GroupKind _kind = GroupKind::text;
    bool _isMalformed = false;
    bool _isHex = false; ///< the text of a chunk is hexadecimal digits, not the bytes
    union {
        std::int64_t _integer = 0;
        double _real;
    };
    std::size_t _position = 0;
    std::string_view _text;
};

/// Same code and same value: reals bit by bit, chunks by their bytes, texts by theirs. Positions and the
/// wording of numbers do not count.
bool areSame(const Group& one, const Group& other);
} // namespace dxf
