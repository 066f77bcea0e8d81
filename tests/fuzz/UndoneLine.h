#pragma once

/// A drawing before and after a line that is typed, taken back and done again.

#include <string>

class AcDbDatabase;

namespace fuzz
{
/// Marks the current drawing before a line; afterwards takes back what the line did and does it again, and
/// compares files of the drawing.
class UndoneLine
{
public:
    UndoneLine();
    /// What is not as it was; empty when all is, or when the line has left the drawing, its marks or its
    /// steps.
    std::string fault();

private:
    bool isStillThere() const;

    AcDbDatabase* mDrawing = nullptr; ///< null when undo is off
    int mMarks = 0;
    std::string mBefore;
};
} // namespace fuzz
