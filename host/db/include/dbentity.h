#pragma once

/// AcDbEntity: what everything that can be seen has in common: layer, colour, line type, geometry as a whole.

#include "AcString.h"
#include "acdb.h"
#include "adesk.h"
#include "dbcolor.h"
#include "dbextent.h"
#include "dbobject.h"
#include "gemat3d.h"
#include "geplane.h"
#include "gept3dar.h"
#include "gevptar.h"

#include <atlstr.h>

#include <memory>
#include <vector>

class AcDbDatabase;
class AcDbEntity;
class AcGeCurve3d;
class AcGiSubEntityTraits;
class AcGiWorldDraw;

/// Attached as an AcDbObjectReactor is (addReactor); told also when the picture of the entity has changed.
class AcDbEntityReactor : public AcDbObjectReactor
{
public:
    ACRX_DECLARE_MEMBERS(AcDbEntityReactor);
    virtual void modifiedGraphics(const AcDbEntity*) {}
    /// A drag shows copies in real programs; here none is made and this is never called.
    virtual void dragCloneToBeDeleted(const AcDbEntity*, const AcDbEntity*) {}
};

/// Where a drawable says its traits is where its parts do.
using AcGiDrawableTraits = AcGiSubEntityTraits;

/// New entities that the caller owns.
using AcDbVoidPtrArray = AcArray<void*>;
using AcDbIntArray = AcArray<int>;

/// The entities of a polyline or block reference: vertices or attributes, in order, and the end mark of their list.
struct DbSubentities {
    std::vector<AcDbObjectId> ids;
    AcDbObjectId sequenceEnd;
    /// Some programs name the block as the owner of these; it is written back so.
    bool fileNamesBlockAsOwner = false;
};

