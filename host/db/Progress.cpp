#include "Progress.h"

#include "dbapserv.h"

#include <algorithm>

namespace
{
constexpr std::size_t whole = 100;
}

Progress::Progress(const wchar_t* what) : mMeter(acdbHostApplicationServices()->workingProgressMeter())
{
    if (!mMeter) return;
    mMeter->start(what);
    mMeter->setLimit(static_cast<int>(whole));
}

Progress::~Progress()
{
    if (mMeter) mMeter->stop();
}

void Progress::show(std::size_t done, std::size_t total)
{
    const std::size_t now = std::min(done, total) * whole / total;
    for (; mShown < now; ++mShown)
        mMeter->meterProgress();
}
