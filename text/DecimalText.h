#pragma once

#include <afx.h>

namespace decimaltext
{
/// A number with up to 6 decimals and none that are 0 at the end: 1.5, 2.
CString trimmed(double value);
} // namespace decimaltext
