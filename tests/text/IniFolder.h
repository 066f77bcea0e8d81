#pragma once

#include "../host/win32/TempFolder.h"
#include "QmCADLib.h"

#include <filesystem>
#include <functional>
#include <vector>

/// A fixture with a profile file in a folder of its own.
class IniFolder : public TempFolder
{
protected:
    std::string folder() const { return TempFolder::host(""); }
    std::string host() const { return TempFolder::host("a.ini"); }
    CString file() const { return path(L"a.ini").c_str(); }
    void put(const std::string& bytes) const { TempFolder::put("a.ini", bytes); }
    std::string get() const { return TempFolder::get("a.ini"); }

    /// The texts with '|' between them, in UTF-8.
    static std::string listed(const CStringArray& texts)
    {
        CString all;
        for (INT_PTR i = 0; i < texts.GetSize(); ++i)
            all += (i > 0 ? L"|" : L"") + texts[i];
        return utf8(all);
    }
    static std::string utf8(const CString& text) { return CEncoding::ANSIToUTF8(text, text.GetLength()); }
    static CStringArray& list(CStringArray& to, std::initializer_list<const wchar_t*> texts)
    {
        to.RemoveAll();
        for (const wchar_t* text : texts)
            to.Add(text);
        return to;
    }

    /// From UTF-8 to the bytes of a file in each encoding.
    using Encode = std::function<std::string(const std::string&)>;
    static std::vector<Encode> encodings()
    {
        return {[](const std::string& text) { return CEncoding::UTF8ToGBK(text); },
                [](const std::string& text) { return "\xEF\xBB\xBF" + text; },
                [](const std::string& text) { return utf16(text, false); },
                [](const std::string& text) { return utf16(text, true); }};
    }

private:
    static std::string utf16(const std::string& text, bool highFirst)
    {
        std::string bytes = highFirst ? "\xFE\xFF" : "\xFF\xFE";
        for (wchar_t c : CEncoding::UTF8ToUnicode(text)) { // the texts of these tests have no surrogates
            const char low = static_cast<char>(c), high = static_cast<char>(c >> 8);
            bytes += highFirst ? high : low;
            bytes += highFirst ? low : high;
        }
        return bytes;
    }
};
