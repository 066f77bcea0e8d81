#pragma once

#include <string>
#include <vector>

namespace ed
{
/// One expression as it is written.
struct LispForm {
    enum class Kind { list, symbol, integer, real, text };
    Kind kind = Kind::list;
    std::vector<LispForm> items; ///< of a list
    std::wstring text;           ///< of a symbol or text
    long integer = 0;
    double real = 0.0;
};

/// Reads one expression; false with the reason when it is malformed.
bool readLisp(const std::wstring& text, LispForm& form, std::wstring& fault);
} // namespace ed
