#include "FileReason.h"

#include "acestext.h"

namespace commands
{
std::wstring fileReason(Acad::ErrorStatus status)
{
    switch (status) {
    case Acad::eFileNotFound:
        return L"there is no such file or folder";
    case Acad::eFileAccessErr:
        return L"the system refuses access";
    case Acad::eInvalidDwgVersion:
        return L"a binary DWG file, which is not read; save it as DXF";
    case Acad::eBadDxfSequence:
        return L"this is no drawing file";
    case Acad::eOutOfDisk:
        return L"the disk is full; the old file is as it was";
    default:
        return acadErrorStatusText(status);
    }
}
} // namespace commands
