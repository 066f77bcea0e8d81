#pragma once

/// Draws entities to see how they lie to an area.

#include "SelectionArea.h"
#include "SelectionTraits.h"
#include "SelectionView.h"

#include <memory>

class AcDbEntity;

namespace ed
{
/// What is asked about an entity.
enum class ProbeQuestion {
    touches,   ///< whether something of it lies in the area or meets it
    isInside,  ///< whether all of it lies in the area, and something does
    crossings, ///< where it meets the edge
};

/// Straight and circular pieces are judged exactly, splines by chords a thousandth of the area away from them at most;
/// texts are the boxes around them, and what is filled counts as a whole.
class SelectionProbe final : public AcGiWorldDraw
{
public:
    SelectionProbe(const SelectionArea& area, const SelectionView& view, LayerStates& layers, AcDbObjectId layerZero);
    ~SelectionProbe() override;

    bool touches(const AcDbEntity& entity);
    bool isInside(const AcDbEntity& entity);
    /// In the plane, in the order of the area's edges and of the entity's pieces.
    std::vector<AcGePoint2d> crossings(const AcDbEntity& entity);

    /// What follows is inside a block on a layer; `map` leads to the coordinates around it.
    void enterBlock(AcDbObjectId layer, const AcGeMatrix3d& map);
    void leaveBlock();

    AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
    AcGiSubEntityTraits& subEntityTraits() const override;
    double deviation(AcGiDeviationType type, const AcGePoint3d& at) const override;
    AcGiGeometry& geometry() const override;

private:
    class Geometry;
    void ask(const AcDbEntity& entity, ProbeQuestion question);

    std::unique_ptr<SelectionTraits> mTraits;
    std::unique_ptr<Geometry> mGeometry;
};
} // namespace ed
