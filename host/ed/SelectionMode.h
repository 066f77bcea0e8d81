#pragma once

/// The mode texts of acedSSGet.

#include <optional>

namespace ed
{
enum class SelectionMethod {
    ask, ///< the user selects; with a point the entity under it
    whole,
    all,
    window,
    crossing,
    box,
    windowPolygon,
    crossingPolygon,
    fence,
    last,
    previous,
    implied,
    group,
};

struct SelectionMode {
    SelectionMethod method = SelectionMethod::ask;
    bool isSingle = false;         ///< ":S"
    bool takesAllUnderBox = false; ///< ":E"
    bool picksOnly = false;        ///< "."
    bool hasPrompts = false;       ///< ":$"
    bool rejectsLocked = false;    ///< ":L"
    bool rejectsViewports = false; ///< ":P"
    bool keepsDoubles = false;     ///< ":D"
    bool callsForKeywords = false; ///< ":K"
    bool callsForOthers = false;   ///< ":?"
    bool isNongeometric = false;   ///< "#"
    bool leavesImplied = false;    ///< "-I"

    /// Nothing for a text that is no mode; null is the empty text.
    static std::optional<SelectionMode> read(const wchar_t* text);
};
} // namespace ed
