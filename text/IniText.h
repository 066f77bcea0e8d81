#pragma once

/// The bytes of a profile file, seen as lines of text.

#include <afx.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace inifile
{
/// What the mark at the start of a file says; a file without a mark is in the ANSI code page.
enum class Encoding { ansi, utf8, utf16, utf16BigEndian };

/// The encoding of a file that begins with these bytes (three are enough).
Encoding encodingOf(std::string_view start);

/// A line without its line end. Positions count bytes of the file.
struct Line {
    std::size_t begin;
    std::size_t end;  ///< of the text
    std::size_t next; ///< behind the line end
};

inline std::wstring_view viewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

inline CString stringOf(std::wstring_view text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

/// Lines are those of a file that is read as text: a line feed ends one, with or without a carriage return
/// before it, and Ctrl-Z (1A) ends the text. Only what is asked for is decoded, so that bytes which are no
/// text stay what they are. ASCII characters can be looked for unit by unit in every encoding.
class Text
{
public:
    explicit Text(std::string bytes);

    const std::string& bytes() const { return _bytes; }
    Encoding encoding() const { return _encoding; }

    /// Where the first line begins, and where the last one ends.
    std::size_t begin() const { return _begin; }
    std::size_t end() const { return _end; }
    /// The line that begins there; false at the end.
    bool readLine(std::size_t at, Line& line) const;

    /// Bytes of a unit, and the unit at a position.
    std::size_t unitSize() const { return _unitSize; }
    unsigned unit(std::size_t at) const
    {
        if (_unitSize == 1) return byteAt(at);
        return _encoding == Encoding::utf16 ? byteAt(at) | byteAt(at + 1) << 8
                                            : byteAt(at) << 8 | byteAt(at + 1);
    }
    /// The first place of an ASCII character from `from` on, or `to`.
    std::size_t find(char character, std::size_t from, std::size_t to) const;
    /// Move a position over the blanks there, forwards and backwards.
    std::size_t skipBlanks(std::size_t from, std::size_t to) const;
    std::size_t dropBlanks(std::size_t from, std::size_t to) const;

    /// The bytes from `from` to `to` as text. What is no character becomes the system's replacement.
    CString decode(std::size_t from, std::size_t to) const;
    /// Appends text as bytes of the file; false, and `bytes` is not to be used, when the encoding lacks a
    /// character.
    bool encode(std::wstring_view text, std::string& bytes) const;

private:
    unsigned byteAt(std::size_t at) const { return static_cast<unsigned char>(_bytes[at]); }
    UINT codePage() const { return _encoding == Encoding::utf8 ? CP_UTF8 : CP_ACP; }
    CString decodeUnits(std::size_t from, std::size_t to) const;
    void appendUnit(unsigned unit, std::string& bytes) const;

    std::string _bytes;
    Encoding _encoding;
    std::size_t _unitSize;
    std::size_t _begin;
    std::size_t _end;
};

/// The bytes that mark an encoding.
std::string_view markOf(Encoding encoding);
} // namespace inifile
