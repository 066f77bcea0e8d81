#pragma once

/// CStdioFile: buffered text files.

#include "afxfile.h"

#include <string>

/// A file of lines.
///
/// In text mode, the default, a line ends in memory with a line feed and on disk with carriage return and
/// line feed; reading stops at a Ctrl-Z (1A) as at the end of the file. With typeBinary neither is so.
/// The text on disk is in the ANSI code page, a character that it lacks is written as its replacement
/// character. With typeUnicode it is UTF-16, low byte first: a byte-order mark at the start of the file is
/// skipped when lines are read; none is written.
class CStdioFile : public CFile
{
    DECLARE_DYNAMIC(CStdioFile)

public:
    CStdioFile() = default;
    CStdioFile(LPCTSTR fileName, UINT openFlags);
    /// Closes the file. An error on the way is lost: call Close to hear of it.
    ~CStdioFile() override;

    BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    void Close() override;
    void Abort() override;

    /// Reads a line of any length; zeros in it are kept, its line feed is not. FALSE at the end of the file;
    /// the last line needs no line feed.
    virtual BOOL ReadString(CString& text);
    /// Reads up to maximum - 1 characters, no further than a line feed, which is kept, and closes them with
    /// a zero. Null at the end of the file.
    virtual LPTSTR ReadString(LPTSTR text, UINT maximum);
    /// Writes the characters; a line feed is up to the caller.
    virtual void WriteString(LPCTSTR text);

    /// Bytes. In text mode without typeUnicode line ends and Ctrl-Z are treated as above.
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    void Flush() override;

    /// Positions are those of the file, in bytes on disk.
    ULONGLONG GetPosition() const override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG newLength) override;

    CFile* Duplicate() const override;
    void LockRange(ULONGLONG position, ULONGLONG count) override;
    void UnlockRange(ULONGLONG position, ULONGLONG count) override;

private:
    size_t unitSize() const { return m_isUtf16 ? 2 : 1; }
    size_t findUnit(char unit, size_t from, size_t to) const;
    bool isUnit(char unit, size_t at) const;
    bool isAscii(size_t at) const;
    bool readMore();
    size_t lineBytes(size_t enough);
    CString decoded(size_t from, size_t to) const;
    size_t characterBytes(size_t at, size_t end) const;
    std::string encoded(LPCTSTR text) const;
    void startReading();
    void startWriting();
    void writePending();
    void queue(const char* bytes, size_t count);

    bool m_isText = true;
    bool m_isUtf16 = false;
    bool m_isWriting = false;
    std::string m_buffer; ///< read ahead from the file, or waiting to be written
    size_t m_at = 0;      ///< reading: the first byte of the buffer that was not taken
};
