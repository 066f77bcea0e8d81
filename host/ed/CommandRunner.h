#pragma once

/// The command line at work: words become commands, expressions and variables.

#include "InputSource.h"

#include <string>

namespace ed
{
/// Uses what waits to be typed in the open documents until only half a word, or nothing, is left: first in the active
/// document, then in those that may run in the background. With `askReader` the prompt is shown and a document's reader or
/// the typist is asked too, until there is no more, or the program is to end. A command that fails or is not known stops the
/// script that typed it. Does nothing inside of a command. Returns how many commands and expressions it ran.
int runPending(bool askReader = false);

/// How a command or a run of commands went.
enum class Outcome { done, cancelled, failed, unknown };

/// Carries out one answer at the command prompt of the current document.
Outcome carryOut(const Answer& answer);

/// CMDNAMES and CMDACTIVE of the current document.
std::wstring commandNames();
int commandActivity();
} // namespace ed
