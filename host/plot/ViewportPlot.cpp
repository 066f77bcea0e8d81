#include "ViewportPlot.h"

#include "DatabaseState.h"
#include "Stub.h"
#include "dbblock.h"
#include "dbcurve.h"
#include "dbviewport.h"
#include "gecurv3d.h"
#include "geintrvl.h"

namespace plot
{
namespace
{
Points rectangleOf(const AcDbViewport& viewport)
{
    const AcGePoint3d middle = viewport.centerPoint();
    const AcGeVector2d half(viewport.width() / 2, viewport.height() / 2);
    const AcGePoint2d min(middle.x - half.x, middle.y - half.y), max(middle.x + half.x, middle.y + half.y);
    return {min, {max.x, min.y}, max, {min.x, max.y}};
}

/// The points of an outline; none for what is no curve.
Points outlineOf(const AcDbObject* entity, double tolerance)
{
    const auto* curve = AcDbCurve::cast(entity);
    AcGeCurve3d* shape = nullptr;
    if (!curve || curve->getAcGeCurve(shape) != Acad::eOk) return {};
    const std::unique_ptr<AcGeCurve3d> owned(shape);
    AcGeInterval range;
    AcGePoint3dArray samples;
    AcGeDoubleArray params;
    shape->getInterval(range);
    shape->getSamplePoints(range.lowerBound(), range.upperBound(), tolerance, samples, params);
    Points points;
    for (int i = 0; i < samples.length(); ++i)
        points.emplace_back(samples[i].x, samples[i].y);
    return points;
}

Points frameOf(const AcDbViewport& viewport, double tolerance)
{
    Points outline;
    if (viewport.isNonRectClipOn()) outline = outlineOf(residentObject(viewport.nonRectClipEntityId()), tolerance);
    return outline.size() >= 3 ? outline : rectangleOf(viewport);
}

AcDbExtents2d boxAround(const Points& points)
{
    AcDbExtents2d box;
    for (const AcGePoint2d& point : points)
        box.addPoint(point);
    return box;
}

LayerSet frozenIn(const AcDbViewport& viewport)
{
    AcDbObjectIdArray layers;
    viewport.getFrozenLayerList(layers);
    LayerSet frozen;
    for (int i = 0; i < layers.length(); ++i)
        frozen.insert(layers[i]);
    return frozen;
}

/// Line types are as long on the paper in all viewports, or as long as in model space (PSLTSCALE).
double linetypeScaleIn(const AcDbViewport& viewport, const HeaderVariables& header)
{
    const bool isOfPaper = header.integer("$PSLTSCALE") != 0;
    return header.real("$LTSCALE") * (isOfPaper ? 1 : viewport.customScale());
}

void drawViewport(Canvas& canvas, PlotStyles& styles, const AcDbViewport& viewport, const View& sheet)
{
    const AcDbDatabase& database = styles.database();
    const auto* model = AcDbBlockTableRecord::cast(residentObject(database.modelSpaceId()));
    if (!model || !(viewport.viewHeight() > 0)) return;
    const Points frame = frameOf(viewport, canvas.finest() / 4);
    const AcDbExtents2d box = boxAround(frame);
    View view = sheet;
    view.toPlane = viewport.modelToPaper();
    view.min = box.minPoint();
    view.max = box.maxPoint();
    view.linetypeScale = linetypeScaleIn(viewport, DatabaseAccess::of(database).header);
    canvas.pushClip({frame}, FillRule::evenOdd);
    drawBlock(canvas, styles, *model, view, frozenIn(viewport));
    canvas.popClip();
}
} // namespace

void drawViewports(Canvas& canvas, PlotStyles& styles, const AcDbBlockTableRecord& block, const View& sheet)
{
    constexpr int ofSheet = 1;
    for (const AcDbEntity* entity : shownEntities(block)) {
        const auto* viewport = AcDbViewport::cast(entity);
        if (viewport && viewport->isOn() && viewport->number() != ofSheet)
            drawViewport(canvas, styles, *viewport, sheet);
    }
}
} // namespace plot
