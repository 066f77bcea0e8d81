#pragma once

#include "dbapserv.h"

#include <chrono>
#include <string>

namespace console
{
/// Shows on standard error how far long work is; work that is over soon shows nothing.
class ProgressMeter final : public AcDbHostApplicationProgressMeter
{
public:
    void start(const ACHAR* displayString) override;
    void stop() override;
    void meterProgress() override;
    void setLimit(int max) override { mLimit = max; }

private:
    std::string mText;
    int mLimit = 100;
    int mSteps = 0;
    bool mIsShown = false;
    std::chrono::steady_clock::time_point mStart;
};

/// Shows progress while it lives, if standard error is a terminal.
class ProgressOnTerminal
{
public:
    ProgressOnTerminal();
    ~ProgressOnTerminal();
    ProgressOnTerminal(const ProgressOnTerminal&) = delete;
    ProgressOnTerminal& operator=(const ProgressOnTerminal&) = delete;

private:
    ProgressMeter mMeter;
    AcDbHostApplicationProgressMeter* mBefore;
};
} // namespace console
