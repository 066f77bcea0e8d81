#pragma once

/// AcDbDatabase: one drawing in memory.

#include "acdb.h"
#include "dbcolor.h"
#include "dbheadervars.inl"
#include "dbidar.h"
#include "dbobject.h"
#include "dbsymtb.h"
#include "gepnt2d.h"
#include "gepnt3d.h"
#include "gevec3d.h"

#include <atlstr.h>

#include <memory>

class SecurityParams;
class AcDbDatabaseReactor;
class AcDbTransactionManager;
class AcDbDictionary;
class AcDbIdMapping;
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

    // Files. They are DXF files, whatever their name ends in.

    enum OpenMode {
        kForReadAndReadShare = 0,
        kForReadAndWriteNoShare = 1,
        kForReadAndAllShare = 2,
        kTryForReadAndReadShare = 3
    };
    /// Fills the drawing from a file: ASCII or binary DXF, R12 to R2018. Only for a database that was made without a
    /// default drawing and has not been filled: eInvalidInput otherwise. eFileNotFound, eFileAccessErr, eFileSystemErr;
    /// eInvalidDwgVersion for a binary DWG file, which is not read; eBadDxfSequence for a file that is no drawing. The
    /// drawing stays empty then. A damaged file is opened as far as it can be; needsRecovery() tells. `mode`,
    /// `allowCPConversion` and `password` have no meaning for DXF files.
    Acad::ErrorStatus readDwgFile(const ACHAR* fileName, OpenMode mode = kForReadAndAllShare,
                                  bool allowCPConversion = false, const wchar_t* password = nullptr);
    /// Ends the reading of the file, which readDwgFile has done whole already. eOk.
    Acad::ErrorStatus closeInput(bool /*closeFile*/ = true) { return Acad::eOk; }
    /// As readDwgFile; what was repaired is written into a text file, a line each.
    Acad::ErrorStatus dxfIn(const ACHAR* fileName, const ACHAR* logFileName = nullptr);
    /// Writes the drawing as an ASCII DXF file of a version from R2000 on (eInvalidDwgVersion before). The new file is
    /// there whole, or the old one is what it was: eFileAccessErr, eFileNotFound (its folder), eOutOfDisk,
    /// eFileSystemErr. With `bakAndRename` the old file stays as *.bak.
    Acad::ErrorStatus saveAs(const ACHAR* fileName, bool bakAndRename,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT, const SecurityParams* security = nullptr);
    Acad::ErrorStatus saveAs(const ACHAR* fileName, const SecurityParams* security = nullptr);
    /// Saves under the name that the drawing was read from, with a backup; eInvalidInput when it has none.
    Acad::ErrorStatus save();
    /// Like saveAs. Numbers have the shortest text that reads back as the same number, whatever the `precision`
    /// (0 to 16; eInvalidInput otherwise).
    Acad::ErrorStatus dxfOut(const ACHAR* fileName, int precision = 16,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT, bool saveThumbnailImage = false);
    /// The name that the drawing was read from; eNoDatabase and an empty text when it has none.
    Acad::ErrorStatus getFilename(const ACHAR*& fileName) const;
    /// The version of the file that was read; the current one for a new drawing.
    AcDb::AcDbDwgVersion originalFileVersion() const;
    AcDb::AcDbDwgVersion lastSavedAsVersion() const;
    /// Whether the file that was read had faults, which were repaired.
    bool needsRecovery() const;

    // Undo. A drawing that is open in a document records what is changed; another one does when it is told to. What is
    // changed while it does not record is not taken back, and neither are handles: they are never given out again.

    void disableUndoRecording(bool disable);
    bool undoRecording() const;
    /// What has been changed so far becomes a step that is undone by itself. Commands begin and end steps by themselves.
    void startUndoRecord();
    /// Takes the last step back. eUndoOperationNotAvailable when there is none, or while a transaction is active.
    Acad::ErrorStatus undo();
    /// The transactions of this drawing (dbtrans.h).
    AcDbTransactionManager* transactionManager() const;

    // Reactors, told of what happens to the objects and variables (dbdatabasereactor.h).

    /// eDuplicateKey for one that is attached already, eNullObjectPointer.
    Acad::ErrorStatus addReactor(AcDbDatabaseReactor* reactor) const;
    /// eKeyNotFound for one that is not attached.
    Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* reactor) const;

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

    // Copies. An id map tells which copy each object has, and what is taken in place of one that is not copied.

    /// Copies entities of this drawing into a block of it, or other objects into a dictionary, with what they own:
    /// vertices, attributes, extended data, extension dictionaries. What they refer to among themselves, the copies refer
    /// to among themselves; other references stay, reactors that are not copied are left behind. Null and erased ids
    /// are passed over. An entry keeps its name, or gets one of the form "*A1" where that is taken.
    ///
    /// eInvalidOwnerObject when the owner takes no such objects, eWrongDatabase for an id of another drawing,
    /// eNotAnEntity, eLockViolation and the other statuses of opening the owner for write, eSelfReference for a
    /// reference that goes into the block it shows: nothing is copied then. With `deferXlation` the copies are made by
    /// the next call with the same map that is without it, all together; eInvalidIdMap when it is of other drawings.
    Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId& owner, AcDbIdMapping& map,
                                       bool deferXlation = false);
    /// Copies objects of this drawing into another: entities into a block, records into their table, other objects into
    /// a dictionary (`owner`, which tells the drawing). With them comes what they own hard and what they point to hard:
    /// layers, styles, blocks, applications, entries of dictionaries, the layout of a paper space and the paper space of
    /// a layout. Entities come only with their block.
    ///
    /// `drc` says what becomes of a record or entry whose name is there already (case counts for nothing):
    /// kDrcIgnore: the one that is there is taken. kDrcReplace: it gets the contents of the copy and keeps its id.
    /// kDrcMangleName and kDrcXrefMangleName: every name gets "$0$" or "file$0$" in front, with the first number that is
    /// free. kDrcUnmangleName takes that off again, and is then kDrcIgnore. Names of applications, the layers 0 and
    /// Defpoints and the linetypes ByLayer, ByBlock and Continuous are never mangled, layouts never replaced (they get
    /// "name (2)"), and anonymous blocks get a number of their own.
    ///
    /// Statuses as of deepCloneObjects; eWrongDatabase also when the owner is of this drawing. Nothing is copied then.
    Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId& owner, AcDbIdMapping& map,
                                         AcDb::DuplicateRecordCloning drc, bool deferXlation = false);
    /// Makes a block of the model space of another drawing, with its base point (INSBASE) as origin and its units; a
    /// block that has the name already is redefined, and its references show the new one. "*U" asks for an anonymous
    /// block. Names that this drawing has keep their meaning (kDrcIgnore). The other drawing is not changed,
    /// whatever `preserveSourceDatabase` says. eNoDatabase, eSelfReference for this drawing itself and for a block that
    /// would show itself, eInvalidSymbolTableName, eIllegalReplacement for a space; nothing is changed then.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* blockName, AcDbDatabase* source,
                             bool preserveSourceDatabase = true);
    /// The same of a block of the other drawing; eKeyNotFound when it has none of the name.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* sourceBlockName, const ACHAR* destinationBlockName,
                             AcDbDatabase* source, bool preserveSourceDatabase = true);
    /// Copies the model space of another drawing into this one's, transformed. Entities that refuse the matrix
    /// (eCannotScaleNonUniformly) refuse it for all: nothing is copied then.
    Acad::ErrorStatus insert(const AcGeMatrix3d& xform, AcDbDatabase* source, bool preserveSourceDatabase = true);

    /// A new drawing, the caller's, of the same contents without the records and blocks that nothing uses. Handles are
    /// kept.
    Acad::ErrorStatus wblock(AcDbDatabase*& output);
    /// A new drawing with the contents of a block in its model space; the block's origin is its base point (INSBASE).
    /// eInvalidInput for an id that is no block's of this drawing.
    Acad::ErrorStatus wblock(AcDbDatabase*& output, AcDbObjectId blockId);
    /// A new drawing with copies of entities, moved so that the base point lies at the origin, in their draw order, with
    /// the groups all of whose members are among them. The statuses of wblockCloneObjects; `output` is null then.
    Acad::ErrorStatus wblock(AcDbDatabase*& output, const AcDbObjectIdArray& ids, const AcGePoint3d& basePoint);
    /// The same into the model space of a drawing that is there.
    Acad::ErrorStatus wblock(AcDbDatabase* output, const AcDbObjectIdArray& ids, const AcGePoint3d& basePoint,
                             AcDb::DuplicateRecordCloning drc);

    /// Adds linetypes from a definition file (*.lin; ANSI, or UTF-8 with a byte order mark): the one of a name, without
    /// regard to case, or with "*" all that the drawing does not have yet. eDuplicateRecordName when it is there
    /// already, eUndefinedLineType when the file does not define it, eBadLinetypeName when its definition is damaged,
    /// eUndefineShapeName when it uses shapes, whose files are not read, or a text style that the drawing does not
    /// have; eFileNotFound, eFileAccessErr, eInvalidInput for a null or empty text. With "*", definitions that cannot
    /// be used are left out.
    Acad::ErrorStatus loadLineTypeFile(const ACHAR* linetypeName, const ACHAR* fileName);

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
    /// The current text style.
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId style);
    /// The current dimension style.
    AcDbObjectId dimstyle() const;
    Acad::ErrorStatus setDimstyle(AcDbObjectId style);
    /// The dimension variables of the header, those of the current style with what was set since: as a new record that the
    /// caller owns.
    Acad::ErrorStatus getDimstyleData(AcDbDimStyleTableRecord*& record) const;
    /// Sets all of them from a record, or from the style of an id, whose name becomes the current style.
    Acad::ErrorStatus setDimstyleData(const AcDbDimStyleTableRecord* record);
    Acad::ErrorStatus setDimstyleData(AcDbObjectId style);

    // The named coordinate systems of model space, with a p those of paper space. Null: none, or the world's.

    /// The current one, where it has a name.
    AcDbObjectId ucsname() const;
    AcDbObjectId pucsname() const;
    /// That which the orthographic ones are taken from.
    AcDbObjectId ucsBase() const;
    Acad::ErrorStatus setUcsBase(AcDbObjectId ucs);
    AcDbObjectId pucsBase() const;
    Acad::ErrorStatus setPucsBase(AcDbObjectId ucs);
    /// The origin of an orthographic system of the world: eInvalidInput for kNonOrthoView and points that are not finite.
    AcGePoint3d worldUcsBaseOrigin(AcDb::OrthographicView view) const;
    Acad::ErrorStatus setWorldUcsBaseOrigin(const AcGePoint3d& origin, AcDb::OrthographicView view);
    AcGePoint3d worldPucsBaseOrigin(AcDb::OrthographicView view) const;
    Acad::ErrorStatus setWorldPucsBaseOrigin(const AcGePoint3d& origin, AcDb::OrthographicView view);

    // Variables of the header. Setters: eInvalidInput for a value out of range or not finite, and nothing changed.
    // Limits and extents are those of model space, with a p
    // those of the current layout.

    /// The direction of the angle 0, in radians from the X axis.
    double angbase() const;
    Acad::ErrorStatus setAngbase(double radians);

