#pragma once

#include "LispFunctions.h"

namespace ed
{
/// A copy of one node, or of a whole list, that shares nothing with it; null for null.
OwnedResbuf copyNode(const resbuf* node);
OwnedResbuf copyList(const resbuf* list);

/// Puts a list behind another one.
void append(OwnedResbuf& list, OwnedResbuf more);
} // namespace ed
