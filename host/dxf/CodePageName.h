#pragma once

#include <string>
#include <string_view>

#include <windef.h>

namespace dxf
{
/// The Windows code page number that a value of $DWGCODEPAGE names, without regard to case: "ANSI_936",
/// "dos850", "BIG5", "iso8859-1" ...; 0 for an unknown name.
UINT codePageOfName(std::string_view name);

/// The value of $DWGCODEPAGE for a code page: "ANSI_936". UTF-8 has no name of its own; drawings whose
/// texts are UTF-8 name the ANSI code page of the machine that wrote them.
std::string nameOfCodePage(UINT codePage);
} // namespace dxf
