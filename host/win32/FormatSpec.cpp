#include "FormatSpec.h"

#include <climits>

namespace crt
{
namespace
{
template <class Char>
bool isDigit(Char c)
{
    return c >= '0' && c <= '9';
}

template <class Char>
const Char* parseFlags(const Char* text, FormatSpec& spec)
{
    for (;; ++text) {
        switch (*text) {
        case '-':
            spec.isLeft = true;
            break;
        case '+':
            spec.hasPlus = true;
            break;
        case ' ':
            spec.hasBlank = true;
            break;
        case '#':
            spec.isAlternate = true;
            break;
        case '0':
            spec.isZeroFilled = true;
            break;
        default:
            return text;
        }
    }
}

template <class Char>
const Char* parseNumber(const Char* text, int& number, bool& isArgument)
{
    if (*text == '*') {
        isArgument = true;
        return text + 1;
    }
    for (number = 0; isDigit(*text); ++text) {
        const int digit = static_cast<int>(*text - '0');
        number = number > (INT_MAX - digit) / 10 ? INT_MAX : number * 10 + digit;
    }
    return text;
}

template <class Char>
const Char* parseSizeI(const Char* text, FormatSpec& spec)
{
    const bool is32 = text[0] == '3' && text[1] == '2', is64 = text[0] == '6' && text[1] == '4';
    spec.size = is32 ? FormatSpec::Size::wide32 : FormatSpec::Size::wide64;
    return is32 || is64 ? text + 2 : text;
}

template <class Char>
const Char* parseSize(const Char* text, FormatSpec& spec)
{
    using Size = FormatSpec::Size;
    switch (*text) {
    case 'h':
        spec.size = text[1] == 'h' ? Size::byte : Size::half;
        return text[1] == 'h' ? text + 2 : text + 1;
    case 'l':
        spec.size = text[1] == 'l' ? Size::wide64 : Size::whole;
        return text[1] == 'l' ? text + 2 : text + 1;
    case 'I':
        return parseSizeI(text + 1, spec);
    case 'z':
    case 't':
    case 'j':
        spec.size = Size::wide64;
        return text + 1;
    case 'w':
        spec.size = Size::wideText;
        return text + 1;
    case 'L':
        return text + 1;
    default:
        return text;
    }
}

template <class Char>
const Char* parse(const Char* text, FormatSpec& spec)
{
    text = parseNumber(parseFlags(text, spec), spec.width, spec.isWidthArgument);
    if (*text == '.') text = parseNumber(text + 1, spec.precision, spec.isPrecisionArgument);
    text = parseSize(text, spec);
    if (*text <= 0 || *text > 0x7e) return text;
    spec.conversion = static_cast<char>(*text);
    return text + 1;
}
} // namespace

const wchar_t* parseFormatSpec(const wchar_t* text, FormatSpec& spec)
{
    return parse(text, spec);
}
const char* parseFormatSpec(const char* text, FormatSpec& spec)
{
    return parse(text, spec);
}
} // namespace crt
