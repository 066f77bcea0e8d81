#pragma once

#include <afx.h>

/// 1 when the call throws exactly that kind of MFC exception, 0 when it throws nothing.
template <class Exception, class Call>
int thrown(Call call)
{
    try {
        call();
    } catch (Exception* error) {
        error->Delete();
        return 1;
    }
    return 0;
}

/// The m_cause of the file or archive exception that the call throws; -1 when it throws nothing.
template <class Exception, class Call>
int thrownCause(Call call)
{
    try {
        call();
    } catch (Exception* error) {
        const int cause = error->m_cause;
        error->Delete();
        return cause;
    }
    return -1;
}
