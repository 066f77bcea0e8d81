#pragma once

#include <functional>

namespace ed
{
/// Tells whether the user has pressed Esc or ^C while something runs. The key stays pressed until the command
/// line takes it, where it cancels what runs.
using BreakSource = std::function<bool()>;

/// An empty function: nobody is there. Returns the one before.
BreakSource setBreakSource(BreakSource source);
} // namespace ed
