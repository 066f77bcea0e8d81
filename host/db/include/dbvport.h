#pragma once

#include "dbabstrviewtblrec.h"

/// A viewport of model space. Those that tile the screen now are all named "*Active"; the first of them is the current
/// one.
class AcDbViewportTableRecord : public AcDbAbstractViewTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
    ACDB_STATE_MEMBERS(AcDbViewportTableRecord)
    AcDbViewportTableRecord() = default;

    /// On the screen, whose corners are (0,0) and (1,1).
    AcGePoint2d lowerLeftCorner() const { return mLowerLeft; }
    void setLowerLeftCorner(const AcGePoint2d& corner) { assign(mLowerLeft, corner); }
    AcGePoint2d upperRightCorner() const { return mUpperRight; }
    void setUpperRightCorner(const AcGePoint2d& corner) { assign(mUpperRight, corner); }
    std::int16_t number() const { return isActive() ? std::int16_t(2) : std::int16_t(0); }

    bool ucsFollowMode() const { return (mMode & 8) != 0; }
    void setUcsFollowMode(bool on) { assign(mMode, static_cast<std::int16_t>(on ? mMode | 8 : mMode & ~8)); }
    std::uint16_t circleSides() const { return mCircleSides; }
    void setCircleSides(std::uint16_t sides) { assign(mCircleSides, sides); }
    bool fastZoomsEnabled() const { return mFastZooms != 0; }
    void setFastZoomsEnabled(bool enabled) { assign(mFastZooms, std::int16_t(enabled)); }
    bool iconEnabled() const { return (mUcsIcon & 1) != 0; }
    void setIconEnabled(bool on) { assign(mUcsIcon, static_cast<std::int16_t>(on ? mUcsIcon | 1 : mUcsIcon & ~1)); }
    bool iconAtOrigin() const { return (mUcsIcon & 2) != 0; }
    void setIconAtOrigin(bool on) { assign(mUcsIcon, static_cast<std::int16_t>(on ? mUcsIcon | 2 : mUcsIcon & ~2)); }

    bool gridEnabled() const { return mGridOn != 0; }
    void setGridEnabled(bool on) { assign(mGridOn, std::int16_t(on)); }
    AcGePoint2d gridIncrements() const { return mGridIncrements; }
    void setGridIncrements(const AcGePoint2d& increments) { assign(mGridIncrements, increments); }
    bool snapEnabled() const { return mSnapOn != 0; }
    void setSnapEnabled(bool on) { assign(mSnapOn, std::int16_t(on)); }
    bool isometricSnapEnabled() const { return mIsometricSnap != 0; }
    void setIsometricSnapEnabled(bool on) { assign(mIsometricSnap, std::int16_t(on)); }
    std::int16_t snapPair() const { return mSnapPair; }
    void setSnapPair(std::int16_t pair) { assign(mSnapPair, pair); }
    double snapAngle() const { return mSnapAngle; }
    void setSnapAngle(double angle) { assign(mSnapAngle, angle); }
    AcGePoint2d snapBase() const { return mSnapBase; }
    void setSnapBase(const AcGePoint2d& base) { assign(mSnapBase, base); }
    AcGePoint2d snapIncrements() const { return mSnapIncrements; }
    void setSnapIncrements(const AcGePoint2d& increments) { assign(mSnapIncrements, increments); }

    bool isUcsSavedWithViewport() const { return mHasUcs != 0; }
    void setUcsPerViewport(bool perViewport) { assign(mHasUcs, std::int16_t(perViewport)); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool sharesName() const override { return true; }

private:
    friend struct ViewportAccess;
    bool isActive() const { return mName.CompareNoCase(L"*Active") == 0; }

    AcGePoint2d mLowerLeft{0.0, 0.0};
    AcGePoint2d mUpperRight{1.0, 1.0};
    AcGePoint2d mSnapBase{0.0, 0.0};
    AcGePoint2d mSnapIncrements{0.5, 0.5};
    AcGePoint2d mGridIncrements{0.5, 0.5};
    double mSnapAngle = 0.0;
    std::uint16_t mCircleSides = 1000;
    std::int16_t mFastZooms = 1, mUcsIcon = 3, mSnapOn = 0, mGridOn = 0, mIsometricSnap = 0, mSnapPair = 0, mHasUcs = 1;
};
