#include "Errno.h"
#include "SystemMessage.h"
#include "Text.h"

#include "winbase.h"
#include "winerror.h"
#include "winnls.h"

#include <algorithm>
#include <cwchar>
#include <limits>
#include <string>
#include <vector>

namespace
{
using namespace win32;

constexpr int maxField = 0xFFFF; // wider fields than this are no text any more

/// The arguments of a message, asked for by number. Each takes a slot of pointer size, whatever it is.
class Arguments
{
public:
    Arguments(DWORD flags, va_list* arguments)
    {
        _isGiven = arguments != nullptr;
        if (flags & FORMAT_MESSAGE_ARGUMENT_ARRAY)
            _array = reinterpret_cast<const DWORD_PTR*>(arguments);
        else if (arguments)
            va_copy(_list, *arguments);
        _ownsList = arguments && !_array;
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    ~Arguments()
    {
        if (_ownsList) va_end(_list);
    }

    bool isGiven() const { return _isGiven; }
    /// The argument of a number from 1 on.
    DWORD_PTR operator[](std::size_t number)
    {
        if (_array) return _array[number - 1];
        while (_read.size() < number)
            _read.push_back(va_arg(_list, DWORD_PTR));
        return _read[number - 1];
    }

private:
    bool _isGiven = false;
    bool _ownsList = false;
    const DWORD_PTR* _array = nullptr;
    va_list _list;
    std::vector<DWORD_PTR> _read;
};

/// A printf format between exclamation marks, taken apart.
struct Field {
    std::wstring flags;
    int width = -1;
    int precision = -1;
    std::wstring size;
    wchar_t conversion = L's';

    bool hasFlag(wchar_t flag) const { return flags.find(flag) != std::wstring::npos; }
};

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// Turns a message with inserts into text.
class Formatter
{
public:
    Formatter(std::wstring_view source, Arguments& arguments, bool dropsBreaks)
        : _source(source), _arguments(arguments), _dropsBreaks(dropsBreaks)
    {
    }

    /// False when an insert has no arguments, or its format is not one.
    bool run(std::wstring& result);
    /// The text as it stands, but for line breaks.
    void copy(std::wstring& result);

private:
    bool isAtEnd() const { return _at == _source.size(); }
    wchar_t next() { return isAtEnd() ? L'\0' : _source[_at++]; }
    bool accept(wchar_t c) { return !isAtEnd() && _source[_at] == c && ++_at; }
    int readNumber(std::size_t maxDigits);
    void putPlain(wchar_t c);
    bool escape();
    bool insert(std::size_t number);
    bool readField(Field& field, std::size_t& number);
    int readLength(std::size_t& number);
    bool put(const Field& field, DWORD_PTR value);

