/// A first client of the library: sorts a list of drawing names as a person would and writes it as a table.
///
///     first_steps LIST TABLE
///
/// LIST is a text file in the ANSI code page (936), one drawing name a line, as a Windows program leaves it.
/// TABLE is written as UTF-8: number, name, the name of the next copy, and a link for a web page.

#include <afxwin.h>

#include "QmCADLib.h"

#include <cstdio>

namespace
{
/// The lines of a text file, trimmed, without the empty ones. Throws CFileException.
void readNames(const CString& path, CStringArray& names)
{
    CStdioFile file(path, CFile::modeRead | CFile::shareDenyNone | CFile::typeText);
    CString line;
    while (file.ReadString(line)) {
        if (!line.Trim().IsEmpty()) names.Add(line);
    }
}

CString tableOf(const CStringArray& names)
{
    CString table;
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        const CString& name = names[i];
        const CStringA utf8(CEncoding::ANSIToUTF8(name, name.GetLength()).c_str());
        table.AppendFormat(L"%s\t%s\t%s\t%S\n", CFamStuStr::ExcelColNoToName(static_cast<int>(i) + 1), name,
                           CFamStuStr::IncreaseStrDigit(name, 1.0, 0),
                           CEncoding::UrlEncode(std::string(utf8)).c_str());
    }
    return table;
}

void writeUtf8(const CString& path, const CString& text)
{
    CStringA utf8;
    CEncoding::UnicodeToUTF8(text, utf8);
    CFile file(path, CFile::modeCreate | CFile::modeWrite);
    file.Write(utf8.GetString(), utf8.GetLength());
}

void listDrawings(const CString& list, const CString& table)
{
    CStringArray names;
    readNames(list, names);
    CFamStuStr::SortStrArray(names);
    writeUtf8(table, tableOf(names));
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: first_steps LIST TABLE\n");
        return 1;
    }
    try {
        listDrawings(CEncoding::UTF8ToUnicode(argv[1]).c_str(), CEncoding::UTF8ToUnicode(argv[2]).c_str());
        return 0;
    } catch (CFileException* failure) {
        wchar_t reason[256];
        failure->GetErrorMessage(reason, 256);
        std::fprintf(stderr, "first_steps: %s\n", CStringA(reason).GetString());
        failure->Delete();
        return 1;
    }
}
