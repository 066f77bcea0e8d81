#include "ProgressMeter.h"

#include "ConsoleText.h"

#include <cstdio>
#include <unistd.h>

namespace console
{
void ProgressMeter::start(const ACHAR* displayString)
{
    mText = utf8(displayString ? displayString : L"");
    mSteps = 0;
    mIsShown = false;
    mStart = std::chrono::steady_clock::now();
}

void ProgressMeter::meterProgress()
{
    using namespace std::chrono_literals;
    ++mSteps;
    if (mLimit <= 0 || (!mIsShown && std::chrono::steady_clock::now() - mStart < 300ms)) return;
    if (!mIsShown) std::fflush(stdout);
    mIsShown = true;
    std::fprintf(stderr, "\r%s %d%%", mText.c_str(), static_cast<int>(100LL * mSteps / mLimit));
}

/// The line is as if nothing had stood there.
void ProgressMeter::stop()
{
    if (mIsShown) std::fprintf(stderr, "\r\x1b[K");
    mIsShown = false;
}

ProgressOnTerminal::ProgressOnTerminal() : mBefore(acdbHostApplicationServices()->workingProgressMeter())
{
    if (isatty(STDERR_FILENO)) acdbHostApplicationServices()->setWorkingProgressMeter(&mMeter);
}

ProgressOnTerminal::~ProgressOnTerminal()
{
    acdbHostApplicationServices()->setWorkingProgressMeter(mBefore);
}
} // namespace console
