/// The visual styles that a new drawing has, as drawings of R2013 and newer hold them: 58 properties of each, with a mark
/// behind each that says whether it counts.

#include "DefaultStyles.h"

#include "dbobject.h"

#include <iterator>

namespace
{
constexpr int propertyCount = 58;

/// A number of a property; colours also have a true colour (420).
struct Value {
    int code;
    double number;
    std::int64_t trueColor = -1;
};

// What most styles have, in the order of the file.
constexpr Value common[] = {
    {90, 2},   {90, 2},  {90, 0},  {90, 0},  {40, 0.6}, {40, 30},            {62, 7, 0xFFFFFF}, {90, 1},
    {90, 4},   {62, 7},  {62, 257}, {90, 1}, {90, 1},   {40, 1},             {90, 8},           {62, 7},
    {40, 1},   {90, 1},  {90, 6},  {90, 2},  {62, 7},   {90, 5},             {90, 0},           {90, 0},
    {290, 0},  {90, 1},  {40, 0},  {90, 0},  {290, 0},  {290, 1},            {290, 1},          {290, 0},
    {290, 0},  {290, 0}, {290, 0}, {290, 0}, {290, 0},  {90, 50},            {40, 0},           {40, 1},
    {90, 0},   {62, 18, 0}, {90, 50}, {90, 3}, {62, 5, 0xFF}, {290, 0},      {90, 50},          {90, 50},
    {90, 50},  {290, 0}, {90, 50}, {62, 256}, {40, 1},  {90, 2},             {1, 0},            {290, 0},
    {40, 1},   {40, 1},
};
static_assert(std::size(common) == propertyCount);

/// A property of a style that is not the common one.
struct Own {
    int property;
    Value value;
};

/// Styles of which only one property counts, laid over others.
enum class Kind { whole, modifier };

struct Style {
    const char* name;
    int type;
    bool isInternal;
    Kind kind;
    Own own[9];
};

// The properties: 0 lighting, 1 its quality, 2 colours, 3 and 4 opacity, 6 the one colour, 7 edges, 8 their modifiers,
// 10 and 15 their colours, 11 and 12 their patterns, 13 the crease angle, 14 the look of edges, 20 the silhouette's
// colour, 21 its width, 25 the display settings, 26 brightness, 28 and 30 what is shown beside.
constexpr Style styles[] = {
    {"2dWireframe", 4, false, Kind::whole,
     {{0, {90, 0}}, {14, {90, 0}}, {15, {62, 257}}, {28, {290, 1}}, {30, {290, 0}}}},
    {"Basic", 7, true, Kind::whole, {{0, {90, 1}}, {1, {90, 0}}, {2, {90, 1}}, {7, {90, 0}}}},
    {"Brighten", 12, true, Kind::whole, {{26, {40, 50}}}},
    {"ColorChange", 16, true, Kind::whole, {{2, {90, 3}}, {6, {62, 8, 0x808080}}, {15, {62, 8, 0x808080}}}},
    {"Conceptual", 9, false, Kind::whole,
     {{0, {90, 3}}, {7, {90, 2}}, {8, {90, 2}}, {13, {40, 179}}, {21, {90, 3}}}},
    {"Dim", 11, true, Kind::whole, {{26, {40, -50}}}},
    {"EdgeColorOff", 22, true, Kind::modifier, {}},
    {"Facepattern", 15, true, Kind::whole, {}},
    {"Flat", 0, true, Kind::whole,
     {{1, {90, 1}}, {2, {90, 1}}, {3, {90, 2}}, {7, {90, 0}}, {8, {90, 0}}, {25, {90, 13}}}},
    {"FlatWithEdges", 1, true, Kind::whole,
     {{1, {90, 1}}, {2, {90, 1}}, {3, {90, 2}}, {8, {90, 0}}, {14, {90, 0}}, {15, {62, 257}}, {25, {90, 13}}}},
    {"Gouraud", 2, true, Kind::whole,
     {{2, {90, 1}}, {3, {90, 2}}, {7, {90, 0}}, {8, {90, 0}}, {14, {90, 0}}, {25, {90, 13}}}},
    {"GouraudWithEdges", 3, true, Kind::whole,
     {{2, {90, 1}}, {3, {90, 2}}, {8, {90, 0}}, {14, {90, 0}}, {15, {62, 257}}, {25, {90, 13}}}},
    {"Hidden", 6, false, Kind::whole,
     {{0, {90, 1}}, {2, {90, 2}}, {7, {90, 2}}, {8, {90, 2}}, {11, {90, 2}}, {13, {40, 40}}, {14, {90, 0}},
      {15, {62, 257}}, {21, {90, 3}}}},
    {"JitterOff", 20, true, Kind::modifier, {{14, {90, 10}}}},
    {"Linepattern", 14, true, Kind::whole, {{11, {90, 7}}, {12, {90, 7}}}},
    {"OverhangOff", 21, true, Kind::modifier, {{14, {90, 9}}}},
    {"Realistic", 8, false, Kind::whole,
     {{1, {90, 3}}, {3, {90, 2}}, {7, {90, 0}}, {8, {90, 0}}, {15, {62, 257}}, {21, {90, 3}}, {25, {90, 13}}}},
    {"Shaded", 27, false, Kind::whole,
     {{2, {90, 1}}, {3, {90, 2}}, {7, {90, 0}}, {15, {62, 257}}, {20, {62, 8, 0x787878}}, {21, {90, 3}},
      {25, {90, 5}}}},
    {"Shaded with edges", 26, false, Kind::whole,
     {{2, {90, 1}}, {3, {90, 2}}, {8, {90, 2}}, {11, {90, 2}}, {15, {62, 257}}, {21, {90, 3}}, {25, {90, 5}}}},
    {"Shades of Gray", 23, false, Kind::whole,
     {{2, {90, 3}}, {7, {90, 2}}, {8, {90, 2}}, {10, {62, 7}}, {13, {40, 40}}, {21, {90, 3}}}},
    {"Sketchy", 24, false, Kind::whole,
     {{0, {90, 1}}, {2, {90, 2}}, {7, {90, 2}}, {8, {90, 2}}, {10, {62, 7}}, {13, {40, 40}}, {14, {90, 11}},
      {21, {90, 6}}}},
    {"Thicken", 13, true, Kind::whole, {{14, {90, 12}}}},
    {"Wireframe", 5, false, Kind::whole, {{0, {90, 0}}, {14, {90, 0}}, {15, {62, 257}}, {21, {90, 3}}}},
    {"X-Ray", 25, false, Kind::whole,
     {{2, {90, 1}}, {3, {90, 1}}, {4, {40, 0.5}}, {8, {90, 0}}, {21, {90, 3}}, {25, {90, 13}}}},
};

const Value& valueOf(const Style& style, int property)
{
    for (const Own& own : style.own) {
        if (own.value.code && own.property == property) return own.value;
    }
    return common[property];
}

void append(PackedGroups& groups, const Value& value)
{
    if (value.code == 1) return groups.appendText(1, "strokes_ogs.tif");
    if (value.code == 40) return groups.appendReal(40, value.number);
    groups.appendInteger(value.code, static_cast<std::int64_t>(value.number));
    if (value.trueColor >= 0) groups.appendInteger(420, value.trueColor);
}

/// Whether a property counts: of modifiers the look of edges is set (2), and nothing else.
int markOf(const Style& style, int property)
{
    constexpr int lookOfEdges = 14, tintColor = 51, tintFactor = 52;
    if (style.kind == Kind::modifier) return property == lookOfEdges ? 2 : 0;
    return property == tintColor || property == tintFactor ? 0 : 1;
}

PackedGroups groupsOf(const Style& style)
{
    PackedGroups groups;
    groups.appendText(100, "AcDbVisualStyle");
    groups.appendText(2, style.name);
    groups.appendInteger(70, style.type);
    groups.appendInteger(177, 3);
    groups.appendInteger(291, style.isInternal);
    groups.appendInteger(70, propertyCount);
    for (int property = 0; property < propertyCount; ++property) {
        append(groups, valueOf(style, property));
        groups.appendInteger(176, markOf(style, property));
    }
    return groups;
}
} // namespace

void addVisualStyles(AcDbObjectId dictionary)
{
    static const std::vector<PackedGroups> all = [] {
        std::vector<PackedGroups> made;
        for (const Style& style : styles)
            made.push_back(groupsOf(style));
        return made;
    }();
    for (std::size_t i = 0; i < all.size(); ++i)
        addKeptRecord(dictionary, CString(styles[i].name), "VISUALSTYLE", all[i]);
}
