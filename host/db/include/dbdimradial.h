#pragma once

/// Dimensions of circles and arcs: AcDbRadialDimension, AcDbDiametricDimension, AcDbRadialDimensionLarge.

#include "dbdimension.h"

/// What they have in common: a point of the curve, which an arrow touches.
class DbChordDimension : public AcDbDimension
{
public:
    AcGePoint3d chordPoint() const { return mChordPoint; }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& point) { return change(mChordPoint, point); }

protected:
    using AcDbDimension::AcDbDimension;
    /// `across` is the point that the chord point is measured from.
    DbChordDimension(Type type, const AcGePoint3d& across, const AcGePoint3d& chordPoint, const ACHAR* dimText,
                     AcDbObjectId dimStyle);
    double measure() const override;

    AcGePoint3d mChordPoint;
};

/// A radius or diameter whose leader goes beyond the chord point.
class DbLeaderDimension : public DbChordDimension
{
public:
    double leaderLength() const { return mLeaderLength; }
    Acad::ErrorStatus setLeaderLength(double length) { return change(mLeaderLength, length); }

protected:
    using DbChordDimension::DbChordDimension;
    DbLeaderDimension(Type type, const AcGePoint3d& across, const AcGePoint3d& chordPoint, double leaderLength,
                      const ACHAR* dimText, AcDbObjectId dimStyle);
    /// Measured from the far side of the curve, not from its centre.
    virtual bool isDiameter() const = 0;
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    /// The leader grows with the measure.
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

    double mLeaderLength = 0.0;
};

class AcDbRadialDimension : public DbLeaderDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimension);
    ACDB_STATE_MEMBERS(AcDbRadialDimension)
    AcDbRadialDimension() : DbLeaderDimension(radialType) {}
    /// `leaderLength` is how far the leader goes beyond the chord point.
    AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                        const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    AcGePoint3d center() const { return mDefPoint; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& point) { return change(mDefPoint, point); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isDiameter() const override { return false; }
    const wchar_t* measureSign() const override { return L"R"; }
};

/// The chord point is the end of the diameter on the text's side.
class AcDbDiametricDimension : public DbLeaderDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDiametricDimension);
    ACDB_STATE_MEMBERS(AcDbDiametricDimension)
    AcDbDiametricDimension() : DbLeaderDimension(diametricType) {}
    AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                           double leaderLength, const ACHAR* dimText = nullptr,
                           AcDbObjectId dimStyle = AcDbObjectId::kNull);

    /// The end of the diameter across.
    AcGePoint3d farChordPoint() const { return mDefPoint; }
    Acad::ErrorStatus setFarChordPoint(const AcGePoint3d& point) { return change(mDefPoint, point); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isDiameter() const override { return true; }
    const wchar_t* measureSign() const override { return L"\u2205"; }
};

/// A radius whose centre lies off the page: the line starts elsewhere and is jogged.
class AcDbRadialDimensionLarge : public DbChordDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimensionLarge);
    ACDB_STATE_MEMBERS(AcDbRadialDimensionLarge)
    AcDbRadialDimensionLarge() : DbChordDimension(largeRadialType) {}
    AcDbRadialDimensionLarge(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                             const AcGePoint3d& overrideCenter, const AcGePoint3d& jogPoint, double jogAngle,
                             const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    AcGePoint3d center() const { return mDefPoint; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& point) { return change(mDefPoint, point); }
    /// Where the line starts instead of the centre.
    AcGePoint3d overrideCenter() const { return mOverrideCenter; }
    Acad::ErrorStatus setOverrideCenter(const AcGePoint3d& point) { return change(mOverrideCenter, point); }
    AcGePoint3d jogPoint() const { return mJogPoint; }
    Acad::ErrorStatus setJogPoint(const AcGePoint3d& point) { return change(mJogPoint, point); }
    double jogAngle() const { return mJogAngle; }
    Acad::ErrorStatus setJogAngle(double angle) { return change(mJogAngle, angle); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    const wchar_t* measureSign() const override { return L"R"; }
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

private:
    AcGePoint3d mOverrideCenter, mJogPoint;
    double mJogAngle = 0.0;
};
