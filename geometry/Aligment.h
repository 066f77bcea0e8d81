#pragma once

/// Where a text hangs on its point: the alignments of single-line texts that take one point. The first word
/// is the height on the letters, the second the place along the line; without a height it is the baseline.
enum _Aligment {
    kAligLeft = 0,
    kAligCenter,
    kAligRight,
    kAligMiddle, ///< the middle of what is drawn
    kAligTopLeft,
    kAligTopCenter,
    kAligTopRight,
    kAligMiddleLeft,
    kAligMiddleCenter,
    kAligMiddleRight,
    kAligBottomLeft,
    kAligBottomCenter,
    kAligBottomRight
};
