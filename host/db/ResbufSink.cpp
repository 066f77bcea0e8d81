#include "ResbufSink.h"

#include "DatabaseState.h"
#include "Stub.h"

resbuf& ResbufSink::add(int code) { return link(acutNewRb(code)); }

resbuf& ResbufSink::link(resbuf* node)
{
    if (mLast) {
        mLast->rbnext = node;
    } else {
        mHead.reset(node);
    }
    mPointCode = -1;
    return *(mLast = node);
}

void ResbufSink::real(int code, double value)
{
    const bool isY = mPointCode >= 0 && code == mPointCode + 10;
    const bool isZ = mPointCode >= 0 && code == mPointCode + 20;
    if (isY || isZ) {
        mLast->resval.rpoint[isY ? Y : Z] = value;
        return;
    }
    resbuf& node = add(code);
    if (acdbGroupCodeToType(node.restype) != RT3DPOINT) {
        node.resval.rreal = value;
        return;
    }
    node.resval.rpoint[X] = value;
    mPointCode = code;
}

void ResbufSink::integer(int code, std::int64_t value)
{
    resbuf& node = add(code);
    switch (acdbGroupCodeToType(node.restype)) {
    case RTSHORT: node.resval.rint = static_cast<short>(value); break;
    case RTLONG: node.resval.rlong = static_cast<std::int32_t>(value); break;
    default: node.resval.mnInt64 = value; break;
    }
}

void ResbufSink::text(int code, std::string_view utf8)
{
    DxfGroup group;
    group.text = utf8;
    acutNewString(group.wide(), add(code).resval.rstring);
}

void ResbufSink::handle(int code, AcDbStub* stub)
{
    if (acdbGroupCodeToType(static_cast<short>(code)) == RTENAME) return name(code, stub);
    rawHandle(code, stub ? stub->handle : 0);
}

void ResbufSink::rawHandle(int code, std::uint64_t value)
{
    if (acdbGroupCodeToType(static_cast<short>(code)) == RTENAME)
        return name(code, mDatabase ? DatabaseAccess::of(*mDatabase).stubs.find(value) : nullptr);
    wchar_t digits[17];
    AcDbHandle(value).getIntoAsciiBuffer(digits);
    acutNewString(digits, add(code).resval.rstring);
}

void ResbufSink::binary(int code, std::string_view bytes)
{
    ads_binary chunk{static_cast<short>(bytes.size()), const_cast<char*>(bytes.data())};
    if (resbuf* node = acutBuildList(code, &chunk, RTNONE)) link(node);
}

void ResbufSink::name(int code, AcDbStub* stub)
{
    resbuf& node = add(code);
    node.resval.rlname[0] = AcDbObjectId(stub).asOldId();
    node.resval.rlname[1] = 0;
}

void ResbufSink::mark(int code) { add(code); }

resbuf* ResbufSink::release()
{
    mLast = nullptr;
    mPointCode = -1;
    return mHead.release();
}
