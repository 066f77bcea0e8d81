#include "afxstdio.h"
#include "Utf16Text.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

IMPLEMENT_DYNAMIC(CStdioFile, CFile)

namespace
{
constexpr size_t bufferSize = 0x10000;
constexpr char controlZ = 0x1a;
constexpr char utf16Mark[] = "\xff\xfe";
constexpr UINT codePageUtf8 = 65001;

size_t utf8Length(BYTE lead)
{
    return lead < 0xc2 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
}
} // namespace

CStdioFile::CStdioFile(LPCTSTR fileName, UINT openFlags)
{
    CFileException error;
    if (!CStdioFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CStdioFile::~CStdioFile()
{
    if (m_hFile == hFileNull) return;
    try {
        CStdioFile::Close();
    } catch (CException* error) {
        error->Delete();
    }
}

BOOL CStdioFile::Open(LPCTSTR fileName, UINT openFlags, CFileException* error)
{
    if (m_hFile != hFileNull) CStdioFile::Close();
    m_isText = (openFlags & typeBinary) == 0;
    m_isUtf16 = (openFlags & typeUnicode) != 0;
    return CFile::Open(fileName, openFlags, error);
}

void CStdioFile::Close()
{
    try {
        writePending();
    } catch (CException*) {
        CStdioFile::Abort();
        throw;
    }
    m_buffer.clear();
    m_at = 0;
    m_isWriting = false;
    CFile::Close();
}

void CStdioFile::Abort()
{
    m_buffer.clear();
    m_at = 0;
    m_isWriting = false;
    CFile::Abort();
}

void CStdioFile::writePending()
{
    if (!m_isWriting || m_buffer.empty()) return;
    // What fails to be written is not tried again.
    std::string pending;
    pending.swap(m_buffer);
    CFile::Write(pending.data(), static_cast<UINT>(pending.size()));
    pending.clear();
    m_buffer.swap(pending);
}

void CStdioFile::startReading()
{
    if (!m_isWriting) return;
    writePending();
    m_isWriting = false;
    m_at = 0;
}

void CStdioFile::startWriting()
{
    if (m_isWriting) return;
    if (m_at < m_buffer.size()) CFile::Seek(-static_cast<LONGLONG>(m_buffer.size() - m_at), current);
    m_buffer.clear();
    m_at = 0;
    m_isWriting = true;
}

bool CStdioFile::isUnit(char unit, size_t at) const
{
    return m_buffer[at] == unit && (!m_isUtf16 || m_buffer[at + 1] == 0);
}

/// The first place of that character in whole units between two places, or `to`.
size_t CStdioFile::findUnit(char unit, size_t from, size_t to) const
{
    if (!m_isUtf16) {
        const void* found = from < to ? std::memchr(&m_buffer[from], unit, to - from) : nullptr;
        return found ? static_cast<size_t>(static_cast<const char*>(found) - m_buffer.data()) : to;
    }
    for (; from < to; from += 2)
        if (isUnit(unit, from)) return from;
    return to;
}

/// Drops what was taken and reads on behind the rest; false at the end of the file.
bool CStdioFile::readMore()
{
    m_buffer.erase(0, m_at);
    m_at = 0;
    const size_t had = m_buffer.size();
    const bool atStart = m_isUtf16 && had == 0 && CFile::GetPosition() == 0;
    m_buffer.resize(had + bufferSize);
    UINT read = 0;
    try {
        read = CFile::Read(&m_buffer[had], bufferSize);
    } catch (CException*) {
        m_buffer.resize(had);
        throw;
    }
    m_buffer.resize(had + read);
    if (atStart && m_buffer.compare(0, 2, utf16Mark) == 0) m_at = 2;
    return read > 0;
}

/// The bytes up to and with the next line feed, or up to the end of the text. Once `enough` bytes are known
/// to belong to the line the rest of it is not looked for.
size_t CStdioFile::lineBytes(size_t enough)
{
    size_t scanned = 0; // from m_at on
    for (;;) {
        const size_t whole = (m_buffer.size() - m_at) / unitSize() * unitSize();
        const size_t end = m_at + whole;
        const size_t feed = findUnit('\n', m_at + scanned, end);
        const size_t stop = m_isText ? findUnit(controlZ, m_at + scanned, feed) : feed;
        if (stop < feed) return stop - m_at;
        if (feed < end) return feed + unitSize() - m_at;
        scanned = whole;
        if (scanned >= enough || !readMore()) return scanned;
    }
}

CString CStdioFile::decoded(size_t from, size_t to) const
{
    if (!m_isUtf16) return CString(&m_buffer[from], static_cast<int>(to - from));
    std::u16string units;
    units.reserve((to - from) / 2);
    for (size_t at = from; at < to; at += 2)
        units += static_cast<char16_t>(static_cast<BYTE>(m_buffer[at]) |
                                       (static_cast<BYTE>(m_buffer[at + 1]) << 8));
    return mfc::fromUtf16(units);
}

BOOL CStdioFile::ReadString(CString& text)
{
    startReading();
    const size_t bytes = lineBytes(INT_MAX);
    size_t end = m_at + bytes;
    const size_t unit = unitSize();
    if (bytes > 0 && isUnit('\n', end - unit)) {
        end -= unit;
        if (m_isText && end > m_at && isUnit('\r', end - unit)) end -= unit;
    }
    text = end > m_at ? decoded(m_at, end) : CString();
    m_at += bytes;
    return bytes > 0;
}

/// Whether the unit at that place is an ASCII character, which every encoding has in common.
bool CStdioFile::isAscii(size_t at) const
{
    return static_cast<BYTE>(m_buffer[at]) < 0x80 && (!m_isUtf16 || m_buffer[at + 1] == 0);
}

/// The bytes of the character at that place, no more than there are.
size_t CStdioFile::characterBytes(size_t at, size_t end) const
{
    const BYTE lead = static_cast<BYTE>(m_buffer[at]);
    size_t bytes = 1;
    if (m_isUtf16) {
        const auto isHalf = [&](size_t place, BYTE mark) {
            return place + 1 < end && (static_cast<BYTE>(m_buffer[place + 1]) & 0xfc) == mark;
        };
        bytes = isHalf(at, 0xd8) && isHalf(at + 2, 0xdc) ? 4 : 2;
    } else if (GetACP() == codePageUtf8) {
        while (bytes < utf8Length(lead) && at + bytes < end && (m_buffer[at + bytes] & 0xc0) == 0x80)
            ++bytes;
    } else if (lead >= 0x80 && IsDBCSLeadByteEx(CP_ACP, lead)) {
        bytes = 2;
    }
    return std::min(bytes, end - at);
}

LPTSTR CStdioFile::ReadString(LPTSTR text, UINT maximum)
{
    ENSURE(text != nullptr && maximum > 0);
    startReading();
    *text = 0;
    if (maximum == 1) return text;
    const size_t bytes = lineBytes((static_cast<size_t>(maximum) + 1) * 4);
    if (bytes == 0) return nullptr;
    const size_t end = m_at + bytes;
    UINT length = 0;
    while (m_at < end && length + 1 < maximum) {
        const size_t unit = unitSize();
        if (m_isText && isUnit('\r', m_at) && m_at + unit < end && isUnit('\n', m_at + unit)) m_at += unit;
        if (isAscii(m_at)) {
            text[length++] = static_cast<wchar_t>(m_buffer[m_at]);
            m_at += unit;
            continue;
        }
        const size_t next = m_at + characterBytes(m_at, end);
        const CString character = decoded(m_at, next);
        // Damaged text can give more characters than there is room for; the first gets in all the same.
        const UINT count = static_cast<UINT>(character.GetLength());
        if (length > 0 && length + count >= maximum) break;
        const UINT fitting = std::min(count, maximum - 1 - length);
        std::wmemcpy(text + length, character.GetString(), fitting);
        length += fitting;
        m_at = next;
    }
    text[length] = 0;
    return text;
}

/// The text as it stands in the file, without line ends translated.
std::string CStdioFile::encoded(LPCTSTR text) const
{
    if (!m_isUtf16) return std::string(CStringA(text).GetString());
    std::string bytes;
    for (const char16_t unit : mfc::toUtf16(text, std::wcslen(text))) {
        bytes += static_cast<char>(unit & 0xff);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

void CStdioFile::queue(const char* bytes, size_t count)
{
    m_buffer.append(bytes, count);
    if (m_buffer.size() >= bufferSize) writePending();
}

void CStdioFile::WriteString(LPCTSTR text)
{
    ENSURE(text != nullptr);
    if (!m_isUtf16) {
        const std::string bytes = encoded(text);
        return CStdioFile::Write(bytes.data(), static_cast<UINT>(bytes.size()));
    }
    startWriting();
    CString translated(text);
    if (m_isText) translated.Replace(L"\n", L"\r\n");
    const std::string bytes = encoded(translated);
    queue(bytes.data(), bytes.size());
}

UINT CStdioFile::Read(void* buffer, UINT count)
{
    startReading();
    const bool translates = m_isText && !m_isUtf16;
    char* target = static_cast<char*>(buffer);
    UINT done = 0;
    while (done < count) {
        // One byte ahead is looked at to tell a line end.
        if (m_buffer.size() - m_at < 2 && !readMore() && m_at == m_buffer.size()) break;
        if (translates && m_buffer[m_at] == controlZ) break;
        const bool isLineEnd =
            translates && m_buffer[m_at] == '\r' && m_at + 1 < m_buffer.size() && m_buffer[m_at + 1] == '\n';
        if (isLineEnd) ++m_at;
        target[done++] = m_buffer[m_at++];
    }
    return done;
}

void CStdioFile::Write(const void* buffer, UINT count)
{
    startWriting();
    const char* bytes = static_cast<const char*>(buffer);
    const char* const end = bytes + count;
    while (m_isText && !m_isUtf16 && bytes < end) {
        const char* feed = static_cast<const char*>(std::memchr(bytes, '\n', end - bytes));
        if (!feed) break;
        queue(bytes, feed - bytes);
        queue("\r\n", 2);
        bytes = feed + 1;
    }
    if (bytes < end) queue(bytes, end - bytes);
}

void CStdioFile::Flush()
{
    writePending();
}

ULONGLONG CStdioFile::GetPosition() const
{
    const ULONGLONG position = CFile::GetPosition();
    return m_isWriting ? position + m_buffer.size() : position - (m_buffer.size() - m_at);
}

ULONGLONG CStdioFile::Seek(LONGLONG offset, UINT from)
{
    ENSURE(from == begin || from == current || from == end);
    writePending();
    // The system's position is ahead of this file's by what was read and not taken.
    if (from == current && !m_isWriting) offset -= static_cast<LONGLONG>(m_buffer.size() - m_at);
    const ULONGLONG position = CFile::Seek(offset, from);
    m_buffer.clear();
    m_at = 0;
    m_isWriting = false;
    return position;
}

ULONGLONG CStdioFile::GetLength() const
{
    // What waits to be written may lie inside the file or make it longer.
    const ULONGLONG length = CFile::GetLength();
    return m_isWriting ? std::max(length, GetPosition()) : length;
}

void CStdioFile::SetLength(ULONGLONG newLength)
{
    Seek(0, current);
    CFile::SetLength(newLength);
}

CFile* CStdioFile::Duplicate() const
{
    AfxThrowNotSupportedException();
}

void CStdioFile::LockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CStdioFile::UnlockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}
