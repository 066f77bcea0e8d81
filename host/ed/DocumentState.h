#pragma once

#include "ActiveCommand.h"
#include "InputSource.h"
#include "LispFunctions.h"
#include "SelectionState.h"
#include "VariableValues.h"
#include "ViewHistory.h"
#include "acdocman.h"

#include <string>
#include <vector>

/// A lock on a document. `context` is the document whose command took it; null for the application.
struct DocumentLock {
    const AcApDocument* context;
    AcAp::DocLockMode mode;
    std::wstring command;
};

namespace ed
{
/// Settings of UNDO that are kept, and change nothing: menus and palettes of layers are not here.
struct UndoControl {
    bool groupsMacros = true;
    bool combinesLayers = true;
};
} // namespace ed

/// What a document holds.
struct DocumentState {
    std::unique_ptr<AcDbDatabase> database;
    std::wstring fileName; ///< empty for a drawing without file
    std::wstring title;
    bool readOnly = false;
    ed::InputSource input;
    bool runsInBackground = false; ///< what is typed is used though the document is not active
    std::vector<DocumentLock> locks;
    std::vector<ed::ActiveCommand> commands; ///< the outermost first
    std::wstring lastCommand;                ///< what Enter repeats
    ed::LispFunctions lisp;
    ed::SelectionState selection;
    ed::VariableValues variables; ///< those that live with the document
    std::vector<AcDbObjectId> tiles; ///< the viewports of model space by number, from 2 on
    AcDbObjectId lastWindow;         ///< the viewport of the layout in which one worked last
    ed::ViewHistory history;
    ed::UndoControl undo;
    int dbmod = 0;
    std::vector<int> pushedDbmod;
};

struct DocumentAccess {
    static AcApDocument* make(std::unique_ptr<DocumentState> state) { return new AcApDocument(std::move(state)); }
    static void destroy(AcApDocument* document) { delete document; }
    static DocumentState& of(AcApDocument& document) { return *document.mState; }
    static const DocumentState& of(const AcApDocument& document) { return *document.mState; }
};
