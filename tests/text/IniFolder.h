#pragma once

#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

/// A fixture with a profile file in a folder of its own.
class IniFolder : public testing::Test
{
protected:
    IniFolder()
    {
        char pattern[] = "/tmp/ini-test-XXXXXX";
        _folder = mkdtemp(pattern);
    }
    ~IniFolder() override { std::filesystem::remove_all(_folder); }

    std::string folder() const { return _folder; }
    std::string host() const { return _folder + "/a.ini"; }
    CString file() const { return L"Z:" + CString(host().c_str()); }

    void put(const std::string& bytes) const { std::ofstream(host(), std::ios::binary) << bytes; }
    std::string get() const
    {
        std::ifstream in(host(), std::ios::binary);
        return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "(missing)";
    }

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

    std::string _folder;
};
