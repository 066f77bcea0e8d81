// Keys and sections of profile files.

#include "IniFolder.h"

#include <chrono>
#include <thread>

namespace
{
class IniKeys : public IniFolder
{
};

class IniSections : public IniFolder
{
};
} // namespace

TEST_F(IniKeys, ReadAlikeInEveryEncoding)
{
    for (const auto& encode : encodings()) {
        put(encode("[S]\r\n k = \" v \" \r\n\u6881=\u67F1\r\nn=-12x\r\nd=2.5e1\r\n[e]\r\nk=\r\nq='a\"\r\n"));
        EXPECT_STREQ(CFamStuIniFile::ReadKey(file(), L"s ", L" K", L"?"), L" v ");
        EXPECT_STREQ(CFamStuIniFile::ReadKey(file(), L"S", L"\u6881", L"?"), L"\u67F1");
        EXPECT_STREQ(CFamStuIniFile::ReadKey(file(), L"e", L"k", L"?"), L"");
        EXPECT_STREQ(CFamStuIniFile::ReadKey(file(), L"e", L"q", L"?"), L"'a\"");
        EXPECT_STREQ(CFamStuIniFile::ReadKey(file(), L"e", L"n", L" d \t"), L" d");
        EXPECT_EQ(CFamStuIniFile::ReadKey(L"S", L"n", 7, file()), -12);
        EXPECT_EQ(CFamStuIniFile::ReadKey(L"S", L"k", 7, file()), 0);
        EXPECT_EQ(CFamStuIniFile::ReadKey(L"e", L"k", 7, file()), 7);
        EXPECT_EQ(CFamStuIniFile::ReadKey(L"none", L"k", -7, file()), -7);
        EXPECT_EQ(CFamStuIniFile::ReadKey(L"S", L"d", 1.0, file()), 25.0);
        EXPECT_EQ(CFamStuIniFile::ReadKey(L"S", L"none", -1.25, file()), -1.25);
    }
}

TEST_F(IniKeys, DefaultComesBackWithoutAFile)
{
    EXPECT_STREQ(CFamStuIniFile::ReadKey(file(), L"s", L"k", L"d"), L"d");
    EXPECT_STREQ(CFamStuIniFile::ReadKey(L"", L"s", L"k", L"d"), L"d");
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"s", L"k", 3, file()), 3);
    // Six decimals are what the text in between holds.
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"s", L"k", 0.12345678, file()), 0.123457);
}

TEST_F(IniKeys, LongValueEndsWithTheBuffer)
{
    for (const char* mark : {"", "\xEF\xBB\xBF"}) {
        put(std::string(mark) + "\r\n[s]\r\nk=" + std::string(30000, 'x') + "\r\n");
        EXPECT_EQ(CFamStuIniFile::ReadKey(file(), L"s", L"k", L"").GetLength(), 25999);
        EXPECT_EQ(CFamStuIniFile::ReadKey(file(), L"s", L"n", CString(L'd', 30000)).GetLength(), 25999);
    }
}

TEST_F(IniKeys, NumbersAreWrittenInTheirFormats)
{
    EXPECT_NE(CFamStuIniFile::WriteKey(L"s", L"i", -5, file()), 0);
    EXPECT_NE(CFamStuIniFile::WriteKey(L"s", L"l", 2147483647L, file()), 0);
    EXPECT_NE(CFamStuIniFile::WriteKey(L"s", L"d", 2.5, file()), 0);
    EXPECT_NE(CFamStuIniFile::WriteKey(L"s", L"t", L" x ", file()), 0);
    EXPECT_EQ(get(), "[s]\r\ni=-5\r\nl=2147483647\r\nd=2.500000\r\nt= x \r\n");
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"s", L"k", 1, CString(file()) + L"\\none\\a.ini"), 0);
}

