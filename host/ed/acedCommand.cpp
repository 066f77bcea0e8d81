#include "CommandRunner.h"
#include "Documents.h"
#include "TypedAnswer.h"
#include "acedcmd.h"

#include <cstdarg>

namespace
{
using ed::Answer;
using ed::Outcome;

/// Gives the values of a list as answers; false for one that is none.
bool giveAll(ed::InputSource& input, const resbuf* list)
{
    for (const resbuf* at = list; at; at = at->rbnext) {
        if (at->restype == RTLB || at->restype == RTLE) continue; // an entity and its point may stand in a list
        if (at->restype == RTSTR && at->resval.rstring && std::wcscmp(at->resval.rstring, PAUSE) == 0) {
            input.pauseForUser();
            continue;
        }
        const std::optional<Answer> answer = ed::answerOf(*at);
        if (!answer) return false;
        input.give(*answer);
    }
    return true;
}

int codeOf(Outcome outcome)
{
    return outcome == Outcome::done ? RTNORM : outcome == Outcome::cancelled ? RTCAN : RTERROR;
}

/// Runs what is given; the first command that does not end well ends it.
int runGiven(ed::InputSource& input)
{
    while (!input.empty()) {
        const std::optional<Answer> answer = input.takeComplete(ed::Reading::token);
        if (!answer) return RTCAN;
        const int code = codeOf(ed::carryOut(*answer));
        if (code != RTNORM) return code;
        if (!documents::current() || &documents::current()->input != &input) return RTNORM;
    }
    return RTNORM;
}

/// Appends the node of one argument; false for a type that takes no part.
bool appendArgument(ed::OwnedResbuf& list, int type, va_list& arguments)
{
    resbuf* made = nullptr;
    switch (type) {
    case RTSTR: made = acutBuildList(type, va_arg(arguments, const ACHAR*), RTNONE); break;
    case RTREAL:
    case RTANG:
    case RTORINT: made = acutBuildList(type, va_arg(arguments, double), RTNONE); break;
    case RTSHORT:
    case RTLONG: made = acutBuildList(type, va_arg(arguments, int), RTNONE); break;
    case RTPOINT:
    case RT3DPOINT: made = acutBuildList(type, va_arg(arguments, const double*), RTNONE); break;
    case RTENAME:
    case RTPICKS: made = acutBuildList(type, va_arg(arguments, const std::int64_t*), RTNONE); break;
    case RTLB:
    case RTLE: made = acutNewRb(type); break;
    default: return false;
    }
    ed::append(list, ed::OwnedResbuf(made));
    return made != nullptr;
}
} // namespace

int acedCmdS(const resbuf* list, bool, void*)
{
    DocumentState* state = documents::current();
    if (!state) return RTERROR;
    AcApDocument* document = acDocManager->curDocument();
    ed::InputSource& input = state->input;
    ed::InputSource::Scope scope(input);
    const int code = giveAll(input, list) ? runGiven(input) : RTERROR;
    if (documents::stateOf(document))
        input.forgetCancel();
    else
        scope.abandon(); // a command closed the document with its answers
    return code;
}

int acedCommandS(int type, ...)
{
    va_list arguments;
    va_start(arguments, type);
    ed::OwnedResbuf list;
    bool good = true;
    for (int at = type; good && at != RTNONE && at != 0; at = va_arg(arguments, int))
        good = appendArgument(list, at, arguments);
    va_end(arguments);
    return good ? acedCmdS(list.get()) : RTERROR;
}