#define ACDB_DECLARE_REAL(GET, SET, NAME, LEAST, MOST)                                                       \
    double GET() const;                                                                                      \
    Acad::ErrorStatus SET(double value);
#define ACDB_DECLARE_INTEGER(TYPE, GET, SET, NAME, LEAST, MOST)                                              \
    TYPE GET() const;                                                                                        \
    Acad::ErrorStatus SET(TYPE value);
#define ACDB_DECLARE_POINT(TYPE, GET, SET, NAME)                                                             \
    TYPE GET() const;                                                                                        \
    Acad::ErrorStatus SET(const TYPE& value);
#define ACDB_DECLARE_FRAME(TYPE, GET, NAME) TYPE GET() const;
    ACDB_HEADER_REALS(ACDB_DECLARE_REAL)
    ACDB_HEADER_INTEGERS(ACDB_DECLARE_INTEGER)
    ACDB_HEADER_POINTS(ACDB_DECLARE_POINT)
    ACDB_HEADER_FRAMES(ACDB_DECLARE_FRAME)
#undef ACDB_DECLARE_REAL
#undef ACDB_DECLARE_INTEGER
#undef ACDB_DECLARE_POINT
#undef ACDB_DECLARE_FRAME

    /// Computes the extents of model space anew; of an empty one they are inside out (1e20, -1e20). `doBestFit` has no
    /// meaning here: they are always the best.
    Acad::ErrorStatus updateExt(bool doBestFit = false);

private:
    friend struct DatabaseAccess;
    std::unique_ptr<DatabaseState> mState;
};
