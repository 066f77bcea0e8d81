#pragma once

#include "VariableTable.h"

namespace ed
{
/// The value of a variable; nothing for an unknown name. `name` is in any case.
std::optional<VariableValue> readVariable(const std::wstring& name);

enum class Written { done, unknown, readOnly, wrongType, refused };
/// Writes a variable and tells the editor's reactors.
Written writeVariable(const std::wstring& name, const VariableValue& value);

/// Everything of the session and of the profile as at the start.
void resetVariables();

std::wstring upperCase(std::wstring text);
} // namespace ed
