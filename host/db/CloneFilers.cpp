#include "CloneFilers.h"

#include "Stub.h"

namespace
{
AcDb::FilerType typeFor(const AcDbDatabase& from, const AcDbDatabase& to)
{
    return &from == &to ? AcDb::kDeepCloneFiler : AcDb::kWblockCloneFiler;
}
} // namespace

NotingFiler::NotingFiler(AcDbDatabase& from, AcDbDatabase& to) : CopyFiler(&from, typeFor(from, to)) {}

Acad::ErrorStatus NotingFiler::note(int code, const AcDbObjectId& id)
{
    AcDbStub* const stub = id;
    if (stub && id.database() == database()) references.push_back({code, stub});
    return writeBytes(&id, sizeof id);
}

TranslatingFiler::TranslatingFiler(std::string filed, AcDbDatabase& from, AcDbDatabase& to,
                                   const CopyTranslation& translation)
    : CopyFiler(&to, typeFor(from, to)), mFrom(from), mTranslation(translation)
{
    give(std::move(filed));
}

Acad::ErrorStatus TranslatingFiler::exchange(AcDbObjectId* id)
{
    const Acad::ErrorStatus status = readBytes(id, sizeof *id);
    if (status != Acad::eOk || id->isNull()) return status;
    AcDbStub* const original = *id;
    *id = id->database() == &mFrom ? AcDbObjectId(mTranslation.translate(original)) : AcDbObjectId();
    return status;
}
