#include "afxexcept.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)

void CException::Delete()
{
    if (m_bAutoDelete) delete this;
}

CString CException::description() const
{
    return CString();
}

BOOL CException::GetErrorMessage(LPTSTR error, UINT maxError, PUINT helpContext) const
{
    if (helpContext) *helpContext = 0;
    if (!error || maxError == 0) return FALSE;
    const CString text = description();
    const UINT length = std::min(maxError - 1, static_cast<UINT>(text.GetLength()));
    std::copy_n(text.GetString(), length, error);
    error[length] = 0;
    return !text.IsEmpty();
}

CSimpleException::CSimpleException(BOOL autoDelete, LPCTSTR text) : CException(autoDelete), m_text(text) {}

CString CSimpleException::description() const
{
    return CString(m_text);
}

CMemoryException::CMemoryException(BOOL autoDelete) : CSimpleException(autoDelete, L"Out of memory.") {}

CNotSupportedException::CNotSupportedException(BOOL autoDelete)
    : CSimpleException(autoDelete, L"An unsupported operation was attempted.")
{
}

CInvalidArgException::CInvalidArgException(BOOL autoDelete)
    : CSimpleException(autoDelete, L"An invalid argument was encountered.")
{
}

CResourceException::CResourceException(BOOL autoDelete)
    : CSimpleException(autoDelete, L"A required resource was unavailable.")
{
}

CUserException::CUserException(BOOL autoDelete) : CSimpleException(autoDelete) {}

void AFXAPI AfxThrowMemoryException()
{
    // Made before it is needed: when memory is out there is none for the exception either.
    static CMemoryException exception(FALSE);
    throw &exception;
}

void AFXAPI AfxThrowNotSupportedException()
{
    throw new CNotSupportedException;
}

void AFXAPI AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

void AFXAPI AfxThrowResourceException()
{
    throw new CResourceException;
}

void AFXAPI AfxThrowUserException()
{
    throw new CUserException;
}
