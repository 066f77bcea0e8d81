#pragma once

#include "oleauto.h"

#include <string>
#include <string_view>

namespace win32
{
/// Wide enough for every integer of 64 bits without loss.
using Number = long double;

/// Whether a type is a number of any kind: integer, real, money, date or truth value.
bool isNumeric(VARTYPE type);

/// The value of a numeric variant. A date is its days, a truth value -1 or 0.
Number numberOf(const VARIANT& value);

/// Stores a number as a numeric type, rounded. DISP_E_OVERFLOW out of the type's range, for infinities and
/// for what is no number.
HRESULT storeNumber(Number number, VARTYPE type, VARIANT& made);

/// The number that a text is, see VariantChangeType. False when it is none.
bool parseNumber(std::wstring_view text, Number& number);

/// A numeric value as text, truth values as -1 and 0; dates are not for it.
std::wstring textOfNumber(const VARIANT& value);
} // namespace win32
