#pragma once

#include "Question.h"

namespace ed
{
/// Whether a number is neither a zero nor a negative one that the rules forbid; says what it must be when it
/// is.
Verdict checkNumber(double value, const InputRules& rules, std::wstring& message);
} // namespace ed
