#pragma once

#include "acedhooks.h"

namespace ed
{
/// Takes every message that waits through the hooks to its window; then those who wait for idleness. Returns how many there
/// were.
int pumpMessages();
/// Forgets hooks whose code lies in a module.
void forgetHooks(HMODULE module);
/// Forgets all hooks.
void forgetAllHooks();
} // namespace ed
