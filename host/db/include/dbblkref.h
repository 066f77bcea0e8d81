#pragma once

/// AcDbBlockReference: a block shown at a place, scaled and turned, with attributes of its own; AcDbMInsertBlock: the
/// same in rows and columns.

#include "dbentity.h"
#include "gescl3d.h"

class AcDbAttribute;
class AcDbObjectIterator;

class AcDbBlockReference : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    ACDB_STATE_MEMBERS(AcDbBlockReference)
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec);
    AcDbBlockReference(const AcDbBlockReference& other);
    AcDbBlockReference& operator=(const AcDbBlockReference& other);
    ~AcDbBlockReference() override;

    AcDbObjectId blockTableRecord() const { return mBlock; }
    /// eWrongObjectType for what is no block; eSelfReference for the block that holds the reference.
    virtual Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);

    /// Where the origin of the block lies, in world coordinates.
    AcGePoint3d position() const;
    virtual Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGeScale3d scaleFactors() const { return mScale; }
    /// eInvalidInput for a factor of 0.
    virtual Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// Radians about the normal, from the X axis of its object coordinates.
    double rotation() const { return mRotation; }
    virtual Acad::ErrorStatus setRotation(double rotation);
    AcGeVector3d normal() const { return mNormal; }
    /// eInvalidInput for a zero vector.
    virtual Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    /// From the coordinates of the block to the world.
    AcGeMatrix3d blockTransform() const;
    /// eCannotScaleNonUniformly for a matrix whose axes are not perpendicular; nothing is changed then.
    virtual Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& xform);

    /// Adds a new attribute, which stays open for write. eNotInDatabase for a reference that is in no drawing.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                    bool openErased = false);
    /// A new iterator that the caller deletes.
    AcDbObjectIterator* attributeIterator() const;

    /// Explodes and adds the pieces to the block that holds the reference; the reference itself stays.
    virtual Acad::ErrorStatus explodeToOwnerSpace() const;
    /// The extents after a further map, which may shear: those of a reference within a block that is shown
    /// askew.
    virtual Acad::ErrorStatus geomExtentsBestFit(AcDbExtents& extents,
                                                 const AcGeMatrix3d& parentXform = AcGeMatrix3d::kIdentity) const;

    bool isPlanar() const override { return false; }
    void getEcs(AcGeMatrix3d& matrix) const override;
    void intersectionCurves(Curves& curves, bool extended) const override;
    DbSubentities* subentities() override;
    const DbSubentities* subentities() const { return mAttributes.get(); }
    void addedToDrawing() override { listInBlock(); }
    void completeRead() override { listInBlock(); }
    Acad::ErrorStatus subClose() override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    bool explodesWithOwnProperties() const override { return true; }
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last,
                                        AcGePoint3dArray& points) const override;
    /// The maps of every copy of the block that is shown.
    virtual std::vector<AcGeMatrix3d> instances() const { return {blockTransform()}; }

private:
    friend struct BlockReferenceFields;
    friend struct BlockAccess;
    /// Makes itself known to the block, once.
    void listInBlock();
    Acad::ErrorStatus changeAttributes(const AcGeMatrix3d& xform);

    AcDbObjectId mBlock;
    AcGePoint3d mPosition; ///< in object coordinates
    AcGeScale3d mScale{1.0, 1.0, 1.0};
    double mRotation = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
    std::unique_ptr<DbSubentities> mAttributes; ///< null without attributes
    bool mIsListed = false;                     ///< the block knows of it
};

/// Rows run along Y and columns along X of the reference, before its scale and after its rotation.
class AcDbMInsertBlock : public AcDbBlockReference
{
public:
    ACRX_DECLARE_MEMBERS(AcDbMInsertBlock);
    ACDB_STATE_MEMBERS(AcDbMInsertBlock)
    AcDbMInsertBlock() = default;
    AcDbMInsertBlock(const AcGePoint3d& position, AcDbObjectId block, std::uint16_t columns, std::uint16_t rows,
                     double columnSpacing, double rowSpacing);

    std::uint16_t columns() const { return mColumns; }
    /// eInvalidInput for 0.
    Acad::ErrorStatus setColumns(std::uint16_t columns);
    std::uint16_t rows() const { return mRows; }
    Acad::ErrorStatus setRows(std::uint16_t rows);
    double columnSpacing() const { return mColumnSpacing; }
    Acad::ErrorStatus setColumnSpacing(double spacing);
    double rowSpacing() const { return mRowSpacing; }
    Acad::ErrorStatus setRowSpacing(double spacing);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::vector<AcGeMatrix3d> instances() const override;

private:
    friend struct BlockReferenceFields;
    std::uint16_t mColumns = 1, mRows = 1;
    double mColumnSpacing = 0.0, mRowSpacing = 0.0;
};
