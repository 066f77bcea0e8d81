#include "MatrixCases.h"
#include "TemporaryFile.h"

#include <afxwin.h>
#include <cmath>
#include <cstdint>
#include <vector>

namespace
{
std::string utf16(const std::string& ascii)
{
    std::string bytes;
    for (const char character : ascii)
        bytes += {character, '\0'};
    return bytes;
}

CMatrix readFrom(const std::string& bytes)
{
    const TemporaryFile file;
    file.setBytes(bytes);
    return CMatrix::ReadFromCSVFile(file.path());
}

std::wstring clipboardText()
{
    std::wstring text;
    OpenClipboard(nullptr);
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* units = data ? static_cast<const std::uint16_t*>(GlobalLock(data)) : nullptr;
    for (; units && *units; ++units)
        text += static_cast<wchar_t>(*units);
    if (data) GlobalUnlock(data);
    CloseClipboard();
    return text;
}

std::vector<std::wstring> tokensOf(const CString& text, TCHAR separator)
{
    std::vector<std::wstring> tokens;
    CString token;
    for (int at = 0; at < text.GetLength();) {
        at = CMatrix::GetStringToken(text, token, at, separator);
        tokens.push_back(token.GetString());
    }
    return tokens;
}
} // namespace

TEST(MatrixCsv, RowIsALineOfNumbersInUtf16)
{
    const TemporaryFile file;
    file.setBytes("an older and longer file that goes away, whatever it held before the matrix was written");
    fromRows({{1, 2}}).WriteAsCSVFile(file.path());
    EXPECT_EQ(file.bytes(), utf16("1.000000e+00,2.000000e+00\r\n"));
}

// Numbers of at most seven digits lose nothing in the form of the file.
TEST(MatrixCsv, ReadsBackWhatWasWritten)
{
    CMatrix large(300, 200);
    for (int i = 0; i < 300 * 200; ++i)
        large.SetElement(i % 300, i / 300, (i % 1999 - 999) / 1024.0 * 64);
    for (const CMatrix& matrix :
         {fromRows({{1.5, -2e-300}, {0, 1e308}, {INFINITY, -INFINITY}}), fromRows({{7}}), CMatrix(0, 0)}) {
        const TemporaryFile file;
        matrix.WriteAsCSVFile(file.path());
        EXPECT_EQ(CMatrix::ReadFromCSVFile(file.path()), matrix);
    }
    const TemporaryFile first, second;
    large.WriteAsCSVFile(first.path());
    CMatrix::ReadFromCSVFile(first.path()).WriteAsCSVFile(second.path());
    EXPECT_EQ(first.bytes(), second.bytes());
    const TemporaryFile file;
    fromRows({{NAN}}).WriteAsCSVFile(file.path());
    EXPECT_TRUE(std::isnan(CMatrix::ReadFromCSVFile(file.path())[0][0]));
}

TEST(MatrixCsv, ReadsWhatOthersWrite)
{
    const CMatrix expected = fromRows({{1, 2}, {3, 4}});
    EXPECT_EQ(readFrom("\xff\xfe" + utf16("1,2\r\n3,4")), expected);
    EXPECT_EQ(readFrom("1,2\n3,4\n"), expected);
    EXPECT_EQ(readFrom("7"), fromRows({{7}}));
    EXPECT_EQ(readFrom("\xef\xbb\xbf"
                       "1,2\r\n3,4\r\n"),
              expected);
    EXPECT_EQ(readFrom(utf16("\r\n,1,,2,\n,\n 3 , 4 \n")), expected); // separators join, empty lines go
    EXPECT_EQ(readFrom(utf16("x,2\n3,4mm\n")), fromRows({{0, 2}, {3, 4}}));
    EXPECT_EQ(readFrom(utf16("5,6\n") + "7"), fromRows({{5, 6}})); // half a character is none
}

TEST(MatrixCsv, LinesOfDifferentLengthsDoNotJoin)
{
    const std::string message = "Cannot concatenate matrices, not same size";
    EXPECT_EQ(thrownBy([] { readFrom(utf16("1,2\n3\n")); }), message);
    EXPECT_EQ(thrownBy([] { readFrom(utf16("1\n3,4\n")); }), message);
}

TEST(MatrixCsv, FileFaultsAreFileExceptions)
{
    int cause = 0;
    try {
        CMatrix::ReadFromCSVFile(L"no such folder/no such file.csv");
    } catch (CFileException* error) {
        cause = error->m_cause;
        error->Delete();
    }
    EXPECT_EQ(cause, CFileException::badPath);
    cause = 0;
    try {
        CMatrix().WriteAsCSVFile(L"no such folder/file.csv");
    } catch (CFileException* error) {
        cause = error->m_cause;
        error->Delete();
    }
    EXPECT_EQ(cause, CFileException::badPath);
}

TEST(MatrixToken, RunsFromSeparatorToSeparator)
{
    EXPECT_EQ(tokensOf(L"a,bc,d", L','), (std::vector<std::wstring>{L"a", L"bc", L"d"}));
    EXPECT_EQ(tokensOf(L",,a,,b", L','), (std::vector<std::wstring>{L"a", L"b"}));
    EXPECT_EQ(tokensOf(L"a;;", L';'), (std::vector<std::wstring>{L"a", L""}));
    CString token = L"before";
    EXPECT_EQ(CMatrix::GetStringToken(L"ab,c", token, 0, L','), 2); // the separator's own index
    EXPECT_EQ(token, L"ab");
    EXPECT_EQ(CMatrix::GetStringToken(L"ab,c", token, 2, L','), 4);
    EXPECT_EQ(token, L"c");
    EXPECT_EQ(CMatrix::GetStringToken(L"ab,c", token, 9, L','), 4);
    EXPECT_TRUE(token.IsEmpty());
    EXPECT_EQ(CMatrix::GetStringToken(L"ab,c", token, -3, L','), 2);
    EXPECT_EQ(token, L"ab");
}

TEST(MatrixLine, EndsAtALineFeedOrTheEnd)
{
    CMemFile file;
    const std::string bytes = utf16("one\r\n\ntwo\rx\r");
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    EXPECT_EQ(CMatrix::ReadLine(file), L"one");
    EXPECT_EQ(CMatrix::ReadLine(file), L"");
    EXPECT_EQ(CMatrix::ReadLine(file), L"two\rx\r");
    EXPECT_EQ(CMatrix::ReadLine(file), L"");
}

TEST(MatrixClipboard, HasOneLineForEachRow)
{
    ASSERT_TRUE(fromRows({{1, -0.5}, {0.1, 1e100}}).CopyToClipboard());
    EXPECT_EQ(clipboardText(), L"1\t-0.5\r\n0.1\t1e+100\r\n");
}

// 1/3 needs 16 digits, 0.1 + 0.2 needs 17.
TEST(MatrixClipboard, NumbersReadBackAsTheyWere)
{
    const CString text = fromRows({{1.0 / 3.0, 0.1 + 0.2, 5e-324}}).GetRowAsText(0);
    const auto tokens = tokensOf(text, L'\t');
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(std::wcstod(tokens[0].c_str(), nullptr), 1.0 / 3.0);
    EXPECT_EQ(tokens[0].size(), 18u);
    EXPECT_EQ(std::wcstod(tokens[1].c_str(), nullptr), 0.1 + 0.2);
    EXPECT_EQ(std::wcstod(tokens[2].c_str(), nullptr), 5e-324);
}
