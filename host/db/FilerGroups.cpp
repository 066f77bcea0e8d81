#include "FilerGroups.h"

#include "DatabaseState.h"
#include "RecordNames.h"
#include "Stub.h"
#include "dbsymbase.h"

namespace
{
/// What stands behind the code of a group.
enum Kind { realValue, integerValue, textValue, binaryValue, handleNumber, softPointer, hardPointer, softOwner, hardOwner, recordName };

/// By the ranges of the DXF reference.
Kind referenceKindOf(int code)
{
    if (code >= 360 && code < 370) return hardOwner;
    if (code >= 350 && code < 360) return softOwner;
    if ((code >= 340 && code < 350) || (code >= 390 && code < 400)) return hardPointer;
    return softPointer;
}

bool isReference(int code) { return (code >= 330 && code < 370) || (code >= 390 && code < 400); }
} // namespace

void FilerSink::begin(int code, int kind)
{
    mFiler.writeInt16(static_cast<Adesk::Int16>(code));
    mFiler.writeUInt8(static_cast<Adesk::UInt8>(kind));
}

void FilerSink::bytes(std::string_view bytes)
{
    mFiler.writeUInt32(static_cast<Adesk::UInt32>(bytes.size()));
    mFiler.writeBytes(bytes.data(), bytes.size());
}

void FilerSink::real(int code, double value)
{
    begin(code, realValue);
    mFiler.writeDouble(value);
}

void FilerSink::integer(int code, std::int64_t value)
{
    begin(code, integerValue);
    mFiler.writeInt64(value);
}

void FilerSink::text(int code, std::string_view utf8)
{
    begin(code, textValue);
    bytes(utf8);
}

void FilerSink::binary(int code, std::string_view value)
{
    begin(code, binaryValue);
    bytes(value);
}

void FilerSink::rawHandle(int code, std::uint64_t value)
{
    AcDbDatabase* const database = mFiler.database();
    const bool isLookedUp = database && value && isReference(code);
    AcDbStub* const stub = isLookedUp ? DatabaseAccess::of(*database).stubs.find(value) : nullptr;
    if (stub) return handle(code, stub);
    begin(code, handleNumber);
    mFiler.writeUInt64(value);
}

void FilerSink::handle(int code, AcDbStub* stub)
{
    const Kind kind = referenceKindOf(code);
    begin(code, kind);
    switch (kind) {
    case hardOwner: mFiler.writeHardOwnershipId(AcDbObjectId(stub)); break;
    case softOwner: mFiler.writeSoftOwnershipId(AcDbObjectId(stub)); break;
    case hardPointer: mFiler.writeHardPointerId(AcDbObjectId(stub)); break;
    default: mFiler.writeSoftPointerId(AcDbObjectId(stub));
    }
}

void FilerSink::record(int code, AcDbStub* stub)
{
    if (!stub) return;
    begin(code, recordName);
    mFiler.writeHardPointerId(AcDbObjectId(stub));
}

void FilerSource::load()
{
    Adesk::Int16 code = -1;
    Adesk::UInt8 kind = 0;
    mFiler.readInt16(&code);
    mMore = code >= 0 && mFiler.filerStatus() == Acad::eOk;
    if (!mMore) return;
    mGroup = DxfGroup();
    mGroup.code = code;
    mGroup.kind = dxfKindOf(code);
    mId.setNull();
    mFiler.readUInt8(&kind);
    Adesk::Int64 number = 0;
    Adesk::UInt64 handle = 0;
    switch (kind) {
    case realValue: mFiler.readDouble(&mGroup.real); break;
    case integerValue:
        mFiler.readInt64(&number);
        mGroup.integer = number;
        break;
    case handleNumber:
        mFiler.readUInt64(&handle);
        mGroup.integer = static_cast<std::int64_t>(handle);
        break;
    case textValue:
    case binaryValue: loadBytes(); break;
    default: loadReference(kind);
    }
    mMore = mFiler.filerStatus() == Acad::eOk;
}

void FilerSource::loadBytes()
{
    Adesk::UInt32 size = 0;
    mFiler.readUInt32(&size);
    mBytes.clear();
    // In steps: a size that was never written must not ask for memory.
    while (mBytes.size() < size && mFiler.filerStatus() == Acad::eOk) {
        const std::size_t begin = mBytes.size();
        mBytes.resize(std::min<std::size_t>(size, begin + 65536));
        mFiler.readBytes(&mBytes[begin], mBytes.size() - begin);
    }
    mGroup.text = mBytes;
}

void FilerSource::loadReference(int kind)
{
    AcDbHardOwnershipId hardOwned;
    AcDbSoftOwnershipId softOwned;
    AcDbHardPointerId hard;
    AcDbSoftPointerId soft;
    switch (kind) {
    case hardOwner: mFiler.readHardOwnershipId(&hardOwned); mId = hardOwned; break;
    case softOwner: mFiler.readSoftOwnershipId(&softOwned); mId = softOwned; break;
    case softPointer: mFiler.readSoftPointerId(&soft); mId = soft; break;
    default: mFiler.readHardPointerId(&hard); mId = hard;
    }
    mGroup.integer = static_cast<std::int64_t>(mId.handle().value());
    if (kind != recordName) return;
    if (const auto* record = AcDbSymbolTableRecord::cast(residentObject(mId))) mBytes = utf8Of(record->name());
    mGroup.kind = DxfKind::text;
    mGroup.text = mBytes;
}

AcDbStub* FilerSource::stubOf(std::uint64_t handle)
{
    if (mId.handle().value() == handle) return mId;
    AcDbDatabase* const database = mFiler.database();
    return database ? DatabaseAccess::of(*database).stubs.find(handle) : nullptr;
}

AcDbStub* FilerSource::recordOf(int code, std::string_view name)
{
    if (!mId.isNull()) return mId;
    AcDbDatabase* const database = mFiler.database();
    return database ? recordNamed(*database, code, name) : nullptr;
}
