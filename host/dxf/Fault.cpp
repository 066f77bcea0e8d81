#include "Fault.h"

namespace dxf
{
const char* reasonOf(FaultKind kind)
{
    switch (kind) {
    case FaultKind::badCode:
        return "not a group code";
    case FaultKind::loneCode:
        return "the file ends after a group code";
    case FaultKind::badNumber:
        return "not a number";
    case FaultKind::numberRemainder:
        return "more text behind the number";
    case FaultKind::notAnInteger:
        return "not an integer";
    case FaultKind::outOfRange:
        return "the number is out of range";
    case FaultKind::notFinite:
        return "not a finite number";
    case FaultKind::badHandle:
        return "not a handle";
    case FaultKind::badChunk:
        return "not hexadecimal data";
    case FaultKind::truncated:
        return "the file ends inside a group";
    case FaultKind::noEnd:
        return "the file has no end mark";
    case FaultKind::unknownCodePage:
        return "unknown code page";
    case FaultKind::kindMismatch:
        return "the group code does not carry such a value";
    case FaultKind::malformedValue:
        return "a malformed value cannot be kept in a binary file";
    }
    return "unknown fault";
}

void FaultList::add(FaultKind kind, std::size_t position, int code)
{
    ++_count;
    if (_kept.size() < capacity) _kept.push_back({kind, code, position});
}
} // namespace dxf
