#include "Formatter.h"

#include "FormatNumber.h"
#include "FormatText.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace crt
{
namespace
{
using Kind = FormatArg::Kind;
using Size = FormatSpec::Size;
using Wanted = FormatSource::Wanted;

bool isOneOf(char c, const char* set)
{
    return c && std::strchr(set, c);
}

/// Puts the text into its field. Zeros stand between a sign and the digits, blanks outside.
template <class Char>
void appendField(const FormatSpec& spec, const std::string& prefix, const std::basic_string<Char>& body,
                 bool mayZeroFill, std::basic_string<Char>& out)
{
    const std::size_t width = spec.width, used = prefix.size() + body.size();
    const std::size_t fill = width > used ? width - used : 0;
    const bool hasZeros = spec.isZeroFilled && mayZeroFill && !spec.isLeft;
    if (!spec.isLeft && !hasZeros) out.append(fill, ' ');
    out.append(prefix.begin(), prefix.end());
    if (hasZeros) out.append(fill, '0');
    out += body;
    if (spec.isLeft) out.append(fill, ' ');
}

template <class Char>
void appendNumber(const FormatSpec& spec, const NumberText& number, std::basic_string<Char>& out)
{
    appendField(spec, number.prefix, std::basic_string<Char>(number.digits.begin(), number.digits.end()),
                number.mayZeroFill, out);
}

/// Whether %s, %S, %c or %C means wide text here.
template <class Char>
bool isWideText(const FormatSpec& spec)
{
    if (spec.size == Size::half || spec.size == Size::byte) return false;
    if (spec.size == Size::whole || spec.size == Size::wideText || spec.size == Size::wide64) return true;
    const bool isOther = spec.conversion == 'S' || spec.conversion == 'C';
    return (sizeof(Char) > 1) != isOther;
}

bool isText(const FormatArg& arg)
{
    return arg.kind == Kind::narrowText || arg.kind == Kind::wideText;
}

FormatArg characterArg(const FormatArg& arg, bool isWide)
{
    FormatArg character = arg;
    if (isText(arg) && arg.address) {
        const bool isWideArg = arg.kind == Kind::wideText;
        character.integer =
            isWideArg ? *static_cast<const wchar_t*>(arg.address) : *static_cast<const char*>(arg.address);
        character.kind = isWideArg ? Kind::wideCharacter : Kind::narrowCharacter;
    } else if (arg.kind != Kind::narrowCharacter && arg.kind != Kind::wideCharacter) {
        character.integer = integerOf(arg);
        character.kind = isWide ? Kind::wideCharacter : Kind::narrowCharacter;
    }
    return character;
}

template <class Char>
void appendCharacter(const FormatSpec& spec, const FormatArg& arg, std::basic_string<Char>& out)
{
    const FormatArg character = characterArg(arg, isWideText<Char>(spec));
    std::basic_string<Char> body;
    if (character.kind == Kind::wideCharacter)
        characterOf(static_cast<wchar_t>(character.integer), body);
    else
        characterOf(static_cast<char>(character.integer), body);
    appendField(spec, "", body, true, out);
}

template <class Char>
void appendText(const FormatSpec& spec, const FormatArg& text, std::basic_string<Char>& out)
{
    std::basic_string<Char> body;
    textOf(text, spec.precision, body);
    appendField(spec, "", body, true, out);
}

bool isNullText(const FormatArg& arg)
{
    return arg.kind != Kind::real && integerOf(arg) == 0;
}

/// An argument under a text conversion that is no text.
template <class Char>
void appendMismatch(FormatSpec spec, const FormatArg& arg, std::basic_string<Char>& out)
{
    if (isNullText(arg)) return appendText(spec, addressArg(nullptr, Kind::narrowText), out);
    spec.size = Size::wide64;
    spec.precision = -1;
    spec.conversion = arg.kind == Kind::real ? 'g' : arg.kind == Kind::pointer ? 'p' : 'd';
    if (arg.kind == Kind::real)
        appendNumber(spec, realText(spec, arg), out);
    else if (arg.kind == Kind::narrowCharacter || arg.kind == Kind::wideCharacter)
        appendCharacter(spec, arg, out);
    else
        appendNumber(spec, integerText(spec, arg), out);
}

template <class Char>
Wanted wantedFor(const FormatSpec& spec)
{
    if (isOneOf(spec.conversion, "sS")) return isWideText<Char>(spec) ? Wanted::wideText : Wanted::narrowText;
    if (isOneOf(spec.conversion, "eEfFgGaA")) return Wanted::real;
    if (isOneOf(spec.conversion, "pn")) return Wanted::pointer;
    return spec.size == Size::wide64 && !isOneOf(spec.conversion, "cC") ? Wanted::int64 : Wanted::int32;
}

template <class Char>
void appendConverted(const FormatSpec& spec, const FormatArg& arg, std::basic_string<Char>& out)
{
    if (isOneOf(spec.conversion, "sS"))
        isText(arg) ? appendText(spec, arg, out) : appendMismatch(spec, arg, out);
    else if (isOneOf(spec.conversion, "cC"))
        appendCharacter(spec, arg, out);
    else if (isOneOf(spec.conversion, "eEfFgGaA"))
        appendNumber(spec, realText(spec, arg), out);
    else if (spec.conversion != 'n')
        appendNumber(spec, integerText(spec, arg), out);
}

int argumentOf(FormatSource& source)
{
    return static_cast<int>(static_cast<std::uint32_t>(integerOf(source.next(Wanted::int32))));
}

/// Takes width and precision from the arguments where the directive says so: a negative width is a width and
/// the - flag, a negative precision none.
void resolveArguments(FormatSpec& spec, FormatSource& source)
{
    if (spec.isWidthArgument) {
        const int width = argumentOf(source);
        if (width < 0) spec.isLeft = true;
        spec.width = width == INT_MIN ? INT_MAX : width < 0 ? -width : width;
    }
    if (spec.isPrecisionArgument) spec.precision = std::max(-1, argumentOf(source));
}

template <class Char>
void directive(FormatSpec& spec, FormatSource& source, std::basic_string<Char>& out)
{
    resolveArguments(spec, source);
    if (isOneOf(spec.conversion, "diuoxXpeEfFgGaAcCsSn"))
        appendConverted(spec, source.next(wantedFor<Char>(spec)), out);
    else if (spec.conversion)
        out += static_cast<Char>(spec.conversion);
}

template <class Char>
void formatted(const Char* format, FormatSource& source, std::basic_string<Char>& out)
{
    while (format && *format) {
        const Char* percent = format;
        while (*percent && *percent != '%')
            ++percent;
        out.append(format, percent);
        if (!*percent) return;
        FormatSpec spec;
        format = parseFormatSpec(percent + 1, spec);
        directive(spec, source, out);
    }
}
} // namespace

void appendDirective(FormatSpec spec, FormatSource& source, std::wstring& out)
{
    directive(spec, source, out);
}
void appendDirective(FormatSpec spec, FormatSource& source, std::string& out)
{
    directive(spec, source, out);
}

std::wstring format(const wchar_t* format, const FormatArg* args, std::size_t count)
{
    TypedSource source(args, count);
    std::wstring out;
    formatted(format, source, out);
    return out;
}

std::string format(const char* format, const FormatArg* args, std::size_t count)
{
    TypedSource source(args, count);
    std::string out;
    formatted(format, source, out);
    return out;
}

std::wstring formatV(const wchar_t* format, va_list args)
{
    VariadicSource source(args);
    std::wstring out;
    formatted(format, source, out);
    return out;
}

std::string formatV(const char* format, va_list args)
{
    VariadicSource source(args);
    std::string out;
    formatted(format, source, out);
    return out;
}
} // namespace crt
