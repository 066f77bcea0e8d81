#include "EntityGroups.h"

#include "acutads.h"
#include "DxfFields.h"

namespace
{
using ed::GroupValue;

/// Keeps the wanted groups; the coordinates of a point become one value.
class WantedGroups final : public DxfSink
{
public:
    WantedGroups(const ed::GroupCodes& wanted, std::vector<GroupValue>& values) : mWanted(wanted), mValues(values) {}

    void real(int code, double value) override
    {
        if (addCoordinate(code, value) || !mWanted.has(code)) return;
        GroupValue& made = add(code, GroupValue::Kind::number);
        made.number = value;
        if (acdbGroupCodeToType(static_cast<short>(code)) != RT3DPOINT) return;
        made.kind = GroupValue::Kind::point;
        made.point.set(value, 0.0, 0.0);
        mPointCode = code;
    }
    void integer(int code, std::int64_t value) override
    {
        if (mWanted.has(code)) add(code, GroupValue::Kind::number).number = static_cast<double>(value);
    }
    void text(int code, std::string_view utf8) override
    {
        if (mWanted.has(code)) add(code, GroupValue::Kind::text).text = wideOf(utf8).GetString();
    }
    void handle(int code, AcDbStub* stub) override
    {
        if (mWanted.has(code)) add(code, GroupValue::Kind::id).id = AcDbObjectId(stub);
    }
    void binary(int, std::string_view) override {}
    void rawHandle(int, std::uint64_t) override {}
    void angle(int code, double radians) override { real(code, radians); }
    bool wantsDefault(int code) const override { return mWanted.has(code); }
    int version() const override { return 1032; }

private:
    bool addCoordinate(int code, double value)
    {
        if (mPointCode < 0 || (code != mPointCode + 10 && code != mPointCode + 20)) return false;
        AcGePoint3d& point = mValues.back().point;
        (code == mPointCode + 10 ? point.y : point.z) = value;
        return true;
    }
    GroupValue& add(int code, GroupValue::Kind kind)
    {
        mPointCode = -1;
        mValues.emplace_back();
        mValues.back().code = code;
        mValues.back().kind = kind;
        return mValues.back();
    }

    const ed::GroupCodes& mWanted;
    std::vector<GroupValue>& mValues;
    int mPointCode = -1; ///< of the point whose other coordinates may follow
};
} // namespace

const std::vector<ed::GroupValue>& ed::EntityGroups::values()
{
    if (mIsRead) return mValues;
    mIsRead = true;
    WantedGroups sink(mWanted, mValues);
    dxfWrite(mEntity, sink);
    return mValues;
}
