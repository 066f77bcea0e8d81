#pragma once

#include <afx.h>

/// The text of COM variants, by the rules that AlgorString states.
namespace varianttext
{
enum class Style {
    exact, ///< can be read back
    cell   ///< for people and for SQL
};

CString text(const VARIANT& value, Style style);
} // namespace varianttext
