#include "afxfile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

IMPLEMENT_DYNAMIC(CMemFile, CFile)

CMemFile::~CMemFile()
{
    // Free is virtual, and a derived class that overrides it is gone by now: it closes in its destructor.
    if (m_lpBuffer && m_bAutoDelete) std::free(m_lpBuffer);
}

void CMemFile::Attach(BYTE* buffer, UINT bufferSize, UINT growBytes)
{
    if (m_lpBuffer && m_bAutoDelete) Free(m_lpBuffer);
    m_lpBuffer = buffer;
    m_nBufferSize = bufferSize;
    m_nGrowBytes = growBytes;
    m_nFileSize = growBytes == 0 ? bufferSize : 0;
    m_nPosition = 0;
    m_bAutoDelete = FALSE;
}

BYTE* CMemFile::Detach()
{
    BYTE* const memory = m_lpBuffer;
    m_lpBuffer = nullptr;
    m_nFileSize = m_nBufferSize = m_nPosition = 0;
    m_bAutoDelete = TRUE;
    return memory;
}

BOOL CMemFile::Open(LPCTSTR, UINT, CFileException*)
{
    AfxThrowNotSupportedException();
}

CFile* CMemFile::Duplicate() const
{
    AfxThrowNotSupportedException();
}

void CMemFile::Close()
{
    BYTE* const old = m_bAutoDelete ? m_lpBuffer : nullptr;
    m_nGrowBytes = 0;
    Detach();
    if (old) Free(old);
}

void CMemFile::Abort()
{
    CMemFile::Close();
}

UINT CMemFile::Read(void* buffer, UINT count)
{
    if (m_nPosition >= m_nFileSize) return 0;
    const SIZE_T read = std::min<SIZE_T>(count, m_nFileSize - m_nPosition);
    Memcpy(static_cast<BYTE*>(buffer), m_lpBuffer + m_nPosition, read);
    m_nPosition += read;
    return static_cast<UINT>(read);
}

void CMemFile::Write(const void* buffer, UINT count)
{
    if (count == 0) return;
    if (m_nPosition > SIZE_MAX - count) AfxThrowMemoryException();
    const SIZE_T end = m_nPosition + count;
    if (end > m_nBufferSize) GrowFile(end);
    if (m_nPosition > m_nFileSize) std::memset(m_lpBuffer + m_nFileSize, 0, m_nPosition - m_nFileSize);
    Memcpy(m_lpBuffer + m_nPosition, static_cast<const BYTE*>(buffer), count);
    m_nPosition = end;
    m_nFileSize = std::max(m_nFileSize, end);
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    ENSURE(from == begin || from == current || from == end);
    const SIZE_T base = from == begin ? 0 : from == current ? m_nPosition : m_nFileSize;
    if (offset < 0 && static_cast<ULONGLONG>(-(offset + 1)) >= base)
        AfxThrowFileException(CFileException::badSeek);
    m_nPosition = base + static_cast<SIZE_T>(offset);
    return m_nPosition;
}

void CMemFile::SetLength(ULONGLONG newLength)
{
    if (newLength > m_nBufferSize) GrowFile(static_cast<SIZE_T>(newLength));
    if (newLength > m_nFileSize) std::memset(m_lpBuffer + m_nFileSize, 0, newLength - m_nFileSize);
    m_nFileSize = static_cast<SIZE_T>(newLength);
    m_nPosition = std::min(m_nPosition, m_nFileSize);
}

void CMemFile::LockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

void CMemFile::UnlockRange(ULONGLONG, ULONGLONG)
{
    AfxThrowNotSupportedException();
}

BYTE* CMemFile::Alloc(SIZE_T bytes)
{
    return static_cast<BYTE*>(std::malloc(bytes));
}

BYTE* CMemFile::Realloc(BYTE* memory, SIZE_T bytes)
{
    return static_cast<BYTE*>(std::realloc(memory, bytes));
}

void CMemFile::Free(BYTE* memory)
{
    std::free(memory);
}

BYTE* CMemFile::Memcpy(BYTE* target, const BYTE* source, SIZE_T bytes)
{
    return static_cast<BYTE*>(std::memcpy(target, source, bytes));
}

void CMemFile::GrowFile(SIZE_T newLength)
{
    if (newLength <= m_nBufferSize) return;
    if (m_nGrowBytes == 0 || newLength > PTRDIFF_MAX) AfxThrowMemoryException();
    const SIZE_T steps = (newLength - m_nBufferSize + m_nGrowBytes - 1) / m_nGrowBytes;
    const SIZE_T size = m_nBufferSize + steps * m_nGrowBytes;
    BYTE* const memory = m_lpBuffer ? Realloc(m_lpBuffer, size) : Alloc(size);
    if (!memory) AfxThrowMemoryException();
    m_lpBuffer = memory;
    m_nBufferSize = size;
}
