#pragma once

#include "LispFunctions.h"

namespace ed
{
/// Calls a function that a module defined in the current document. False when there is none, or the module failed.
bool callLisp(const std::wstring& name, OwnedResbuf arguments, OwnedResbuf& result);
bool isDefined(const std::wstring& name);
/// Forgets what a module defined, in all documents.
void forgetLisp(void* module);
} // namespace ed
