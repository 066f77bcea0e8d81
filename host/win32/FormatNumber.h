#pragma once

#include "crtformat.h"

#include "FormatSpec.h"

namespace crt
{
/// A number as text: what stands before the zeros that fill it up, and what behind them.
struct NumberText {
    std::string prefix; ///< Sign, 0x.
    std::string digits;
    bool mayZeroFill = true;
};

/// The argument under the integer conversion, %p included.
NumberText integerText(const FormatSpec& spec, const FormatArg& arg);

/// The argument under the conversions of real numbers.
NumberText realText(const FormatSpec& spec, const FormatArg& arg);

/// The argument as a 64-bit integer: a real number without its fraction, a pointer's address.
std::uint64_t integerOf(const FormatArg& arg);
} // namespace crt
