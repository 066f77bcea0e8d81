#include "afxexcept.h"

IMPLEMENT_DYNAMIC(CArchiveException, CException)

namespace
{
// In the order of the causes; %1 is the archive.
constexpr LPCWSTR descriptions[] = {
    L"No error occurred.",
    L"An unknown error occurred while accessing %1.",
    L"An attempt was made to write to the reading %1.",
    L"An attempt was made to access %1 past its end.",
    L"An attempt was made to read from the writing %1.",
    L"%1 has a bad format.",
    L"%1 contained an unexpected object.",
    L"%1 contains an incorrect schema.",
    L"The buffer of %1 is full.",
};
} // namespace

CArchiveException::CArchiveException(int cause, LPCTSTR archiveName)
    : m_cause(cause), m_strFileName(archiveName)
{
}

CString CArchiveException::description() const
{
    const bool isKnown = m_cause >= none && m_cause <= bufferFull;
    CString text(descriptions[isKnown ? m_cause : genericException]);
    text.Replace(L"%1", m_strFileName.IsEmpty() ? L"an unnamed file" : m_strFileName.GetString());
    return text;
}

void AFXAPI AfxThrowArchiveException(int cause, LPCTSTR archiveName)
{
    throw new CArchiveException(cause, archiveName);
}
