#include "Faults.h"

#include "CommandLine.h"

#include <utility>

namespace
{
std::wstring lastReason;
bool failed = false;
} // namespace

namespace ed
{
void fail(std::wstring_view reason)
{
    if (!lastPrompt().empty()) print(L"\n");
    print(reason);
    print(L"\n");
    noteFault(reason);
    fail();
}

void fail()
{
    failed = true;
}

void noteFault(std::wstring_view reason)
{
    lastReason = reason;
}
bool hasFailed()
{
    return failed;
}
bool takeFailure()
{
    return std::exchange(failed, false);
}
std::wstring takeFault()
{
    return std::exchange(lastReason, {});
}
} // namespace ed
