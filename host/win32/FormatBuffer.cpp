#include "crtprintf.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <new>
#include <stdexcept>

namespace crt
{
namespace
{
int failed(int error)
{
    errno = error;
    return -1;
}

template <class Char>
bool hasRoom(const FormatBuffer<Char>& buffer)
{
    return buffer.to && buffer.size;
}

/// Stores the first `length` characters and a terminator.
template <class Char>
void storeTerminated(const FormatBuffer<Char>& buffer, const std::basic_string<Char>& text,
                     std::size_t length)
{
    *std::copy_n(text.data(), std::min(length, text.size()), buffer.to) = 0;
}

template <class Char>
int storeOrFail(const FormatBuffer<Char>& buffer, const std::basic_string<Char>& text)
{
    if (!hasRoom(buffer)) return failed(EINVAL);
    const bool fits = text.size() < buffer.size;
    storeTerminated(buffer, text, fits ? text.size() : 0);
    return fits ? static_cast<int>(text.size()) : failed(ERANGE);
}

template <class Char>
int storeCounted(const FormatBuffer<Char>& buffer, const std::basic_string<Char>& text)
{
    if (!buffer.to && !buffer.size && !buffer.count) return 0;
    const bool mayCut = buffer.count == _TRUNCATE || buffer.count < buffer.size;
    if (!mayCut || !hasRoom(buffer)) return storeOrFail(buffer, text);
    const std::size_t limit = std::min(buffer.count, buffer.size - 1);
    storeTerminated(buffer, text, limit);
    return text.size() > limit ? -1 : static_cast<int>(text.size());
}

template <class Char>
int storeUnterminated(const FormatBuffer<Char>& buffer, const std::basic_string<Char>& text)
{
    if (!buffer.to) return buffer.size == 0 ? static_cast<int>(text.size()) : failed(EINVAL);
    Char* end = std::copy_n(text.data(), std::min(text.size(), buffer.size), buffer.to);
    if (text.size() < buffer.size) *end = 0;
    return text.size() > buffer.size ? -1 : static_cast<int>(text.size());
}

template <class Char>
int storeCut(const FormatBuffer<Char>& buffer, const std::basic_string<Char>& text)
{
    if (!hasRoom(buffer)) return failed(EINVAL);
    storeTerminated(buffer, text, buffer.size - 1);
    return text.size() < buffer.size ? static_cast<int>(text.size()) : failed(ERANGE);
}

template <class Char>
int store(const FormatBuffer<Char>& buffer, Overflow rule, const std::basic_string<Char>& text)
{
    if (text.size() > INT_MAX) return failed(ERANGE);
    switch (rule) {
    case Overflow::fails:
        return storeOrFail(buffer, text);
    case Overflow::failsCounted:
        return storeCounted(buffer, text);
    case Overflow::unterminated:
        return storeUnterminated(buffer, text);
    default:
        return storeCut(buffer, text);
    }
}

template <class Char, class Make>
int storeMade(const FormatBuffer<Char>& buffer, Overflow rule, const Char* format, Make make)
try {
    if (format) return store(buffer, rule, make());
    if (hasRoom(buffer) && rule != Overflow::unterminated) *buffer.to = 0;
    return failed(EINVAL);
} catch (const std::bad_alloc&) {
    return failed(ENOMEM);
} catch (const std::length_error&) {
    return failed(ENOMEM);
}
} // namespace

int formatInto(FormatBuffer<wchar_t> buffer, Overflow rule, const wchar_t* format, const FormatArg* args,
               std::size_t count)
{
    return storeMade(buffer, rule, format, [&] { return crt::format(format, args, count); });
}

int formatInto(FormatBuffer<char> buffer, Overflow rule, const char* format, const FormatArg* args,
               std::size_t count)
{
    return storeMade(buffer, rule, format, [&] { return crt::format(format, args, count); });
}

int formatIntoV(FormatBuffer<wchar_t> buffer, Overflow rule, const wchar_t* format, va_list args)
{
    return storeMade(buffer, rule, format, [&] { return formatV(format, args); });
}

int formatIntoV(FormatBuffer<char> buffer, Overflow rule, const char* format, va_list args)
{
    return storeMade(buffer, rule, format, [&] { return formatV(format, args); });
}
} // namespace crt

using crt::formatIntoV;
using crt::Overflow;

int vswprintf_s(wchar_t* to, std::size_t size, const wchar_t* format, va_list args)
{
    return formatIntoV({to, size}, Overflow::fails, format, args);
}

int _vsnwprintf(wchar_t* to, std::size_t count, const wchar_t* format, va_list args)
{
    return formatIntoV({to, count}, Overflow::unterminated, format, args);
}

int _vsnwprintf_s(wchar_t* to, std::size_t size, std::size_t count, const wchar_t* format, va_list args)
{
    return formatIntoV({to, size, count}, Overflow::failsCounted, format, args);
}

int _vscwprintf(const wchar_t* format, va_list args)
{
    return _vsnwprintf(nullptr, 0, format, args);
}

int vsprintf_s(char* to, std::size_t size, const char* format, va_list args)
{
    return formatIntoV({to, size}, Overflow::fails, format, args);
}

int _vsnprintf(char* to, std::size_t count, const char* format, va_list args)
{
    return formatIntoV({to, count}, Overflow::unterminated, format, args);
}

int _vsnprintf_s(char* to, std::size_t size, std::size_t count, const char* format, va_list args)
{
    return formatIntoV({to, size, count}, Overflow::failsCounted, format, args);
}

int _vscprintf(const char* format, va_list args)
{
    return _vsnprintf(nullptr, 0, format, args);
}