TEST_F(IniKeys, WriteLeavesOtherBytesAloneInEveryEncoding)
{
    for (const auto& encode : encodings()) {
        const std::string head = "\u6881\n;c\r\n[A]\n K\t= old \r\n;end\n\n", tail = "[B]\r\nk=1";
        put(encode(head + tail));
        EXPECT_NE(CFamStuIniFile::WriteKey(L"a", L"k", L"\u67F1", file()), 0);
        EXPECT_NE(CFamStuIniFile::WriteKey(L"a", L"new", 1, file()), 0);
        EXPECT_NE(CFamStuIniFile::WriteKey(L"B", L"k2", 2, file()), 0);
        const std::string changed = "\u6881\n;c\r\n[A]\n K\t=\u67F1\r\n;end\nnew=1\n\n[B]\r\nk=1\r\nk2=2\r\n";
        EXPECT_EQ(get(), encode(changed));
        EXPECT_NE(CFamStuIniFile::DeleteKey(file(), L"A", L"k"), 0);
        EXPECT_NE(CFamStuIniFile::DeleteKey(file(), L"A", L"none"), 0);
        EXPECT_NE(CFamStuIniFile::DeleteSeg(file(), L"b"), 0);
        EXPECT_NE(CFamStuIniFile::DeleteSeg(file(), L"none"), 0);
        EXPECT_NE(CFamStuIniFile::WriteKey(L"\u5C42", L"k", L"v", file()), 0);
        EXPECT_EQ(get(), encode("\u6881\n;c\r\n[A]\n;end\nnew=1\n\n[\u5C42]\nk=v\n"));
    }
}

TEST_F(IniKeys, LoneCarriageReturnAtTheEndBecomesNoLineEnd)
{
    put("\xEF\xBB\xBF;\n[s]\r"); // no section line: it does not end with a bracket
    EXPECT_NE(CFamStuIniFile::WriteKey(L"s", L"k", 1, file()), 0);
    EXPECT_EQ(get(), "\xEF\xBB\xBF;\n[s]\r\r\n[s]\nk=1\n");
}

TEST_F(IniKeys, ForeignFileTakesNoValueOfTwoLines)
{
    put("\xEF\xBB\xBF[s]\nk=1\n");
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"s", L"k", L"1\n[t]", file()), 0);
    EXPECT_EQ(get(), "\xEF\xBB\xBF[s]\nk=1\n");
}

// Each writing would add such a line again.
TEST_F(IniKeys, ForeignFileTakesNoKeyThatWouldNotBeFoundAgain)
{
    const std::string bytes = "\xEF\xBB\xBF[s]\nk=1\n[a=1\n";
    put(bytes);
    for (const wchar_t* key : {L"", L" ", L"a=b", L";k"})
        EXPECT_EQ(CFamStuIniFile::WriteKey(L"s", key, 1, file()), 0) << utf8(key);
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"", L"k", 1, file()), 0);
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"s", L"[a", L"b]", file()), 0); // would become a section line
    EXPECT_EQ(get(), bytes);
    EXPECT_NE(CFamStuIniFile::WriteKey(L"s", L"[a", L"b", file()), 0);
    EXPECT_EQ(get(), "\xEF\xBB\xBF[s]\nk=1\n[a=b\n");
}

TEST_F(IniSections, HeaderNeedsBracketsAtBothEndsAndANameBetween)
{
    put("k=0\r\n[]\r\n[a]\r\n[b] \r\n [c]\r\n[d\r\n[[e]]\r\n[ f ]\r\n[\x81\x5D\n[a]");
    CStringArray names;
    names.Add(L"old");
    EXPECT_EQ(CFamStuIniFile::GetAllSeg(names, file()), 1);
    EXPECT_EQ(listed(names), "a|[e]| f |a"); // 815D is one character of GBK
    EXPECT_EQ(CFamStuIniFile::GetAllSeg(names, L"Z:\\none\\a.ini"), 0);
    EXPECT_TRUE(names.IsEmpty());
}

