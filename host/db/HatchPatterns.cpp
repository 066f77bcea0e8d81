#include "HatchPatterns.h"

#include <cmath>
#include <map>

namespace hatch
{
namespace
{
constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;

/// A family of lines as pattern files describe it: the angle in degrees, a point of the first line, the step
/// to the next along and across the lines, and the dashes.
struct Family {
    double degrees, x, y, along, across;
    std::vector<double> dashes;
};

struct CaseLess {
    bool operator()(const CString& a, const CString& b) const { return a.CompareNoCase(b) < 0; }
};
using Families = std::map<CString, std::vector<Family>, CaseLess>;
using Patterns = std::map<CString, std::vector<PatternLine>, CaseLess>;

// The definitions of the metric pattern file that drawings have used for decades: other programs must find
// the same lines under these names.
Families sectionPatterns()
{
    return {
        {L"SOLID", {}},
        {L"ANSI31", {{45, 0, 0, 0, 3.175, {}}}},
        {L"ANSI32", {{45, 0, 0, 0, 9.525, {}}, {45, 4.49013, 0, 0, 9.525, {}}}},
        {L"ANSI33", {{45, 0, 0, 0, 6.35, {}}, {45, 4.49013, 0, 0, 6.35, {3.175, -1.5875}}}},
        {L"ANSI34",
         {{45, 0, 0, 0, 19.05, {}},
          {45, 4.49013, 0, 0, 19.05, {}},
          {45, 8.98026, 0, 0, 19.05, {}},
          {45, 13.4704, 0, 0, 19.05, {}}}},
        {L"ANSI35", {{45, 0, 0, 0, 6.35, {}}, {45, 4.49013, 0, 0, 6.35, {7.9375, -1.5875, 0, -1.5875}}}},
        {L"ANSI36", {{45, 0, 0, 5.55625, 3.175, {7.9375, -1.5875, 0, -1.5875}}}},
        {L"ANSI37", {{45, 0, 0, 0, 3.175, {}}, {135, 0, 0, 0, 3.175, {}}}},
        {L"ANSI38", {{45, 0, 0, 0, 3.175, {}}, {135, 0, 0, 6.35, 3.175, {7.9375, -4.7625}}}},
        {L"BRASS", {{0, 0, 0, 0, 6.35, {}}, {0, 0, 3.175, 0, 6.35, {3.175, -1.5875}}}},
        {L"STEEL", {{45, 0, 0, 0, 3.175, {}}, {45, 0, 1.5875, 0, 3.175, {}}}},
        {L"PLAST", {{0, 0, 0, 0, 6.35, {}}, {0, 0, 0.79375, 0, 6.35, {}}, {0, 0, 1.5875, 0, 6.35, {}}}},
        {L"PLASTI",
         {{0, 0, 0, 0, 6.35, {}},
          {0, 0, 0.79375, 0, 6.35, {}},
          {0, 0, 1.5875, 0, 6.35, {}},
          {0, 0, 3.96875, 0, 6.35, {}}}},
        {L"TRANS", {{0, 0, 0, 0, 6.35, {}}, {0, 0, 3.175, 0, 6.35, {3.175, -3.175}}}},
        {L"INSUL",
         {{0, 0, 0, 0, 9.525, {}},
          {0, 0, 3.175, 0, 9.525, {3.175, -3.175}},
          {0, 0, 6.35, 0, 9.525, {3.175, -3.175}}}},
        {L"SACNCR", {{45, 0, 0, 0, 2.38125, {}}, {45, 1.6838, 0, 0, 2.38125, {0, -2.38125}}}},
    };
}

Families groundPatterns()
{
    return {
        {L"CLAY",
         {{0, 0, 0, 0, 4.7625, {}},
          {0, 0, 0.79375, 0, 4.7625, {}},
          {0, 0, 1.5875, 0, 4.7625, {}},
          {0, 0, 3.175, 0, 4.7625, {4.7625, -3.175}}}},
        {L"CORK",
         {{0, 0, 0, 0, 3.175, {}},
          {135, 1.5875, -1.5875, 0, 8.98026, {4.49013, -4.49013}},
          {135, 2.38125, -1.5875, 0, 8.98026, {4.49013, -4.49013}},
          {135, 3.175, -1.5875, 0, 8.98026, {4.49013, -4.49013}}}},
        {L"DOLMIT", {{0, 0, 0, 0, 6.35, {}}, {45, 0, 0, 0, 17.9605, {8.98026, -17.9605}}}},
        {L"EARTH",
         {{0, 0, 0, 6.35, 6.35, {6.35, -6.35}},
          {0, 0, 2.38125, 6.35, 6.35, {6.35, -6.35}},
          {0, 0, 4.7625, 6.35, 6.35, {6.35, -6.35}},
          {90, 0.79375, 5.55625, 6.35, 6.35, {6.35, -6.35}},
          {90, 3.175, 5.55625, 6.35, 6.35, {6.35, -6.35}},
          {90, 5.55625, 5.55625, 6.35, 6.35, {6.35, -6.35}}}},
        {L"GRASS",
         {{90, 0, 0, 17.9605, 17.9605, {4.7625, -31.1585}},
          {45, 0, 0, 0, 25.4, {4.7625, -20.6375}},
          {135, 0, 0, 0, 25.4, {4.7625, -20.6375}}}},
        {L"MUDST", {{0, 0, 0, 12.7, 6.35, {6.35, -6.35, 0, -6.35, 0, -6.35}}}},
        {L"BRICK",
         {{0, 0, 0, 0, 6.35, {}}, {90, 0, 0, 0, 12.7, {6.35, -6.35}}, {90, 6.35, 0, 0, 12.7, {-6.35, 6.35}}}},
    };
}

Families gridPatterns()
{
    return {
        {L"LINE", {{0, 0, 0, 0, 3.175, {}}}},
        {L"NET", {{0, 0, 0, 0, 3.175, {}}, {90, 0, 0, 0, 3.175, {}}}},
        {L"NET3", {{0, 0, 0, 0, 3.175, {}}, {60, 0, 0, 0, 3.175, {}}, {120, 0, 0, 0, 3.175, {}}}},
        {L"GRATE", {{0, 0, 0, 0, 0.79375, {}}, {90, 0, 0, 0, 3.175, {}}}},
        {L"ANGLE", {{0, 0, 0, 0, 6.985, {5.08, -1.905}}, {90, 0, 0, 0, 6.985, {5.08, -1.905}}}},
        {L"BOX",
         {{90, 0, 0, 0, 25.4, {}},
          {90, 6.35, 0, 0, 25.4, {}},
          {0, 0, 0, 0, 25.4, {-6.35, 6.35}},
          {0, 0, 6.35, 0, 25.4, {-6.35, 6.35}},
          {0, 0, 12.7, 0, 25.4, {6.35, -6.35}},
          {0, 0, 19.05, 0, 25.4, {6.35, -6.35}},
          {90, 12.7, 0, 0, 25.4, {6.35, -6.35}},
          {90, 19.05, 0, 0, 25.4, {6.35, -6.35}}}},
        {L"CROSS",
         {{0, 0, 0, 6.35, 6.35, {3.175, -9.525}}, {90, 1.5875, -1.5875, 6.35, 6.35, {3.175, -9.525}}}},
        {L"DASH", {{0, 0, 0, 3.175, 3.175, {3.175, -3.175}}}},
        {L"DOTS", {{0, 0, 0, 0.79375, 1.5875, {0, -1.5875}}}},
        {L"SQUARE", {{0, 0, 0, 0, 3.175, {3.175, -3.175}}, {90, 0, 0, 0, 3.175, {3.175, -3.175}}}},
        {L"ZIGZAG",
         {{0, 0, 0, 3.175, 3.175, {3.175, -3.175}}, {90, 3.175, 0, 3.175, 3.175, {3.175, -3.175}}}},
        {L"HOUND", {{0, 0, 0, 6.35, 1.5875, {25.4, -12.7}}, {90, 0, 0, -6.35, 1.5875, {25.4, -12.7}}}},
        {L"FLEX",
         {{0, 0, 0, 0, 6.35, {6.35, -6.35}},
          {45, 6.35, 0, 4.49013, 4.49013, {1.5875, -5.80526, 1.5875, -8.98026}}}},
    };
}

Families cellPatterns()
{
    return {
        {L"HEX",
         {{0, 0, 0, 0, 5.49926, {3.175, -6.35}},
          {120, 0, 0, 0, 5.49926, {3.175, -6.35}},
          {60, 3.175, 0, 0, 5.49926, {3.175, -6.35}}}},
        {L"HONEY",
         {{0, 0, 0, 4.7625, 2.74963, {3.175, -6.35}},
          {120, 0, 0, 4.7625, 2.74963, {3.175, -6.35}},
          {60, 0, 0, 4.7625, 2.74963, {-6.35, 3.175}}}},
        {L"STARS",
         {{0, 0, 0, 0, 5.49926, {3.175, -3.175}},
          {60, 0, 0, 0, 5.49926, {3.175, -3.175}},
          {120, 1.5875, 2.74963, 0, 5.49926, {3.175, -3.175}}}},
        {L"TRIANG",
         {{60, 0, 0, 4.7625, 8.24889, {4.7625, -4.7625}},
          {120, 0, 0, 4.7625, 8.24889, {4.7625, -4.7625}},
          {0, -2.38125, 4.12445, 4.7625, 8.24889, {4.7625, -4.7625}}}},
    };
}

PatternLine lineOf(const Family& family)
{
    PatternLine line;
    line.angle = family.degrees * radiansPerDegree;
    line.base.set(family.x, family.y);
    line.offset = AcGeVector2d(family.along, family.across).rotateBy(line.angle);
    line.dashes = family.dashes;
    return line;
}

Patterns allPatterns()
{
    Patterns patterns;
    for (const Families& group : {sectionPatterns(), groundPatterns(), gridPatterns(), cellPatterns()})
        for (const auto& [name, families] : group) {
            std::vector<PatternLine>& lines = patterns[name];
            for (const Family& family : families)
                lines.push_back(lineOf(family));
        }
    return patterns;
}
} // namespace

const std::vector<PatternLine>* standardPattern(const CString& name)
{
    static const Patterns patterns = allPatterns();
    const auto found = patterns.find(name);
    return found == patterns.end() ? nullptr : &found->second;
}

std::vector<PatternLine> userPattern(double space, bool isDouble)
{
    std::vector<PatternLine> lines = {lineOf({0, 0, 0, 0, space, {}})};
    if (isDouble) lines.push_back(lineOf({90, 0, 0, 0, space, {}}));
    return lines;
}
} // namespace hatch
