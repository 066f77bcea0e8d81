#include "SelectionProbe.h"

#include "dbentity.h"
#include "ProbeGeometry.h"

namespace ed
{
SelectionProbe::SelectionProbe(const SelectionArea& area, const SelectionView& view, LayerStates& layers,
                               AcDbObjectId layerZero)
    : mTraits(std::make_unique<SelectionTraits>(layers, layerZero)),
      mGeometry(std::make_unique<Geometry>(area, view.toPlane, *mTraits))
{
}

SelectionProbe::~SelectionProbe() = default;

void SelectionProbe::ask(const AcDbEntity& entity, ProbeQuestion question)
{
    mGeometry->start(question);
    entity.worldDraw(this);
}

bool SelectionProbe::touches(const AcDbEntity& entity)
{
    ask(entity, ProbeQuestion::touches);
    return mGeometry->isTouched();
}

bool SelectionProbe::isInside(const AcDbEntity& entity)
{
    ask(entity, ProbeQuestion::isInside);
    return mGeometry->isInside();
}

std::vector<AcGePoint2d> SelectionProbe::crossings(const AcDbEntity& entity)
{
    ask(entity, ProbeQuestion::crossings);
    return mGeometry->takeCrossings();
}

void SelectionProbe::enterBlock(AcDbObjectId layer, const AcGeMatrix3d& map)
{
    mTraits->setLayer(layer);
    mGeometry->pushModelTransform(map);
}

void SelectionProbe::leaveBlock()
{
    mGeometry->popModelTransform();
}

AcGiSubEntityTraits& SelectionProbe::subEntityTraits() const
{
    return *mTraits;
}
AcGiGeometry& SelectionProbe::geometry() const
{
    return *mGeometry;
}
double SelectionProbe::deviation(AcGiDeviationType, const AcGePoint3d&) const
{
    return mGeometry->modelTolerance();
}
} // namespace ed
