#pragma once

#include "Options.h"

namespace console
{
/// Does what the options ask for. Returns the exit status.
int run(const Options& options);
} // namespace console
