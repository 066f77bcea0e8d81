#pragma once

/// How entities draw themselves: they give their geometry, in model coordinates, and its traits to a world draw.
/// Plots, extents of odd entities and tests are such world draws.

#include "acdb.h"
#include "adesk.h"
#include "dbcolor.h"
#include "dbextent.h"
#include "gemat3d.h"
#include "rxboiler.h"

#include <atlstr.h>

class AcDbEntity;
class AcDbPolyline;
class AcGiWorldDraw;
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

    void setFileName(const ACHAR* name) { fileName = name; }
    void setBigFontFileName(const ACHAR* name) { bigFontFileName = name; }
    /// The character set, pitch and family follow from the face.
    Acad::ErrorStatus setFont(const ACHAR* face, bool bold, bool italic, int charset = 0, int pitch = 0, int family = 0);
    void setTextSize(double size) { textSize = size; }
    void setXScale(double scale) { xScale = scale; }
    void setObliquingAngle(double angle) { obliquingAngle = angle; }
    void setTrackingPercent(double percent) { trackingPercent = percent; }
    void setBackward(bool on) { isBackward = on; }
    void setUpsideDown(bool on) { isUpsideDown = on; }
    void setUnderlined(bool on) { isUnderlined = on; }
    void setOverlined(bool on) { isOverlined = on; }
    /// Fonts are found when they are drawn.
    int loadStyleRec() const { return 0; }
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
    /// Marks the parts of an entity for selections of parts, which there are none of.
    virtual void setSelectionMarker(Adesk::GsMarker) {}
};

/// One loop of a filled area, flattened.
struct AcGiLoop {
    const AcGePoint3d* points;
    unsigned count;
};

/// A picture in a file, as it lies in the drawing.
struct AcGiImageFile {
    CString path;
    AcGePoint3d origin;                     ///< the lower left corner of the picture
    AcGeVector3d width, height;             ///< its lower and its left edge
    AcGiLoop clip;                          ///< what is shown of it
    int brightness = 50, contrast = 50, fade = 0; ///< 0 to 100
    bool isTransparent = false;             ///< what lies behind is seen through pixels that say so
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
    /// A picture of a file; false where it cannot be shown.
    virtual bool imageFile(const AcGiImageFile&) { return false; }

    // Other ways to say the same.

    /// Through three points; false when they lie in a line.
    bool circle(const AcGePoint3d& first, const AcGePoint3d& second, const AcGePoint3d& third);
    bool circularArc(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end,
                     AcGiArcType type = kAcGiArcSimple);
    bool polyline(unsigned count, const AcGePoint3d* points, const AcGeVector3d* normal, Adesk::GsMarker marker = -1);
    bool worldLine(const AcGePoint3d points[2]) { return polyline(2, points); }
    bool polypoint(unsigned count, const AcGePoint3d* points);
    bool rowOfDots(int count, const AcGePoint3d& start, const AcGeVector3d& step);
    /// Row by row; each cell is a polygon.
    bool mesh(unsigned rows, unsigned columns, const AcGePoint3d* vertices);
    /// `faces` has for each face the number of its vertices and their indices; a negative number is that of a hole in
    /// the face before it.
    bool shell(unsigned vertexCount, const AcGePoint3d* vertices, unsigned faceListSize, const Adesk::Int32* faces);
    /// A text of one line in the font of SIMPLEX.
    bool text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction, double height,
              double width, double oblique, const ACHAR* text);
    /// Another entity, with traits of its own. Only while an entity draws itself; false otherwise.
    bool draw(const AcDbEntity* entity);

private:
    friend class AcDbEntity;
    AcGiWorldDraw* mDraw = nullptr; ///< whose geometry this is, while an entity draws itself
};

class AcGiCommonDraw : public AcRxObject
{
public:
    virtual AcGiRegenType regenType() const = 0;
    virtual bool regenAbort() const { return false; }
    virtual bool isDragging() const { return false; }
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
    /// The largest distance that a chord may have from its curve near a point.
    virtual double deviation(AcGiDeviationType type, const AcGePoint3d& at) const = 0;
};

class AcGiWorldDraw : public AcGiCommonDraw
{
public:
    virtual AcGiGeometry& geometry() const = 0;
};
