#include "acedselect.h"
#include "Documents.h"
#include "ResbufCopy.h"
#include "SelectionPoints.h"
#include "SelectionSearch.h"
#include "SelectionState.h"
#include "Stub.h"

namespace
{
using ed::SelectionCause;
using Kind = SelectionCause::Kind;

/// Builds the list node by node.
class Writer
{
public:
    void open() { add(RTLB); }
    void close() { add(RTLE); }
    void number(int value) { add(RTSHORT).resval.rint = static_cast<short>(value); }
    void name(AcDbObjectId id) { add(RTENAME).resval.rlname[0] = id.asOldId(); }
    /// (0 point), with the direction of a view that is no plan.
    void point(const AcGePoint3d& at, const AcGeVector3d& direction)
    {
        open();
        number(0);
        coordinates(at.x, at.y, at.z);
        if (!direction.isCodirectionalTo(AcGeVector3d::kZAxis)) coordinates(direction.x, direction.y, direction.z);
        close();
    }
    resbuf* release() { return mHead.release(); }

private:
    resbuf& add(int type)
    {
        resbuf* node = acutNewRb(type);
        if (mLast)
            mLast->rbnext = node;
        else
            mHead.reset(node);
        return *(mLast = node);
    }
    void coordinates(double x, double y, double z)
    {
        resbuf& node = add(RT3DPOINT);
        node.resval.rpoint[X] = x;
        node.resval.rpoint[Y] = y;
        node.resval.rpoint[Z] = z;
    }

    ed::OwnedResbuf mHead;
    resbuf* mLast = nullptr;
};

/// Where a fence meets an entity, in the world.
std::vector<AcGePoint3d> meetingsOf(AcDbDatabase& database, const SelectionCause& fence, AcDbObjectId id)
{
    const auto* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
    ed::SelectionSearch search(database);
    const ed::SelectionView& view = search.view();
    const std::optional<ed::DrawnArea> drawn = ed::polygonOf(view, Kind::fence, fence.points);
    std::vector<AcGePoint3d> points;
    if (!entity || !drawn) return points;
    ed::SelectionProbe probe(drawn->area, view, search.layers(), database.layerZero());
    for (const AcGePoint2d& point : probe.crossings(*entity)) points.push_back(view.raise(point));
    return points;
}

class Description
{
public:
    Description(AcDbDatabase& database, const ed::SelectionSet& set) : mDatabase(database), mSet(set) {}

    void add(std::size_t place)
    {
        const SelectionCause& cause = mSet.causeAt(place);
        mList.open();
        mList.number(static_cast<int>(cause.kind));
        mList.name(mSet.at(place));
        mList.number(0);
        addDetails(cause, mSet.at(place));
        mList.close();
    }

    resbuf* finish()
    {
        for (std::size_t i = 0; i < mPolygons.size(); ++i) {
            mList.open();
            mList.number(-static_cast<int>(i) - 1);
            for (const AcGePoint3d& point : mPolygons[i]->points) mList.point(point, mPolygons[i]->viewDirection);
            mList.close();
        }
        return mList.release();
    }

private:
    void addDetails(const SelectionCause& cause, AcDbObjectId id)
    {
        switch (cause.kind) {
        case Kind::unknown:
            break;
        case Kind::pick:
            mList.point(cause.points.front(), cause.viewDirection);
            break;
        case Kind::window:
        case Kind::crossing:
            mList.number(numberOf(cause));
            break;
        case Kind::fence:
            for (const AcGePoint3d& point : meetingsOf(mDatabase, cause, id)) mList.point(point, cause.viewDirection);
            break;
        }
    }

    int numberOf(const SelectionCause& cause)
    {
        std::size_t i = 0;
        while (i < mPolygons.size() && mPolygons[i] != &cause) ++i;
        if (i == mPolygons.size()) mPolygons.push_back(&cause);
        return -static_cast<int>(i) - 1;
    }

    AcDbDatabase& mDatabase;
    const ed::SelectionSet& mSet;
    Writer mList;
    std::vector<const SelectionCause*> mPolygons; ///< in the order of their numbers
};
} // namespace

int acedSSNameX(resbuf** result, const ads_name ss, Adesk::Int32 index)
{
    const ed::SelectionSet* set = ed::selectionSet(ss);
    if (!result) return RTERROR;
    *result = nullptr;
    if (!set || index < -1 || (index >= 0 && static_cast<std::size_t>(index) >= set->size())) return RTERROR;
    Description description(*documents::current()->database, *set);
    const std::size_t from = index < 0 ? 0 : static_cast<std::size_t>(index), to = index < 0 ? set->size() : from + 1;
    for (std::size_t place = from; place < to; ++place) description.add(place);
    *result = description.finish();
    return RTNORM;
}
