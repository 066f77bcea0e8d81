#pragma once

#include "FormatSource.h"
#include "FormatSpec.h"

namespace crt
{
/// Appends one directive, with its arguments from the source, to the text.
void appendDirective(FormatSpec spec, FormatSource& source, std::wstring& out);
void appendDirective(FormatSpec spec, FormatSource& source, std::string& out);
} // namespace crt
