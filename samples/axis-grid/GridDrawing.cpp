#include "GridDrawing.h"

#include "GridStyles.h"
#include "GridUcs.h"

#include "QmCADLib.h"

#include "actrans.h"
#include "arxHeaders.h"
#include "dbdim.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbregion.h"

#include <algorithm>

namespace
{
using MakeEnt = CArxEntity::CMakeEnt;

constexpr int byLayer = 256;
constexpr int right = 0, up = 1; ///< sides of ordinate dimensions
constexpr double halfTurn = 3.14159265358979323846;

// Millimetres of paper, as GB/T 50001 has them.
constexpr double bubbleRadius = 4.0;
constexpr double bubbleDistance = 9.0; ///< of neighbours, at least
constexpr double axisOverhang = 12.0;  ///< from the outermost axis to the bubble
constexpr double axisBend = 5.0;       ///< where an axis leaves its way for a bubble that stands beside it
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
    GridPainter(const GridOrder& order, const GridUcs& ucs, DrawnGrid& drawn)
        : m_order(order), m_ucs(ucs), m_drawn(drawn), m_columns(axisPlaces(order.grid.columns)),
          m_rows(axisPlaces(order.grid.rows))
    {
    }

    /// Each step with the layer that is current meanwhile. The hatch comes after the text that it leaves out.
    bool draw()
    {
        const struct {
            const wchar_t* layer;
            bool (GridPainter::*step)();
        } steps[] = {
            {labelLayer, &GridPainter::drawColumns},   {labelLayer, &GridPainter::drawRows},
            {outlineLayer, &GridPainter::drawOutline}, {areaLayer, &GridPainter::drawArea},
            {hatchLayer, &GridPainter::drawHatch},     {dimensionLayer, &GridPainter::drawDimensions},
        };
        return std::all_of(std::begin(steps), std::end(steps), [this](const auto& one) {
            const CFamStuSysVar current(L"CLAYER", CString(one.layer));
            return isCurrentLayer(one.layer) && (this->*one.step)();
        });
    }

private:
    double paper(double millimetres) const { return millimetres * m_order.paperUnit(); }

    static bool isCurrentLayer(const wchar_t* name)
    {
        CString current;
        return CFamStuSysVar::Get(L"CLAYER", current) && current.CompareNoCase(name) == 0;
    }

