#pragma once

#include "CommandRunner.h"
#include "LispFunctions.h"

#include <optional>

namespace ed
{
/// Evaluates one expression in the current document. False when it is faulty; the reason is on the command line.
bool evaluate(const std::wstring& text, OwnedResbuf& result);

/// An expression at the command prompt: its result is written.
Outcome runLisp(const std::wstring& text);
/// An expression in the middle of a question: what it answers; enter when it has no value.
Answer answerOfLisp(const std::wstring& text);
/// A word that names a function "C:WORD"; nothing when there is none.
std::optional<Outcome> callLispCommand(const std::wstring& word);

/// A value as AutoLISP prints it.
std::wstring lispText(const resbuf* value);
} // namespace ed
