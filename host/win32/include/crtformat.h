#pragma once

/// Formatted text with the Microsoft meaning of the directives, for arguments of any type.
///
///     %[- + 0 # space][width or *][.precision or .*][hh h l ll I I32 I64 z t j L w]conversion
///
/// %d %i %u %o %x %X   Without a size the low 32 bits of the argument, with hh or h the low 8 or 16, with l
/// all
///                     of it, with ll, I, I64, z, t or j 64 bits. An argument of fewer bits keeps its value.
/// %e %f %g %a         Also in upper case. A double; exponents have two digits at least (%a: one, and 13
///                     digits unless a precision is given). Infinity and NaN are inf, nan, nan(snan) for a
///                     signalling one and -nan(ind) for the one that invalid operations give; filled with
///                     blanks also where 0 is given.
/// %s %c               Text, a character. In a wide format wide, in a narrow format narrow.
/// %S %C               The other way round.
/// %hs %hc, %ls %ws %lc %wc   Narrow and wide in either. Narrow text is in the ANSI code page.
///                     A null text is "(null)". The precision counts characters of the text, and bytes when
///                     wide text goes into a narrow format; no character is cut in two. The 0 flag fills
///                     text with zeros.
/// %p                  The address as 16 upper-case hexadecimal digits.
/// %n                  Writes nothing anywhere; its argument is passed over.
/// %%, %?              A percent sign; any character that is no conversion stands for itself.
///
/// An argument carries its own type. Where that does not fit the directive the result is still defined: text
/// is printed in its own width; a number under %s is printed in decimal, and 0 as "(null)"; another pointer
/// under %s is printed as %p; text under %c is its first character; a real number under %d loses its
/// fraction; text and pointers under %d and %x are their addresses, under %f 0. A missing argument is 0.

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

namespace crt
{
/// One argument: its value and what kind of value it is. Texts are pointed to, not copied.
struct FormatArg {
    enum class Kind : unsigned char {
        none,
        integer,
        narrowCharacter,
        wideCharacter,
        real,
        narrowText,
        wideText,
        pointer
    };

    Kind kind = Kind::none;
    bool isSigned = false;
    unsigned char bytes = 8;   ///< Of an integer or character: its size.
    std::uint64_t integer = 0; ///< Of an integer or character: its value, sign-extended if it is signed.
    double real = 0;
    const void* address = nullptr; ///< Of a text or pointer.
};

template <class T>
FormatArg integerArg(T value, FormatArg::Kind kind)
{
    FormatArg arg;
    arg.kind = kind;
    arg.isSigned = std::is_signed_v<T>;
    arg.bytes = sizeof(T);
    arg.integer = static_cast<std::uint64_t>(value);
    return arg;
}

inline FormatArg addressArg(const void* address, FormatArg::Kind kind)
{
    FormatArg arg;
    arg.kind = kind;
    arg.address = address;
    return arg;
}

inline FormatArg realArg(double value)
{
    FormatArg arg;
    arg.kind = FormatArg::Kind::real;
    arg.real = value;
    return arg;
}

template <class T>
constexpr FormatArg::Kind kindOfInteger =
    std::is_same_v<T, char>                                     ? FormatArg::Kind::narrowCharacter
    : std::is_same_v<T, wchar_t> || std::is_same_v<T, char16_t> ? FormatArg::Kind::wideCharacter
                                                                : FormatArg::Kind::integer;

template <class Pointer>
FormatArg pointerArg(Pointer pointer)
{
    using Target = std::remove_cv_t<std::remove_pointer_t<Pointer>>;
    const bool isBytes = std::is_same_v<Target, unsigned char> || std::is_same_v<Target, signed char>;
    const auto address = reinterpret_cast<std::uintptr_t>(pointer);
    return addressArg(reinterpret_cast<const void*>(address),
                      isBytes ? FormatArg::Kind::narrowText : FormatArg::Kind::pointer);
}

/// A class takes part as the text it converts to: CString, CStringA and their kin are passed as they are.
template <class T>
FormatArg formatArg(const T& value)
{
    using Decayed = std::decay_t<T>;
    if constexpr (std::is_convertible_v<const T&, const wchar_t*>)
        return addressArg(static_cast<const wchar_t*>(value), FormatArg::Kind::wideText);
    else if constexpr (std::is_convertible_v<const T&, const char*>)
        return addressArg(static_cast<const char*>(value), FormatArg::Kind::narrowText);
    else if constexpr (std::is_pointer_v<Decayed>)
        return pointerArg(static_cast<Decayed>(value));
    else if constexpr (std::is_floating_point_v<Decayed>)
        return realArg(static_cast<double>(value));
    else if constexpr (std::is_enum_v<Decayed>)
        return integerArg(static_cast<std::underlying_type_t<Decayed>>(value), FormatArg::Kind::integer);
    else {
        static_assert(std::is_integral_v<Decayed>, "not a number, a text or a pointer");
        return integerArg(value, kindOfInteger<Decayed>);
    }
}

/// The arguments of a call. Not to be kept: it points to texts of the caller.
template <std::size_t Count>
struct FormatArgs {
    FormatArg args[Count ? Count : 1];
    const FormatArg* begin() const { return args; }
    static constexpr std::size_t size() { return Count; }
};

template <class... Args>
FormatArgs<sizeof...(Args)> formatArgs(const Args&... args)
{
    return {{formatArg(args)...}};
}

/// The formatted text, of any length. A null format is the empty one. std::bad_alloc or std::length_error
/// when memory does not suffice.
std::wstring format(const wchar_t* format, const FormatArg* args, std::size_t count);
std::string format(const char* format, const FormatArg* args, std::size_t count);

/// The same for arguments that the caller's caller passed through `...`. Their types are taken from the
/// directives alone: `l` means 32 bits there, as LONG has them, and a wrong directive is undefined.
std::wstring formatV(const wchar_t* format, va_list args);
std::string formatV(const char* format, va_list args);

/// A message with inserts: %1 to %99 are the arguments from the first on, as text or by the directive that
/// follows between exclamation marks (%2!04d!; the values of * come before the value itself), %n is a line
/// break (CR LF), %0 ends the message, and % makes any other character stand for itself.
std::wstring formatMessage(const wchar_t* message, const FormatArg* args, std::size_t count);
std::string formatMessage(const char* message, const FormatArg* args, std::size_t count);
} // namespace crt
