#include "ResbufSource.h"

#include "DatabaseState.h"
#include "RecordNames.h"

ResbufSource::ResbufSource(const resbuf* chain, AcDbDatabase* database, int end)
    : mNode(chain), mDatabase(database), mEnd(end)
{
    load();
}

void ResbufSource::take()
{
    const bool isInPoint = acdbGroupCodeToType(mNode->restype) == RT3DPOINT && mCoordinate < Z;
    mCoordinate = isInPoint ? mCoordinate + 1 : 0;
    if (!isInPoint) mNode = mNode->rbnext;
    load();
}

void ResbufSource::load()
{
    mMore = mNode && mNode->restype != mEnd;
    if (!mMore) return;
    mGroup = DxfGroup();
    mGroup.code = mNode->restype + 10 * mCoordinate;
    mGroup.kind = dxfKindOf(mNode->restype);
    if (loadValue()) return;
    mHasFault = true;
    mMore = false;
}

bool ResbufSource::loadValue()
{
    switch (acdbGroupCodeToType(mNode->restype)) {
    case RT3DPOINT: mGroup.real = mNode->resval.rpoint[mCoordinate]; return true;
    case RTREAL: mGroup.real = mNode->resval.rreal; return true;
    case RTSHORT: mGroup.integer = mNode->resval.rint; return true;
    case RTLONG: mGroup.integer = mNode->resval.rlong; return true;
    case RTINT64: mGroup.integer = mNode->resval.mnInt64; return true;
    case RTENAME:
        mGroup.integer = static_cast<std::int64_t>(
            AcDbObjectId().setFromOldId(static_cast<std::intptr_t>(mNode->resval.rlname[0])).handle().value());
        return true;
    case RTLB: {
        const ads_binary& chunk = mNode->resval.rbinary;
        if (chunk.clen > 0) mGroup.text = {chunk.buf, static_cast<std::size_t>(chunk.clen)};
        return chunk.clen >= 0;
    }
    case RTSTR: return loadText();
    default: return false;
    }
}

bool ResbufSource::loadText()
{
    if (!mNode->resval.rstring) return false;
    if (mGroup.kind == DxfKind::handle) {
        mGroup.integer = static_cast<std::int64_t>(AcDbHandle(mNode->resval.rstring).value());
        return true;
    }
    mText = utf8Of(mNode->resval.rstring);
    mGroup.text = mText;
    return true;
}

AcDbStub* ResbufSource::stubOf(std::uint64_t handle)
{
    return mDatabase ? DatabaseAccess::of(*mDatabase).stubs.find(handle) : nullptr;
}

AcDbStub* ResbufSource::recordOf(int code, std::string_view name)
{
    AcDbStub* record = mDatabase ? recordNamed(*mDatabase, code, name) : nullptr;
    if (!record && code == layerNameCode && mDatabase) record = addLayer(*mDatabase, name);
    if (!record) mHasFault = true;
    return record;
}
