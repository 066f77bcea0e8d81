#include "actrans.h"
#include "DocumentLocks.h"
#include "Documents.h"

namespace
{
AcRxClass* documentClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcApDocument", AcRxObject::desc());
    return made;
}
} // namespace

AcRxClass* AcApDocument::desc() { return documentClass(); }
AcRxClass* AcApDocument::isA() const { return documentClass(); }

AcApDocument* AcApDocument::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcApDocument*>(static_cast<const AcApDocument*>(object)) : nullptr;
}

AcApDocument::AcApDocument(std::unique_ptr<DocumentState> state) : mState(std::move(state)) {}
AcApDocument::~AcApDocument() = default;

const ACHAR* AcApDocument::fileName() const { return (isNamedDrawing() ? mState->fileName : mState->title).c_str(); }
const ACHAR* AcApDocument::docTitle() const { return mState->title.c_str(); }
bool AcApDocument::isNamedDrawing() const { return !mState->fileName.empty(); }
bool AcApDocument::isReadOnly() const { return mState->readOnly; }
AcDbDatabase* AcApDocument::database() const { return mState->database.get(); }

AcTransactionManager* AcApDocument::transactionManager() const
{
    return static_cast<AcTransactionManager*>(database()->transactionManager());
}

AcAp::DocLockMode AcApDocument::lockMode(bool includeMyLocks) const
{
    return locks::strongest(mState->locks, documents::executing(),
                            includeMyLocks ? locks::Whose::all : locks::Whose::others);
}

AcAp::DocLockMode AcApDocument::myLockMode() const
{
    return locks::strongest(mState->locks, documents::executing(), locks::Whose::mine);
}

bool AcApDocument::isQuiescent() const { return mState->commands.empty() && mState->input.empty(); }

Acad::ErrorStatus AcApDocument::pushDbmod()
{
    mState->pushedDbmod.push_back(mState->dbmod);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocument::popDbmod()
{
    if (mState->pushedDbmod.empty()) return Acad::eInvalidInput;
    mState->dbmod = mState->pushedDbmod.back();
    mState->pushedDbmod.pop_back();
    return Acad::eOk;
}
