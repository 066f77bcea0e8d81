#include "CMatrix.h"
#include "MatrixMessages.h"

#include <afxwin.h>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace
{
using std::size_t;
using Units = std::vector<std::uint16_t>;

constexpr wchar_t byteOrderMark = 0xfeff;
constexpr TCHAR separator = L',';

/// The texts made here are ASCII: each character is one unit.
void append(Units& units, const wchar_t* text)
{
    for (; *text; ++text)
        units.push_back(static_cast<std::uint16_t>(*text));
}

/// UTF-16 to a file, low byte first, in pieces.
class TextWriter
{
public:
    explicit TextWriter(CFile& file) : m_file(file) {}

    void add(const wchar_t* text)
    {
        for (; *text; ++text) {
            m_bytes.push_back(static_cast<BYTE>(*text));
            m_bytes.push_back(static_cast<BYTE>(*text >> 8));
        }
        if (m_bytes.size() >= piece) flush();
    }
    void flush()
    {
        m_file.Write(m_bytes.data(), static_cast<UINT>(m_bytes.size()));
        m_bytes.clear();
    }

private:
    static constexpr size_t piece = 1 << 16;

    CFile& m_file;
    std::vector<BYTE> m_bytes;
};

/// False at the end of the file; half a unit there counts as none.
bool read(CFile& file, wchar_t& unit)
{
    BYTE bytes[2];
    if (file.Read(bytes, sizeof bytes) != sizeof bytes) return false;
    unit = static_cast<wchar_t>(bytes[0] | bytes[1] << 8);
    return true;
}

struct NumberText {
    wchar_t characters[32];
};

NumberText textOf(double number, const wchar_t* format)
{
    NumberText text{};
    swprintf_s(text.characters, std::size(text.characters), format, number);
    return text;
}

/// The shortest of three forms that reads back as the number.
NumberText exactTextOf(double number)
{
    for (const wchar_t* const format : {L"%.15g", L"%.16g"}) {
        const NumberText text = textOf(number, format);
        if (std::wcstod(text.characters, nullptr) == number) return text;
    }
    return textOf(number, L"%.17g");
}

void addLine(TextWriter& writer, const double* row, int columns)
{
    const wchar_t between[] = {separator, 0};
    for (int x = 0; x < columns; ++x) {
        if (x > 0) writer.add(between);
        writer.add(textOf(row[x], L"%e").characters);
    }
    writer.add(L"\r\n");
}

std::vector<double> numbersIn(const CString& line)
{
    std::vector<double> numbers;
    CString token;
    for (int at = 0; at < line.GetLength();) {
        at = CMatrix::GetStringToken(line, token, at, separator);
        if (!token.IsEmpty()) numbers.push_back(std::wcstod(token, nullptr));
    }
    return numbers;
}

/// Rows of one width, one after the other.
struct Table {
    std::vector<double> elements;
    size_t columns = 0, rows = 0;
};

Table readTable(CFile& file)
{
    Table table;
    for (const ULONGLONG length = file.GetLength(); file.GetPosition() < length;) {
        const std::vector<double> numbers = numbersIn(CMatrix::ReadLine(file));
        if (numbers.empty()) continue;
        if (table.rows > 0 && numbers.size() != table.columns) throw matrixmessages::cannotJoin;
        table.columns = numbers.size();
        ++table.rows;
        table.elements.insert(table.elements.end(), numbers.begin(), numbers.end());
    }
    return table;
}

/// Leaves the file behind a byte-order mark, or at its start. False when it does not begin like UTF-16: all
/// that matters in such a file is ASCII, so that its first character has an upper byte of 0.
bool beginsAsUtf16(CFile& file)
{
    wchar_t first = 0;
    const bool isThere = read(file, first);
    if (!isThere || first != byteOrderMark) file.SeekToBegin();
    return !isThere || first == byteOrderMark || first < 0x100;
}

void skipUtf8Mark(CFile& file)
{
    BYTE mark[3] = {};
    if (file.Read(mark, sizeof mark) != sizeof mark || mark[0] != 0xef || mark[1] != 0xbb || mark[2] != 0xbf)
        file.SeekToBegin();
}

/// Copies a file of bytes as UTF-16, one unit for each byte.
void widen(CFile& narrow, CFile& wide)
{
    BYTE bytes[4096], units[2 * sizeof bytes] = {};
    while (const UINT count = narrow.Read(bytes, sizeof bytes)) {
        for (UINT i = 0; i < count; ++i)
            units[2 * i] = bytes[i];
        wide.Write(units, 2 * count);
    }
    wide.SeekToBegin();
}

Table readTableFile(const CString& path)
{
    CStdioFile file(path, CFile::modeRead | CFile::shareDenyWrite | CFile::typeBinary);
    if (beginsAsUtf16(file)) return readTable(file);
    skipUtf8Mark(file);
    CMemFile wide(1 << 20);
    widen(file, wide);
    return readTable(wide);
}

int asSize(size_t count)
{
    if (count > static_cast<size_t>(std::numeric_limits<int>::max())) throw matrixmessages::invalidOperation;
    return static_cast<int>(count);
}

/// The clipboard, open as long as this lives.
class OpenedClipboard
{
public:
    OpenedClipboard() : m_isOpen(OpenClipboard(owner()) != FALSE) {}
    ~OpenedClipboard()
    {
        if (m_isOpen) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    bool isOpen() const { return m_isOpen; }

private:
    // Without an owner the clipboard takes no data.
    static HWND owner()
    {
        const CWnd* const window = AfxGetMainWnd();
        return window ? window->GetSafeHwnd() : nullptr;
    }

    bool m_isOpen;
};

/// Null when there is no memory.
HGLOBAL asGlobalText(const Units& units)
{
    const size_t bytes = units.size() * sizeof units[0];
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!block) return nullptr;
    std::memcpy(GlobalLock(block), units.data(), bytes);
    GlobalUnlock(block);
    return block;
}

bool putOnClipboard(const Units& units)
{
    const OpenedClipboard clipboard;
    if (!clipboard.isOpen()) return false;
    const HGLOBAL block = asGlobalText(units);
    if (!block) return false;
    if (EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, block)) return true;
    GlobalFree(block);
    return false;
}
} // namespace

