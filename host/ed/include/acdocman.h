#pragma once

/// Documents: drawings in the editor, their locks, and which of them is current.

#include "dbmain.h"

#include <memory>

class AcApDocument;
class AcApDocManager;
class AcTransactionManager;
struct DocumentState;

namespace AcAp
{
/// Modes of document locks. Each execution context (a document's commands; the application) holds its own; what others
/// hold decides whether a new one is granted.
enum DocLockMode {
    kNone = 0x00,
    kAutoWrite = 0x01,          ///< what a command takes on the current document
    kNotLocked = 0x02,
    kWrite = 0x04,              ///< other contexts may write too
    kProtectedAutoWrite = 0x14, ///< as kAutoWrite; no other context may write
    kRead = 0x20,               ///< no other context may write
    kXWrite = 0x40,             ///< no other context may do anything
};
} // namespace AcAp

/// One open drawing. Owns its database.
class AcApDocument : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcApDocument* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    /// The path of the drawing's file; the title for a drawing without one.
    const ACHAR* fileName() const;
    /// The file's name without folder, or "DrawingN.dwg".
    const ACHAR* docTitle() const;
    bool isNamedDrawing() const;
    bool isReadOnly() const;
    AcDbDatabase* database() const;
    /// The transactions of the drawing (actrans.h).
    AcTransactionManager* transactionManager() const;

    /// The strongest lock of other contexts, or of all with `includeMyLocks`; kNotLocked when there is none.
    AcAp::DocLockMode lockMode(bool includeMyLocks = false) const;
    /// The strongest lock of the context that is executing; kNotLocked when it has none.
    AcAp::DocLockMode myLockMode() const;
    /// No command or LISP function is active, and no input waits to be used.
    bool isQuiescent() const;

    /// The DBMOD bits, put aside and back.
    Acad::ErrorStatus pushDbmod();
    Acad::ErrorStatus popDbmod();

private:
    friend struct DocumentAccess;
    explicit AcApDocument(std::unique_ptr<DocumentState> state);
    ~AcApDocument() override;
    std::unique_ptr<DocumentState> mState;
};

class AcApDocumentIterator : public AcRxObject
{
public:
    virtual bool done() const = 0;
    virtual void step() = 0;
    /// Null when it is done.
    virtual AcApDocument* document() = 0;
};

class AcApDocManagerReactor : public AcRxObject
{
public:
    virtual void documentCreateStarted(AcApDocument*) {}
    virtual void documentCreated(AcApDocument*) {}
    virtual void documentToBeDestroyed(AcApDocument*) {}
    virtual void documentDestroyed(const ACHAR* /*fileName*/) {}
    virtual void documentCreateCanceled(AcApDocument*) {}
    /// May call veto().
    virtual void documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode /*myCurrent*/, AcAp::DocLockMode /*myNew*/,
                                            AcAp::DocLockMode /*current*/, const ACHAR* /*globalCmdName*/)
    {
    }
    virtual void documentLockModeChangeVetoed(AcApDocument*, const ACHAR* /*globalCmdName*/) {}
    /// May call veto(). At unlocking the command's name begins with "#".
    virtual void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode /*myPrevious*/, AcAp::DocLockMode /*myCurrent*/,
                                         AcAp::DocLockMode /*current*/, const ACHAR* /*globalCmdName*/)
    {
    }
    virtual void documentToBeActivated(AcApDocument*) {}
    virtual void documentActivated(AcApDocument*) {}
    virtual void documentToBeDeactivated(AcApDocument*) {}
    virtual void documentBecameCurrent(AcApDocument*) {}
    virtual void documentActivationModified(bool /*activation*/) {}
    virtual void documentTitleUpdated(AcApDocument*) {}

    /// Refuses the change of lock that is being announced: eVetoed.
    void veto() { mVetoed = true; }
    /// Whether it did; asked once.
    bool takeVeto();

private:
    bool mVetoed = false;
};

/// The documents. A null or unknown document gives eNoDocument.
class AcApDocManager : public AcRxObject
{
public:
    static AcRxClass* desc();
    AcRxClass* isA() const override;

    /// The document whose context is executing, or that was made current; null when there is none.
    AcApDocument* curDocument() const;
    /// The document whose window is in front.
    AcApDocument* mdiActiveDocument() const;
    /// No document's command is executing.
    bool isApplicationContext() const;
    /// The document of a database; null for a database without one.
    AcApDocument* document(const AcDbDatabase* database) const;
    int documentCount() const;
    /// The caller deletes it.
    AcApDocumentIterator* newAcApDocumentIterator();

    /// Locks a document for the context that executes; locks stack. eLockConflict when another context's lock forbids it,
    /// eVetoed by a reactor, eInvalidInput for kNone and kNotLocked.
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                   const ACHAR* globalCmdName = nullptr, const ACHAR* localCmdName = nullptr,
                                   bool prompt = true);
    /// Takes back the newest lock of the context that executes. eInvalidInput when it has none.
    Acad::ErrorStatus unlockDocument(AcApDocument* document);

    /// Makes a document current for database access, and the working database its database; with `mode` it is locked
    /// first, with `activate` its window comes to the front too. A null document means: the active one.
    Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kNone, bool activate = false);
    /// Brings the document's window to the front and makes it current. eDocumentSwitchDisabled while activation is
    /// disabled, eTargetDocNotQuiescent while another document's command executes.
    Acad::ErrorStatus activateDocument(AcApDocument* document, bool passScript = false);
    /// These nest.
    Acad::ErrorStatus disableDocumentActivation();
    Acad::ErrorStatus enableDocumentActivation();
    bool isDocumentActivationEnabled() const;

    /// Puts text behind what waits to be typed at the document's command line: blanks and Enters end answers as at the
    /// keyboard. It is used when control comes back to the command line. `activate` brings the document to the front;
    /// without it an inactive document waits until it is activated, unless `wrapUpInactiveDoc`. eInvalidInput for null.
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate = true,
                                          bool wrapUpInactiveDoc = false, bool echoString = true);
    /// Whether something waits to be typed there: 1 or 0.
    int inputPending(AcApDocument* document);

    /// Calls a function as the application, outside of all documents.
    void executeInApplicationContext(void (*function)(void*), void* data) const;

    /// Opens a new drawing, from a template file when one is named, and activates it.
    Acad::ErrorStatus appContextNewDocument(const ACHAR* templateName);
    /// Opens a drawing file and activates it: the statuses of AcDbDatabase::readDwgFile.
    Acad::ErrorStatus appContextOpenDocument(const ACHAR* fileName);
    /// The same; eInvalidContext while a command executes.
    Acad::ErrorStatus newDocument();
    Acad::ErrorStatus openDocument();
    /// Closes a document without saving. eTargetDocNotQuiescent while a command is active in it.
    Acad::ErrorStatus closeDocument(AcApDocument* document);

    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);
};

/// Never null.
AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()

inline AcApDocument* curDoc() { return acDocManager->curDocument(); }

#define ACAP_DOC_MANAGER_OBJ L"AcApDocManager"
