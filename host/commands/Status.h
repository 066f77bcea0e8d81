#pragma once

#include "acadstrc.h"

namespace commands
{
/// True for eOk; else the command fails with the status' own text.
bool succeeds(Acad::ErrorStatus status);
} // namespace commands
