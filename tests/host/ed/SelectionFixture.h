#pragma once

/// A drawing to select in: the document is locked, so that tests add to it as they like. The view is that of a new
/// drawing: a plan, in which the pick box reaches 3 pixels of 1080 of the view's height from its middle.

#include "DrawingTest.h"

#include "acdbads.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbcircle.h"
#include "dbents.h"
#include "dbsymtb.h"

#include <memory>

class SelectionTest : public headless::DrawingTest
{
protected:
    void TearDown() override
    {
        for (const Set& set : mSets) acedSSFree(set.name);
        DrawingTest::TearDown();
    }

    /// Adds an entity to a space, null for model space, on a layer.
    AcDbObjectId add(std::unique_ptr<AcDbEntity> entity, const wchar_t* layer = nullptr, AcDbObjectId space = {})
    {
        if (layer) entity->setLayer(needLayer(layer));
        return headless::addTo(space.isNull() ? database()->modelSpaceId() : space, entity.release());
    }
    AcDbObjectId addLine(double x1, double y1, double x2, double y2, const wchar_t* layer = nullptr)
    {
        return add(std::make_unique<AcDbLine>(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0)), layer);
    }
    AcDbObjectId addCircle(double x, double y, double radius, const wchar_t* layer = nullptr)
    {
        return add(std::make_unique<AcDbCircle>(AcGePoint3d(x, y, 0), AcGeVector3d::kZAxis, radius), layer);
    }

    AcDbObjectId needLayer(const wchar_t* name)
    {
        AcDbObjectId id;
        const bool isThere = AcDbLayerTablePointer(database(), AcDb::kForRead)->getAt(name, id) == Acad::eOk;
        return isThere ? id : addLayer(name);
    }
    template <class Change>
    void changeLayer(const wchar_t* name, Change change)
    {
        AcDbLayerTableRecord* record = nullptr;
        acdbOpenObject(record, needLayer(name), AcDb::kForWrite);
        change(*record);
        record->close();
    }

    static void setVariable(const wchar_t* name, int value)
    {
        resbuf node{};
        node.restype = RTSHORT;
        node.resval.rint = static_cast<short>(value);
        EXPECT_EQ(acedSetVar(name, &node), RTNORM);
    }
    static void nameOf(AcDbObjectId id, ads_name name) { acdbGetAdsName(*reinterpret_cast<ads_name*>(name), id); }

    using Ids = std::vector<AcDbObjectId>;
    static Ids idsOf(const ads_name ss)
    {
        Adesk::Int32 count = 0;
        EXPECT_EQ(acedSSLength(ss, &count), RTNORM);
        Ids ids;
        for (Adesk::Int32 i = 0; i < count; ++i) {
            ads_name entity;
            AcDbObjectId id;
            EXPECT_EQ(acedSSName(ss, i, entity), RTNORM);
            acdbGetObjectId(id, entity);
            ids.push_back(id);
        }
        return ids;
    }
    /// What acedSSGet gathers; empty for RTERROR. The status is kept.
    Ids get(const wchar_t* mode, const void* pt1 = nullptr, const void* pt2 = nullptr, const resbuf* filter = nullptr)
    {
        ads_name ss;
        mStatus = acedSSGet(mode, pt1, pt2, filter, ss);
        if (mStatus != RTNORM) return {};
        const Ids ids = idsOf(ss);
        EXPECT_EQ(acedSSFree(ss), RTNORM);
        return ids;
    }
    Ids getWindow(const wchar_t* mode, const AcGePoint3d& one, const AcGePoint3d& other)
    {
        const ads_point first = {one.x, one.y, one.z}, second = {other.x, other.y, other.z};
        return get(mode, first, second);
    }
    /// A polygon or a fence, by the coordinates of its points.
    Ids getPolygon(const wchar_t* mode, const std::vector<AcGePoint2d>& points)
    {
        resbuf* list = nullptr;
        for (auto at = points.rbegin(); at != points.rend(); ++at) {
            const ads_point point = {at->x, at->y, 0};
            resbuf* node = acutBuildList(RTPOINT, point, RTNONE);
            node->rbnext = list;
            list = node;
        }
        const Ids ids = get(mode, list);
        acutRelRb(list);
        return ids;
    }
    /// What the user selects with keys.
    Ids ask(const std::wstring& keys, const wchar_t* mode = nullptr)
    {
        answer(keys);
        takeOutput();
        return get(mode);
    }
    int status() const { return mStatus; }

    /// A new set of entities, freed at the end.
    struct Set {
        ads_name name;
    };
    Set setOf(const Ids& ids)
    {
        Set set{};
        EXPECT_EQ(acedSSAdd(nullptr, nullptr, set.name), RTNORM);
        for (const AcDbObjectId id : ids) {
            ads_name entity;
            nameOf(id, entity);
            EXPECT_EQ(acedSSAdd(entity, set.name, set.name), RTNORM);
        }
        mSets.push_back(set);
        return set;
    }

private:
    int mStatus = RTNORM;
    std::vector<Set> mSets;
};
