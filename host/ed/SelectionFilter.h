#pragma once

/// Which entities a selection takes: conditions on their groups, joined by operators.

#include "FilterTest.h"

namespace ed
{
class SelectionFilter
{
public:
    /// Takes every entity.
    SelectionFilter() = default;
    /// The filter of a list, as acedSSGet describes it; null takes every entity. Nothing for a faulty list.
    static std::optional<SelectionFilter> read(const resbuf* list);

    bool takesAll() const { return mRoot.parts.empty(); }
    bool fits(const AcDbEntity& entity) const;

private:
    friend class FilterReader;
    enum class Join { all, one, exactlyOne, none };
    struct Node {
        Join join = Join::all;
        std::optional<FilterTest> test; ///< without: the parts count
        std::vector<Node> parts;
    };
    static bool fits(const Node& node, EntityGroups& groups);

    Node mRoot;
    GroupCodes mCodes;
};
} // namespace ed
