#pragma once

/// The selection sets of a document.

#include "adsdef.h"
#include "SelectionSet.h"

#include <map>

namespace ed
{
struct SelectionState {
    std::map<std::int64_t, SelectionSet> sets; ///< those that are out, by the number in their names
    SelectionSet previous;
    SelectionSet implied;                    ///< selected before a command
    const SelectionSet* gathering = nullptr; ///< what the user has selected so far
};

constexpr std::size_t mostSelectionSets = 128;

/// The selection of the current document; null without one.
SelectionState* currentSelection();
/// The set of a name; null when the current document has none of that name.
SelectionSet* selectionSet(const ads_name name);
/// Gives a set a name, which acedSSFree ends. False, and a null name, without a document or when too many are out.
bool giveSelectionSet(SelectionSet set, ads_name name);
} // namespace ed
