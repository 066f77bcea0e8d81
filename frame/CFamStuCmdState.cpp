#include "CFamStuCmdState.h"

#include "acdocman.h"

namespace
{
int running = 0; ///< a command of the application runs
int nested = 0;  ///< a second one has tried to start within it and has not ended yet

bool documentIsFree()
{
    const AcApDocument* document = curDoc();
    return document && (document->lockMode(false) & ~AcAp::kNotLocked) == 0;
}
} // namespace

CFamStuCmdState::CFamStuCmdState() = default;

int CFamStuCmdState::IsNormal()
{
    if (!documentIsFree() || nested != 0) return 0;
    if (running == 1) {
        nested = 1;
        return 0;
    }
    running = 1;
    return 1;
}

CFamStuCmdState::~CFamStuCmdState()
{
    if (running != 1) return;
    (nested == 1 ? nested : running) = 0;
}
