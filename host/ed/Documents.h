#pragma once

/// The documents for the rest of the editor.

#include "DocumentState.h"
#include "rxdlinkr.h"

#include <functional>

namespace documents
{
/// All that are open, in the order of opening.
const std::vector<AcApDocument*>& all();
/// The state of a document that is open; null for any other pointer.
DocumentState* stateOf(const AcApDocument* document);
/// The state of the current document; null when there is none.
DocumentState* current();

/// Takes a database into a new document and activates it. The document owns it from now on.
AcApDocument* adopt(std::unique_ptr<AcDbDatabase> database, const std::wstring& fileName,
                    bool readOnly = false);
/// Has a drawing written by `writer` and tells modules of it while its document is current: kSaveMsg and
/// beginSave, then saveComplete, or abortSave when the status is not eOk. The document keeps its name.
Acad::ErrorStatus write(AcApDocument* document, const std::wstring& fileName,
                        const std::function<Acad::ErrorStatus()>& writer);
/// Saves the drawing under a name, which is its own from then on; without one under its own. eNoFileName for
/// a drawing without one; else the statuses of AcDbDatabase::saveAs.
Acad::ErrorStatus save(AcApDocument* document, const std::wstring& fileName = {});
/// Gives a document its file's name, and its title.
void nameDocument(AcApDocument* document, const std::wstring& fileName);
/// Closes without asking.
void close(AcApDocument* document);
void closeAll();

/// Sends a message to every module while a document is current.
void tellModules(AcApDocument* document, AcRx::AppMsgCode message);

/// The document whose command is executing; null for the application.
AcApDocument* executing();
/// While it lives, code executes in a document's context (null: the application's).
class Context
{
public:
    explicit Context(AcApDocument* document);
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
};

/// Tells every reactor.
void tell(const std::function<void(AcApDocManagerReactor&)>& event);
/// True when one of those that `event` told called veto().
bool askVeto(const std::function<void(AcApDocManagerReactor&)>& event);
} // namespace documents
