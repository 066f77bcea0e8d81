#include "ProgramEnd.h"

namespace
{
bool requested = false;
}

namespace ed
{
void requestEnd()
{
    requested = true;
}
bool endIsRequested()
{
    return requested;
}
void forgetEnd()
{
    requested = false;
}
} // namespace ed
