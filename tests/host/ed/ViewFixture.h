#pragma once

/// What tests of views and coordinate systems share.

#include "acdbads.h"
#include "acedviews.h"
#include "dbcircle.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbviewport.h"
#include "DrawingTest.h"

#include <cmath>

inline constexpr double pi = 3.14159265358979323846;

class ViewTest : public headless::EditorTest
{
protected:
    using Lock = headless::DocumentLock;

    static resbuf node(short code)
    {
        resbuf made{};
        made.restype = RTSHORT;
        made.resval.rint = code;
        return made;
    }

    /// acedTrans between two codes; fails the test when that is refused.
    static AcGePoint3d trans(const AcGePoint3d& point, short from, short to, bool isVector = false)
    {
        const resbuf source = node(from), target = node(to);
        ads_point result = {};
        EXPECT_EQ(acedTrans(&point.x, &source, &target, isVector, result), RTNORM) << from << " to " << to;
        return {result[X], result[Y], result[Z]};
    }

    static resbuf variable(const wchar_t* name)
    {
        resbuf value{};
        EXPECT_EQ(acedGetVar(name, &value), RTNORM) << CStringA(name).GetString();
        return value;
    }
    static AcGePoint3d pointOf(const wchar_t* name)
    {
        const resbuf value = variable(name);
        return {value.resval.rpoint[X], value.resval.rpoint[Y], value.resval.rpoint[Z]};
    }
    static double realOf(const wchar_t* name) { return variable(name).resval.rreal; }
    static int integerOf(const wchar_t* name) { return variable(name).resval.rint; }
    static std::wstring textOf(const wchar_t* name)
    {
        resbuf value = variable(name);
        const std::wstring text = value.resval.rstring;
        acutDelString(value.resval.rstring);
        return text;
    }
    static int setInteger(const wchar_t* name, short number)
    {
        const resbuf value = node(number);
        return acedSetVar(name, &value);
    }

    /// Shows model space from a direction.
    static void look(const AcGeVector3d& direction, double twist, const AcGePoint3d& target = {},
                     bool perspective = false)
    {
        AcDbViewTableRecord view;
        view.setViewDirection(direction);
        view.setViewTwist(twist);
        view.setTarget(target);
        view.setHeight(100.0);
        view.setWidth(100.0);
        view.setPerspectiveEnabled(perspective);
        EXPECT_EQ(acedSetCurrentView(&view, nullptr), Acad::eOk);
    }

    static AcGeMatrix3d frame(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y)
    {
        AcGeMatrix3d matrix;
        return matrix.setCoordSystem(origin, x, y, x.crossProduct(y));
    }

    /// Goes to the layout and adds a window of 200 x 100 around (150, 100) that shows 400 units over its
    /// height.
    AcDbObjectId addWindow(double scale = 0.25)
    {
        EXPECT_EQ(setInteger(L"TILEMODE", 0), RTNORM);
        AcDbObjectId id;
        const Lock lock;
        AcDbObjectPointer<AcDbBlockTableRecord> paper(database()->currentSpaceId(), AcDb::kForWrite);
        auto* window = new AcDbViewport;
        EXPECT_EQ(paper->appendAcDbEntity(id, window), Acad::eOk);
        window->setCenterPoint({150.0, 100.0, 0.0});
        window->setWidth(200.0);
        window->setHeight(100.0);
        window->setViewHeight(100.0 / scale);
        window->setOn();
        window->close();
        return id;
    }

    void edit(AcDbObjectId id, const std::function<void(AcDbViewport&)>& change)
    {
        const Lock lock;
        AcDbObjectPointer<AcDbViewport> window(id, AcDb::kForWrite);
        ASSERT_EQ(window.openStatus(), Acad::eOk);
        change(*window);
    }

    AcDbObjectId addLine(const AcGePoint3d& from, const AcGePoint3d& to)
    {
        const Lock lock;
        return headless::addTo(database()->currentSpaceId(), new AcDbLine(from, to));
    }
};

/// Three coordinates to nine digits of the sizes that the tests use.
inline void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected, double tolerance = 1e-7)
{
    EXPECT_LE((actual - expected).length(), tolerance)
        << actual.x << "," << actual.y << "," << actual.z << " is not " << expected.x << "," << expected.y
        << "," << expected.z;
}
