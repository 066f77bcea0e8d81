#pragma once

#include "InputSource.h"
#include "ResbufCopy.h"

#include <optional>

namespace ed
{
/// What one would type for a number, a text or a point: all digits, decimal. Empty for other values.
std::wstring typedForm(const resbuf* value);
/// The answer that a value stands for; nothing for a value that answers no question.
std::optional<Answer> answerOf(const resbuf& value);
} // namespace ed
