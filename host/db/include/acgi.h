#pragma once

/// How entities draw themselves: they give their geometry, in model coordinates, and its traits to a world draw.
/// Plots, extents of odd entities and tests are such world draws.

#include "acdb.h"
#include "dbcolor.h"
#include "dbextent.h"
#include "gemat3d.h"
#include "rxboiler.h"

#include <atlstr.h>

class AcDbPolyline;
class AcGeCircArc3d;
class AcGeEllipArc3d;
class AcGeNurbCurve3d;

enum AcGiFillType { kAcGiFillAlways = 1, kAcGiFillNever = 2 };
enum AcGiArcType { kAcGiArcSimple = 0, kAcGiArcSector = 1, kAcGiArcChord = 2 };
enum AcGiRegenType { eAcGiRegenTypeInvalid = 0, kAcGiStandardDisplay = 2, kAcGiHideOrShadeCommand = 3, kAcGiForExplode = 5, kAcGiSaveWorldDrawForProxy = 6 };
enum AcGiDeviationType {
    kAcGiMaxDevForCircle = 0,
    kAcGiMaxDevForCurve = 1,
    kAcGiMaxDevForBoundary = 2,
    kAcGiMaxDevForIsoline = 3,
    kAcGiMaxDevForFacet = 4
};

/// The looks of a text: fonts, height (of a capital letter, in drawing units), width factor, slant (radians).
class AcGiTextStyle
{
public:
    CString fileName;    ///< SHX or TrueType file
    CString bigFontFileName;
    CString typeface;    ///< name of a TrueType face; empty: fileName says it
    bool isBold = false;
    bool isItalic = false;
    double textSize = 1.0;
    double xScale = 1.0;
    double obliquingAngle = 0.0;
    double trackingPercent = 1.0;
    bool isBackward = false;
    bool isUpsideDown = false;
    bool isVertical = false;
    bool isUnderlined = false;
    bool isOverlined = false;
    bool isStrikethrough = false;
};

/// The traits of what is drawn next.
class AcGiSubEntityTraits
{
public:
    virtual ~AcGiSubEntityTraits() = default;
    virtual void setColor(std::uint16_t index) = 0;
    virtual void setTrueColor(const AcCmEntityColor& color) = 0;
    virtual void setLayer(AcDbObjectId layer) = 0;
    virtual void setLineType(AcDbObjectId linetype) = 0;
    virtual void setLineTypeScale(double scale) = 0;
    virtual void setLineWeight(AcDb::LineWeight weight) = 0;
    virtual void setTransparency(const AcCmTransparency& transparency) = 0;
    virtual void setFillType(AcGiFillType fill) = 0;
};

/// One loop of a filled area, flattened.
struct AcGiLoop {
    const AcGePoint3d* points;
    unsigned count;
};

class AcGiGeometry
{
public:
    virtual ~AcGiGeometry() = default;

    /// What follows is in the coordinates that the matrix maps to those before; returns whether it was taken.
    virtual bool pushModelTransform(const AcGeMatrix3d& matrix) = 0;
    virtual bool popModelTransform() = 0;

    virtual bool circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) = 0;
    /// From `start`, turning by `sweep` radians about the normal.
    virtual bool circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                             const AcGeVector3d& start, double sweep, AcGiArcType type = kAcGiArcSimple) = 0;
    virtual bool ellipArc(const AcGeEllipArc3d& arc) = 0;
    virtual bool nurbs(const AcGeNurbCurve3d& curve) = 0;
    virtual bool polyline(unsigned count, const AcGePoint3d* points) = 0;
    virtual bool polygon(unsigned count, const AcGePoint3d* points) = 0;
    /// An area bounded by loops, filled by the even-odd rule.
    virtual bool polyPolygon(unsigned count, const AcGiLoop* loops) = 0;
    /// A lightweight polyline with its widths and bulges.
    virtual bool pline(const AcDbPolyline& polyline) = 0;
    virtual bool xline(const AcGePoint3d& point, const AcGePoint3d& other) = 0;
    virtual bool ray(const AcGePoint3d& base, const AcGePoint3d& through) = 0;
    /// A point of the drawing, shown as the drawing's point style says.
    virtual bool pointMark(const AcGePoint3d& point) = 0;
    /// One line of text from its baseline's start; `raw` texts hold no codes (%%d ...).
    virtual bool text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                      const wchar_t* text, int length, bool raw, const AcGiTextStyle& style) = 0;
};

class AcGiCommonDraw : public AcRxObject
{
public:
    virtual AcGiRegenType regenType() const = 0;
    virtual bool regenAbort() const { return false; }
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
    /// The largest distance that a chord may have from its curve near a point.
    virtual double deviation(AcGiDeviationType type, const AcGePoint3d& at) const = 0;
};

class AcGiWorldDraw : public AcGiCommonDraw
{
public:
    virtual AcGiGeometry& geometry() const = 0;
};
