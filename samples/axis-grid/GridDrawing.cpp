#include "GridDrawing.h"

#include "GridStyles.h"
#include "GridUcs.h"

#include "QmCADLib.h"

#include "arxHeaders.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbregion.h"

#include <algorithm>

namespace
{
using MakeEnt = CArxEntity::CMakeEnt;

constexpr int byLayer = 256;

// Millimetres of paper, as GB/T 50001 has them.
constexpr double bubbleRadius = 4.0;
constexpr double axisOverhang = 12.0; ///< from the outermost axis to the bubble
constexpr double labelHeight = 4.0;
constexpr double areaHeight = 5.0, leastAreaHeight = 2.5;
constexpr double leaderLength = 9.0;

/// What new entities look like while it lives: all by layer, dashes as long as on paper.
class LookByLayer
{
public:
    explicit LookByLayer(double paperUnit) : m_dashes(L"CELTSCALE", paperUnit / lineScale()) {}

private:
    static double lineScale()
    {
        double scale = 1.0;
        CFamStuSysVar::Get(L"LTSCALE", scale);
        return scale;
    }

    CFamStuSysVar m_color{L"CECOLOR", CString(L"BYLAYER")};
    CFamStuSysVar m_linetype{L"CELTYPE", CString(L"BYLAYER")};
    CFamStuSysVar m_weight{L"CELWEIGHT", static_cast<int>(AcDb::kLnWtByLayer)};
    CFamStuSysVar m_transparency{L"CETRANSPARENCY", CString(L"ByLayer")};
    CFamStuSysVar m_textStyle{L"TEXTSTYLE", CString(gridStyle)};
    CFamStuSysVar m_dashes;
};

/// Draws one grid in its own coordinate system, step by step.
class GridPainter
{
public:
    GridPainter(const GridOrder& order, DrawnGrid& drawn)
        : m_order(order), m_drawn(drawn), m_columns(axisPlaces(order.grid.columns)), m_rows(axisPlaces(order.grid.rows))
    {
    }

    /// Each step with the layer that is current meanwhile. The hatch comes after the text that it leaves out.
    bool draw()
    {
        const struct {
            const wchar_t* layer;
            bool (GridPainter::*step)();
        } steps[] = {
            {labelLayer, &GridPainter::drawColumns}, {labelLayer, &GridPainter::drawRows},
            {outlineLayer, &GridPainter::drawOutline}, {areaLayer, &GridPainter::drawArea},
            {hatchLayer, &GridPainter::drawHatch}, {dimensionLayer, &GridPainter::drawDimensions},
        };
        return std::all_of(std::begin(steps), std::end(steps), [this](const auto& one) {
            const CFamStuSysVar current(L"CLAYER", CString(one.layer));
            return (this->*one.step)();
        });
    }

private:
    double paper(double millimetres) const { return millimetres * m_order.paperUnit(); }
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
        return true;
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
        if (!CArxUtils::CDatabase::AddToDb(region.get(), m_drawn.outline)) return false;
        region.release()->close();
        return true;
    }

    /// The area in a frame of its own, in the bay that has most room for it.
    bool drawArea()
    {
        const Bay across = widestBay(m_order.grid.columns), up = widestBay(m_order.grid.rows);
        const AcGePoint3d middle(across.middle(), up.middle(), 0.0);
        const CString text = L"建筑面积\\P" + m_drawn.areaText() + L" m²";
        AcGeVector3d half;
        return MakeEnt::MakeMText(middle, text, AcDbObjectId::kNull, paper(areaHeight), 0.0, m_drawn.area) &&
               fitArea(across.width, up.width, half) && MakeEnt::MakeRect(middle - half, middle + half, m_drawn.frame);
    }

    /// Puts the text's middle where its corner is, and makes it smaller until it fits, as long as it can be read. The axes
    /// behind are hidden. Tells half the size of its frame.
    bool fitArea(double width, double depth, AcGeVector3d& half)
    {
        const AcDbObjectPointer<AcDbMText> text(m_drawn.area, AcDb::kForWrite);
        if (text.openStatus() != Acad::eOk) return false;
        const double fit = std::min({1.0, 0.8 * width / text->actualWidth(), 0.8 * depth / text->actualHeight()});
        const double height = std::max(fit * paper(areaHeight), paper(leastAreaHeight));
        text->setTextHeight(height);
        text->setAttachment(AcDbMText::kMiddleCenter);
        text->setBackgroundFill(true);
        text->setUseBackgroundColor(true);
        half.set(text->actualWidth() / 2.0 + height / 2.0, text->actualHeight() / 2.0 + height / 2.0, 0.0);
        return true;
    }

    bool drawHatch()
    {
        if (m_order.hatchPattern.IsEmpty()) return true;
        AcDbObjectIdArray boundary;
        boundary.append(m_drawn.outline);
        boundary.append(m_drawn.frame);
        return MakeEnt::MakeHatch(boundary, m_drawn.hatch, m_order.hatchPattern, paper(1.0), 0.0) != 0;
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
        const CString style = dimensionStyleOf(m_order.scale);
        return MakeEnt::MakeCoordDim1(place, m_drawn.dimensions, side, paper(leaderLength), style) != 0;
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
} // namespace

CString DrawnGrid::areaText() const
{
    if (areaInSquareMetres < 1.0) return CFamStuStr::FormatDouble(areaInSquareMetres);
    CString text;
    text.Format(L"%.2f", areaInSquareMetres);
    return text;
}

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
    if (!ucs.isSet() || !makeGridStyles(order.scale, order.paperUnit())) return false;
    const LookByLayer look(order.paperUnit());
    if (GridPainter(order, drawn).draw()) return true;
    eraseAll(drawn.all());
    drawn = DrawnGrid();
    return false;
}
