#pragma once

/// Files of bytes: on disk (CFile) and in memory (CMemFile).

#include "afxexcept.h"
#include "atltime.h"

/// What is known of a file without opening it.
struct CFileStatus {
    CTime m_ctime; ///< made
    CTime m_mtime; ///< last changed
    CTime m_atime; ///< last read
    ULONGLONG m_size = 0;
    DWORD m_attribute = 0; ///< CFile::Attribute values
    TCHAR m_szFullName[MAX_PATH] = {};
};

/// A file of bytes without a buffer of its own. Failures throw CFileException with cause, system error and
/// file name; positions and lengths are in bytes from the start of the file.
class CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    /// How to open. One access, one share mode, and any of the others. Without a share mode (shareCompat)
    /// the file is shared as by shareExclusive. modeCreate empties a file that exists unless
    /// modeNoTruncate is given too. The type flags are for derived classes.
    enum OpenFlags {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        typeUnicode = 0x0400,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000,
        osNoBuffer = 0x10000,
        osWriteThrough = 0x20000,
        osRandomAccess = 0x40000,
        osSequentialScan = 0x80000
    };
    enum Attribute {
        normal = 0x00,
        readOnly = 0x01,
        hidden = 0x02,
        system = 0x04,
        volume = 0x08,
        directory = 0x10,
        archive = 0x20
    };
    enum SeekPosition { begin = 0, current = 1, end = 2 };

    static const HANDLE hFileNull;
    HANDLE m_hFile = hFileNull;

    CFile() = default;
    /// Takes over an open handle; Close closes it, the destructor does not.
    explicit CFile(HANDLE file);
    /// Opens the file; throws CFileException when Open would fail.
    CFile(LPCTSTR fileName, UINT openFlags);
    /// Closes a file that this object opened.
    ~CFile() override;

    operator HANDLE() const { return m_hFile; }

    /// Opens a file. FALSE when that fails; `error`, if given, then has cause, system error and name.
    virtual BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr);
    /// Another object on the same open file, owned by the caller; position is common to both.
    virtual CFile* Duplicate() const;
    virtual void Close();
    /// Closes without reporting anything.
    virtual void Abort();

    /// Reads up to `count` bytes and returns how many: fewer only at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    /// Writes all of `count` bytes or throws (diskFull when the system took fewer).
    virtual void Write(const void* buffer, UINT count);
    virtual void Flush();

    virtual ULONGLONG GetPosition() const;
    /// Moves the position and returns the new one. A place before the start of the file is badSeek and
    /// moves nothing; a place beyond the end is allowed, and a write there makes the file longer.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    void SeekToBegin() { Seek(0, begin); }
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    virtual ULONGLONG GetLength() const;
    /// Makes the file longer or shorter; the position is at the new end afterwards.
    virtual void SetLength(ULONGLONG newLength);

    virtual void LockRange(ULONGLONG position, ULONGLONG count);
    virtual void UnlockRange(ULONGLONG position, ULONGLONG count);

    /// The name with extension ("line.lin"), the name without folder and extension ("line"), and the full
    /// path; empty when no file is open.
    virtual CString GetFileName() const;
    virtual CString GetFileTitle() const;
    virtual CString GetFilePath() const { return m_strFileName; }
    virtual void SetFilePath(LPCTSTR newName) { m_strFileName = newName; }

    /// FALSE when there is no such file, or (the member) its data cannot be read.
    BOOL GetStatus(CFileStatus& status) const;
    static BOOL PASCAL GetStatus(LPCTSTR fileName, CFileStatus& status);
    static void PASCAL Rename(LPCTSTR oldName, LPCTSTR newName);
    static void PASCAL Remove(LPCTSTR fileName);

protected:
    CString m_strFileName; ///< full path
    BOOL m_bCloseOnDelete = FALSE;

    /// Throws the exception for GetLastError.
    [[noreturn]] void throwLastError() const;
};

/// A file in memory. Reads beyond the end give 0 bytes; a write beyond the end fills the gap with zeros.
class CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)

public:
    /// @param growBytes  the step in which memory is taken; 0 for a file that cannot grow
    explicit CMemFile(UINT growBytes = 1024) : m_nGrowBytes(growBytes) {}
    /// As Attach.
    CMemFile(BYTE* buffer, UINT bufferSize, UINT growBytes = 0) { Attach(buffer, bufferSize, growBytes); }
    ~CMemFile() override;

    /// Uses the caller's memory, which must outlive the file. With growBytes 0 the file has bufferSize
    /// bytes of content and cannot grow; otherwise it is empty, and the memory must come from malloc,
    /// because growing reallocates it.
    void Attach(BYTE* buffer, UINT bufferSize, UINT growBytes = 0);
    /// Gives the content to the caller, who frees it with std::free if it was not attached, and empties
    /// the file. Null when there is none.
    BYTE* Detach();

    BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    CFile* Duplicate() const override;
    void Close() override;
    void Abort() override;
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    void Flush() override {}
    ULONGLONG GetPosition() const override { return m_nPosition; }
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetLength() const override { return m_nFileSize; }
    void SetLength(ULONGLONG newLength) override;
    void LockRange(ULONGLONG position, ULONGLONG count) override;
    void UnlockRange(ULONGLONG position, ULONGLONG count) override;

protected:
    /// Memory of the file. Null means that there is none left.
    virtual BYTE* Alloc(SIZE_T bytes);
    virtual BYTE* Realloc(BYTE* memory, SIZE_T bytes);
    virtual void Free(BYTE* memory);
    virtual BYTE* Memcpy(BYTE* target, const BYTE* source, SIZE_T bytes);
    /// Takes memory for a file of that length; throws CMemoryException when it cannot grow.
    virtual void GrowFile(SIZE_T newLength);

    SIZE_T m_nGrowBytes = 0;
    SIZE_T m_nPosition = 0;
    SIZE_T m_nBufferSize = 0;
    SIZE_T m_nFileSize = 0;
    BYTE* m_lpBuffer = nullptr;
    BOOL m_bAutoDelete = TRUE; ///< the memory is the file's own
};
