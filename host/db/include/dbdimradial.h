#pragma once

/// Dimensions of circles and arcs: AcDbRadialDimension, AcDbDiametricDimension, AcDbRadialDimensionLarge.

#include "dbdimension.h"

class AcDbRadialDimension : public AcDbDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimension);
    ACDB_STATE_MEMBERS(AcDbRadialDimension)
    AcDbRadialDimension() : AcDbDimension(radialType) {}
    /// `leaderLength` is how far the leader goes beyond the chord point.
    AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint, double leaderLength,
                        const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    AcGePoint3d center() const { return mDefPoint; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& point) { return change(mDefPoint, point); }
    /// The point of the curve that the arrow touches.
    AcGePoint3d chordPoint() const { return mChordPoint; }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& point) { return change(mChordPoint, point); }
    double leaderLength() const { return mLeaderLength; }
    Acad::ErrorStatus setLeaderLength(double length) { return change(mLeaderLength, length); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double measure() const override;
    const wchar_t* measureSign() const override { return L"R"; }
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

private:
    AcGePoint3d mChordPoint;
    double mLeaderLength = 0.0;
};

class AcDbDiametricDimension : public AcDbDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDiametricDimension);
    ACDB_STATE_MEMBERS(AcDbDiametricDimension)
    AcDbDiametricDimension() : AcDbDimension(diametricType) {}
    AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                           double leaderLength, const ACHAR* dimText = nullptr,
                           AcDbObjectId dimStyle = AcDbObjectId::kNull);

    /// The end of the diameter on the text's side, and the one across.
    AcGePoint3d chordPoint() const { return mChordPoint; }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& point) { return change(mChordPoint, point); }
    AcGePoint3d farChordPoint() const { return mDefPoint; }
    Acad::ErrorStatus setFarChordPoint(const AcGePoint3d& point) { return change(mDefPoint, point); }
    double leaderLength() const { return mLeaderLength; }
    Acad::ErrorStatus setLeaderLength(double length) { return change(mLeaderLength, length); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double measure() const override;
    const wchar_t* measureSign() const override { return L"\u2205"; }
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

private:
    AcGePoint3d mChordPoint;
    double mLeaderLength = 0.0;
};

/// A radius whose centre lies off the page: the line starts elsewhere and is jogged.
class AcDbRadialDimensionLarge : public AcDbDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimensionLarge);
    ACDB_STATE_MEMBERS(AcDbRadialDimensionLarge)
    AcDbRadialDimensionLarge() : AcDbDimension(largeRadialType) {}
    AcDbRadialDimensionLarge(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                             const AcGePoint3d& overrideCenter, const AcGePoint3d& jogPoint, double jogAngle,
                             const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    AcGePoint3d center() const { return mDefPoint; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& point) { return change(mDefPoint, point); }
    AcGePoint3d chordPoint() const { return mChordPoint; }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& point) { return change(mChordPoint, point); }
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
    double measure() const override;
    const wchar_t* measureSign() const override { return L"R"; }
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

private:
    AcGePoint3d mChordPoint, mOverrideCenter, mJogPoint;
    double mJogAngle = 0.0;
};
