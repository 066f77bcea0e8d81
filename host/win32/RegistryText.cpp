#include "RegistryTree.h"
#include "Utf16Units.h"

#include "winreg.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <optional>

namespace
{
using win32::RegistryKey;
using win32::RegistryKeyPtr;
using win32::RegistryValue;

constexpr wchar_t heading[] = L"Windows Registry Editor Version 5.00";

bool isText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Texts are kept in wchar_t and written in 16-bit units.
std::vector<BYTE> bytesForFile(const RegistryValue& value)
{
    if (!isText(value.type)) return value.data;
    std::wstring text(value.data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), value.data.data(), text.size() * sizeof(wchar_t));
    std::vector<BYTE> bytes;
    for (std::uint16_t unit : win32::toUnits(text)) {
        bytes.push_back(static_cast<BYTE>(unit));
        bytes.push_back(static_cast<BYTE>(unit >> 8));
    }
    return bytes;
}

std::vector<BYTE> bytesOfText(const std::wstring& text, bool terminated)
{
    const std::size_t size = (text.size() + (terminated ? 1 : 0)) * sizeof(wchar_t);
    std::vector<BYTE> bytes(size);
    if (size > 0) std::memcpy(bytes.data(), text.c_str(), size);
    return bytes;
}

std::vector<BYTE> bytesFromFile(DWORD type, const std::vector<BYTE>& bytes)
{
    if (!isText(type)) return bytes;
    std::vector<std::uint16_t> units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        units.push_back(static_cast<std::uint16_t>(bytes[i] | bytes[i + 1] << 8));
    return bytesOfText(win32::fromUnits(units.data(), units.size()), false);
}

std::wstring quoted(std::wstring_view text)
{
    std::wstring result = L"\"";
    for (wchar_t c : text) {
        if (c == L'"' || c == L'\\') result += L'\\';
        result += c;
    }
    return result + L"\"";
}

// A text that fits between quotation marks in one line: terminated, no control characters.
std::optional<std::wstring> plainText(const RegistryValue& value)
{
    if (value.type != REG_SZ || value.data.size() % sizeof(wchar_t) != 0 || value.data.empty())
        return std::nullopt;
    std::wstring text(value.data.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), value.data.data(), value.data.size());
    if (text.back() != L'\0') return std::nullopt;
    text.pop_back();
    for (wchar_t c : text)
        if (static_cast<unsigned>(c) < L' ' || (c >= 0xD800 && c <= 0xDFFF) || c == 0x2028 || c == 0x85)
            return std::nullopt;
    return text;
}

std::wstring hexadecimal(const RegistryValue& value)
{
    std::wstring result = value.type == REG_BINARY ? L"hex:" : L"hex(";
    wchar_t buffer[16];
    if (value.type != REG_BINARY) {
        std::swprintf(buffer, 16, L"%x):", value.type);
        result += buffer;
    }
    const std::vector<BYTE> bytes = bytesForFile(value);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::swprintf(buffer, 16, i + 1 < bytes.size() ? L"%02x," : L"%02x", bytes[i]);
        result += buffer;
    }
    return result;
}

std::wstring valueText(const RegistryValue& value)
{
    if (const auto text = plainText(value)) return quoted(*text);
    if (value.type != REG_DWORD || value.data.size() != sizeof(DWORD)) return hexadecimal(value);
    DWORD number = 0;
    std::memcpy(&number, value.data.data(), sizeof number);
    wchar_t buffer[24];
    std::swprintf(buffer, 24, L"dword:%08x", number);
    return buffer;
}

void appendKey(std::wstring& text, const RegistryKey& key, const std::wstring& path)
{
    if (key.isVolatile) return;
    text += L"\r\n[" + path + L"]\r\n";
    for (const auto& [name, value] : key.values)
        text += (name.empty() ? L"@" : quoted(name)) + L"=" + valueText(value) + L"\r\n";
    for (const auto& [name, below] : key.keys)
        appendKey(text, *below, path + L"\\" + below->name);
}

std::wstring_view trimmed(std::wstring_view text)
{
    const auto first = text.find_first_not_of(L" \t\r"), last = text.find_last_not_of(L" \t\r");
    return first == text.npos ? std::wstring_view() : text.substr(first, last - first + 1);
}

// A line, and those that a backslash at its end joins to it.
std::wstring takeLine(std::wstring_view& text)
{
    std::wstring line;
    for (;;) {
        const std::size_t end = std::min(text.find(L'\n'), text.size());
        const std::wstring_view piece = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        line += piece;
        const bool goesOn =
            !line.empty() && line.back() == L'\\' && line.find(L"hex") != line.npos && !text.empty();
        if (!goesOn) return line;
        line.pop_back();
    }
}

