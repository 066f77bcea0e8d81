#include "GridProposal.h"

#include "QmCADLib.h"

#include "arxHeaders.h"

#include <algorithm>
#include <cmath>

namespace
{
// Modules of a plan, in millimetres.
constexpr double metricModule = 300.0, foot = 304.8;

/// A unit that plans are drawn in.
struct PlanUnit {
    int insUnits;
    double perMillimetre;
    double module;
};
constexpr PlanUnit planUnits[] = {{1, 1.0 / 25.4, foot},
                                  {2, 1.0 / foot, foot},
                                  {4, 1.0, metricModule},
                                  {5, 0.1, metricModule},
                                  {6, 0.001, metricModule}};

/// What INSUNITS names; null for none, and for units that no plan is drawn in.
const PlanUnit* unitOfDrawing()
{
    int unit = 0;
    CFamStuSysVar::Get(L"INSUNITS", unit);
    const auto found = std::find_if(std::begin(planUnits), std::end(planUnits),
                                    [unit](const PlanUnit& one) { return one.insUnits == unit; });
    return found == std::end(planUnits) ? nullptr : found;
}

GridOrder orderOfModules(const PlanUnit* unit)
{
    GridOrder order;
    order.unit = unit ? unit->perMillimetre : 1.0;
    const double module = (unit ? unit->module : metricModule) * order.unit;
    order.grid.columns.assign(4, 22.0 * module);
    order.grid.rows = {20.0 * module, 8.0 * module, 20.0 * module};
    return order;
}

/// The power of ten by which a grid is just not larger than a drawing; 1 while it is a building on a site.
double factorThatFits(double gridSize, double drawingSize)
{
    const double share = gridSize / drawingSize;
    if (share > 0.02 && share < 2.0) return 1.0;
    return std::pow(10.0, -std::ceil(std::log10(share)));
}

/// Makes the bays longer, and the millimetres of the paper with them.
void enlarge(GridOrder& order, double factor)
{
    for (std::vector<double>* spacings : {&order.grid.columns, &order.grid.rows})
        for (double& spacing : *spacings)
            spacing *= factor;
    order.scale *= factor;
}

/// The box around all that is drawn, in the user coordinate system. False when nothing is.
bool drawnBox(AcDbExtents& box)
{
    AcGePoint3d min, max;
    AcGeMatrix3d ucs;
    if (!CFamStuSysVar::Get(L"EXTMIN", min) || !CFamStuSysVar::Get(L"EXTMAX", max)) return false;
    if (box.set(min, max) != Acad::eOk || acedGetCurrentUCS(ucs) != Acad::eOk) return false;
    box.transformBy(ucs.inverse());
    return true;
}

/// The box around the outline of a grid whose origin is that of the coordinates.
AcDbExtents gridBox(const GridOrder& order)
{
    AcDbExtents box(AcGePoint3d::kOrigin, AcGePoint3d(order.grid.width(), order.grid.depth(), 0.0));
    AcGeMatrix3d turn;
    box.transformBy(turn.setToRotation(order.rotation, AcGeVector3d::kZAxis));
    return box;
}
} // namespace

AcGePoint3d proposedOrigin(const GridOrder& order)
{
    AcDbExtents drawn;
    if (!drawnBox(drawn)) return AcGePoint3d::kOrigin;
    const AcGePoint3d corner = gridBox(order).minPoint();
    const double gap = order.grid.width() / 2.0;
    return AcGePoint3d(drawn.maxPoint().x + gap - corner.x, drawn.minPoint().y - corner.y, 0.0);
}

GridOrder proposedOrder()
{
    const PlanUnit* const unit = unitOfDrawing();
    GridOrder order = orderOfModules(unit);
    AcDbExtents drawn;
    if (!drawnBox(drawn)) return order;
    const AcGeVector3d size = drawn.maxPoint() - drawn.minPoint();
    const double larger = std::max(size.x, size.y);
    if (!(larger > 0.0)) return order; // a point tells no size
    const double factor = factorThatFits(order.grid.width(), larger);
    enlarge(order, factor);
    if (!unit) {
        order.unit = factor;
        order.scale /= factor;
    }
    order.origin = proposedOrigin(order);
    return order;
}
