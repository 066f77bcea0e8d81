#include "afxexcept.h"

#include <algorithm>
#include <iterator>

IMPLEMENT_DYNAMIC(CFileException, CException)

namespace
{
struct ErrorCause {
    LONG osError;
    int cause;
};

constexpr ErrorCause errorCauses[] = {
    {ERROR_SUCCESS, CFileException::none},
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_BAD_NETPATH, CFileException::badPath},
    {ERROR_BAD_NET_NAME, CFileException::badPath},
    {ERROR_BAD_PATHNAME, CFileException::badPath},
    {ERROR_INVALID_NAME, CFileException::badPath},
    {ERROR_INVALID_DRIVE, CFileException::badPath},
    {ERROR_DIRECTORY, CFileException::badPath},
    {ERROR_FILENAME_EXCED_RANGE, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_ACCESS, CFileException::accessDenied},
    {ERROR_NETWORK_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_WRITE_PROTECT, CFileException::accessDenied},
    {ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_ALREADY_EXISTS, CFileException::accessDenied},
    {ERROR_DIR_NOT_EMPTY, CFileException::removeCurrentDir},
    {ERROR_INVALID_HANDLE, CFileException::invalidFile},
    {ERROR_CURRENT_DIRECTORY, CFileException::removeCurrentDir},
    {ERROR_CANNOT_MAKE, CFileException::directoryFull},
    {ERROR_SEEK, CFileException::badSeek},
    {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
    {ERROR_SEEK_ON_DEVICE, CFileException::badSeek},
    {ERROR_BAD_UNIT, CFileException::hardIO},
    {ERROR_NOT_READY, CFileException::hardIO},
    {ERROR_CRC, CFileException::hardIO},
    {ERROR_SECTOR_NOT_FOUND, CFileException::hardIO},
    {ERROR_WRITE_FAULT, CFileException::hardIO},
    {ERROR_READ_FAULT, CFileException::hardIO},
    {ERROR_GEN_FAILURE, CFileException::hardIO},
    {ERROR_IO_DEVICE, CFileException::hardIO},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
    {ERROR_NOT_LOCKED, CFileException::lockViolation},
    {ERROR_DRIVE_LOCKED, CFileException::lockViolation},
    {ERROR_DISK_FULL, CFileException::diskFull},
    {ERROR_HANDLE_DISK_FULL, CFileException::diskFull},
    {ERROR_HANDLE_EOF, CFileException::endOfFile},
};

// In the order of the causes; %1 is the file.
constexpr LPCWSTR descriptions[] = {
    L"No error occurred.",
    L"An unknown error occurred while accessing %1.",
    L"%1 was not found.",
    L"%1 contains an incorrect path.",
    L"Could not open %1 because there are too many open files.",
    L"Access to %1 was denied.",
    L"An incorrect file handle was associated with %1.",
    L"Could not remove %1 because it is the current directory.",
    L"Could not create %1 because the directory is full.",
    L"Seek failed on %1.",
    L"Encountered a hardware I/O error while accessing %1.",
    L"Encountered a sharing violation while accessing %1.",
    L"Encountered a locking violation while accessing %1.",
    L"Disk full while accessing %1.",
    L"Attempted to access %1 past its end.",
};
} // namespace

CFileException::CFileException(int cause, LONG osError, LPCTSTR fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName)
{
}

int PASCAL CFileException::OsErrorToException(LONG osError)
{
    const auto found = std::find_if(std::begin(errorCauses), std::end(errorCauses),
                                    [=](const ErrorCause& entry) { return entry.osError == osError; });
    return found == std::end(errorCauses) ? genericException : found->cause;
}

void PASCAL CFileException::ThrowOsError(LONG osError, LPCTSTR fileName)
{
    if (osError != ERROR_SUCCESS) AfxThrowFileException(OsErrorToException(osError), osError, fileName);
}

CString CFileException::description() const
{
    const bool isKnown = m_cause >= none && m_cause <= endOfFile;
    CString text(descriptions[isKnown ? m_cause : genericException]);
    text.Replace(L"%1", m_strFileName.IsEmpty() ? L"an unnamed file" : m_strFileName.GetString());
    return text;
}

void AFXAPI AfxThrowFileException(int cause, LONG osError, LPCTSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}