TEST_F(IniSections, KeysAreListedInOrderInEveryEncoding)
{
    for (const auto& encode : encodings()) {
        put(encode("x=0\n[S]\n;c=1\n B = \"2\" \n\nplain\n=3\na==\u67F1\nb=5\n[t]\n[s]\nz=1\n"));
        CStringArray keys, values;
        EXPECT_EQ(CFamStuIniFile::GetSegKey(keys, file(), L" s"), 1);
        EXPECT_EQ(listed(keys), "B|a|b");
        EXPECT_EQ(CFamStuIniFile::GetSegValue(keys, values, file(), L"S"), 1);
        EXPECT_EQ(listed(keys), "B|a|b");
        EXPECT_EQ(listed(values), "\"2\"|=\u67F1|5");
        CString text;
        EXPECT_EQ(CFamStuIniFile::GetSegKey(text, file(), L"S", 0), 1);
        EXPECT_STREQ(text, L"B\r\na\r\nb");
        EXPECT_EQ(CFamStuIniFile::GetSegKey(text, file(), L"S", 1), 1);
        EXPECT_STREQ(text, L" B = \"2\" \r\na==\u67F1\r\nb=5");
        EXPECT_EQ(CFamStuIniFile::GetSegKey(text, file(), L"t"), 1);
        EXPECT_STREQ(text, L"");
        EXPECT_EQ(CFamStuIniFile::GetSegValue(keys, values, file(), L"none"), 0);
        EXPECT_TRUE(keys.IsEmpty() && values.IsEmpty());
    }
}

TEST_F(IniSections, FirstOfEqualKeysIsInTheMap)
{
    put("[s]\nk=1\nK=2\nk=3\n");
    CMapStringToString map;
    map[L"old"] = L"x";
    EXPECT_EQ(CFamStuIniFile::GetSegValue(map, file(), L"s"), 1);
    EXPECT_EQ(map.GetCount(), 2);
    EXPECT_STREQ(map[L"k"], L"1");
    EXPECT_STREQ(map[L"K"], L"2");
    EXPECT_EQ(CFamStuIniFile::GetSegValue(map, file(), L"none"), 0);
    EXPECT_TRUE(map.IsEmpty());
}

TEST_F(IniSections, OutputsMayHoldTheArguments)
{
    put("[s]\nk=1\n");
    CStringArray both;
    both.Add(file());
    both.Add(L"s");
    EXPECT_EQ(CFamStuIniFile::GetSegKey(both, both[0], both[1]), 1);
    EXPECT_EQ(listed(both), "k");
}

TEST_F(IniSections, PairsComeBackAsTheyWereSet)
{
    for (const auto& encode : encodings()) {
        put(encode(";head\n[s]\na=\" 1 \"\n"));
        CStringArray keys, values;
        EXPECT_EQ(CFamStuIniFile::GetSegValue(keys, values, file(), L"s"), 1);
        keys.Add(L"b");
        EXPECT_EQ(CFamStuIniFile::SetSegValue(keys, values, file(), L"s"), 0); // one value short
        values.Add(L"\u6881");
        EXPECT_EQ(CFamStuIniFile::SetSegValue(keys, values, file(), L"s"), 1);
        EXPECT_EQ(get(), encode(";head\n[s]\na=\" 1 \"\nb=\u6881\n"));
    }
}

TEST_F(IniSections, ChangeByAnotherProgramIsSeenByTheNextCall)
{
    const auto seen = [&] {
        CStringArray names;
        CFamStuIniFile::GetAllSeg(names, file());
        return listed(names);
    };
    for (char name = 'a'; name <= 'j'; ++name) { // the size stays, and so may the time stamp
        put(std::string("[") + name + "]\n");
        EXPECT_EQ(seen(), std::string(1, name));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(seen(), "j");
    EXPECT_EQ(seen(), "j"); // what was read is kept by now
    put("[k]\n");
    EXPECT_EQ(seen(), "k");
}
