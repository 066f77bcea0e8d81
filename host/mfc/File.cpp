#include "afxfile.h"

#include <algorithm>
#include <cwchar>
#include <memory>

IMPLEMENT_DYNAMIC(CFile, CObject)

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

namespace
{
constexpr UINT accessMask = CFile::modeWrite | CFile::modeReadWrite;
constexpr UINT shareMask = 0x70;

DWORD accessOf(UINT openFlags)
{
    switch (openFlags & accessMask) {
    case CFile::modeWrite:
        return GENERIC_WRITE;
    case CFile::modeReadWrite:
        return GENERIC_READ | GENERIC_WRITE;
    default:
        return GENERIC_READ;
    }
}

DWORD sharingOf(UINT openFlags)
{
    switch (openFlags & shareMask) {
    case CFile::shareDenyWrite:
        return FILE_SHARE_READ;
    case CFile::shareDenyRead:
        return FILE_SHARE_WRITE;
    case CFile::shareDenyNone:
        return FILE_SHARE_READ | FILE_SHARE_WRITE;
    default:
        return 0;
    }
}

DWORD dispositionOf(UINT openFlags)
{
    if (!(openFlags & CFile::modeCreate)) return OPEN_EXISTING;
    return openFlags & CFile::modeNoTruncate ? OPEN_ALWAYS : CREATE_ALWAYS;
}

DWORD attributesOf(UINT openFlags)
{
    DWORD attributes = FILE_ATTRIBUTE_NORMAL;
    if (openFlags & CFile::osWriteThrough) attributes |= FILE_FLAG_WRITE_THROUGH;
    if (openFlags & CFile::osRandomAccess) attributes |= FILE_FLAG_RANDOM_ACCESS;
    if (openFlags & CFile::osSequentialScan) attributes |= FILE_FLAG_SEQUENTIAL_SCAN;
    return attributes;
}

CString fullPath(LPCTSTR name)
{
    const DWORD size = GetFullPathNameW(name, 0, nullptr, nullptr);
    if (size == 0) return name;
    CString path;
    const DWORD length = GetFullPathNameW(name, size, path.GetBuffer(static_cast<int>(size)), nullptr);
    path.ReleaseBuffer(static_cast<int>(length < size ? length : 0));
    return path;
}

void fillException(CFileException* error, LONG osError, const CString& fileName)
{
    if (!error) return;
    error->m_lOsError = osError;
    error->m_cause = CFileException::OsErrorToException(osError);
    error->m_strFileName = fileName;
}

bool copyName(CFileStatus& status, const CString& path)
{
    if (path.GetLength() >= MAX_PATH) return false;
    std::wmemcpy(status.m_szFullName, path.GetString(), static_cast<size_t>(path.GetLength()) + 1);
    return true;
}
} // namespace

CFile::CFile(HANDLE file) : m_hFile(file) {}

CFile::CFile(LPCTSTR fileName, UINT openFlags)
{
    // The qualified call: this constructor opens a plain file, whatever is derived from the class.
    CFileException error;
    if (!CFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_hFile != hFileNull && m_bCloseOnDelete) CloseHandle(m_hFile);
}

BOOL CFile::Open(LPCTSTR fileName, UINT openFlags, CFileException* error)
{
    ENSURE(fileName != nullptr);
    if (m_bCloseOnDelete) CFile::Abort();
    m_strFileName.Empty();
    const CString path = fullPath(fileName);
    SECURITY_ATTRIBUTES security{sizeof security, nullptr, (openFlags & modeNoInherit) == 0};
    const HANDLE file = CreateFileW(path, accessOf(openFlags), sharingOf(openFlags), &security,
                                    dispositionOf(openFlags), attributesOf(openFlags), nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        fillException(error, static_cast<LONG>(GetLastError()), path);
        return FALSE;
    }
    m_hFile = file;
    m_strFileName = path;
    m_bCloseOnDelete = TRUE;
    return TRUE;
}

CFile* CFile::Duplicate() const
{
    std::unique_ptr<CFile> copy(new CFile);
    if (!DuplicateHandle(GetCurrentProcess(), m_hFile, GetCurrentProcess(), &copy->m_hFile, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        throwLastError();
    copy->m_strFileName = m_strFileName;
    copy->m_bCloseOnDelete = TRUE;
    return copy.release();
}

void CFile::Close()
{
    const HANDLE file = m_hFile;
    const CString name = m_strFileName;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    if (file != hFileNull && !CloseHandle(file))
        CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), name);
}

