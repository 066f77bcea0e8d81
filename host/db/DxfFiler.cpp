#include "DxfFiler.h"

#include "ClassRegistration.h"
#include "Stub.h"
#include "acutads.h"
#include "dbobject.h"

#include <cmath>
#include <cstdarg>

ACDB_ABSTRACT_CLASS(AcDbDxfFiler, AcRxObject)

Acad::ErrorStatus AcDbDxfFiler::writePoint2d(AcDb::DxfCode code, const AcGePoint2d& point, int)
{
    const Acad::ErrorStatus status = writeReal(code, point.x);
    return status == Acad::eOk ? writeReal(code + 10, point.y) : status;
}

Acad::ErrorStatus AcDbDxfFiler::writePoint3d(AcDb::DxfCode code, const AcGePoint3d& point, int)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) return writeReal(code, NAN);
    writeReal(code, point.x);
    writeReal(code + 10, point.y);
    return writeReal(code + 20, point.z);
}

Acad::ErrorStatus AcDbDxfFiler::writeVector2d(AcDb::DxfCode code, const AcGeVector2d& vector, int precision)
{
    return writePoint2d(code, AcGePoint2d(vector.x, vector.y), precision);
}

Acad::ErrorStatus AcDbDxfFiler::writeVector3d(AcDb::DxfCode code, const AcGeVector3d& vector, int precision)
{
    return writePoint3d(code, AcGePoint3d(vector.x, vector.y, vector.z), precision);
}

Acad::ErrorStatus AcDbDxfFiler::writeScale3d(AcDb::DxfCode code, const AcGeScale3d& scale, int precision)
{
    return writePoint3d(code, AcGePoint3d(scale.sx, scale.sy, scale.sz), precision);
}

Acad::ErrorStatus RecordFiler::setError(Acad::ErrorStatus status, const ACHAR* format, ...)
{
    mStatus = status;
    mMessage.Empty();
    if (!format) return status;
    va_list arguments;
    va_start(arguments, format);
    mMessage.FormatV(format, arguments);
    va_end(arguments);
    return status;
}

Acad::ErrorStatus RecordFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                          AcDb::MaintenanceReleaseVersion& maintenance) const
{
    // $ACADVER counts by threes from R2000 on, the enumeration by twos.
    version = mVersion < 1015 ? AcDb::kDHL_1009 : static_cast<AcDb::AcDbDwgVersion>(AcDb::kDHL_1015 + (mVersion - 1015) / 3 * 2);
    if (mVersion >= 1032) version = AcDb::kDHL_1032;
    maintenance = AcDb::kMReleaseCurrent;
    return Acad::eOk;
}

Acad::ErrorStatus DxfOutFiler::writeResBuf(const resbuf& item)
{
    const auto code = static_cast<AcDb::DxfCode>(item.restype);
    const auto& value = item.resval;
    switch (acdbGroupCodeToType(item.restype)) {
    case RT3DPOINT: return writePoint3d(code, AcGePoint3d(value.rpoint[0], value.rpoint[1], value.rpoint[2]));
    case RTREAL: return writeReal(code, value.rreal);
    case RTSHORT: return writeInteger(code, value.rint);
    case RTLONG: return writeInteger(code, value.rlong);
    case RTINT64: return writeInteger(code, value.mnInt64);
    case RTENAME: return writeObjectId(code, AcDbObjectId().setFromOldId(value.rlname[0]));
    case RTLB: return writeBChunk(code, value.rbinary);
    case RTSTR:
        return dxfKindOf(code) == DxfKind::handle ? writeAcDbHandle(code, AcDbHandle(value.rstring))
                                                  : writeString(code, value.rstring);
    default: return setError(Acad::eInvalidResBuf);
    }
}

Acad::ErrorStatus DxfOutFiler::writeString(AcDb::DxfCode code, const ACHAR* text)
{
    mSink.wide(code, CString(text ? text : L""));
    return filerStatus();
}

