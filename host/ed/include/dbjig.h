#pragma once

/// AcEdJig: dragging an entity that follows the user's input.

#include "dbentity.h"

/// How a drag shows the objects it began with and those that follow.
class AcEdDragStyle
{
public:
    enum StyleType {
        kNone = 0,
        kHide,
        kTransparent25,
        kTransparent75,
        kDeletedEffect,
        kHighlight,
        kNotSpecified
    };
    AcEdDragStyle() = default;
    AcEdDragStyle(StyleType original, StyleType dragged) : mOriginal(original), mDragged(dragged) {}
    StyleType styleTypeForOriginal() const { return mOriginal; }
    StyleType styleTypeForDragged() const { return mDragged; }
    Acad::ErrorStatus setStyleTypeForOriginal(StyleType style);
    Acad::ErrorStatus setStyleTypeForDragged(StyleType style);

private:
    StyleType mOriginal = kNotSpecified;
    StyleType mDragged = kNotSpecified;
};

/// A derived class asks for input in sampler(), moves its entity in update(), and names it in entity().
/// drag() calls them for each move of the cursor and once for the answer that ends it.
class AcEdJig : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcEdJig);

    enum UserInputControls {
        kGovernedByOrthoMode = 0x0001,
        kNullResponseAccepted = 0x0002,
        kDontEchoCancelForCtrlC = 0x0004,
        kDontUpdateLastPoint = 0x0008,
        kNoDwgLimitsChecking = 0x0010,
        kNoZeroResponseAccepted = 0x0020,
        kNoNegativeResponseAccepted = 0x0040,
        kAccept3dCoordinates = 0x0080, ///< without it points lie at ELEVATION
        kAcceptMouseUpAsPoint = 0x0100,
        kAnyBlankTerminatesInput = 0x0200,
        kInitialBlankTerminatesInput = 0x0400,
        kAcceptOtherInputString = 0x0800,
        kGovernedByUCSDetect = 0x1000,
        kNoZDirectionOrtho = 0x2000,
        kImpliedFaceForUCSChange = 0x4000,
        kUseBasePointElevation = 0x8000,
        kDisableDirectDistanceInput = 0x10000,
    };
    enum CursorType {
        kNoSpecialCursor = -1,
        kCrosshair = 0,
        kRectCursor,
        kRubberBand,
        kNotRotated,
        kTargetBox,
        kRotatedCrosshair,
        kCrosshairNoRotate,
        kInvisible,
        kEntitySelect,
        kParallelogram,
        kEntitySelectNoPersp,
        kPkfirstOrGrips,
        kCrosshairDashed,
    };
    enum DragStatus {
        kModeless = -17,
        kNoChange = -6, ///< the input is as it was at the sample before
        kCancel = -4,
        kOther = -3, ///< other text: see acedGetInput
        kNull = -1,  ///< Enter
        kNormal = 0,
        kKW1 = 1, ///< the first keyword of the list, and so on
        kKW2,
        kKW3,
        kKW4,
        kKW5,
        kKW6,
        kKW7,
        kKW8,
        kKW9,
    };

    AcEdJig();
    ~AcEdJig() override;

    /// Runs the drag. kNormal when an answer was accepted; what sampler() returned for other answers; kCancel
    /// for Esc, when nobody answers, and when sampler() asks for nothing.
    DragStatus drag();
    DragStatus drag(const AcEdDragStyle& style);

    /// Acquires one input and keeps it; the base class returns kCancel.
    virtual DragStatus sampler();
    /// Brings the entity to the input; true when it must be drawn again. The base class returns false.
    virtual Adesk::Boolean update();
    /// What is drawn; null for nothing.
    virtual AcDbEntity* entity() const;
    /// Adds the entity to the current space of the working drawing and closes it. The null id when that
    /// fails: the entity stays the caller's.
    AcDbObjectId append();

    /// As acedInitGet takes them. Nine count.
    const ACHAR* keywordList();
    void setKeywordList(const ACHAR* keywords);
    const ACHAR* dispPrompt();
    /// Formatted as CString::Format does.
    template <class... Args>
    void setDispPrompt(const ACHAR* format, const Args&... args)
    {
        CString text;
        if (format) text.Format(format, args...);
        keepPrompt(text);
    }
    CursorType specialCursorType();
    void setSpecialCursorType(CursorType type);
    UserInputControls userInputControls();
    void setUserInputControls(UserInputControls controls);
    AcEdDragStyle dragStyle() const;

    // For sampler(). kNormal with a value; a keyword; kNull, kOther or kCancel with the value as it was.
    // Points are in world coordinates. Without a base point lengths and angles start at LASTPOINT; angles
    // count from the X axis of the UCS, in [0, 2 pi).

    DragStatus acquirePoint(AcGePoint3d& value);
    DragStatus acquirePoint(AcGePoint3d& value, const AcGePoint3d& basePoint);
    DragStatus acquireDist(double& value);
    DragStatus acquireDist(double& value, const AcGePoint3d& basePoint);
    DragStatus acquireAngle(double& value);
    DragStatus acquireAngle(double& value, const AcGePoint3d& basePoint);
    /// Text up to Enter, or to a blank with kAnyBlankTerminatesInput; it is cut to fit.
    DragStatus acquireString(ACHAR* value, std::size_t size);
    template <std::size_t Size>
    DragStatus acquireString(ACHAR (&value)[Size])
    {
        return acquireString(value, Size);
    }

private:
    struct State;
    void keepPrompt(const CString& prompt);
    void show();
    std::unique_ptr<State> mState;
};
