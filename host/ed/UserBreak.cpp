#include "UserBreak.h"

#include "acedinput.h"

#include <utility>

namespace
{
ed::BreakSource& current()
{
    static ed::BreakSource one;
    return one;
}
} // namespace

ed::BreakSource ed::setBreakSource(BreakSource source)
{
    std::swap(current(), source);
    return source;
}

int acedUsrBrk()
{
    return current() && current()() ? 1 : 0;
}
