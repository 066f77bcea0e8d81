#include "ObjectSnap.h"

#include "acedinput.h"
#include "CurrentUcs.h"
#include "Keywords.h"
#include "VariableStore.h"

#include "dbblkref.h"
#include "dblayer.h"
#include "dbmain.h"
#include "dbobjptr.h"

#include <algorithm>
#include <map>
#include <memory>

namespace
{
namespace snap = ed::snap;

constexpr std::size_t mostUnderAperture = 100; // crossings are sought between all pairs
constexpr int deepestBlock = 8;

double realVariable(const wchar_t* name, double otherwise)
{
    const std::optional<ed::VariableValue> value = ed::readVariable(name);
    if (!value) return otherwise;
    return value->type == RTSHORT ? static_cast<double>(value->integer) : value->real;
}

/// Half the aperture box, in drawing units.
double apertureRadius()
{
    const std::optional<ed::VariableValue> screen = ed::readVariable(L"SCREENSIZE");
    const double pixels = screen && screen->point.y > 0.0 ? screen->point.y : 1000.0;
    return realVariable(L"APERTURE", 10.0) * realVariable(L"VIEWSIZE", 1.0) / pixels;
}

AcGeVector3d viewDirection()
{
    const std::optional<ed::VariableValue> direction = ed::readVariable(L"VIEWDIR");
    const AcGeVector3d inUcs = direction ? direction->point.asVector() : AcGeVector3d::kZAxis;
    const AcGeVector3d world = ed::ucsToWorld() * inUcs;
    return world.isZeroLength() ? AcGeVector3d::kZAxis : world.normal();
}

/// What lies under the aperture, and the points of it.
class SnapSearch
{
public:
    SnapSearch(const AcGePoint3d& pick, const std::optional<AcGePoint3d>& from)
        : mPick(pick), mFrom(from), mRadius(apertureRadius()), mView(viewDirection())
    {
    }
    ~SnapSearch()
    {
        for (AcDbEntity* entity : mOpened)
            entity->close();
    }
    SnapSearch(const SnapSearch&) = delete;
    SnapSearch& operator=(const SnapSearch&) = delete;

    void collect(AcDbObjectId space)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(space);
        if (block.openStatus() != Acad::eOk) return;
        for (const AcDbObjectId id : block->entityIds()) {
            AcDbEntity* entity = nullptr;
            if (mFound.size() >= mostUnderAperture || acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk)
                continue;
            if (!isShown(*entity) || !mayBeNear(*entity)) {
                entity->close();
                continue;
            }
            mOpened.push_back(entity);
            addPieces(*entity, 0);
        }
    }

    std::optional<AcGePoint3d> find(int modes)
    {
        for (const AcDbEntity* entity : mFound)
            gather(*entity, modes);
        if (modes & (snap::intersection | snap::apparent)) gatherCrossings();
        std::optional<AcGePoint3d> best = closest(mPoints);
        return best ? best : closest(mNearest);
    }

private:
    double away(const AcGePoint3d& point) const
    {
        const AcGeVector3d offset = point - mPick;
        return (offset - mView * offset.dotProduct(mView)).length();
    }

