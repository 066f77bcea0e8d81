#include "GridDrawing.h"

#include "GridStyles.h"
#include "GridUcs.h"

#include "QmCADLib.h"

#include "arxHeaders.h"
#include "dbobjptr.h"
#include "dbregion.h"

namespace
{
using MakeEnt = CArxEntity::CMakeEnt;

constexpr int byLayer = 256;

// Millimetres of paper, as GB/T 50001 has them.
constexpr double bubbleRadius = 4.0;
constexpr double axisOverhang = 12.0; ///< from the outermost axis to the bubble
constexpr double labelHeight = 3.5;
constexpr double areaHeight = 5.0;
constexpr double leaderLength = 9.0;

bool putOnLayer(AcDbObjectId id, const wchar_t* layer)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    return entity.openStatus() == Acad::eOk && entity->setLayer(layer) == Acad::eOk;
}

/// Draws one grid in its own coordinate system, step by step.
class GridPainter
{
public:
    GridPainter(const GridOrder& order, DrawnGrid& drawn)
        : m_order(order), m_drawn(drawn), m_columns(axisPlaces(order.grid.columns)), m_rows(axisPlaces(order.grid.rows))
    {
    }

    bool draw() { return drawColumns() && drawRows() && drawOutline() && drawArea() && drawHatch() && drawDimensions(); }

private:
    double paper(double millimetres) const { return millimetres * m_order.scale * m_order.unit; }
    double lowest() const { return -paper(axisOverhang); }

    bool drawColumns()
    {
        int number = m_order.grid.firstNumber;
        for (const double x : m_columns) {
            CString label;
            label.Format(L"%d", number++);
            if (!drawAxis(AcGePoint3d(x, lowest(), 0), AcGePoint3d(x, m_rows.back(), 0), label)) return false;
        }
        return true;
    }

    bool drawRows()
    {
        int letter = m_order.grid.firstLetter;
        for (const double y : m_rows) {
            const AcGePoint3d start(lowest(), y, 0), end(m_columns.back(), y, 0);
            if (!drawAxis(start, end, axisLetter(letter++))) return false;
        }
        return true;
    }

    /// The line, and at its start the bubble with the label.
    bool drawAxis(const AcGePoint3d& start, const AcGePoint3d& end, const CString& label)
    {
        AcDbObjectId line, bubble, text;
        const AcGeVector3d outwards = (start - end).normal();
        const AcGePoint3d center = start + outwards * paper(bubbleRadius);
        if (!MakeEnt::MakeLine(start, end, axisLayer, byLayer, line)) return false;
        m_drawn.axes.append(line);
        if (!MakeEnt::MakeCircle(center, paper(bubbleRadius), bubble)) return false;
        m_drawn.bubbles.append(bubble);
        if (!MakeEnt::MakeText(center, label, text, paper(labelHeight), kAligMiddleCenter, 0.0)) return false;
        m_drawn.labels.append(text);
        return putOnLayer(bubble, labelLayer) && putOnLayer(text, labelLayer);
    }

    bool drawOutline()
    {
        const double width = m_order.grid.width(), depth = m_order.grid.depth();
        AcGePoint3dArray corners;
        for (const AcGePoint3d& corner :
             {AcGePoint3d::kOrigin, AcGePoint3d(width, 0, 0), AcGePoint3d(width, depth, 0), AcGePoint3d(0, depth, 0)})
            corners.append(corner);
        std::unique_ptr<AcDbRegion> region(MakeEnt::MakeRegion(corners));
        double area = 0.0;
        if (!region || region->getArea(area) != Acad::eOk) return false;
        m_drawn.areaInSquareMetres = area / (1e6 * m_order.unit * m_order.unit);
        region->setDatabaseDefaults();
        region->setLayer(outlineLayer);
        if (!CArxUtils::CDatabase::AddToDb(region.get(), m_drawn.outline)) return false;
        region.release()->close();
        return true;
    }

    /// The area in a frame of its own in the middle of the outline.
    bool drawArea()
    {
        CString text;
        text.Format(L"建筑面积 %.2f m²", m_drawn.areaInSquareMetres);
        const AcGePoint3d middle(m_order.grid.width() / 2.0, m_order.grid.depth() / 2.0, 0.0);
        if (!MakeEnt::MakeText(middle, text, m_drawn.area, paper(areaHeight), kAligMiddleCenter, 0.0)) return false;
        const AcGeVector3d half(paper(areaHeight) * 0.45 * text.GetLength(), paper(areaHeight), 0.0);
        return MakeEnt::MakeRect(middle - half, middle + half, m_drawn.frame, 0.0) &&
               putOnLayer(m_drawn.area, outlineLayer) && putOnLayer(m_drawn.frame, outlineLayer);
    }

    bool drawHatch()
    {
        if (m_order.hatchPattern.IsEmpty()) return true;
        AcDbObjectIdArray boundary;
        boundary.append(m_drawn.outline);
        boundary.append(m_drawn.frame);
        const double scale = paper(1.0);
        return MakeEnt::MakeHatch(boundary, m_drawn.hatch, m_order.hatchPattern, scale, 0.0) &&
               putOnLayer(m_drawn.hatch, hatchLayer);
    }

    bool drawDimensions()
    {
        if (!m_order.hasCoordinates) return true;
        constexpr int right = 0, up = 1;
        for (const double x : m_columns) {
            if (!drawDimension(AcGePoint3d(x, m_rows.back(), 0), up)) return false;
        }
        for (const double y : m_rows) {
            if (!drawDimension(AcGePoint3d(m_columns.back(), y, 0), right)) return false;
        }
        return true;
    }

    bool drawDimension(const AcGePoint3d& place, int side)
    {
        if (!MakeEnt::MakeCoordDim1(place, m_drawn.dimensions, side, paper(leaderLength), gridStyle)) return false;
        return putOnLayer(m_drawn.dimensions.last(), dimensionLayer);
    }

    const GridOrder& m_order;
    DrawnGrid& m_drawn;
    std::vector<double> m_columns, m_rows;
};

void eraseAll(const AcDbObjectIdArray& ids)
{
    for (const AcDbObjectId id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk) entity->erase();
    }
}

/// Makes the text style of grids the current one for a while.
class CurrentTextStyle
{
public:
    explicit CurrentTextStyle(const wchar_t* name) : m_style(L"TEXTSTYLE", CString(name), 1) {}

private:
    CFamStuSysVar m_style;
};
} // namespace

AcDbObjectIdArray DrawnGrid::all() const
{
    AcDbObjectIdArray ids = axes;
    for (const AcDbObjectIdArray* part : {&bubbles, &labels, &dimensions}) ids.append(*part);
    for (const AcDbObjectId id : {outline, area, frame, hatch}) {
        if (!id.isNull()) ids.append(id);
    }
    return ids;
}

bool drawGrid(const GridOrder& order, DrawnGrid& drawn)
{
    const GridUcs ucs(order.origin, order.rotation);
    if (!ucs.isSet() || !makeGridStyles(order.scale * order.unit, order.unit < 1.0 ? 3 : 0)) return false;
    const CurrentTextStyle style(gridStyle);
    if (GridPainter(order, drawn).draw()) return true;
    eraseAll(drawn.all());
    drawn = DrawnGrid();
    return false;
}
