#pragma once

/// What goes wrong at the command line, for scripts, which end at it.

#include <string>
#include <string_view>

namespace ed
{
/// Tells on the command line why the command that is running cannot do what it was asked for. It ends as a
/// failed one.
void fail(std::wstring_view reason);
/// The same for a reason that the command line shows already.
void fail();
/// Keeps the reason of a fault that the command line shows already.
void noteFault(std::wstring_view reason);

/// Whether fail() was called since the last time.
bool takeFailure();
bool hasFailed();
/// The last reason, which is forgotten; empty when there is none.
std::wstring takeFault();
} // namespace ed
