#pragma once

#include "acadstrc.h"

#include <string>

namespace commands
{
/// Why a drawing cannot be read or written, for users.
std::wstring fileReason(Acad::ErrorStatus status);
} // namespace commands
