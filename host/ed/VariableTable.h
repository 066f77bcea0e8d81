#pragma once

/// What is known of every system variable.

#include "VariableValues.h"

#include <functional>
#include <optional>

namespace ed
{
/// Where the value of a variable lives.
enum class Kept {
    drawing,  ///< in the header of the drawing, saved with it
    document, ///< with the open document, not saved
    session,  ///< until the program ends
    registry, ///< in the current profile
    bound,    ///< it is computed, or kept by another part of the editor
};

struct VariableInfo {
    const wchar_t* name; ///< upper case
    short type;
    Kept kept;
    const wchar_t* value; ///< the default; those of drawings have theirs from the header
    double least, most;   ///< of numbers, both inclusive
    bool readOnly;
};

/// The names of all variables, sorted.
std::vector<std::wstring> variableNames();
/// The variable of a name in upper case; nothing for an unknown one.
std::optional<VariableInfo> variableInfo(const std::wstring& name);

/// A variable that is computed or kept elsewhere. An empty writer makes it read-only; a writer returns false to refuse.
struct BoundVariable {
    std::function<VariableValue()> read;
    std::function<bool(const VariableValue& value)> write;
};
/// Says who keeps a variable; the last one said holds. The variable need not be in the table: `type` is its type then.
void bindVariable(const std::wstring& name, short type, BoundVariable bound);
/// A variable of 0 and 1.
void bindSwitch(const std::wstring& name, std::function<bool()> read, std::function<bool(bool on)> write);
const BoundVariable* boundVariable(const std::wstring& name);
} // namespace ed
