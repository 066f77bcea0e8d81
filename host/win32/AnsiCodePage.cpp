#include "AnsiCodePage.h"

#include <atomic>
#include <cstdlib>

namespace
{
constexpr UINT simplifiedChinese = 936;

bool isKnown(UINT codePage)
{
    return codePage == 936 || codePage == 950 || codePage == 1252 || codePage == 65001;
}

UINT codePageOfEnvironment()
{
    const char* text = std::getenv("QM_ACP");
    const unsigned long value = text ? std::strtoul(text, nullptr, 10) : 0;
    return isKnown(static_cast<UINT>(value)) ? static_cast<UINT>(value) : simplifiedChinese;
}

std::atomic<UINT>& current()
{
    static std::atomic<UINT> codePage{codePageOfEnvironment()};
    return codePage;
}
} // namespace

namespace win32
{
UINT ansiCodePage() { return current().load(std::memory_order_relaxed); }

void setAnsiCodePage(UINT codePage)
{
    if (isKnown(codePage)) current() = codePage;
}
} // namespace win32
