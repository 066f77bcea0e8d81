#pragma once

#include <cstddef>
#include <cstdint>

namespace win32
{
/// A stretch of UTF-8 looked at all at once, which mixed text needs: its characters change their length too
/// often for a processor to guess the way of a loop that goes from one to the next.
struct Utf8Block {
    static constexpr std::size_t size = 64;
    /// Bytes that must be readable from the start of a block.
    static constexpr std::size_t readable = size + 2;

    std::uint64_t starts; ///< bit i: a character that is whole within the block begins at byte i
    std::size_t bytes;    ///< of those characters
    bool isPlain;         ///< well-formed, and only characters of up to three bytes; else nothing is known
    bool isAscii;
};

/// Looks at the block at a character boundary. Blocks with a lead byte of C0, C1, E0, ED or above EF are not
/// plain, as what may follow those needs a closer look.
Utf8Block readUtf8Block(const unsigned char* at);

/// Writes the characters of a plain block, one wchar_t each, and returns their number.
std::size_t decodeUtf8Block(const Utf8Block& block, const unsigned char* at, wchar_t* to);

/// The number of characters of a plain block.
std::size_t countUtf8Block(const Utf8Block& block);
} // namespace win32
