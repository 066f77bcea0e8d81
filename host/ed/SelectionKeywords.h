#pragma once

/// What may be answered to "Select objects:" beside points.

#include <optional>
#include <string>

namespace ed
{
enum class SelectionKeyword {
    window,
    last,
    crossing,
    box,
    all,
    fence,
    windowPolygon,
    crossingPolygon,
    group,
    add,
    remove,
    multiple,
    previous,
    undo,
    automatic,
    single
};
/// The keyword of an answer, which has its capital letters at least; nothing for another word.
std::optional<SelectionKeyword> selectionKeyword(const std::wstring& answer);

/// The message to an answer that is nothing of it.
extern const wchar_t* const invalidSelectionText;
} // namespace ed
