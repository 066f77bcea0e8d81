#include "Status.h"

#include "acestext.h"
#include "Faults.h"

#include <string>

bool commands::succeeds(Acad::ErrorStatus status)
{
    if (status != Acad::eOk)
        ed::fail(std::wstring(L"That cannot be done: ") + acadErrorStatusText(status) + L".");
    return status == Acad::eOk;
}
