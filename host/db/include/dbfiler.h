#pragma once

/// Filers: what the objects of a module's classes write themselves into and read themselves from.

#include "AcString.h"
#include "acdb.h"
#include "adesk.h"
#include "adsdef.h"
#include "dbid.h"
#include "gepnt2d.h"
#include "gepnt3d.h"
#include "gescl3d.h"
#include "gevec2d.h"
#include "gevec3d.h"
#include "rxboiler.h"

#include <atlstr.h>

namespace AcDb
{
enum FilerType {
    kFileFiler = 0,
    kCopyFiler = 1,
    kUndoFiler = 2,
    kBagFiler = 3,
    kIdXlateFiler = 4,
    kPageFiler = 5,
    kDeepCloneFiler = 6,
    kIdFiler = 7,
    kPurgeFiler = 8,
    kWblockCloneFiler = 9
};
enum FilerSeekType { kSeekFromStart = 0, kSeekFromCurrent = 1, kSeekFromEnd = 2 };
enum MaintenanceReleaseVersion { kMReleaseCurrent = 0 };
} // namespace AcDb

/// A sequence of values without names: what is read must be what was written, in its order. A fault is kept as the
/// filer's status; what is read after it is not changed.
class AcDbDwgFiler : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDwgFiler);

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual AcDb::FilerType filerType() const = 0;
    virtual void setFilerStatus(Acad::ErrorStatus status) = 0;
    virtual void resetFilerStatus() { setFilerStatus(Acad::eOk); }
    virtual AcDbDatabase* database() const { return nullptr; }
    virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version,
                                         AcDb::MaintenanceReleaseVersion& maintenance) const;
    virtual bool usesReferences() const { return true; }

    virtual Acad::ErrorStatus readBytes(void* bytes, Adesk::UIntPtr count) = 0;
    virtual Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UIntPtr count) = 0;
    virtual Acad::ErrorStatus seek(Adesk::Int64 offset, int method) = 0;
    virtual Adesk::Int64 tell() const = 0;

    /// References, by how the object holds what they name.
    virtual Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) { return readId(id); }
    virtual Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) { return writeId(id); }
    virtual Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) { return readId(id); }
    virtual Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) { return writeId(id); }
    virtual Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) { return readId(id); }
    virtual Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) { return writeId(id); }
    virtual Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) { return readId(id); }
    virtual Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) { return writeId(id); }

    /// A new text that the caller releases with acutDelString.
    virtual Acad::ErrorStatus readString(ACHAR** text);
    virtual Acad::ErrorStatus readString(AcString& text);
    /// Null counts as the empty text.
    virtual Acad::ErrorStatus writeString(const ACHAR* text);
    virtual Acad::ErrorStatus writeString(const AcString& text) { return writeString(text.constPtr()); }
    /// A new buffer (clen, buf) that the caller releases with acutDelBuffer.
    virtual Acad::ErrorStatus readBChunk(ads_binary* chunk);
    virtual Acad::ErrorStatus writeBChunk(const ads_binary& chunk);

#define ACDB_FILER_VALUE(NAME, TYPE)                                                                         \
    virtual Acad::ErrorStatus read##NAME(TYPE* value) { return readBytes(value, sizeof(TYPE)); }             \
    virtual Acad::ErrorStatus write##NAME(TYPE value) { return writeBytes(&value, sizeof(TYPE)); }
    ACDB_FILER_VALUE(Boolean, Adesk::Boolean)
    ACDB_FILER_VALUE(Bool, bool)
    ACDB_FILER_VALUE(Int8, Adesk::Int8)
    ACDB_FILER_VALUE(Int16, Adesk::Int16)
    ACDB_FILER_VALUE(Int32, Adesk::Int32)
    ACDB_FILER_VALUE(Int64, Adesk::Int64)
    ACDB_FILER_VALUE(UInt8, Adesk::UInt8)
    ACDB_FILER_VALUE(UInt16, Adesk::UInt16)
    ACDB_FILER_VALUE(UInt32, Adesk::UInt32)
    ACDB_FILER_VALUE(UInt64, Adesk::UInt64)
    ACDB_FILER_VALUE(Double, double)
#undef ACDB_FILER_VALUE

#define ACDB_FILER_OBJECT(NAME, TYPE)                                                                        \
    virtual Acad::ErrorStatus read##NAME(TYPE* value) { return readBytes(value, sizeof(TYPE)); }             \
    virtual Acad::ErrorStatus write##NAME(const TYPE& value) { return writeBytes(&value, sizeof(TYPE)); }
    ACDB_FILER_OBJECT(AcDbHandle, AcDbHandle)
    ACDB_FILER_OBJECT(Point2d, AcGePoint2d)
    ACDB_FILER_OBJECT(Point3d, AcGePoint3d)
    ACDB_FILER_OBJECT(Vector2d, AcGeVector2d)
    ACDB_FILER_OBJECT(Vector3d, AcGeVector3d)
    ACDB_FILER_OBJECT(Scale3d, AcGeScale3d)
