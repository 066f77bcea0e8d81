#pragma once

#include <atlstr.h>

/// True for a name that a symbol table takes: 1 to 255 characters, none of < > / \ " : ; ? * | , = ` and no control
/// character. A leading "*" marks the system's own names (*Model_Space, anonymous blocks, *Active); "|" stands in the
/// names of records that came from another drawing.
bool isSymbolName(const wchar_t* name);
