#include "CXMLUtil.h"

#include <string>

namespace
{
struct Reference {
    wchar_t character;
    LPCWSTR name;
};
constexpr Reference references[] = {
    {L'&', L"amp"}, {L'<', L"lt"}, {L'>', L"gt"}, {L'"', L"quot"}, {L'\'', L"apos"}};

bool isForbidden(wchar_t character)
{
    const bool isControl = character >= 0 && character < 0x20;
    return isControl && character != L'\t' && character != L'\n' && character != L'\r';
}

const Reference* referenceOf(wchar_t character)
{
    for (const Reference& reference : references)
        if (reference.character == character) return &reference;
    return nullptr;
}

int digitValue(wchar_t digit)
{
    if (digit >= L'0' && digit <= L'9') return digit - L'0';
    if (digit >= L'a' && digit <= L'f') return digit - L'a' + 10;
    if (digit >= L'A' && digit <= L'F') return digit - L'A' + 10;
    return 16;
}

/// The number behind "&#", or 0 when there is none or no character has it.
unsigned numericValue(const std::wstring& digits)
{
    const bool isHex = !digits.empty() && digits[0] == L'x';
    const unsigned base = isHex ? 16 : 10;
    unsigned value = 0;
    for (size_t i = isHex ? 1 : 0; i < digits.size(); ++i) {
        const unsigned digit = static_cast<unsigned>(digitValue(digits[i]));
        if (digit >= base) return 0;
        value = value * base + digit;
        if (value > 0x10ffff) return 0;
    }
    const bool isSurrogate = value >= 0xd800 && value < 0xe000;
    return isSurrogate || isForbidden(static_cast<wchar_t>(value)) ? 0 : value;
}

void appendCharacter(CGTStringW& text, unsigned character)
{
    if (sizeof(wchar_t) > 2 || character < 0x10000) {
        text.AppendChar(static_cast<wchar_t>(character));
        return;
    }
    text.AppendChar(static_cast<wchar_t>(0xd800 + ((character - 0x10000) >> 10)));
    text.AppendChar(static_cast<wchar_t>(0xdc00 + (character & 0x3ff)));
}

/// The character that a reference's body (between & and ;) names, or 0.
unsigned characterOf(const std::wstring& body)
{
    if (body.size() > 1 && body[0] == L'#') return numericValue(body.substr(1));
    for (const Reference& reference : references)
        if (body == reference.name) return static_cast<unsigned>(reference.character);
    return 0;
}
} // namespace

CGTStringW CXMLUtil::Escape(const CGTStringW& text)
{
    CGTStringW escaped;
    for (int i = 0; i < text.GetLength(); ++i) {
        const wchar_t character = text[i];
        if (isForbidden(character)) continue;
        if (const Reference* reference = referenceOf(character)) {
            escaped.AppendChar(L'&');
            escaped.Append(reference->name);
            escaped.AppendChar(L';');
        } else {
            escaped.AppendChar(character);
        }
    }
    return escaped;
}

CGTStringW CXMLUtil::Unescape(const CGTStringW& text)
{
    constexpr int longestBody = 16;
    CGTStringW plain;
    for (int i = 0; i < text.GetLength(); ++i) {
        unsigned character = 0;
        int end = i;
        if (text[i] == L'&') {
            const CString body = text.Mid(i + 1, longestBody).SpanExcluding(L";");
            end = i + 1 + body.GetLength();
            const bool isClosed = end < text.GetLength() && text[end] == L';';
            if (isClosed) character = characterOf(std::wstring(body.GetString()));
        }
        if (character) {
            appendCharacter(plain, character);
            i = end;
        } else {
            plain.AppendChar(text[i]);
        }
    }
    return plain;
}
