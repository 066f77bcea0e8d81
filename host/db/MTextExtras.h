#pragma once

/// What few multiline texts have: background, columns, and how their file spelled them.

#include "dbmtext.h"

#include <optional>
#include <vector>

struct MTextColumns {
    int type = AcDbMText::kNoColumns;
    int count = 1;
    bool isReversed = false;
    bool isAutoHeight = true;
    double width = 0.0, gutter = 0.0;
    std::vector<double> heights; ///< of columns that are not as high as each other
    bool isInEmbedded = false;   ///< they stand in the record's embedded object already
};

/// Part of the contents in one group of a file.
struct MTextChunk {
    int code = 1; ///< 1 for the last, 3 for those before
    int length = 0;
};

struct MTextExtras {
    // Group 90: 1 filled with a colour, 2 with that of the drawing's background, 16 with a border.
    static constexpr int fillOn = 1, fillLikeWindow = 2, bordersOn = 16;
    std::optional<int> fillFlags;        ///< 90
    std::optional<int> fillColor;        ///< 63
    std::optional<int> fillRgb;          ///< 421
    std::optional<int> fillTransparency; ///< 441
    std::optional<double> fillScale;     ///< 45
    std::optional<double> fileWidth;     ///< 42, measured by the program that wrote the file
    std::optional<double> fileHeight;    ///< 43
    std::optional<double> fileRotation;  ///< 50, which counts before the direction; radians
    MTextColumns columns;
    std::vector<MTextChunk> chunks; ///< empty: the usual ones

    int flags() const { return fillFlags.value_or(0); }
    void setFlag(int flag, bool on) { fillFlags = on ? flags() | flag : flags() & ~flag; }
};
