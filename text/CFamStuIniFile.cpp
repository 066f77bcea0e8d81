#include "CFamStuIniFile.h"

#include "IniEdit.h"
#include "IniStore.h"

#include <climits>
#include <cwchar>

using namespace inifile;

namespace
{
constexpr DWORD textSize = 26000; // of the buffer for a value that is a text
constexpr DWORD numberSize = 260; // of the buffer for a value that is a double

CString withoutQuotes(const CString& value)
{
    const int length = value.GetLength();
    const wchar_t first = value[0];
    const bool isQuoted = length >= 2 && first == value[length - 1] && (first == L'"' || first == L'\'');
    return isQuoted ? value.Mid(1, length - 2) : value;
}

/// Looks a key up in a file that is read here; false when it is not there.
bool findValue(const Contents& contents, const CString& section, const CString& key, CString& value)
{
    const Section* const found = contents.section(section);
    const KeyLine* const line = found ? contents.key(*found, key) : nullptr;
    if (line) value = withoutQuotes(contents.valueOf(*line));
    return line != nullptr;
}

/// Puts the value into a buffer; `size` counts its characters.
void readValue(const CString& file, const CString& section, const CString& key, const CString& defaultValue,
               wchar_t* buffer, DWORD size)
{
    CString value = defaultValue;
    wcsncpy_s(buffer, size, defaultValue, _TRUNCATE);
    const auto foreign = loadForeign(file);
    if (!foreign) {
        GetPrivateProfileStringW(section, key, defaultValue, buffer, size, file);
        return;
    }
    if (!findValue(*foreign, section, key, value)) value.TrimRight(L" \t");
    wcsncpy_s(buffer, size, value, _TRUNCATE);
}

int storeChange(const CString& file, const Contents& old, const Bytes& bytes)
{
    return bytes && (*bytes == old.text().bytes() || store(file, *bytes));
}
} // namespace

CString CFamStuIniFile::ReadKey(const CString& file, const CString& section, const CString& key,
                                const CString& defaultValue)
{
    wchar_t buffer[textSize];
    readValue(file, section, key, defaultValue, buffer, textSize);
    return buffer;
}

int CFamStuIniFile::ReadKey(const CString& section, const CString& key, int defaultValue, const CString& file)
{
    const auto foreign = loadForeign(file);
    if (!foreign) return static_cast<int>(GetPrivateProfileIntW(section, key, defaultValue, file));
    CString value;
    if (!findValue(*foreign, section, key, value) || value.IsEmpty()) return defaultValue;
    return static_cast<int>(std::wcstoll(value, nullptr, 10));
}

double CFamStuIniFile::ReadKey(const CString& section, const CString& key, double defaultValue,
                               const CString& file)
{
    CString defaultText;
    defaultText.Format(L"%f", defaultValue);
    wchar_t buffer[numberSize];
    readValue(file, section, key, defaultText, buffer, numberSize);
    return std::wcstod(buffer, nullptr);
}

int CFamStuIniFile::WriteKey(const CString& section, const CString& key, const CString& value,
                             const CString& file)
{
    const auto foreign = loadForeign(file);
    if (!foreign) return WritePrivateProfileStringW(section, key, value, file);
    return storeChange(file, *foreign, withValue(*foreign, section, key, value));
}

int CFamStuIniFile::WriteKey(const CString& section, const CString& key, int value, const CString& file)
{
    CString text;
    text.Format(L"%d", value);
    return WriteKey(section, key, text, file);
}

int CFamStuIniFile::WriteKey(const CString& section, const CString& key, long value, const CString& file)
{
    CString text;
    text.Format(L"%ld", value);
    return WriteKey(section, key, text, file);
}

int CFamStuIniFile::WriteKey(const CString& section, const CString& key, double value, const CString& file)
{
    CString text;
    text.Format(L"%f", value);
    return WriteKey(section, key, text, file);
}

int CFamStuIniFile::DeleteKey(const CString& file, const CString& section, const CString& key)
{
    const auto foreign = loadForeign(file);
    if (!foreign) return WritePrivateProfileStringW(section, key, nullptr, file);
    return storeChange(file, *foreign, withoutKey(*foreign, section, key));
}

int CFamStuIniFile::DeleteSeg(const CString& file, const CString& section)
{
    const auto foreign = loadForeign(file);
    if (!foreign) return WritePrivateProfileStringW(section, nullptr, nullptr, file);
    return storeChange(file, *foreign, withoutSection(*foreign, section));
}
