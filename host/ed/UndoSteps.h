#pragma once

/// What U takes back as one step: a command, an expression, a variable that is set.

#include "accmd.h"
#include "acdocman.h"

#include <string>

namespace ed
{
/// While it lives, a command runs. An outermost one is a step; commands that it calls belong to it, those that an
/// expression calls are steps of their own. Transactions that the command leaves active are aborted at its end.
class CommandStep
{
public:
    CommandStep(AcApDocument* document, const AcEdCommand& command);
    ~CommandStep();
    CommandStep(const CommandStep&) = delete;
    CommandStep& operator=(const CommandStep&) = delete;

private:
    AcApDocument* mDocument;
    bool mIsStep;
    int mTransactionsBefore;
};

/// While it lives, what is changed outside of commands is one step; nothing that is changed is none.
class OtherStep
{
public:
    explicit OtherStep(const std::wstring& name);
    ~OtherStep();
    /// Counts as a step also when nothing is changed, as commands do.
    void count() { mCounts = true; }
    OtherStep(const OtherStep&) = delete;
    OtherStep& operator=(const OtherStep&) = delete;

private:
    AcApDocument* mDocument;
    bool mCounts = false;
};
} // namespace ed
