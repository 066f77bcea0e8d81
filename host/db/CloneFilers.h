#pragma once

/// How objects of a module's classes are copied: the original files itself, with its references noted by the way in
/// which it holds them, and the copy reads the same with the references exchanged.

#include "CopyFiler.h"
#include "CopyGroups.h"

/// Takes what an original files.
class NotingFiler final : public CopyFiler
{
public:
    NotingFiler(AcDbDatabase& from, AcDbDatabase& to);

    Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) override { return note(360, id); }
    Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) override { return note(350, id); }
    Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override { return note(340, id); }
    Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) override { return note(330, id); }

    std::vector<CopyReference> references;

private:
    Acad::ErrorStatus note(int code, const AcDbObjectId& id);
};

/// Gives it to the copy.
class TranslatingFiler final : public CopyFiler
{
public:
    TranslatingFiler(std::string filed, AcDbDatabase& from, AcDbDatabase& to, const CopyTranslation& translation);

    Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) override { return exchange(id); }
    Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) override { return exchange(id); }
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) override { return exchange(id); }
    Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) override { return exchange(id); }

private:
    Acad::ErrorStatus exchange(AcDbObjectId* id);

    AcDbDatabase& mFrom;
    const CopyTranslation& mTranslation;
};
