#pragma once

#include "OpenDrawing.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace dxftest
{
/// What a drawing file holds, in a form in which two files can be compared: values normalised as texts, numbers to nine
/// digits.
struct DrawingContents {
    using Values = std::multiset<std::string>;
    struct Object {
        std::string name;
        Values values;
    };

    std::map<std::uint64_t, Object> objects;       ///< by handle
    std::map<std::string, Values> header;          ///< by variable
    std::map<std::string, int> entityCounts;       ///< by "space TYPE" for what stands in ENTITIES

    static DrawingContents of(dxf::GroupReader& reader);
};

/// What of `before` is missing in `after`, a line each. What AutoCAD derives anew at each save does not count, nor what
/// only states a default.
std::vector<std::string> lostBetween(const DrawingContents& before, const DrawingContents& after);
} // namespace dxftest
