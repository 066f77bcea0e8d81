/// UNDOCTL and UNDOMARKS.

#include "Documents.h"
#include "UndoRecording.h"
#include "VariableTable.h"

namespace
{
using ed::VariableValue;

long control()
{
    constexpr long enabled = 1, one = 2, automatic = 4, group = 8, views = 16, layers = 32;
    const DocumentState* document = documents::current();
    if (!document) return 0;
    UndoHistory& history = undo::historyOf(*document->database);
    return (history.journal().isEnabled() ? enabled : 0) | (history.keepsOnlyOne() ? one : 0) |
           (document->undo.groupsMacros ? automatic : 0) | (history.isGroupOpen() ? group : 0) |
           (history.combinesViews() ? views : 0) | (document->undo.combinesLayers ? layers : 0);
}

long marks()
{
    const DocumentState* document = documents::current();
    return document ? undo::historyOf(*document->database).marks() : 0;
}

[[maybe_unused]] const bool bound = [] {
    ed::bindVariable(L"UNDOCTL", RTSHORT, {[] { return VariableValue::ofInteger(control()); }, nullptr});
    ed::bindVariable(L"UNDOMARKS", RTSHORT, {[] { return VariableValue::ofInteger(marks()); }, nullptr});
    return true;
}();
} // namespace