    bool isShown(const AcDbEntity& entity)
    {
        if (entity.visibility() == AcDb::kInvisible) return false;
        const auto known = mLayers.find(entity.layerId());
        if (known != mLayers.end()) return known->second;
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity.layerId());
        const bool shown = layer.openStatus() != Acad::eOk || !(layer->isOff() || layer->isFrozen());
        return mLayers[entity.layerId()] = shown;
    }

    /// Whether the ball around the extents touches the aperture.
    bool mayBeNear(const AcDbEntity& entity) const
    {
        AcDbExtents box;
        if (entity.getGeomExtents(box) != Acad::eOk) return true;
        const AcGeVector3d half = (box.maxPoint() - box.minPoint()) * 0.5;
        return away(box.minPoint() + half) <= half.length() + mRadius;
    }

    void addPieces(const AcDbEntity& entity, int depth)
    {
        mFound.push_back(&entity);
        const bool block = entity.isKindOf(AcDbBlockReference::desc());
        AcDbVoidPtrArray pieces;
        if (!block || depth >= deepestBlock || entity.explode(pieces) != Acad::eOk) return;
        for (int i = 0; i < pieces.length(); ++i) {
            mExploded.emplace_back(static_cast<AcDbEntity*>(pieces[i]));
            if (mFound.size() < mostUnderAperture && mayBeNear(*mExploded.back()))
                addPieces(*mExploded.back(), depth + 1);
        }
    }

    AcGePoint3dArray pointsOf(const AcDbEntity& entity, AcDb::OsnapMode mode) const
    {
        AcGePoint3dArray points;
        AcDbIntArray ids;
        entity.getOsnapPoints(mode, 0, mPick, mFrom.value_or(mPick), AcGeMatrix3d::kIdentity, points, ids);
        return points;
    }

    bool isUnderAperture(const AcDbEntity& entity) const
    {
        const AcGePoint3dArray near = pointsOf(entity, AcDb::kOsModeNear);
        return std::any_of(near.begin(), near.end(),
                           [&](const AcGePoint3d& at) { return away(at) <= mRadius; });
    }

    void gather(const AcDbEntity& entity, int modes)
    {
        static constexpr std::pair<int, AcDb::OsnapMode> kinds[] = {
            {snap::endPoint, AcDb::kOsModeEnd},       {snap::midPoint, AcDb::kOsModeMid},
            {snap::center, AcDb::kOsModeCen},         {snap::node, AcDb::kOsModeNode},
            {snap::quadrant, AcDb::kOsModeQuad},      {snap::insertion, AcDb::kOsModeIns},
            {snap::perpendicular, AcDb::kOsModePerp}, {snap::tangent, AcDb::kOsModeTan},
            {snap::nearest, AcDb::kOsModeNear},       {snap::geometricCenter, AcDb::kOsModeCentroid},
        };
        const bool touched = isUnderAperture(entity);
        for (const auto& [bit, mode] : kinds) {
            const bool starts = bit == snap::perpendicular || bit == snap::tangent;
            if (!(modes & bit) || (starts && !mFrom)) continue;
            for (const AcGePoint3d& at : pointsOf(entity, mode)) {
                if (touched || away(at) <= mRadius) (bit == snap::nearest ? mNearest : mPoints).push_back(at);
            }
        }
    }

    void gatherCrossings()
    {
        for (std::size_t i = 0; i < mFound.size(); ++i) {
            for (std::size_t k = i + 1; k < mFound.size(); ++k) {
                AcGePoint3dArray met;
                mFound[i]->intersectWith(mFound[k], AcDb::kOnBothOperands, met);
                for (const AcGePoint3d& at : met) {
                    if (away(at) <= mRadius) mPoints.push_back(at);
                }
            }
        }
    }

    std::optional<AcGePoint3d> closest(const std::vector<AcGePoint3d>& points) const
    {
        const auto best =
            std::min_element(points.begin(), points.end(),
                             [&](const AcGePoint3d& a, const AcGePoint3d& b) { return away(a) < away(b); });
        return best == points.end() ? std::nullopt : std::optional(*best);
    }

    AcGePoint3d mPick;
    std::optional<AcGePoint3d> mFrom;
    double mRadius;
    AcGeVector3d mView;
    std::vector<AcDbEntity*> mOpened;
    std::vector<std::unique_ptr<AcDbEntity>> mExploded;
    std::vector<const AcDbEntity*> mFound;
    std::map<AcDbObjectId, bool> mLayers;
    std::vector<AcGePoint3d> mPoints, mNearest;
};
} // namespace

namespace ed
{
std::optional<int> snapModes(std::wstring_view names)
{
    // in the order of the bits
    static const KeywordList known(
        L"ENDpoint MIDpoint CENter NODe QUAdrant INTersection INSertion PERpendicular TANgent "
        L"NEArest GCEnter APParent EXTension PARallel NONe");
    int modes = 0;
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(L','), names.size());
        const std::wstring_view name = names.substr(0, end);
        names.remove_prefix(std::min(end + 1, names.size()));
        const std::optional<std::size_t> found = name == L"_" ? std::nullopt : known.match(name);
        if (!found) return std::nullopt;
        modes |= 1 << *found;
    }
    return modes ? std::optional(modes) : std::nullopt;
}

std::optional<AcGePoint3d> snapped(const AcGePoint3d& pick, int modes, const std::optional<AcGePoint3d>& from)
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!db) return std::nullopt;
    SnapSearch search(pick, from);
    search.collect(db->currentSpaceId());
    return search.find(modes);
}
} // namespace ed

int acedOsnap(const ads_point point, const ACHAR* modes, ads_point result)
{
    const std::optional<int> wanted = modes ? ed::snapModes(modes) : std::nullopt;
    if (!point || !result || !wanted) return RTERROR;
    const AcGeMatrix3d toWorld = ed::ucsToWorld();
    const std::optional<ed::VariableValue> last = ed::readVariable(L"LASTPOINT");
    std::optional<AcGePoint3d> from;
    if (last) from = toWorld * last->point;
    const std::optional<AcGePoint3d> found =
        ed::snapped(toWorld * AcGePoint3d(point[X], point[Y], point[Z]), *wanted, from);
    if (!found) return RTERROR;
    const AcGePoint3d inUcs = toWorld.inverse() * *found;
    for (const int axis : {X, Y, Z})
        result[axis] = inUcs[static_cast<unsigned>(axis)];
    return RTNORM;
}
