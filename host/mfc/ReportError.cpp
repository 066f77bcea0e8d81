#include "afxwin.h"

int CException::ReportError(UINT type, UINT messageId)
{
    const CString text = description();
    if (!text.IsEmpty()) return AfxMessageBox(text, type);
    if (messageId != 0) return AfxMessageBox(messageId, type);
    return AfxMessageBox(L"No error message is available.", type);
}
