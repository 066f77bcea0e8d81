#pragma once

/// The exceptions of MFC. They are thrown and caught by pointer; whoever catches one and does not throw it
/// again calls Delete on it, or uses the TRY and CATCH macros, which do.

#include "afxobject.h"
#include "atlstr.h"

class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    /// @param autoDelete  TRUE for an exception made with new, FALSE for one that is not to be deleted
    explicit CException(BOOL autoDelete = TRUE) : m_bAutoDelete(autoDelete) {}

    /// Ends the exception's life, if it was made with new.
    void Delete();
    /// Describes the error in at most maxError characters, the closing null included; the text is cut to
    /// fit. FALSE, and an empty text, when there is no description.
    virtual BOOL GetErrorMessage(LPTSTR error, UINT maxError, PUINT helpContext = nullptr) const;
    /// Shows the description in a message box and returns what AfxMessageBox does. An exception without a
    /// description shows the text of the string resource `messageId`, or a general one.
    virtual int ReportError(UINT type = MB_OK, UINT messageId = 0);

    BOOL m_bAutoDelete;

protected:
    /// The description; empty for none.
    virtual CString description() const;
};

/// An exception whose description is fixed.
class CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)

public:
    explicit CSimpleException(BOOL autoDelete = TRUE, LPCTSTR text = nullptr);

protected:
    CString description() const override;

private:
    LPCTSTR m_text; ///< lives as long as the program
};

/// Memory is out.
class CMemoryException : public CSimpleException
{
    DECLARE_DYNAMIC(CMemoryException)

public:
    explicit CMemoryException(BOOL autoDelete = TRUE);
};

/// The operation is not supported by this class or in this state.
class CNotSupportedException : public CSimpleException
{
    DECLARE_DYNAMIC(CNotSupportedException)

public:
    explicit CNotSupportedException(BOOL autoDelete = TRUE);
};

/// An argument is outside its range: an index beyond a collection, a negative count, a null pointer.
class CInvalidArgException : public CSimpleException
{
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    explicit CInvalidArgException(BOOL autoDelete = TRUE);
};

/// A resource cannot be found or made.
class CResourceException : public CSimpleException
{
    DECLARE_DYNAMIC(CResourceException)

public:
    explicit CResourceException(BOOL autoDelete = TRUE);
};

/// Stops an operation after the user was told why.
class CUserException : public CSimpleException
{
    DECLARE_DYNAMIC(CUserException)

public:
    explicit CUserException(BOOL autoDelete = TRUE);
};

/// A file operation failed.
class CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG osError = -1, LPCTSTR fileName = nullptr);

    int m_cause;
    LONG m_lOsError; ///< the Windows error number, -1 when the system reported none
    CString m_strFileName;

    /// The cause (one of the values above) that a Windows error number stands for.
    static int PASCAL OsErrorToException(LONG osError);
    static void PASCAL ThrowOsError(LONG osError, LPCTSTR fileName = nullptr);

protected:
    CString description() const override;
};

/// An archive is damaged, ends too early, or is used against its direction.
class CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)

public:
    enum {
        none,
        genericException,
        readOnly,  ///< writing into an archive that loads
        endOfFile, ///< the data end before the item does
        writeOnly, ///< reading from an archive that stores
        badIndex,  ///< a reference to an object or class that was not read before
        badClass,  ///< another class, or an unknown one, than was asked for
        badSchema, ///< a schema number that the class does not read
        bufferFull
    };

    explicit CArchiveException(int cause = none, LPCTSTR archiveName = nullptr);

    int m_cause;
    CString m_strFileName;

protected:
    CString description() const override;
};

[[noreturn]] void AFXAPI AfxThrowMemoryException();
[[noreturn]] void AFXAPI AfxThrowNotSupportedException();
[[noreturn]] void AFXAPI AfxThrowInvalidArgException();
[[noreturn]] void AFXAPI AfxThrowResourceException();
[[noreturn]] void AFXAPI AfxThrowUserException();
[[noreturn]] void AFXAPI AfxThrowFileException(int cause, LONG osError = -1, LPCTSTR fileName = nullptr);
[[noreturn]] void AFXAPI AfxThrowArchiveException(int cause, LPCTSTR archiveName = nullptr);

/// Holds the exception that a CATCH block works on and deletes it at the end of the block.
class AFX_EXCEPTION_LINK
{
public:
    AFX_EXCEPTION_LINK() = default;
    ~AFX_EXCEPTION_LINK() { hold(nullptr); }
    AFX_EXCEPTION_LINK(const AFX_EXCEPTION_LINK&) = delete;
    AFX_EXCEPTION_LINK& operator=(const AFX_EXCEPTION_LINK&) = delete;

    void hold(CException* exception)
    {
        if (m_pException) m_pException->Delete();
        m_pException = exception;
    }
    /// The exception is thrown on: the next block that catches it owns it.
    void release() { m_pException = nullptr; }

private:
    CException* m_pException = nullptr;
};

// clang-format off
#define TRY { AFX_EXCEPTION_LINK afxExceptionLink; (void)afxExceptionLink; try {
#define CATCH(class_name, e) } catch (class_name* e) { afxExceptionLink.hold(e);
#define AND_CATCH(class_name, e) CATCH(class_name, e)
#define END_CATCH } }
#define CATCH_ALL(e) } catch (CException* e) { { afxExceptionLink.hold(e);
#define AND_CATCH_ALL(e) CATCH_ALL(e)
#define END_CATCH_ALL } } }
#define END_TRY } catch (CException* afxException) { afxExceptionLink.hold(afxException); } }
#define THROW(e) throw (e)
#define THROW_LAST() (afxExceptionLink.release(), throw)
// clang-format on
