#pragma once

#include "oleauto.h"

#include <string>
#include <string_view>

namespace win32
{
/// Whether a DATE lies from 0100-01-01 to 9999-12-31.
bool isOleDate(DATE date);

/// A date as text, and the date that a text is, in the forms that VariantChangeType documents.
std::wstring textOfDate(DATE date);
bool parseDate(std::wstring_view text, DATE& date);
} // namespace win32