void CFile::Abort()
{
    if (m_hFile != hFileNull) CloseHandle(m_hFile);
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
}

void CFile::throwLastError() const
{
    const LONG osError = static_cast<LONG>(GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(osError), osError, m_strFileName);
}

UINT CFile::Read(void* buffer, UINT count)
{
    DWORD done = 0;
    if (count != 0 && !ReadFile(m_hFile, buffer, count, &done, nullptr)) throwLastError();
    return done;
}

void CFile::Write(const void* buffer, UINT count)
{
    DWORD done = 0;
    if (count == 0) return;
    if (!WriteFile(m_hFile, buffer, count, &done, nullptr)) throwLastError();
    if (done != count) AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

void CFile::Flush()
{
    if (m_hFile != hFileNull && !FlushFileBuffers(m_hFile)) throwLastError();
}

ULONGLONG CFile::GetPosition() const
{
    LARGE_INTEGER none{}, position{};
    if (!SetFilePointerEx(m_hFile, none, &position, FILE_CURRENT)) throwLastError();
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    ENSURE(from == begin || from == current || from == end);
    LARGE_INTEGER distance{}, position{};
    distance.QuadPart = offset;
    if (!SetFilePointerEx(m_hFile, distance, &position, from)) throwLastError();
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::GetLength() const
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(m_hFile, &size)) throwLastError();
    return static_cast<ULONGLONG>(size.QuadPart);
}

void CFile::SetLength(ULONGLONG newLength)
{
    Seek(static_cast<LONGLONG>(newLength), begin);
    if (!SetEndOfFile(m_hFile)) throwLastError();
}

void CFile::LockRange(ULONGLONG position, ULONGLONG count)
{
    if (!LockFile(m_hFile, static_cast<DWORD>(position), static_cast<DWORD>(position >> 32),
                  static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)))
        throwLastError();
}

void CFile::UnlockRange(ULONGLONG position, ULONGLONG count)
{
    if (!UnlockFile(m_hFile, static_cast<DWORD>(position), static_cast<DWORD>(position >> 32),
                    static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)))
        throwLastError();
}

CString CFile::GetFileName() const
{
    return m_strFileName.Mid(std::max(m_strFileName.ReverseFind('\\'), m_strFileName.ReverseFind('/')) + 1);
}

CString CFile::GetFileTitle() const
{
    const CString name = CFile::GetFileName();
    const int dot = name.ReverseFind('.');
    return dot > 0 ? name.Left(dot) : name;
}

BOOL CFile::GetStatus(CFileStatus& status) const
{
    status = CFileStatus();
    if (m_hFile == hFileNull || !copyName(status, m_strFileName)) return FALSE;
    FILETIME made{}, read{}, changed{};
    if (!GetFileTime(m_hFile, &made, &read, &changed)) return FALSE;
    status.m_ctime = CTime(made);
    status.m_atime = CTime(read);
    status.m_mtime = CTime(changed);
    status.m_size = GetLength();
    const DWORD attributes = GetFileAttributesW(m_strFileName);
    status.m_attribute = attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes & 0x3f;
    return TRUE;
}

BOOL PASCAL CFile::GetStatus(LPCTSTR fileName, CFileStatus& status)
{
    ENSURE(fileName != nullptr);
    status = CFileStatus();
    const CString path = fullPath(fileName);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!copyName(status, path) || !GetFileAttributesExW(path, GetFileExInfoStandard, &data)) return FALSE;
    status.m_ctime = CTime(data.ftCreationTime);
    status.m_atime = CTime(data.ftLastAccessTime);
    status.m_mtime = CTime(data.ftLastWriteTime);
    status.m_size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    // FILE_ATTRIBUTE_NORMAL and what else does not fit the six documented bits is left out.
    status.m_attribute = data.dwFileAttributes & 0x3f;
    return TRUE;
}

void PASCAL CFile::Rename(LPCTSTR oldName, LPCTSTR newName)
{
    ENSURE(oldName != nullptr && newName != nullptr);
    if (!MoveFileW(oldName, newName))
        CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), oldName);
}

void PASCAL CFile::Remove(LPCTSTR fileName)
{
    ENSURE(fileName != nullptr);
    if (!DeleteFileW(fileName)) CFileException::ThrowOsError(static_cast<LONG>(GetLastError()), fileName);
}
