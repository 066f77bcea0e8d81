#include "Formatter.h"

#include <algorithm>

namespace crt
{
namespace
{
template <class Char>
bool isDigit(Char c)
{
    return c >= '0' && c <= '9';
}

/// The directive of an insert stands between exclamation marks; without them it is %s.
template <class Char>
const Char* parseInsertDirective(const Char* text, FormatSpec& spec)
{
    spec.conversion = 's';
    if (*text != '!') return text;
    FormatSpec given;
    const Char* end = parseFormatSpec(text + 1, given);
    if (*end != '!' || !given.conversion) return text;
    spec = given;
    return end + 1;
}

template <class Char>
const Char* appendInsert(const Char* text, const FormatArg* args, std::size_t count,
                         std::basic_string<Char>& out)
{
    std::size_t number = *text++ - '0';
    if (isDigit(*text)) number = number * 10 + (*text++ - '0');
    FormatSpec spec;
    text = parseInsertDirective(text, spec);
    const std::size_t first = std::min(number - 1, count);
    TypedSource source(args + first, count - first);
    appendDirective(spec, source, out);
    return text;
}

template <class Char>
void appendEscaped(Char c, std::basic_string<Char>& out)
{
    if (c == 'n' || c == 'r') out += '\r';
    if (c == 'n') out += '\n';
    if (c == 'b') out += ' ';
    if (c != 'n' && c != 'r' && c != 'b') out += c;
}

template <class Char>
std::basic_string<Char> messageText(const Char* text, const FormatArg* args, std::size_t count)
{
    std::basic_string<Char> out;
    while (text && *text) {
        const Char c = *text++;
        if (c != '%') {
            out += c;
        } else if (isDigit(*text) && *text != '0') {
            text = appendInsert(text, args, count, out);
        } else if (*text == '0' || !*text) {
            break;
        } else {
            appendEscaped(*text++, out);
        }
    }
    return out;
}
} // namespace

std::wstring formatMessage(const wchar_t* message, const FormatArg* args, std::size_t count)
{
    return messageText(message, args, count);
}

std::string formatMessage(const char* message, const FormatArg* args, std::size_t count)
{
    return messageText(message, args, count);
}
} // namespace crt
