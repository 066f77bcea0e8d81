#pragma once

#include "FileVersion.h"

#include <cstdint>
#include <string>
#include <string_view>

#include <windef.h>

namespace dxf
{
/// The encoding of the texts of one file: UTF-8 or a code page, with the escapes of TextEscape.h.
///
/// Decoding loses nothing: bytes that stand for no character are kept (keptByte), and writing a decoded
/// text in the same encoding gives bytes of the same meaning. Encoding loses nothing either: a character
/// that the code page has not is escaped, a control character or a caret too, and a backslash that would
/// be read as the start of an escape.
class TextEncoding
{
public:
    /// UTF-8, as of R2007.
    TextEncoding();
    /// A code page by its Windows number. An unknown one is taken for ASCII: other bytes are kept.
    explicit TextEncoding(UINT codePage);

    /// The encoding of a file that states these in its header. An empty or unknown name is `codePage`
    /// (0: the ANSI code page of this machine), an unknown page behind a good name stays unknown.
    static TextEncoding ofHeader(FileVersion version, std::string_view codePageName, UINT codePage = 0);

    UINT codePage() const { return _codePage; }
    bool isKnown() const { return _isKnown; }
    bool operator==(const TextEncoding& other) const { return _codePage == other._codePage; }
    bool operator!=(const TextEncoding& other) const { return !(*this == other); }

    std::wstring decode(std::string_view bytes) const;
    /// Appends, so that one string can serve many texts.
    void decode(std::string_view bytes, std::wstring& to) const;

    std::string encode(std::wstring_view text) const;
    void encode(std::wstring_view text, std::string& to) const;

private:
    void decodeBytes(std::string_view bytes, std::wstring& to) const;
    void decodePage(std::string_view bytes, std::wstring& to) const;
    void encodeCharacter(std::uint32_t character, std::string& to) const;

    UINT _codePage;
    bool _isKnown;
};
} // namespace dxf
