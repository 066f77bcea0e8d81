#include "imgdef.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "PictureHeader.h"
#include "Stub.h"
#include "acutads.h"
#include "dbdatabase.h"
#include "dbblock.h"
#include "dbdict.h"
#include "imgent.h"

#include <windows.h>

ACDB_DXF_CLASS(AcDbRasterImageDef, AcDbObject, IMAGEDEF)
ACDB_DXF_CLASS(AcDbRasterImageDefReactor, AcDbObject, IMAGEDEF_REACTOR)

const DxfClass AcDbRasterImageDef::dxf("AcDbRasterImageDef", nullptr,
                                       {
                                           dxf::integer<&AcDbRasterImageDef::mVersion>(90),
                                           dxf::text<&AcDbRasterImageDef::mSource>(1),
                                           dxf::point2d<&AcDbRasterImageDef::mSize>(10),
                                           dxf::point2d<&AcDbRasterImageDef::mPixelSize>(11),
                                           dxf::integer<&AcDbRasterImageDef::mIsLoaded>(280),
                                           dxf::integer<&AcDbRasterImageDef::mUnits>(281),
                                       });

const DxfClass AcDbRasterImageDefReactor::dxf("AcDbRasterImageDefReactor", nullptr,
                                              {
                                                  dxf::integer<&AcDbRasterImageDefReactor::mVersion>(90),
                                                  dxf::reference<&AcDbRasterImageDefReactor::mImage>(330),
                                              });

namespace
{
constexpr const wchar_t* dictionaryName = L"ACAD_IMAGE_DICT";

bool exists(const CString& path)
{
    const DWORD attributes = path.IsEmpty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

int lastSeparator(const CString& path) { return std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/')); }

/// The folder of a drawing's file with a separator at its end; empty for one without a file.
CString folderOf(const AcDbDatabase* database)
{
    const ACHAR* file = nullptr;
    if (!database || database->getFilename(file) != Acad::eOk || !file) return CString();
    const CString path(file);
    return path.Left(lastSeparator(path) + 1);
}

bool isAbsolute(const CString& path)
{
    return path.GetLength() > 1 && (path[1] == L':' || path[0] == L'\\' || path[0] == L'/');
}

/// Where a picture lies: under its path, taken from the drawing's folder when it is relative, or beside the drawing.
CString findFile(const CString& path, const AcDbDatabase* database)
{
    const CString folder = folderOf(database);
    const CString candidates[] = {isAbsolute(path) ? path : folder + path, path, folder + path.Mid(lastSeparator(path) + 1)};
    for (const CString& candidate : candidates) {
        if (exists(candidate)) return candidate;
    }
    return CString();
}
} // namespace

AcDbObjectId AcDbRasterImageDef::imageDictionary(AcDbDatabase* database)
{
    AcDbObjectId id;
    const auto* named = database ? AcDbDictionary::cast(residentObject(database->namedObjectsDictionaryId())) : nullptr;
    if (named) named->getAt(dictionaryName, id);
    return id;
}

Acad::ErrorStatus AcDbRasterImageDef::createImageDictionary(AcDbDatabase* database, AcDbObjectId& dictionary)
{
    if (!database) return Acad::eNoDatabase;
    dictionary = imageDictionary(database);
    if (!dictionary.isNull()) return Acad::eOk;
    AcDbDictionary* named = nullptr;
    Acad::ErrorStatus status = database->getNamedObjectsDictionary(named, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    auto made = std::make_unique<AcDbDictionary>();
    status = named->setAt(dictionaryName, made.get(), dictionary);
    if (status == Acad::eOk) made.release()->close();
    named->close();
    return status;
}

Acad::ErrorStatus AcDbRasterImageDef::suggestName(const AcDbDictionary* dictionary, const ACHAR* fileName, ACHAR*& name)
{
    if (!dictionary || !fileName) return Acad::eInvalidInput;
    const CString path(fileName);
    CString stem = path.Mid(lastSeparator(path) + 1);
    if (stem.ReverseFind(L'.') > 0) stem = stem.Left(stem.ReverseFind(L'.'));
    CString free = stem;
    for (int number = 1; free.IsEmpty() || dictionary->has(free); ++number)
        free.Format(L"%ls%d", stem.GetString(), number);
    return acutNewString(free, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbRasterImageDef::setSourceFileName(const ACHAR* path)
{
    if (!path || !*path) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    mSource = path;
    mActive.Empty();
    // The definition is good without its file, which may come later.
    load();
    return status;
}

const ACHAR* AcDbRasterImageDef::activeFileName() const
{
    mFound = mActive.IsEmpty() ? CString() : findFile(mActive, database());
    if (mFound.IsEmpty()) mFound = findFile(mSource, database());
    return mFound;
}

Acad::ErrorStatus AcDbRasterImageDef::setActiveFileName(const ACHAR* path)
{
    return path ? assign(mActive, CString(path)) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbRasterImageDef::load(bool modifyDatabase)
{
    const CString path = activeFileName();
    PictureHeader header;
    if (path.IsEmpty()) return Acad::eFileNotFound;
    if (!readPictureHeader(path, header)) return Acad::eFileAccessErr;
    if (header.kind == PictureHeader::Kind::unknown) return Acad::eInvalidInput;
    if (!modifyDatabase && !isWriteEnabled()) return Acad::eOk;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    mSize.set(header.width, header.height);
    if (!mIsLoaded && mUnits == kNone) mPixelSize.set(1.0 / header.width, 1.0 / header.width);
    mIsLoaded = true;
    return status;
}

Acad::ErrorStatus AcDbRasterImageDef::unload(bool modifyDatabase)
{
    if (!modifyDatabase && !isWriteEnabled()) return Acad::eOk;
    return assign(mIsLoaded, false);
}

AcGeVector2d AcDbRasterImageDef::resolutionMMPerPixel() const
{
    const double unit = mUnits == kCentimeter ? 10.0 : mUnits == kInch ? 25.4 : 1.0;
    return {mPixelSize.x * unit, mPixelSize.y * unit};
}

Acad::ErrorStatus AcDbRasterImageDef::setResolutionMMPerPixel(const AcGeVector2d& resolution)
{
    if (!(resolution.x > 0.0) || !(resolution.y > 0.0)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    mUnits = kCentimeter;
    mPixelSize.set(resolution.x / 10.0, resolution.y / 10.0);
    return status;
}

ACHAR* AcDbRasterImageDef::fileType() const
{
    static const wchar_t* const names[] = {L"", L"PNG", L"JPEG", L"BMP", L"GIF"};
    PictureHeader header;
    ACHAR* name = nullptr;
    readPictureHeader(activeFileName(), header);
    acutNewString(names[static_cast<int>(header.kind)], name);
    return name;
}

int AcDbRasterImageDef::entityCount(bool* lockedLayers) const
{
    if (lockedLayers) *lockedLayers = false;
    const auto* blocks = database() ? AcDbBlockTable::cast(residentObject(database()->blockTableId())) : nullptr;
    int count = 0;
    for (const AcDbObjectId block : blocks ? blocks->recordIds() : std::vector<AcDbObjectId>()) {
        for (const AcDbObjectId id : static_cast<AcDbBlockTableRecord*>(residentObject(block))->entityIds()) {
            const auto* image = AcDbRasterImage::cast(residentObject(id));
            if (!image || id.isErased() || block.isErased() || image->imageDefId() != objectId()) continue;
            ++count;
            const auto* layer = AcDbLayerTableRecord::cast(residentObject(image->layerId()));
            if (lockedLayers && layer) *lockedLayers |= layer->isLocked();
        }
    }
    return count;
}
