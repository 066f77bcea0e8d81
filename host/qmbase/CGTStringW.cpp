#include "CGTStringW.h"

template <>
void AFXAPI SerializeElements<CGTStringW>(CArchive& archive, CGTStringW* elements, INT_PTR count)
{
    for (; count > 0; --count, ++elements)
        SerializeElements<CString>(archive, elements, 1);
}
