#pragma once

#include "dbabstrviewtblrec.h"

/// A named view.
class AcDbViewTableRecord : public AcDbAbstractViewTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
    ACDB_STATE_MEMBERS(AcDbViewTableRecord)
    AcDbViewTableRecord() = default;

    bool isPaperspaceView() const { return (mFlags & paperSpaceFlag) != 0; }
    void setIsPaperspaceView(bool paperSpace) { setFlag(paperSpaceFlag, paperSpace); }
    bool isUcsAssociatedToView() const { return mHasUcs; }
    Acad::ErrorStatus disassociateUcsFromView() { return assign(mHasUcs, false); }
    /// As for any view; the coordinate system belongs to the view from then on.
    template <class... Arguments>
    Acad::ErrorStatus setUcs(const Arguments&... arguments)
    {
        const Acad::ErrorStatus status = AcDbAbstractViewTableRecord::setUcs(arguments...);
        if (status == Acad::eOk) mHasUcs = true;
        return status;
    }
    bool isCameraPlottable() const { return mIsCameraPlottable; }
    Acad::ErrorStatus setIsCameraPlottable(bool plottable) { return assign(mIsCameraPlottable, plottable); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend struct ViewAccess;
    static constexpr int paperSpaceFlag = 1;

    bool mHasUcs = false;
    bool mIsCameraPlottable = false;
};
