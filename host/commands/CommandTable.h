#pragma once

/// AutoCAD's own commands that work here, with the lines that HELP shows.

#include "accmd.h"

#include <initializer_list>
#include <map>
#include <string>

namespace commands
{
struct Command {
    const wchar_t* name;
    const wchar_t* aliases; ///< short names with a blank between; empty for none
    Adesk::Int32 flags;     ///< ACRX_CMD_...
    AcRxFunctionPtr function;
    const wchar_t* help; ///< what it does, in one line
};

/// Adds commands to the group "ACAD". Always true, so that a constant may be made of it.
bool add(std::initializer_list<Command> all);

/// All that were added, by name.
const std::map<std::wstring, Command>& table();
} // namespace commands
