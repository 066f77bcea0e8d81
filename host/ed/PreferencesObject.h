#pragma once

#include <windows.h>
#include <oleauto.h>

namespace automation
{
/// The automation object of the application, which lives as long as the program: "Name", "Version", "Preferences" (of it
/// "Files", of that "SupportPath", which can be set too). Names without regard to case. Numbers of members are those that
/// GetIDsOfNames gives.
LPDISPATCH applicationObject();
} // namespace automation