#undef ACDB_FILER_OBJECT

    // The same by overloading.

    Acad::ErrorStatus writeItem(const ACHAR* text) { return writeString(text); }
    Acad::ErrorStatus writeItem(Adesk::Boolean value) { return writeBoolean(value); }
    Acad::ErrorStatus writeItem(Adesk::Int16 value) { return writeInt16(value); }
    Acad::ErrorStatus writeItem(Adesk::Int32 value) { return writeInt32(value); }
    Acad::ErrorStatus writeItem(Adesk::UInt8 value) { return writeUInt8(value); }
    Acad::ErrorStatus writeItem(Adesk::UInt16 value) { return writeUInt16(value); }
    Acad::ErrorStatus writeItem(Adesk::UInt32 value) { return writeUInt32(value); }
    Acad::ErrorStatus writeItem(double value) { return writeDouble(value); }
    Acad::ErrorStatus writeItem(const AcGePoint2d& value) { return writePoint2d(value); }
    Acad::ErrorStatus writeItem(const AcGePoint3d& value) { return writePoint3d(value); }
    Acad::ErrorStatus writeItem(const AcGeVector2d& value) { return writeVector2d(value); }
    Acad::ErrorStatus writeItem(const AcGeVector3d& value) { return writeVector3d(value); }
    Acad::ErrorStatus writeItem(const AcGeScale3d& value) { return writeScale3d(value); }
    Acad::ErrorStatus writeItem(const AcDbHardPointerId& id) { return writeHardPointerId(id); }
    Acad::ErrorStatus writeItem(const AcDbSoftPointerId& id) { return writeSoftPointerId(id); }
    Acad::ErrorStatus writeItem(const AcDbHardOwnershipId& id) { return writeHardOwnershipId(id); }
    Acad::ErrorStatus writeItem(const AcDbSoftOwnershipId& id) { return writeSoftOwnershipId(id); }
    Acad::ErrorStatus readItem(ACHAR** text) { return readString(text); }
    Acad::ErrorStatus readItem(Adesk::Boolean* value) { return readBoolean(value); }
    Acad::ErrorStatus readItem(Adesk::Int16* value) { return readInt16(value); }
    Acad::ErrorStatus readItem(Adesk::Int32* value) { return readInt32(value); }
    Acad::ErrorStatus readItem(Adesk::UInt8* value) { return readUInt8(value); }
    Acad::ErrorStatus readItem(Adesk::UInt16* value) { return readUInt16(value); }
    Acad::ErrorStatus readItem(Adesk::UInt32* value) { return readUInt32(value); }
    Acad::ErrorStatus readItem(double* value) { return readDouble(value); }
    Acad::ErrorStatus readItem(AcGePoint2d* value) { return readPoint2d(value); }
    Acad::ErrorStatus readItem(AcGePoint3d* value) { return readPoint3d(value); }
    Acad::ErrorStatus readItem(AcGeVector2d* value) { return readVector2d(value); }
    Acad::ErrorStatus readItem(AcGeVector3d* value) { return readVector3d(value); }
    Acad::ErrorStatus readItem(AcGeScale3d* value) { return readScale3d(value); }
    Acad::ErrorStatus readItem(AcDbHardPointerId* id) { return readHardPointerId(id); }
    Acad::ErrorStatus readItem(AcDbSoftPointerId* id) { return readSoftPointerId(id); }
    Acad::ErrorStatus readItem(AcDbHardOwnershipId* id) { return readHardOwnershipId(id); }
    Acad::ErrorStatus readItem(AcDbSoftOwnershipId* id) { return readSoftOwnershipId(id); }

private:
    Acad::ErrorStatus readId(AcDbObjectId* id) { return readBytes(id, sizeof(AcDbObjectId)); }
    Acad::ErrorStatus writeId(const AcDbObjectId& id) { return writeBytes(&id, sizeof(AcDbObjectId)); }
};