    bool drawColumns()
    {
        const std::vector<double> bubbles = bubblePlaces(m_columns, paper(bubbleDistance));
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            CString label;
            label.Format(L"%d", m_order.grid.firstNumber + static_cast<int>(i));
            const AcGePoint3d bubble(bubbles[i], -paper(axisOverhang), 0),
                bend(m_columns[i], -paper(axisBend), 0);
            if (!drawAxis(bubble, bend, AcGePoint3d(m_columns[i], m_rows.back(), 0), label)) return false;
        }
        return true;
    }

    bool drawRows()
    {
        const std::vector<double> bubbles = bubblePlaces(m_rows, paper(bubbleDistance));
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            const CString label = axisLetter(m_order.grid.firstLetter + static_cast<int>(i));
            const AcGePoint3d bubble(-paper(axisOverhang), bubbles[i], 0),
                bend(-paper(axisBend), m_rows[i], 0);
            if (!drawAxis(bubble, bend, AcGePoint3d(m_columns.back(), m_rows[i], 0), label)) return false;
        }
        return true;
    }

    /// The line, bent where its bubble stands beside it, and at its start the bubble with the label.
    bool drawAxis(const AcGePoint3d& start, const AcGePoint3d& bend, const AcGePoint3d& end,
                  const CString& label)
    {
        const AcGeVector3d outwards = (bend - end).normal();
        const AcGePoint3d center = start + outwards * paper(bubbleRadius);
        const bool isBent = !(start - bend).isParallelTo(outwards);
        const double rotation = m_ucs.readsUpsideDown(AcGeVector3d::kXAxis) ? halfTurn : 0.0;
        AcDbObjectId bubble, text;
        if (!drawLine(isBent ? bend : start, end) || (isBent && !drawLine(start, bend))) return false;
        if (!MakeEnt::MakeCircle(center, paper(bubbleRadius), bubble)) return false;
        m_drawn.bubbles.append(bubble);
        if (!MakeEnt::MakeText(center, label, text, paper(labelHeight), kAligMiddleCenter, rotation))
            return false;
        m_drawn.labels.append(text);
        return true;
    }

    bool drawLine(const AcGePoint3d& start, const AcGePoint3d& end)
    {
        AcDbObjectId line;
        if (!MakeEnt::MakeLine(start, end, axisLayer, byLayer, line)) return false;
        m_drawn.axes.append(line);
        return true;
    }

    bool drawOutline()
    {
        const double width = m_order.grid.width(), depth = m_order.grid.depth();
        AcGePoint3dArray corners;
        for (const AcGePoint3d& corner : {AcGePoint3d::kOrigin, AcGePoint3d(width, 0, 0),
                                          AcGePoint3d(width, depth, 0), AcGePoint3d(0, depth, 0)})
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

    /// In the bay that has most room for it; below the bubbles when the outline has none.
    bool drawArea()
    {
        const Bay across = widestBay(m_order.grid.columns), up = widestBay(m_order.grid.rows);
        const AcGePoint3d middle(across.middle(), up.middle(), 0.0);
        const CString contents = L"建筑面积\\P" + m_drawn.areaText() + L" m²";
        if (!MakeEnt::MakeMText(middle, contents, AcDbObjectId::kNull, paper(areaHeight), 0.0, m_drawn.area))
            return false;
        const AcDbObjectPointer<AcDbMText> text(m_drawn.area, AcDb::kForWrite);
        if (text.openStatus() != Acad::eOk) return false;
        text->setAttachment(AcDbMText::kMiddleCenter);
        if (m_ucs.readsUpsideDown(AcGeVector3d::kXAxis)) text->setDirection(-text->direction());
        shrink(*text.object(), 0.8 * across.width, 0.8 * up.width);
        const AcGeVector3d half = halfOfFrame(*text.object());
        if (isInOutline(middle, half)) return frameArea(*text.object(), middle, half);
        return moveArea(*text.object(), middle);
    }

    /// Makes the text smaller until it fits, as long as it can be read.
    void shrink(AcDbMText& text, double width, double depth) const
    {
        const double fit = std::min({1.0, width / text.actualWidth(), depth / text.actualHeight()});
        text.setTextHeight(std::max(fit * paper(areaHeight), paper(leastAreaHeight)));
    }

    static AcGeVector3d halfOfFrame(const AcDbMText& text)
    {
        const double gap = text.textHeight() / 2.0;
        return AcGeVector3d(text.actualWidth() / 2.0 + gap, text.actualHeight() / 2.0 + gap, 0.0);
    }

    bool isInOutline(const AcGePoint3d& middle, const AcGeVector3d& half) const
    {
        const AcGePoint3d low = middle - half, high = middle + half;
        return low.x > 0.0 && low.y > 0.0 && high.x < m_columns.back() && high.y < m_rows.back();
    }

    /// The axes behind the text are hidden; the frame becomes an island of the hatch.
    bool frameArea(AcDbMText& text, const AcGePoint3d& middle, const AcGeVector3d& half)
    {
        text.setBackgroundFill(true);
        text.setUseBackgroundColor(true);
        return MakeEnt::MakeRect(middle - half, middle + half, m_drawn.frame) != 0;
    }

    bool moveArea(AcDbMText& text, const AcGePoint3d& from) const
    {
        text.setTextHeight(paper(areaHeight));
        const double below = paper(axisOverhang + bubbleDistance) + halfOfFrame(text).y;
        const AcGePoint3d to(m_columns.back() / 2.0, -below, 0.0);
        return text.transformBy(AcGeMatrix3d::translation(m_ucs.toWorld(to - from))) == Acad::eOk;
    }

    bool drawHatch()
    {
        if (m_order.hatchPattern.IsEmpty()) return true;
        AcDbObjectIdArray boundary;
        boundary.append(m_drawn.outline);
        if (!m_drawn.frame.isNull()) boundary.append(m_drawn.frame);
        return MakeEnt::MakeHatch(boundary, m_drawn.hatch, m_order.hatchPattern, paper(1.0), 0.0) != 0;
    }

    bool drawDimensions()
    {
        if (!m_order.hasCoordinates) return true;
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
        const CString style = dimensionStyleOf(m_order.paperUnit());
        if (!MakeEnt::MakeCoordDim1(place, m_drawn.dimensions, side, paper(leaderLength), style))
            return false;
        const AcGeVector3d along = side == right ? AcGeVector3d::kXAxis : AcGeVector3d::kYAxis;
        return !m_ucs.readsUpsideDown(along) || turnText(m_drawn.dimensions.last());
    }

    static bool turnText(AcDbObjectId dimension)
    {
        const AcDbObjectPointer<AcDbDimension> turned(dimension, AcDb::kForWrite);
        return turned.openStatus() == Acad::eOk && turned->setTextRotation(halfTurn) == Acad::eOk;
    }

    const GridOrder& m_order;
    const GridUcs& m_ucs;
    DrawnGrid& m_drawn;
    std::vector<double> m_columns, m_rows;
};

/// Takes back all that is done to the drawing while it lives, unless it is kept.
class Attempt
{
public:
    Attempt() { actrTransactionManager->startTransaction(); }
    ~Attempt()
    {
        if (!m_isKept) actrTransactionManager->abortTransaction();
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    bool keep() { return m_isKept = actrTransactionManager->endTransaction() == Acad::eOk; }

private:
    bool m_isKept = false;
};
} // namespace

CString DrawnGrid::areaText() const
{
    if (areaInSquareMetres < 1.0) return CFamStuStr::FormatDouble(areaInSquareMetres);
    CString text;
    text.Format(L"%.2f", areaInSquareMetres);
    return text;
}

bool drawGrid(const GridOrder& order, DrawnGrid& drawn)
{
    const GridUcs ucs(order.origin, order.rotation);
    if (!ucs.isSet()) return false;
    Attempt attempt;
    if (!makeGridStyles(order.paperUnit())) return false;
    const LookByLayer look(order.paperUnit());
    return GridPainter(order, ucs, drawn).draw() && attempt.keep();
}
