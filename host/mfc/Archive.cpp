#include "ArchiveObjectMap.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr int smallestBuffer = 128;
constexpr UINT largestBlock = 0x40000000;
} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize, void* buffer)
    : m_nMode(mode), m_pFile(file), m_bufferSize(std::max(bufferSize, smallestBuffer))
{
    ENSURE(file != nullptr);
    m_strFileName = file->GetFilePath();
    if (!buffer || bufferSize < smallestBuffer) m_ownBuffer.reset(new BYTE[m_bufferSize]);
    m_start = m_current = m_ownBuffer ? m_ownBuffer.get() : static_cast<BYTE*>(buffer);
    m_limit = IsStoring() ? m_start + m_bufferSize : m_start;
}

CArchive::~CArchive()
{
    try {
        if (m_pFile && !(m_nMode & bNoFlushOnDelete)) Close();
    } catch (CException* error) {
        error->Delete();
    }
    Abort();
}

void CArchive::Close()
{
    Flush();
    m_pFile = nullptr;
}

void CArchive::Abort()
{
    m_pFile = nullptr;
}

void CArchive::checkStoring() const
{
    if (!m_pFile) AfxThrowArchiveException(CArchiveException::genericException, m_strFileName);
    if (IsLoading()) AfxThrowArchiveException(CArchiveException::readOnly, m_strFileName);
}

void CArchive::checkLoading() const
{
    if (!m_pFile) AfxThrowArchiveException(CArchiveException::genericException, m_strFileName);
    if (IsStoring()) AfxThrowArchiveException(CArchiveException::writeOnly, m_strFileName);
}

void CArchive::Flush()
{
    if (!m_pFile) return;
    if (IsStoring()) return writeBuffer();
    if (m_limit != m_current) m_pFile->Seek(-static_cast<LONGLONG>(m_limit - m_current), CFile::current);
    m_current = m_limit = m_start;
}

void CArchive::writeBuffer()
{
    if (m_current != m_start) m_pFile->Write(m_start, static_cast<UINT>(m_current - m_start));
    m_current = m_start;
}

/// Moves what was not read to the start of the buffer and reads more behind it; the bytes now at hand.
UINT CArchive::fillBuffer()
{
    const size_t left = static_cast<size_t>(m_limit - m_current);
    std::memmove(m_start, m_current, left);
    m_current = m_start;
    m_limit = m_start + left;
    m_limit += m_pFile->Read(m_limit, static_cast<UINT>(m_bufferSize - left));
    return static_cast<UINT>(m_limit - m_current);
}

UINT CArchive::Read(void* buffer, UINT count)
{
    checkLoading();
    BYTE* target = static_cast<BYTE*>(buffer);
    UINT done = 0;
    while (done < count) {
        const UINT wanted = count - done;
        if (m_current == m_limit && wanted >= static_cast<UINT>(m_bufferSize)) {
            const UINT read = m_pFile->Read(target + done, wanted);
            if (read == 0) break;
            done += read;
            continue;
        }
        if (m_current == m_limit && fillBuffer() == 0) break;
        const UINT taken = std::min(wanted, static_cast<UINT>(m_limit - m_current));
        std::memcpy(target + done, m_current, taken);
        m_current += taken;
        done += taken;
    }
    return done;
}

void CArchive::EnsureRead(void* buffer, UINT count)
{
    if (Read(buffer, count) != count) AfxThrowArchiveException(CArchiveException::endOfFile, m_strFileName);
}

void CArchive::Write(const void* buffer, UINT count)
{
    checkStoring();
    if (count == 0) return;
    if (count > static_cast<UINT>(m_limit - m_current)) writeBuffer();
    if (count >= static_cast<UINT>(m_bufferSize)) return m_pFile->Write(buffer, count);
    std::memcpy(m_current, buffer, count);
    m_current += count;
}

void CArchive::WriteItems(const void* items, INT_PTR count, size_t itemSize)
{
    const BYTE* source = static_cast<const BYTE*>(items);
    for (size_t left = static_cast<size_t>(count) * itemSize; left > 0;) {
        const UINT block = static_cast<UINT>(std::min<size_t>(left, largestBlock));
        Write(source, block);
        source += block;
        left -= block;
    }
}

void CArchive::ReadItems(void* items, INT_PTR count, size_t itemSize)
{
    BYTE* target = static_cast<BYTE*>(items);
    for (size_t left = static_cast<size_t>(count) * itemSize; left > 0;) {
        const UINT block = static_cast<UINT>(std::min<size_t>(left, largestBlock));
        EnsureRead(target, block);
        target += block;
        left -= block;
    }
}
