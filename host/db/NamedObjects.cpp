/// The named objects dictionary of a drawing and the dictionaries under the system's names in it.

#include "NamedObjects.h"

#include "DatabaseState.h"
#include "dbdictdflt.h"
#include "dbplhldr.h"

namespace
{
const ACHAR* const plotStyleNames = L"ACAD_PLOTSTYLENAME";

/// Adds an object to a dictionary that is closed; both are closed again.
AcDbObjectId addEntry(AcDbObjectId dictionary, const ACHAR* name, AcDbObject* object)
{
    AcDbObjectId id;
    AcDbDictionary* owner = nullptr;
    acdbOpenObject(owner, dictionary, AcDb::kForWrite);
    owner->setAt(name, object, id);
    object->close();
    owner->close();
    return id;
}

void addPlotStyleNames(AcDbObjectId root)
{
    const AcDbObjectId names = addEntry(root, plotStyleNames, new AcDbDictionaryWithDefault);
    const AcDbObjectId normal = addEntry(names, L"Normal", new AcDbPlaceHolder);
    AcDbDictionaryWithDefault* dictionary = nullptr;
    acdbOpenObject(dictionary, names, AcDb::kForWrite);
    dictionary->setDefaultId(normal);
    dictionary->close();
}

AcDbObjectId entryOf(AcDbObjectId root, const ACHAR* name)
{
    AcDbObjectId id;
    if (const auto* dictionary = AcDbDictionary::cast(residentObject(root))) dictionary->getAt(name, id);
    return id;
}

template <class Dictionary>
Acad::ErrorStatus openEntry(AcDbObjectId id, Dictionary*& dictionary, AcDb::OpenMode mode)
{
    dictionary = nullptr;
    return id.isNull() ? Acad::eKeyNotFound : acdbOpenObject(dictionary, id, mode);
}
} // namespace

AcDbObjectId addNamedObjects(AcDbDatabase& database)
{
    AcDbObjectId root;
    auto* dictionary = new AcDbDictionary;
    database.addAcDbObject(root, dictionary);
    dictionary->close();
    for (const ACHAR* name : {L"ACAD_COLOR", L"ACAD_GROUP", L"ACAD_LAYOUT", L"ACAD_MATERIAL", L"ACAD_MLEADERSTYLE",
                              L"ACAD_MLINESTYLE", L"ACAD_PLOTSETTINGS", L"ACAD_SCALELIST", L"ACAD_TABLESTYLE",
                              L"ACAD_VISUALSTYLE"}) {
        addEntry(root, name, new AcDbDictionary);
    }
    addPlotStyleNames(root);
    return root;
}

AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return mState->namedObjects; }

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return openEntry(mState->namedObjects, dictionary, mode);
}

#define ACDB_DICTIONARY_ACCESS(KIND, ID, CLASS, NAME)                                                        \
    AcDbObjectId AcDbDatabase::ID() const { return entryOf(mState->namedObjects, NAME); }                    \
    Acad::ErrorStatus AcDbDatabase::get##KIND##Dictionary(CLASS*& dictionary, AcDb::OpenMode mode)           \
    {                                                                                                        \
        return openEntry(ID(), dictionary, mode);                                                            \
    }

ACDB_DICTIONARY_ACCESS(Color, colorDictionaryId, AcDbDictionary, L"ACAD_COLOR")
ACDB_DICTIONARY_ACCESS(Group, groupDictionaryId, AcDbDictionary, L"ACAD_GROUP")
ACDB_DICTIONARY_ACCESS(Layout, layoutDictionaryId, AcDbDictionary, L"ACAD_LAYOUT")
ACDB_DICTIONARY_ACCESS(Material, materialDictionaryId, AcDbDictionary, L"ACAD_MATERIAL")
ACDB_DICTIONARY_ACCESS(MLeaderStyle, mleaderStyleDictionaryId, AcDbDictionary, L"ACAD_MLEADERSTYLE")
ACDB_DICTIONARY_ACCESS(MLStyle, mLStyleDictionaryId, AcDbDictionary, L"ACAD_MLINESTYLE")
ACDB_DICTIONARY_ACCESS(PlotSettings, plotSettingsDictionaryId, AcDbDictionary, L"ACAD_PLOTSETTINGS")
ACDB_DICTIONARY_ACCESS(ScaleList, scaleListDictionaryId, AcDbDictionary, L"ACAD_SCALELIST")
ACDB_DICTIONARY_ACCESS(TableStyle, tableStyleDictionaryId, AcDbDictionary, L"ACAD_TABLESTYLE")
ACDB_DICTIONARY_ACCESS(VisualStyle, visualStyleDictionaryId, AcDbDictionary, L"ACAD_VISUALSTYLE")
ACDB_DICTIONARY_ACCESS(PlotStyleName, plotStyleNameDictionaryId, AcDbDictionaryWithDefault, plotStyleNames)
