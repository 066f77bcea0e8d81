#include "UndoneLine.h"

#include "AsciiWriter.h"
#include "Documents.h"
#include "DrawingWriter.h"
#include "UndoRecording.h"

#include <algorithm>
#include <sstream>

namespace
{
UndoHistory& historyOf(AcDbDatabase& drawing)
{
    return undo::historyOf(drawing);
}

/// What no undo gives back: handles are not given out again, and time goes on.
bool isLasting(const std::string& line)
{
    static const char* const names[] = {"$HANDSEED", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG", "$VERSIONGUID"};
    return std::find(std::begin(names), std::end(names), line) != std::end(names);
}

std::string fileOf(AcDbDatabase& drawing)
{
    dxf::MemorySink sink;
    dxf::AsciiWriter writer(sink, dxf::TextEncoding());
    dxf::DrawingWriter(drawing, writer, dxf::FileVersion::r2018).write();
    writer.finish();
    return sink.bytes();
}

/// The lines of a drawing's file that are compared.
std::string stateOf(AcDbDatabase& drawing)
{
    std::istringstream file(fileOf(drawing));
    std::string state, line;
    while (std::getline(file, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        state += line + '\n';
        if (!isLasting(line)) continue;
        std::getline(file, line);
        std::getline(file, line);
    }
    return state;
}

/// Lines from the tenth before a place on, in one.
std::string linesAround(const std::string& text, std::size_t at)
{
    for (int i = 0; i < 10 && at > 0; ++i)
        at = text.rfind('\n', at - 1) == std::string::npos ? 0 : text.rfind('\n', at - 1);
    std::string shown = text.substr(at, 200);
    std::replace(shown.begin(), shown.end(), '\n', '|');
    return shown;
}

/// What surrounds the first difference; empty when there is none.
std::string difference(const std::string& expected, const std::string& found)
{
    if (expected == found) return "";
    const auto ends = std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
    const auto at = static_cast<std::size_t>(ends.first - expected.begin());
    return "was " + linesAround(expected, at) + "\nis " + linesAround(found, at) + "\nafter";
}

AcDbDatabase* currentDrawing()
{
    const DocumentState* document = documents::current();
    return document ? document->database.get() : nullptr;
}
} // namespace

namespace fuzz
{
UndoneLine::UndoneLine()
{
    AcDbDatabase* drawing = currentDrawing();
    if (!drawing || !drawing->undoRecording() || historyOf(*drawing).keepsOnlyOne()) return;
    mDrawing = drawing;
    historyOf(*drawing).addMark();
    mMarks = historyOf(*drawing).marks();
    mBefore = stateOf(*drawing);
}

bool UndoneLine::isStillThere() const
{
    return mDrawing && currentDrawing() == mDrawing && mDrawing->undoRecording() &&
           historyOf(*mDrawing).marks() == mMarks;
}

std::string UndoneLine::fault()
{
    if (!isStillThere()) return "";
    UndoHistory& history = historyOf(*mDrawing);
    const std::string after = stateOf(*mDrawing);
    const auto ignore = [](const UndoEntry&) {};
    history.undoToMark(ignore);
    const std::string undone = difference(mBefore, stateOf(*mDrawing));
    history.redo(1, ignore);
    const std::string redone = difference(after, stateOf(*mDrawing));
    return undone.empty() && redone.empty() ? ""
           : undone.empty()                 ? "done again: " + redone
                                            : "undone: " + undone;
}
} // namespace fuzz