void CMatrix::WriteAsCSVFile(const CString& path) const
{
    CStdioFile file(path, CFile::modeCreate | CFile::modeWrite | CFile::shareDenyWrite | CFile::typeBinary);
    TextWriter writer(file);
    for (int y = 0; y < m_rows; ++y)
        addLine(writer, Row(y), m_columns);
    writer.flush();
    file.Close();
}

CMatrix CMatrix::ReadFromCSVFile(const CString& path)
{
    const Table table = readTableFile(path);
    CMatrix matrix = Unfilled(asSize(table.columns), asSize(table.rows));
    std::copy(table.elements.begin(), table.elements.end(), matrix.m_block);
    return matrix;
}

CString CMatrix::GetRowAsText(int y) const
{
    RequireRow(y);
    CString text;
    for (int x = 0; x < m_columns; ++x) {
        if (x > 0) text += L'\t';
        text += exactTextOf(Row(y)[x]).characters;
    }
    return text;
}

bool CMatrix::CopyToClipboard() const
{
    Units units;
    for (int y = 0; y < m_rows; ++y) {
        append(units, GetRowAsText(y));
        append(units, L"\r\n");
    }
    units.push_back(0);
    return putOnClipboard(units);
}

int CMatrix::GetStringToken(const CString& source, CString& token, int start, TCHAR separator)
{
    const int length = source.GetLength();
    while (start < length && (start < 0 || source[start] == separator))
        start = start < 0 ? 0 : start + 1;
    if (start >= length) {
        token.Empty();
        return length;
    }
    const int found = source.Find(separator, start);
    const int end = found < 0 ? length : found;
    token = source.Mid(start, end - start);
    return end;
}

CString CMatrix::ReadLine(CFile& file)
{
    std::wstring line;
    for (wchar_t unit = 0; read(file, unit) && unit != L'\n';)
        line.push_back(unit);
    if (!line.empty() && line.back() == L'\r') line.pop_back();
    return CString(line.data(), asSize(line.size()));
}