/// Groups of a record, to be written or to be read one after the other.
///
/// Reading: readResBuf gives a group; eEndOfFile at the end of the object and where its extended data begins. Points
/// come as one group. A text belongs to the filer and holds until the next one is read. pushBackItem gives the last group
/// back, to be read again.
class AcDbDxfFiler : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDxfFiler);
    enum { kDfltPrec = -1, kMaxPrec = 16 };

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual void resetFilerStatus() = 0;
    /// Keeps a fault, with a text in the manner of printf. The object is refused then, or repaired.
    virtual Acad::ErrorStatus setError(Acad::ErrorStatus status, const ACHAR* format = nullptr, ...) = 0;
    virtual const ACHAR* errorMessage() const = 0;
    virtual AcDb::FilerType filerType() const { return AcDb::kFileFiler; }
    virtual AcDbDatabase* database() const { return nullptr; }
    virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version,
                                         AcDb::MaintenanceReleaseVersion& maintenance) const = 0;
    virtual int precision() const { return kMaxPrec; }
    virtual void setPrecision(int) {}
    virtual bool includesDefaultValues() const { return false; }

    virtual Acad::ErrorStatus readResBuf(resbuf* item) = 0;
    Acad::ErrorStatus readItem(resbuf* item) { return readResBuf(item); }
    virtual Acad::ErrorStatus pushBackItem() = 0;
    virtual bool atEOF() = 0;
    virtual bool atEndOfObject() = 0;
    virtual bool atExtendedData() = 0;
    /// True when the next group begins the section of a class, which is taken then.
    virtual bool atSubclassData(const ACHAR* subClassName) = 0;

    /// One node; what comes behind it is not looked at.
    virtual Acad::ErrorStatus writeResBuf(const resbuf& item) = 0;
    virtual Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* text) = 0;
    virtual Acad::ErrorStatus writeInteger(int code, Adesk::Int64 value) = 0;
    /// The shortest text that reads back as the same number, whatever the precision. eInvalidInput, and nothing is
    /// written, for what is no finite number.
    virtual Acad::ErrorStatus writeReal(int code, double value) = 0;
    virtual Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) = 0;
    virtual Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) = 0;
    virtual Acad::ErrorStatus writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) = 0;

    Acad::ErrorStatus writeString(AcDb::DxfCode code, const AcString& text) { return writeString(code, text.constPtr()); }
    Acad::ErrorStatus writeBool(AcDb::DxfCode code, bool value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeBoolean(AcDb::DxfCode code, Adesk::Boolean value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeInt8(AcDb::DxfCode code, Adesk::Int8 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeInt64(AcDb::DxfCode code, Adesk::Int64 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeUInt8(AcDb::DxfCode code, Adesk::UInt8 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int = kDfltPrec) { return writeReal(code, value); }
    Acad::ErrorStatus writePoint2d(AcDb::DxfCode code, const AcGePoint2d& point, int precision = kDfltPrec);
    Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& point, int precision = kDfltPrec);
    Acad::ErrorStatus writeVector2d(AcDb::DxfCode code, const AcGeVector2d& vector, int precision = kDfltPrec);
    Acad::ErrorStatus writeVector3d(AcDb::DxfCode code, const AcGeVector3d& vector, int precision = kDfltPrec);
    Acad::ErrorStatus writeScale3d(AcDb::DxfCode code, const AcGeScale3d& scale, int precision = kDfltPrec);

    // The same by overloading; the code as a number or by its name.

    Acad::ErrorStatus writeItem(const resbuf& item) { return writeResBuf(item); }
    Acad::ErrorStatus writeItem(int code, const ACHAR* text) { return writeString(named(code), text); }
    Acad::ErrorStatus writeItem(int code, const AcString& text) { return writeString(named(code), text); }
    Acad::ErrorStatus writeItem(int code, bool value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::Int8 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::Int16 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::Int32 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::Int64 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::UInt8 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::UInt16 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, Adesk::UInt32 value) { return writeInteger(code, value); }
    Acad::ErrorStatus writeItem(int code, double value, int = kDfltPrec) { return writeReal(code, value); }
    Acad::ErrorStatus writeItem(int code, const AcDbObjectId& id) { return writeObjectId(named(code), id); }
    Acad::ErrorStatus writeItem(int code, const AcDbHandle& handle) { return writeAcDbHandle(named(code), handle); }
    Acad::ErrorStatus writeItem(int code, const AcGePoint2d& point, int = kDfltPrec) { return writePoint2d(named(code), point); }
    Acad::ErrorStatus writeItem(int code, const AcGePoint3d& point, int = kDfltPrec) { return writePoint3d(named(code), point); }
    Acad::ErrorStatus writeItem(int code, const AcGeVector2d& vector, int = kDfltPrec) { return writeVector2d(named(code), vector); }
    Acad::ErrorStatus writeItem(int code, const AcGeVector3d& vector, int = kDfltPrec) { return writeVector3d(named(code), vector); }

private:
    static AcDb::DxfCode named(int code) { return static_cast<AcDb::DxfCode>(code); }
};
