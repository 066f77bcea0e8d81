#include "DecimalText.h"

CString decimaltext::trimmed(double value)
{
    CString text;
    text.Format(L"%f", value);
    text.TrimRight(L'0');
    text.TrimRight(L'.');
    return text;
}
