#pragma once

/// AcDbRasterImageDef: a picture file that images of a drawing show, and what ties it to them.

#include "dbidar.h"
#include "dbobject.h"
#include "gepnt2d.h"
#include "gevec2d.h"

#include <atlstr.h>

class AcDbDictionary;

/// Stands in the dictionary "ACAD_IMAGE_DICT" of the drawing.
class AcDbRasterImageDef : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRasterImageDef);
    ACDB_STATE_MEMBERS(AcDbRasterImageDef)
    AcDbRasterImageDef() = default;

    enum Units { kNone = 0, kCentimeter = 2, kInch = 5 };

    /// The drawing's dictionary of pictures; null when there is none.
    static AcDbObjectId imageDictionary(AcDbDatabase* database);
    /// Makes it where it is missing. eNoDatabase, and the statuses of opening the named objects.
    static Acad::ErrorStatus createImageDictionary(AcDbDatabase* database, AcDbObjectId& dictionary);
    /// A name that a dictionary does not have yet, after a file's: a new text that the caller releases with
    /// acutDelString.
    static Acad::ErrorStatus suggestName(const AcDbDictionary* dictionary, const ACHAR* fileName, ACHAR*& name);

    /// The file as the user gave it. Setting it reads the picture's size, where there is such a file.
    const ACHAR* sourceFileName() const { return mSource; }
    Acad::ErrorStatus setSourceFileName(const ACHAR* path);
    /// The file as it is found: beside the drawing when the path does not lead there. Empty when there is none.
    const ACHAR* activeFileName() const;
    Acad::ErrorStatus setActiveFileName(const ACHAR* path);

    /// Reads the size anew: PNG, JPEG, BMP and GIF files. eFileNotFound, eFileAccessErr; eInvalidInput for what is no such
    /// picture. `modifyDatabase` false leaves an object alone that is not open for write.
    Acad::ErrorStatus load(bool modifyDatabase = true);
    /// Images show their frame alone from then on.
    Acad::ErrorStatus unload(bool modifyDatabase = true);
    bool isLoaded() const { return mIsLoaded; }

    /// In pixels.
    AcGeVector2d size() const { return {mSize.x, mSize.y}; }
    AcGeVector2d resolutionMMPerPixel() const;
    Acad::ErrorStatus setResolutionMMPerPixel(const AcGeVector2d& resolution);
    Units resolutionUnits() const { return static_cast<Units>(mUnits); }
    /// "PNG", "JPEG", "BMP", "GIF", or empty: a copy that the caller releases with acutDelString.
    ACHAR* fileType() const;
    /// How many living images show the picture.
    int entityCount(bool* lockedLayers = nullptr) const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    CString mSource, mActive;
    mutable CString mFound; ///< what activeFileName gave last
    AcGePoint2d mSize, mPixelSize{1.0, 1.0};
    int mVersion = 0;
    std::int16_t mUnits = kNone;
    bool mIsLoaded = false;
};

/// Owned by an image, told of changes of its picture.
class AcDbRasterImageDefReactor : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRasterImageDefReactor);
    ACDB_STATE_MEMBERS(AcDbRasterImageDefReactor)
    AcDbRasterImageDefReactor() = default;
    explicit AcDbRasterImageDefReactor(AcDbObjectId image) : mImage(image) {}
    AcDbObjectId imageId() const { return mImage; }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    int mVersion = 2;
    AcDbObjectId mImage;
};