/// Points and directions are in world coordinates unless a class says otherwise.
///
/// The properties of an entity that has not been added to a drawing and has not been given any are: the layer "0",
/// colour, line type and weight by layer.
class AcDbEntity : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);

    /// The block table record that holds the entity.
    AcDbObjectId blockId() const;

    // Properties. Setters that take names look them up in the entity's database, or in the working one.

    AcCmColor color() const { return mColor; }
    AcCmEntityColor entityColor() const { return mColor; }
    virtual Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true, AcDbDatabase* db = nullptr);
    /// 0 by block, 1 to 255, 256 by layer, 257 none.
    std::uint16_t colorIndex() const;
    virtual Acad::ErrorStatus setColorIndex(std::uint16_t color, bool doSubents = true);

    AcCmTransparency transparency() const { return mTransparency; }
    Acad::ErrorStatus setTransparency(const AcCmTransparency& transparency, bool doSubents = true);

    /// The layer's name, as a copy that the caller releases with acutDelString.
    ACHAR* layer() const;
    Acad::ErrorStatus layer(CString& name) const;
    Acad::ErrorStatus layer(AcString& name) const;
    AcDbObjectId layerId() const;
    /// eKeyNotFound for a name the database does not have.
    virtual Acad::ErrorStatus setLayer(const ACHAR* name, bool doSubents = true, bool allowHiddenLayer = false);
    virtual Acad::ErrorStatus setLayer(AcDbObjectId id, bool doSubents = true, bool allowHiddenLayer = false);

    ACHAR* linetype() const;
    Acad::ErrorStatus linetype(AcString& name) const;
    AcDbObjectId linetypeId() const;
    virtual Acad::ErrorStatus setLinetype(const ACHAR* name, bool doSubents = true);
    virtual Acad::ErrorStatus setLinetype(AcDbObjectId id, bool doSubents = true);
    double linetypeScale() const { return mLinetypeScale; }
    /// eInvalidInput unless above 0.
    Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);

    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(mLineWeight); }
    virtual Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);

    AcDb::Visibility visibility() const { return (mFlags & 1) ? AcDb::kInvisible : AcDb::kVisible; }
    virtual Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, bool doSubents = true);

    /// Layer, colour, line type, its scale, weight, transparency and visibility of another entity.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* from, bool doSubents = true);
    /// The current layer, colour, line type, its scale and weight of a database (null: the working one); classes add
    /// their own, texts the current text style.
    void setDatabaseDefaults() { setDatabaseDefaults(nullptr); }
    void setDatabaseDefaults(AcDbDatabase* db);

    // Geometry.

    virtual bool isPlanar() const { return false; }
    virtual Acad::ErrorStatus getPlane(AcGePlane&, AcDb::Planarity&) const { return Acad::eNotApplicable; }
    /// The map from the entity's own coordinate system to the world.
    virtual void getEcs(AcGeMatrix3d& matrix) const { matrix = AcGeMatrix3d::kIdentity; }

    /// eCannotScaleNonUniformly where the class does not allow the matrix; nothing is changed then.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform);
    /// A mapped copy that the caller owns; may be of another class (an ellipse of a circle scaled unevenly).
    Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const;
    /// Appends the simpler entities this one consists of; new ones that the caller owns, with this one's properties, or
    /// those that the pieces of its block have.
    /// eCannotExplodeEntity for simple entities.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const;
    /// eInvalidExtents for an entity without extents (endless ones, empty ones).
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    Acad::ErrorStatus bounds(AcDbExtents& extents) const { return getGeomExtents(extents); }

    /// Appends the points where the entities meet, within AcGeContext::gTol. Points that are met twice are given once.
    /// Entities that have no curves to intersect give none. `thisGsMarker` and `otherGsMarker` are not used.
    Acad::ErrorStatus intersectWith(const AcDbEntity* ent, AcDb::Intersect intType, AcGePoint3dArray& points,
                                    Adesk::GsMarker thisGsMarker = 0, Adesk::GsMarker otherGsMarker = 0) const;
    /// The same of the entities' projections onto a plane; the points lie on this entity.
    Acad::ErrorStatus intersectWith(const AcDbEntity* ent, AcDb::Intersect intType, const AcGePlane& projPlane,
                                    AcGePoint3dArray& points, Adesk::GsMarker thisGsMarker = 0,
                                    Adesk::GsMarker otherGsMarker = 0) const;

    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& stretchPoints) const;
    Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                     const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                     const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                     AcDbIntArray& geomIds) const;

    /// Draws the entity: its traits, then its geometry. True: nothing more depends on a view.
    bool worldDraw(AcGiWorldDraw* draw) const;
    /// Updates the screen at once; the headless host has nothing to update.
    Acad::ErrorStatus draw() { return Acad::eOk; }
    void recordGraphicsModified(bool changed = true) { AcDbObject::recordGraphicsModified(changed); }
    /// Shows the entity as selected, or no longer so.
    Acad::ErrorStatus highlight() const;
    Acad::ErrorStatus unhighlight() const;
    /// Writes what the command LIST shows of the class, behind its common properties.
    void list() const { subList(); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
    Acad::ErrorStatus subMayWrite() const override;

    // What the host asks of a class beside its public members.

    /// Curves whose crossings are those of the entity, in world coordinates; `extended` asks for what they become when
    /// extended (whole lines and circles; open polylines at their ends).
    using Curves = std::vector<std::unique_ptr<AcGeCurve3d>>;
    virtual void intersectionCurves(Curves&, bool /*extended*/) const {}
    /// The entities listed behind this one in files; null for classes without.
    virtual DbSubentities* subentities() { return nullptr; }
    /// Told that it has been added to a drawing, so that what it owns can follow.
    virtual void addedToDrawing() {}
    /// The last step of reading from a file, when every object is there.
    virtual void completeRead() {}

protected:
    AcDbEntity() = default;

    virtual void subSetDatabaseDefaults(AcDbDatabase*) {}
    virtual Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) { return Acad::eNotImplementedYet; }
    /// Copies and transforms unless a class overrides it.
    virtual Acad::ErrorStatus subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const;
    virtual Acad::ErrorStatus subExplode(AcDbVoidPtrArray&) const { return Acad::eCannotExplodeEntity; }
    /// True for entities whose pieces have properties of their own, such as those of blocks.
    virtual bool explodesWithOwnProperties() const { return false; }
    virtual Acad::ErrorStatus subGetGeomExtents(AcDbExtents&) const { return Acad::eInvalidExtents; }
    /// Traits that hold for all of the entity; the result is a sum of flags that nothing here looks at.
    virtual Adesk::UInt32 subSetAttributes(AcGiDrawableTraits* traits);
    virtual bool subWorldDraw(AcGiWorldDraw*) { return true; }
    virtual void subList() const {}
    /// What intersectWith gives.
    virtual Acad::ErrorStatus subIntersectWith(const AcDbEntity* ent, AcDb::Intersect intType, AcGePoint3dArray& points,
                                               Adesk::GsMarker thisGsMarker, Adesk::GsMarker otherGsMarker) const;
    virtual Acad::ErrorStatus subIntersectWith(const AcDbEntity* ent, AcDb::Intersect intType, const AcGePlane& projPlane,
                                               AcGePoint3dArray& points, Adesk::GsMarker thisGsMarker,
                                               Adesk::GsMarker otherGsMarker) const;
    virtual Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray&, AcDbIntArray&, AcDbIntArray&) const
    {
        return Acad::eNotImplementedYet;
    }
    /// Moves the whole entity unless a class overrides it.
    virtual Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    /// The grips unless a class overrides them.
    virtual Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& stretchPoints) const;
    virtual Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    /// pointsToSnapTo unless a module's class overrides it.
    virtual Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                                const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                                const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                                AcDbIntArray& geomIds) const;
    /// Where the classes of the host can be snapped to.
    virtual Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode, const AcGePoint3d&, const AcGePoint3d&,
                                                AcGePoint3dArray&) const
    {
        return Acad::eNotImplementedYet;
    }
    /// The gate of a geometry setter: open for write, and the graphics noted as changed.
    Acad::ErrorStatus beginChange();

private:
    friend struct EntityAccess;

    // The first members fill the gap that the base leaves; a drawing holds a million of these.
    std::uint8_t mFlags = 0; ///< see EntityAccess
    std::int16_t mFileColorIndex = 0; ///< the index that stands beside a true colour in files
    std::int16_t mLineWeight = AcDb::kLnWtByLayer;
    AcCmEntityColor mColor;
    AcCmTransparency mTransparency;
    AcDbObjectId mLayer;    ///< null until it is added: layer "0"
    AcDbObjectId mLinetype; ///< null: by layer
    double mLinetypeScale = 1.0;
};
