#include "ResbufSource.h"

#include "DatabaseState.h"
#include "EntityLists.h"
#include "RecordNames.h"

#include <cmath>

namespace
{
std::vector<const resbuf*> nodesOf(const resbuf* chain)
{
    std::vector<const resbuf*> nodes;
    for (; chain; chain = chain->rbnext)
        nodes.push_back(chain);
    return nodes;
}
} // namespace

ResbufSource::ResbufSource(const resbuf* chain, AcDbDatabase* database)
    : ResbufSource(nodesOf(chain), database)
{
}

ResbufSource::ResbufSource(std::vector<const resbuf*> nodes, AcDbDatabase* database)
    : mNodes(std::move(nodes)), mDatabase(database)
{
    load();
}

void ResbufSource::take()
{
    const bool isInPoint = acdbGroupCodeToType(node().restype) == RT3DPOINT && mCoordinate < Z;
    mCoordinate = isInPoint ? mCoordinate + 1 : 0;
    if (!isInPoint) ++mAt;
    load();
}

void ResbufSource::load()
{
    mMore = mAt < mNodes.size();
    if (!mMore) return;
    mGroup = DxfGroup();
    mGroup.code = node().restype + 10 * mCoordinate;
    mGroup.kind = dxfKindOf(node().restype);
    if (loadValue()) return;
    mHasFault = true;
    mMore = false;
}

bool ResbufSource::loadValue()
{
    switch (acdbGroupCodeToType(node().restype)) {
    case RT3DPOINT:
        mGroup.real = node().resval.rpoint[mCoordinate];
        return std::isfinite(mGroup.real);
    case RTREAL:
        mGroup.real = node().resval.rreal;
        return std::isfinite(mGroup.real);
    case RTSHORT:
        mGroup.integer = node().resval.rint;
        return true;
    case RTLONG:
        mGroup.integer = node().resval.rlong;
        return true;
    case RTINT64:
        mGroup.integer = node().resval.mnInt64;
        return true;
    case RTENAME:
        mGroup.integer = static_cast<std::int64_t>(idOf(node().resval.rlname).handle().value());
        return true;
    case RTLB: {
        const ads_binary& chunk = node().resval.rbinary;
        if (chunk.clen > 0) mGroup.text = {chunk.buf, static_cast<std::size_t>(chunk.clen)};
        return chunk.clen >= 0;
    }
    case RTSTR:
        return loadText();
    default:
        return false;
    }
}

bool ResbufSource::loadText()
{
    if (!node().resval.rstring) return false;
    if (mGroup.kind == DxfKind::handle) {
        mGroup.integer = static_cast<std::int64_t>(AcDbHandle(node().resval.rstring).value());
        return true;
    }
    mText = utf8Of(node().resval.rstring);
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
