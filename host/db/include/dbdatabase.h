#pragma once

/// AcDbDatabase: one drawing in memory.

#include "acdb.h"
#include "dbcolor.h"
#include "dbobject.h"
#include "dbsymtb.h"

#include <atlstr.h>

#include <memory>

class AcDbDictionary;
class AcDbDictionaryWithDefault;
struct DatabaseState;

class AcDbDatabase : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);

    /// A new drawing with all that AutoCAD puts into one; without `buildDefaultDrawing` an empty one for readDwgFile
    /// and dxfIn. `noDocument` says that the drawing will not be shown in a document.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    // Finding objects.

    /// The id of the object under a handle. eUnknownHandle when there is none; with `createIfNotFound` a null handle asks for
    /// the next free one and another is reserved.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                      std::uint32_t xrefId = 0) const;
    /// The handle that the next new object gets.
    AcDbHandle handseed() const;
    /// How many objects the database holds, erased ones left out.
    int approxNumObjects() const;

    // Adding objects.

    /// Gives a new object an id and a handle, under an owner that the caller links it to. The object stays open for
    /// write. eAlreadyInDb for an object that has a database.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object, AcDbObjectId owner = AcDbObjectId::kNull);

    // The tables, opened as asked: the statuses of acdbOpenObject.

    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbUCSTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbViewTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbViewportTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);

    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getUCSTable(AcDbUCSTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewTable(AcDbViewTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewportTable(AcDbViewportTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId UCSTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId viewportTableId() const;
    AcDbObjectId regAppTableId() const;

    // The dictionaries, opened as asked: the statuses of acdbOpenObject; eKeyNotFound when the drawing has none.

    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getColorDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayoutDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getMaterialDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getMLeaderStyleDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getMLStyleDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getPlotSettingsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getScaleListDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTableStyleDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getVisualStyleDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getPlotStyleNameDictionary(AcDbDictionaryWithDefault*& dictionary,
                                                 AcDb::OpenMode mode = AcDb::kForRead);

    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId colorDictionaryId() const;
    AcDbObjectId groupDictionaryId() const;
    AcDbObjectId layoutDictionaryId() const;
    AcDbObjectId materialDictionaryId() const;
    AcDbObjectId mleaderStyleDictionaryId() const;
    AcDbObjectId mLStyleDictionaryId() const;
    AcDbObjectId plotSettingsDictionaryId() const;
    AcDbObjectId plotStyleNameDictionaryId() const;
    AcDbObjectId scaleListDictionaryId() const;
    AcDbObjectId tableStyleDictionaryId() const;
    AcDbObjectId visualStyleDictionaryId() const;

    // Records that every drawing has.

    AcDbObjectId layerZero() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;
    AcDbObjectId continuousLinetype() const;
    /// The blocks of model space and of the paper space of the current (or last) layout.
    AcDbObjectId modelSpaceId() const;
    /// The block that new entities go to.
    AcDbObjectId currentSpaceId() const;

    // What new entities get. Setters: eInvalidInput or eWrongDatabase, and nothing changed.

    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId linetype);
    AcCmColor cecolor() const;
    Acad::ErrorStatus setCecolor(const AcCmColor& color);
    double celtscale() const;
    Acad::ErrorStatus setCeltscale(double scale);
    /// The current text style.
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId style);
    AcDb::LineWeight celweight() const;
    Acad::ErrorStatus setCelweight(AcDb::LineWeight weight);

private:
    friend struct DatabaseAccess;
    std::unique_ptr<DatabaseState> mState;
};
