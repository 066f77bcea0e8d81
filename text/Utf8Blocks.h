#pragma once

/// Block conversions of the UTF-8 codec: the same results as character by character, for the stretches
/// of a text that need no special case. They are made of SSSE3 instructions: the caller asks the processor.

#include "Utf8Codec.h"

namespace utf8codec
{
/// Continues a decoding at `at`, with at least two bytes consumed, as long as the blocks ahead are
/// sequences of one, two or three bytes whose continuation bytes are marked as such. Nothing is done right
/// behind a sequence that ends with a byte of a lead's value. It leaves as many
/// source bytes to the caller as it takes to overwrite what it scribbled behind `at.written`.
void decodeBlocks(const std::uint8_t* src, std::size_t srcLen, std::uint16_t* dst, std::size_t dstSize,
                  Progress& at);

/// Continues an encoding at `at` as long as the blocks ahead hold no unit without an encoding. It leaves
/// such a block to the caller, which overwrites what was scribbled behind `at.written`.
void encodeBlocks(const std::uint16_t* src, std::size_t srcLen, char* dst, std::size_t dstSize, Progress& at);
} // namespace utf8codec
