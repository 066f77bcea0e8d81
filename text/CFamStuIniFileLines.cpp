#include "CFamStuIniFile.h"

#include "IniEdit.h"
#include "IniStore.h"

using namespace inifile;

namespace
{
/// Writes what change(text) gives for the file; 0 when there is no file or nothing to write.
template <class Change>
int changeLines(const CString& file, Change change)
{
    const auto contents = load(file);
    if (!contents) return 0;
    const Bytes bytes = change(contents->text());
    return bytes && (*bytes == contents->text().bytes() || store(file, *bytes));
}

CString textOf(const Text& text, const Line& line)
{
    return text.decode(line.begin, line.end);
}

/// Adds a line to the description if it is a comment; any other line begins a new one.
void describe(const CString& line, CString& description)
{
    CString comment = line;
    comment.Trim();
    if (comment.IsEmpty() || comment[0] != L';') return description.Empty();
    if (!description.IsEmpty()) description += L"\r\n";
    description += comment.Mid(1).TrimLeft();
}
} // namespace

int CFamStuIniFile::GetAllLines(CStringArray& lines, const CString& file)
{
    const auto contents = load(file);
    lines.RemoveAll();
    if (!contents) return 0;
    const Text& text = contents->text();
    Line line;
    INT_PTR count = 0;
    for (std::size_t at = text.begin(); text.readLine(at, line); at = line.next)
        ++count;
    lines.SetSize(count);
    CString* next = lines.GetData();
    for (std::size_t at = text.begin(); text.readLine(at, line); at = line.next)
        *next++ = textOf(text, line);
    return 1;
}

int CFamStuIniFile::DelOneRow(const CString& file, int line)
{
    return DelLnLines(file, line, 1);
}

int CFamStuIniFile::DelLnLines(const CString& file, int line, int count)
{
    return changeLines(file, [&](const Text& text) { return withoutLines(text, line, count); });
}

int CFamStuIniFile::ModifyLnLines(const CString& file, int line, const CStringArray& lines)
{
    return changeLines(file, [&](const Text& text) { return withLines(text, line, lines); });
}

int CFamStuIniFile::getLnDesDef(CString& description, CString& definition, const CString& file, int line)
{
    const auto contents = load(file);
    description.Empty();
    definition.Empty();
    if (!contents || line < 0) return 0;
    const Text& text = contents->text();
    Line at{};
    std::size_t next = text.begin();
    for (int i = 0; text.readLine(next, at); ++i, next = at.next) {
        definition = textOf(text, at);
        if (i == line) return 1;
        describe(definition, description);
    }
    description.Empty();
    definition.Empty();
    return 0;
}

int CFamStuIniFile::writerLines(const CStringArray& lines, const CString& file)
{
    if (GetFileAttributesW(file) != INVALID_FILE_ATTRIBUTES)
        return changeLines(file, [&](const Text& text) { return withAllLines(text, lines); });
    for (Encoding each : {Encoding::ansi, Encoding::utf16})
        if (const Bytes bytes = withAllLines(Text(std::string(markOf(each))), lines))
            return store(file, *bytes);
    return 0;
}