    std::wstring_view _source;
    Arguments& _arguments;
    bool _dropsBreaks;
    std::size_t _at = 0;
    bool _isEnded = false;
    std::wstring _result;
};

int Formatter::readNumber(std::size_t maxDigits)
{
    int number = 0;
    for (std::size_t i = 0; i < maxDigits && !isAtEnd() && isDigit(_source[_at]); ++i)
        number = number * 10 + (next() - L'0');
    return std::min(number, maxField);
}

void Formatter::putPlain(wchar_t c)
{
    if (_dropsBreaks && (c == L'\r' || c == L'\n')) {
        if (c == L'\r') accept(L'\n');
        c = L' ';
    }
    _result.push_back(c);
}

/// What follows a '%'.
bool Formatter::escape()
{
    if (!isAtEnd() && _source[_at] >= L'1' && _source[_at] <= L'9')
        return insert(static_cast<std::size_t>(readNumber(2)));
    switch (const wchar_t c = next()) {
    case L'\0':
        return false;
    case L'0':
        _isEnded = true;
        break;
    case L'n':
        _result += L"\r\n";
        break;
    case L'r':
        _result += L'\r';
        break;
    case L't':
        _result += L'\t';
        break;
    default:
        _result += c;
        break;
    }
    return true;
}

/// A width or precision: digits, or '*' for the next argument. -1 when there is none.
int Formatter::readLength(std::size_t& number)
{
    if (accept(L'*')) return std::clamp(static_cast<int>(_arguments[number++]), -maxField, maxField);
    return !isAtEnd() && isDigit(_source[_at]) ? readNumber(9) : -1;
}

bool Formatter::readField(Field& field, std::size_t& number)
{
    while (!isAtEnd() && std::wcschr(L"-+ #0", _source[_at]))
        field.flags += next();
    field.width = readLength(number);
    if (field.width < -1) {
        field.flags += L'-';
        field.width = -field.width;
    }
    if (accept(L'.')) field.precision = std::max(0, readLength(number));
    while (!isAtEnd() && std::wcschr(L"hlwI", _source[_at])) {
        field.size += next();
        if (field.size == L"I" && accept(L'6')) field.size = accept(L'4') ? L"ll" : L"I6";
    }
    field.conversion = next();
    return field.conversion && std::wcschr(L"diuxXocCsSp", field.conversion) && accept(L'!');
}

void pad(std::wstring& text, const Field& field)
{
    const auto width = static_cast<std::size_t>(std::max(0, field.width));
    if (text.size() >= width) return;
    text.insert(field.hasFlag(L'-') ? text.size() : 0, width - text.size(), L' ');
}

std::wstring textOf(const Field& field, DWORD_PTR value)
{
    const bool isNarrow = field.size == L"h" || (field.conversion == L'S' && field.size.empty());
    if (!value) return L"(null)";
    if (isNarrow) return widen(CP_ACP, reinterpret_cast<const char*>(value));
    return reinterpret_cast<const wchar_t*>(value);
}

std::wstring numberText(const Field& field, DWORD_PTR value)
{
    const bool isSigned = field.conversion == L'd' || field.conversion == L'i';
    const bool isPointer = field.conversion == L'p';
    long long number = static_cast<long long>(value);
    if (field.size == L"h")
        number = isSigned ? static_cast<SHORT>(value) : static_cast<USHORT>(value);
    else if (field.size != L"ll" && !isPointer)
        number = isSigned ? static_cast<LONG>(value) : static_cast<long long>(static_cast<DWORD>(value));
    const std::wstring format = L"%" + field.flags + L"*.*ll" + (isPointer ? L'X' : field.conversion);
    const int precision = isPointer ? 16 : field.precision;
    std::wstring text(static_cast<std::size_t>(std::max({field.width, precision, 0})) + 32, L'\0');
    const int length =
        std::swprintf(text.data(), text.size(), format.c_str(), std::max(field.width, 0), precision, number);
    text.resize(static_cast<std::size_t>(std::max(length, 0)));
    return text;
}

bool Formatter::put(const Field& field, DWORD_PTR value)
{
    std::wstring text;
    if (std::wcschr(L"sS", field.conversion)) {
        text = textOf(field, value);
        if (field.precision >= 0)
            text.resize(std::min<std::size_t>(text.size(), static_cast<std::size_t>(field.precision)));
        pad(text, field);
    } else if (std::wcschr(L"cC", field.conversion)) {
        text.push_back(static_cast<wchar_t>(value));
        pad(text, field);
    } else {
        text = numberText(field, value);
    }
    _result += text;
    return true;
}

/// A field with '*' takes the arguments from `number` on: width, precision, value.
bool Formatter::insert(std::size_t number)
{
    Field field;
    if (!_arguments.isGiven()) return false;
    if (accept(L'!') && !readField(field, number)) return false;
    return put(field, _arguments[number]);
}

bool Formatter::run(std::wstring& result)
{
    while (!isAtEnd() && !_isEnded) {
        if (!accept(L'%'))
            putPlain(next());
        else if (!escape())
            return false;
    }
    result = std::move(_result);
    return true;
}

void Formatter::copy(std::wstring& result)
{
    while (!isAtEnd())
        putPlain(next());
    result = std::move(_result);
}

/// The text to format: that of the caller, or that of a code with its line break. False when there is none.
bool findSource(DWORD flags, LPCVOID source, DWORD messageId, std::wstring& text)
{
    if (flags & FORMAT_MESSAGE_FROM_STRING) {
        if (!source) return failWith(ERROR_INVALID_PARAMETER);
        text = static_cast<LPCWSTR>(source);
        return true;
    }
    if (!(flags & FORMAT_MESSAGE_FROM_SYSTEM)) return failWith(ERROR_INVALID_PARAMETER);
    const wchar_t* message = systemMessage(messageId);
    if (!message) return failWith(ERROR_MR_MID_NOT_FOUND);
    text = std::wstring(message) + L"\r\n";
    return true;
}

/// Copies the result into the caller's buffer or into one made for it.
DWORD deliver(const std::wstring& text, DWORD flags, LPWSTR buffer, DWORD size)
{
    LPWSTR to = buffer;
    if (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) {
        const std::size_t least = std::max<std::size_t>(size, text.size() + 1);
        to = static_cast<LPWSTR>(LocalAlloc(LMEM_FIXED, least * sizeof(wchar_t)));
        if (!to) return static_cast<DWORD>(failWith(ERROR_NOT_ENOUGH_MEMORY));
        *reinterpret_cast<LPWSTR*>(buffer) = to;
    } else if (text.size() >= size) {
        return static_cast<DWORD>(failWith(ERROR_INSUFFICIENT_BUFFER));
    }
    std::wmemcpy(to, text.c_str(), text.size() + 1);
    return static_cast<DWORD>(text.size());
}
} // namespace

DWORD WINAPI FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD, LPWSTR buffer, DWORD size,
                            va_list* arguments)
{
    const DWORD width = flags & FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const bool dropsBreaks = width == FORMAT_MESSAGE_MAX_WIDTH_MASK;
    if (!buffer || (width && !dropsBreaks)) return static_cast<DWORD>(failWith(ERROR_INVALID_PARAMETER));
    if (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) *reinterpret_cast<LPWSTR*>(buffer) = nullptr;
    std::wstring text, result;
    if (!findSource(flags, source, messageId, text)) return 0;

    Arguments given(flags, arguments);
    Formatter formatter(text, given, dropsBreaks);
    if (flags & FORMAT_MESSAGE_IGNORE_INSERTS)
        formatter.copy(result);
    else if (!formatter.run(result))
        return static_cast<DWORD>(failWith(ERROR_INVALID_PARAMETER));
    return deliver(result, flags, buffer, size);
}
