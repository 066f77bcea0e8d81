#pragma once

/// Commands from within: acedCommandS.

#include "acutads.h"

/// The user answers this question: the text "\\".
#define PAUSE L"\\"

/// Runs commands in the current document: each value is one answer, texts as if typed, "" for Enter, PAUSE for the user's
/// own next answer; points in the current UCS. What a command asks beyond the list is cancelled. RTNORM; RTCAN when a
/// command was cancelled; RTERROR without a document, for an unknown command, or for a value that is no answer.
int acedCmdS(const resbuf* list, bool forFutureUse = false, void* forFutureUse2 = nullptr);

/// The same with (type, value) pairs as in acutBuildList, ended by RTNONE or 0.
int acedCommandS(int type, ...);