// The text between quotation marks at the beginning of a line, which loses it.
bool takeQuoted(std::wstring_view& line, std::wstring& text)
{
    if (line.empty() || line.front() != L'"') return false;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == L'"') {
            line.remove_prefix(i + 1);
            return true;
        }
        if (line[i] == L'\\' && i + 1 < line.size()) ++i;
        text += line[i];
    }
    return false;
}

int digitOf(wchar_t c)
{
    if (c >= L'0' && c <= L'9') return c - L'0';
    const wchar_t lower = c | 0x20;
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

bool parseHex(std::wstring_view digits, std::size_t most, DWORD& number)
{
    number = 0;
    for (wchar_t c : digits) {
        if (digitOf(c) < 0) return false;
        number = number << 4 | static_cast<DWORD>(digitOf(c));
    }
    return !digits.empty() && digits.size() <= most;
}

bool parseBytes(std::wstring_view list, std::vector<BYTE>& bytes)
{
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(L','), list.size());
        DWORD byte = 0;
        const std::wstring_view digits = trimmed(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
        if (digits.empty() && list.empty()) return true;
        if (!parseHex(digits, 2, byte)) return false;
        bytes.push_back(static_cast<BYTE>(byte));
    }
    return true;
}

bool startsWith(std::wstring_view text, std::wstring_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

bool parseBinary(std::wstring_view text, RegistryValue& value)
{
    value.type = REG_BINARY;
    text.remove_prefix(3);
    if (startsWith(text, L"(")) {
        const std::size_t close = text.find(L')');
        if (close == text.npos || !parseHex(text.substr(1, close - 1), 8, value.type)) return false;
        text.remove_prefix(close + 1);
    }
    std::vector<BYTE> bytes;
    if (!startsWith(text, L":") || !parseBytes(trimmed(text.substr(1)), bytes)) return false;
    value.data = bytesFromFile(value.type, bytes);
    return true;
}

bool parseNumber(std::wstring_view text, RegistryValue& value)
{
    DWORD number = 0;
    if (!parseHex(trimmed(text.substr(6)), 8, number)) return false;
    value.type = REG_DWORD;
    value.data.resize(sizeof number);
    std::memcpy(value.data.data(), &number, sizeof number);
    return true;
}

bool parseValue(std::wstring_view text, RegistryValue& value)
{
    if (startsWith(text, L"dword:")) return parseNumber(text, value);
    if (startsWith(text, L"hex")) return parseBinary(text, value);
    std::wstring plain;
    if (!takeQuoted(text, plain) || !trimmed(text).empty()) return false;
    value = {REG_SZ, bytesOfText(plain, true)};
    return true;
}

bool readValueLine(std::wstring_view line, const RegistryKeyPtr& key)
{
    std::wstring name;
    if (startsWith(line, L"@"))
        line.remove_prefix(1);
    else if (!takeQuoted(line, name))
        return false;
    line = trimmed(line);
    if (!key || !startsWith(line, L"=")) return false;
    line = trimmed(line.substr(1));
    RegistryValue value;
    if (line == L"-") return key->values.erase(name), true;
    if (!parseValue(line, value)) return false;
    key->values[name] = value;
    return true;
}

bool readKeyLine(std::wstring_view line, const RegistryKeyPtr& root, RegistryKeyPtr& key)
{
    key = nullptr;
    if (line.back() != L']') return false;
    line = line.substr(1, line.size() - 2);
    if (startsWith(line, L"-")) return win32::deleteKey(root, line.substr(1)), true;
    bool made = false;
    if (!startsWith(line, L"HKEY_")) return false;
    key = win32::makeKey(root, line, false, made);
    return true;
}
} // namespace

namespace win32
{
std::wstring registryText(const RegistryKey& root)
{
    std::wstring text = std::wstring(heading) + L"\r\n";
    for (const auto& [name, key] : root.keys)
        if (!key->keys.empty() || !key->values.empty()) appendKey(text, *key, name);
    return text;
}

bool readRegistryText(std::wstring_view text, const RegistryKeyPtr& root)
{
    bool good = takeLine(text) == heading;
    RegistryKeyPtr key;
    while (!text.empty()) {
        const std::wstring line = takeLine(text);
        if (line.empty() || line.front() == L';') continue;
        const bool read = line.front() == L'[' ? readKeyLine(line, root, key) : readValueLine(line, key);
        good = good && read;
    }
    return good;
}
} // namespace win32