Acad::ErrorStatus DxfOutFiler::writeInteger(int code, Adesk::Int64 value)
{
    mSink.integer(code, value);
    return filerStatus();
}

Acad::ErrorStatus DxfOutFiler::writeReal(int code, double value)
{
    if (!std::isfinite(value)) return setError(Acad::eInvalidInput);
    mSink.real(code, value);
    return filerStatus();
}

Acad::ErrorStatus DxfOutFiler::writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id)
{
    mSink.handle(code, id);
    return filerStatus();
}

Acad::ErrorStatus DxfOutFiler::writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle)
{
    mSink.rawHandle(code, handle.value());
    return filerStatus();
}

Acad::ErrorStatus DxfOutFiler::writeBChunk(AcDb::DxfCode code, const ads_binary& chunk)
{
    if (chunk.clen < 0 || (chunk.clen && !chunk.buf)) return setError(Acad::eInvalidInput);
    mSink.binary(code, {chunk.buf, static_cast<std::size_t>(chunk.clen)});
    return filerStatus();
}

Acad::ErrorStatus DxfInFiler::readResBuf(resbuf* item)
{
    if (!item) return Acad::eInvalidInput;
    if (!mIsPushedBack) {
        const DxfGroup* group = mSource.peek();
        if (!group || group->code >= 1000) return Acad::eEndOfFile;
        load(*group);
    }
    mIsPushedBack = false;
    resbuf* const next = item->rbnext;
    *item = mItem;
    item->rbnext = next;
    return Acad::eOk;
}

void DxfInFiler::load(const DxfGroup& group)
{
    mHasItem = true;
    mItem = resbuf();
    mItem.restype = static_cast<short>(group.code);
    auto& value = mItem.resval;
    switch (acdbGroupCodeToType(mItem.restype)) {
    case RT3DPOINT: return loadPoint(group);
    case RTREAL: value.rreal = group.real; break;
    case RTSHORT: value.rint = static_cast<short>(group.integer); break;
    case RTLONG: value.rlong = static_cast<std::int32_t>(group.integer); break;
    case RTINT64: value.mnInt64 = group.integer; break;
    case RTENAME: value.rlname[0] = AcDbObjectId(mSource.stubOf(static_cast<std::uint64_t>(group.integer))).asOldId(); break;
    case RTLB:
        mBytes = group.text;
        value.rbinary = {static_cast<short>(mBytes.size()), mBytes.data()};
        break;
    default:
        mBytes = group.text;
        mText = group.kind == DxfKind::handle ? CString() : group.wide();
        if (group.kind == DxfKind::handle) mText.Format(L"%llX", static_cast<unsigned long long>(group.integer));
        value.rstring = mText.GetBuffer();
    }
    mSource.take();
}

void DxfInFiler::loadPoint(const DxfGroup& group)
{
    const int code = group.code;
    double(&point)[3] = mItem.resval.rpoint;
    point[0] = group.real;
    mSource.take();
    for (int axis = 1; axis < 3; ++axis) {
        const DxfGroup* next = mSource.peek();
        if (!next || !next->is(code + 10 * axis)) return;
        point[axis] = next->real;
        mSource.take();
    }
}

Acad::ErrorStatus DxfInFiler::pushBackItem()
{
    if (!mHasItem || mIsPushedBack) return Acad::eInvalidInput;
    mIsPushedBack = true;
    return Acad::eOk;
}

bool DxfInFiler::atSubclassData(const ACHAR* subClassName)
{
    if (!subClassName) return false;
    const std::string wanted = utf8Of(subClassName);
    if (mIsPushedBack) {
        if (mItem.restype != 100 || mBytes != wanted) return false;
        mIsPushedBack = false;
    } else {
        const DxfGroup* group = mSource.peek();
        if (!group || !group->is(100) || group->text != wanted) return false;
        mSource.take();
    }
    return mIsInOwnSection = true;
}
