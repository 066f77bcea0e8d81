#include "../win32/TempFolder.h"
#include "Headless.h"
#include "Thrown.h"

#include <afxcoll.h>

class TextFile : public TempFolder
{
protected:
    TextFile() { headless::setAnsiCodePage(936); }

    /// The lines of a file with these bytes, joined by '|'.
    std::wstring lines(const std::string& bytes, UINT flags = 0)
    {
        put("t.txt", bytes);
        CStdioFile file(path(L"t.txt").c_str(), CFile::modeRead | flags);
        std::wstring all;
        for (CString line; file.ReadString(line);)
            all.append(line.GetString(), static_cast<size_t>(line.GetLength())) += L'|';
        return all;
    }
    std::string written(LPCTSTR text, UINT flags)
    {
        CStdioFile file(path(L"w.txt").c_str(), CFile::modeCreate | CFile::modeWrite | flags);
        file.WriteString(text);
        file.Close();
        return get("w.txt");
    }
};

TEST_F(TextFile, LinesEndAtLineFeedsAndAtTheEndOfTheFile)
{
    EXPECT_EQ(lines(""), L"");
    EXPECT_EQ(lines("\r\n"), L"|");
    EXPECT_EQ(lines("a\r\n\nlast"), L"a||last|");
    EXPECT_EQ(lines("a\rb\r\r\n"), L"a\rb\r|");
    EXPECT_EQ(lines(std::string("n\0l\n", 4)), std::wstring(L"n\0l|", 4));
}

TEST_F(TextFile, ControlZEndsTextButNotBinary)
{
    EXPECT_EQ(lines("a\nb\x1a"
                    "c\nd\n"),
              L"a|b|");
    EXPECT_EQ(lines("a\r\nb\x1a"
                    "c",
                    CFile::typeBinary),
              L"a\r|b\x1a"
              L"c|");
}

TEST_F(TextFile, NarrowTextIsOfTheAnsiCodePage)
{
    // GBK: D6D0 CEC4 is 中文; 8140 has a trail byte below 80.
    EXPECT_EQ(lines("\xd6\xd0\xce\xc4\r\n\x81\x40"), L"\u4e2d\u6587|\u4e02|");
    EXPECT_EQ(written(L"\u4e2d\n", 0), "\xd6\xd0\r\n");
    EXPECT_EQ(written(L"\u4e2d\n", CFile::typeBinary), "\xd6\xd0\n");
}

TEST_F(TextFile, UnicodeTextIsUtf16)
{
    const std::string text("A\0\x2d\x4e\r\0\n\0\x3d\xd8\x00\xde\x0a\x01", 14); // U+010A has the byte 0A
    EXPECT_EQ(lines(text, CFile::typeUnicode), L"A\u4e2d|\U0001f600\u010a|");
    EXPECT_EQ(lines("\xff\xfe" + text, CFile::typeUnicode), L"A\u4e2d|\U0001f600\u010a|");
    EXPECT_EQ(lines(text + "x", CFile::typeUnicode), L"A\u4e2d|\U0001f600\u010a|");
    EXPECT_EQ(written(L"A\u4e2d\n\U0001f600\u010a", CFile::typeUnicode), text);
}

TEST_F(TextFile, BoundedReadKeepsTheLineFeedAndSplitsNoCharacter)
{
    put("b.txt", "ab\xd6\xd0\xce\xc4\r\nxy\r\n");
    CStdioFile file(path(L"b.txt").c_str(), CFile::modeRead);
    wchar_t text[4];
    std::wstring pieces;
    while (file.ReadString(text, 4))
        pieces += std::wstring(text) + L'|';
    EXPECT_EQ(pieces, L"ab\u4e2d|\u6587\n|xy\n|");
}

TEST_F(TextFile, BoundedReadTakesBothEncodingsAlike)
{
    put("w.txt", std::string("a\0\x2d\x4e\x3d\xd8\x00\xde\r\0\n\0b\0", 14));
    CStdioFile file(path(L"w.txt").c_str(), CFile::modeRead | CFile::typeUnicode);
    wchar_t text[10];
    ASSERT_TRUE(file.ReadString(text, 10));
    EXPECT_STREQ(text, L"a\u4e2d\U0001f600\n");
    ASSERT_TRUE(file.ReadString(text, 10));
    EXPECT_STREQ(text, L"b");
    EXPECT_FALSE(file.ReadString(text, 10));
    EXPECT_STREQ(text, L"");
}

TEST_F(TextFile, DamagedUtf8FitsTheBoundedBuffer)
{
    headless::setAnsiCodePage(65001);
    put("u.txt", std::string(50, '\xe4') + "\xf0\x9f" + std::string(50, '\xb8') + "end");
    CStdioFile file(path(L"u.txt").c_str(), CFile::modeRead);
    wchar_t text[3];
    std::wstring all;
    while (file.ReadString(text, 3))
        all += text;
    EXPECT_EQ(all.substr(all.size() - 3), L"end");
    headless::setAnsiCodePage(936);
}

TEST_F(TextFile, LongLinesAndManyLinesAreWhole)
{
    std::string bytes;
    for (int i = 0; i < 70000; ++i)
        bytes += std::to_string(i) + "\r\n";
    const std::string longLine(300000, 'L');
    put("many.txt", bytes + longLine);
    CStdioFile file(path(L"many.txt").c_str(), CFile::modeRead);
    CString line;
    for (int i = 0; i < 70000; ++i) {
        ASSERT_TRUE(file.ReadString(line));
        ASSERT_EQ(line, std::to_wstring(i).c_str());
    }
    ASSERT_TRUE(file.ReadString(line));
    EXPECT_EQ(line.GetLength(), 300000);
    EXPECT_FALSE(file.ReadString(line));
}

TEST_F(TextFile, PositionIsTheOneOnDisk)
{
    put("p.txt", "one\r\ntwo\r\nthree\r\n");
    CStdioFile file(path(L"p.txt").c_str(), CFile::modeReadWrite);
    CString line;
    file.ReadString(line);
    EXPECT_EQ(file.GetPosition(), 5u);
    file.WriteString(L"TWO");
    EXPECT_EQ(file.GetPosition(), 8u);
    EXPECT_EQ(file.GetLength(), 17u);
    file.ReadString(line);
    EXPECT_EQ(line, L"");
    file.Seek(-5, CFile::current);
    file.ReadString(line);
    EXPECT_EQ(line, L"TWO");
    char bytes[20];
    EXPECT_EQ(file.Read(bytes, 20), 6u);
    EXPECT_EQ(std::string(bytes, 6), "three\n");
}

TEST_F(TextFile, FailedWriteIsReportedByClose)
{
    put("ro.txt", "x");
    CStdioFile file(path(L"ro.txt").c_str(), CFile::modeRead);
    file.WriteString(L"y");
    EXPECT_EQ(thrownCause<CFileException>([&] { file.Close(); }), CFileException::accessDenied);
    EXPECT_EQ(file.m_hFile, CFile::hFileNull);
    EXPECT_EQ(get("ro.txt"), "x");
}
