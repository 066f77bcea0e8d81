#include "dbfiler.h"

#include "ClassRegistration.h"
#include "CopyFiler.h"
#include "DxfGroup.h"
#include "acutads.h"

#include <cstdlib>
#include <cstring>

ACDB_ABSTRACT_CLASS(AcDbDwgFiler, AcRxObject)

Acad::ErrorStatus AcDbDwgFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                           AcDb::MaintenanceReleaseVersion& maintenance) const
{
    version = AcDb::kDHL_CURRENT;
    maintenance = AcDb::kMReleaseCurrent;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDwgFiler::writeString(const ACHAR* text)
{
    const std::string bytes = utf8Of(text ? text : L"");
    writeUInt32(static_cast<Adesk::UInt32>(bytes.size()));
    return writeBytes(bytes.data(), bytes.size());
}

Acad::ErrorStatus AcDbDwgFiler::readString(AcString& text)
{
    Adesk::UInt32 size = 0;
    std::string bytes;
    Acad::ErrorStatus status = readUInt32(&size);
    // In steps: a size that was never written must not ask for memory.
    while (status == Acad::eOk && bytes.size() < size) {
        const std::size_t begin = bytes.size();
        bytes.resize(std::min<std::size_t>(size, begin + 65536));
        status = readBytes(&bytes[begin], bytes.size() - begin);
    }
    if (status == Acad::eOk) text = AcString(wideOf(bytes));
    return status;
}

Acad::ErrorStatus AcDbDwgFiler::readString(ACHAR** text)
{
    AcString read;
    const Acad::ErrorStatus status = readString(read);
    if (status == Acad::eOk) acutNewString(read.constPtr(), *text);
    return status;
}

Acad::ErrorStatus AcDbDwgFiler::writeBChunk(const ads_binary& chunk)
{
    if (chunk.clen < 0 || (chunk.clen && !chunk.buf)) return Acad::eInvalidInput;
    writeInt16(chunk.clen);
    return writeBytes(chunk.buf, static_cast<Adesk::UIntPtr>(chunk.clen));
}

Acad::ErrorStatus AcDbDwgFiler::readBChunk(ads_binary* chunk)
{
    Adesk::Int16 size = 0;
    Acad::ErrorStatus status = readInt16(&size);
    if (status != Acad::eOk) return status;
    if (size < 0) return Acad::eFilerError;
    auto* buffer = static_cast<char*>(std::malloc(static_cast<std::size_t>(size) + 1));
    status = readBytes(buffer, static_cast<Adesk::UIntPtr>(size));
    if (status == Acad::eOk) {
        *chunk = {size, buffer};
    } else {
        std::free(buffer);
    }
    return status;
}

Acad::ErrorStatus CopyFiler::readBytes(void* bytes, Adesk::UIntPtr count)
{
    if (mStatus != Acad::eOk) return mStatus;
    if (count > mBytes.size() - mAt) return mStatus = Acad::eEndOfObject;
    std::memcpy(bytes, mBytes.data() + mAt, count);
    mAt += count;
    return mStatus;
}

Acad::ErrorStatus CopyFiler::writeBytes(const void* bytes, Adesk::UIntPtr count)
{
    if (mStatus != Acad::eOk || !count) return mStatus;
    mBytes.replace(mAt, count, static_cast<const char*>(bytes), count);
    mAt += count;
    return mStatus;
}

Acad::ErrorStatus CopyFiler::seek(Adesk::Int64 offset, int method)
{
    const std::size_t from = method == AcDb::kSeekFromStart ? 0 : method == AcDb::kSeekFromEnd ? mBytes.size() : mAt;
    const Adesk::Int64 to = static_cast<Adesk::Int64>(from) + offset;
    if (to < 0 || to > static_cast<Adesk::Int64>(mBytes.size())) return Acad::eInvalidInput;
    mAt = static_cast<std::size_t>(to);
    return Acad::eOk;
}
