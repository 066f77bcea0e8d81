#include "CMatrix.h"
#include "MatrixMessages.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace
{
using std::size_t;

constexpr wchar_t byteOrderMark = 0xfeff;
constexpr TCHAR separator = L',';

/// ASCII to a file as UTF-16, low byte first, in pieces.
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

void addLine(TextWriter& writer, const double* row, int columns)
{
    const wchar_t between[] = {separator, 0};
    for (int x = 0; x < columns; ++x) {
        wchar_t number[32];
        swprintf_s(number, L"%e", row[x]);
        if (x > 0) writer.add(between);
        writer.add(number);
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
    return isThere && (first == byteOrderMark || first < 0x100);
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
    wchar_t unit = 0;
    while (read(file, unit) && unit != L'\n')
        line.push_back(unit);
    if (unit == L'\n' && !line.empty() && line.back() == L'\r') line.pop_back();
    return CString(line.data(), asSize(line.size()));
}
