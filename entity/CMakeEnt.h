#pragma once

#include "adsdef.h"
#include "Aligment.h"
#include "CArxEntity.h"
#include "dbarc.h"
#include "dbcolor.h"
#include "dbidar.h"
#include "dbpl.h"
#include "dbregion.h"
#include "gearc2d.h"
#include "gearc3d.h"

#include <afxwin.h>
#include <CGTStringW.h>

/// The entity that holds a text.
enum _Text_Class {
    kTextClassLine = 0,  ///< AcDbText
    kTextClassParagraph, ///< AcDbMText
    kTextClassAttribute  ///< AcDbAttributeDefinition; the text is its default value and, without blanks, its
                         ///< tag
};

/// The products that share the library. All of them make their texts alike; the number keeps their calls
/// apart.
enum _SOFT { kSoftCommon = 0, kSoftArchitecture, kSoftStructure, kSoftPlumbing, kSoftElectric, kSoftHeating };

/// Makes entities from plain input and adds them to the current space of the working database. All members
/// are static and keep no state.
///
/// Points are in the current user coordinate system unless a member says otherwise; angles are radians about
/// its Z axis, counter-clockwise from its X axis; lengths are drawing units. A new entity has the drawing's
/// current properties. A colour number below 0 counts as 0 (by block) and one above 256 as 256 (by layer). An
/// empty layer name leaves the current layer; a layer that is off, frozen or locked takes the entity all the
/// same, one that is not there fails the call.
///
/// The result is 1 for success and 0 for failure: when the entity cannot be added (no drawing, a document
/// that is not locked), or when it refuses its input, as it does coordinates that are not finite. Nothing is
/// in the drawing then that was not there before, ids and lists are as they were, and nothing is open.
/// Entities that were added are closed.
class AFX_EXT_CLASS CArxEntity::CMakeEnt
{
public:
    // Lines, points and polylines.

    /// A line from p1 to p2; two equal points make one without length.
    static int MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2);
    static int MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2, AcDbObjectId& id);
    static int MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2, int color);
    static int MakeLine(const AcGePoint3d& p1, const AcGePoint3d& p2, CString layer, int color,
                        AcDbObjectId& id);
    static int MakePoint(const AcGePoint3d& pt, AcDbObjectId& id);
    /// A closed polyline of four vertices at the height (z) of `p1`, which is its first and `p2` its third
    /// corner (whose own z is not looked at); the side from the first to the second runs at `angle` (any
    /// number of radians) or against it. 0 for a rectangle without width or height.
    static int MakeRect(const AcGePoint3d& p1, const AcGePoint3d& p2, AcDbObjectId& id, double angle = 0.0);
    /// A lightweight polyline through the x and y of the points, in WORLD coordinates at height 0, whatever
    /// their z holds; closed unless `closed` is 0; `width` (0 or more, drawing units) is that of all its
    /// segments. A single point makes a polyline of one vertex. 0 for an empty list or a negative width.
    static int MakePline(const AcGePoint3dArray& points, AcDbObjectId& id, int closed = 0,
                         double width = 0.0);
    /// The same with arcs: a bulge for each vertex, the tangent of a quarter of the angle of the arc to the
    /// next one, counter-clockwise for positive ones, 0 for a straight segment. Vertices that the list does
    /// not reach have 0; numbers beyond are not used, and none is changed.
    static int MakePline(const AcGePoint3dArray& points, AcDbObjectId& id, AcArray<double>& bulges,
                         int closed, double width = 0.0);
    /// The polyline itself, which is not added: the caller owns it. Null where the others give 0.
    static AcDbPolyline* MakePline(const AcGePoint3dArray& points, int closed = 0, double width = 0.0);
    /// A cubic through the points, without curvature at its ends; smooth all round when the last point is the
    /// first. 0 for fewer than two different points.
    static int MakeSpline(const AcGePoint3dArray& points, AcDbObjectId& id);

    // Arcs, circles and ellipses.

    /// The arc from p1 through p2 to p3. 0 when two of them are equal or the three are in line.
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3);
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcDbObjectId& id);
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, int color);
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, CString layer,
                       int color, AcDbObjectId& id);
    /// Gives the arc back open for write, also on a locked layer; the caller closes it. Null on failure.
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcDbArc*& arc);
    /// Counter-clockwise from one angle to the other (any numbers of radians); a full turn for equal ones.
    /// 0 unless the radius is above 0.
    static int MakeArc(const AcGePoint3d& center, double r, double startAngle, double endAngle,
                       AcDbObjectId& id);
    /// A free arc from p1 to p2, in the coordinates of the points; nothing is added. `bulge` is the tangent
    /// of a quarter of its angle, counter-clockwise for a positive one. 0 for equal points and a bulge of 0.
    /// On failure `arc` is unchanged; the caller owns what a pointer names.
    static int MakeArc(const AcGePoint2d& p1, const AcGePoint2d& p2, double bulge, AcGeCircArc2d*& arc);
    /// The same in space, seen against the normal, to which p1 to p2 must be perpendicular.
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, double bulge, AcGeVector3d normal,
                       AcGeCircArc3d*& arc);
    static int MakeArc(const AcGePoint3d& p1, const AcGePoint3d& p2, double bulge, AcGeVector3d normal,
                       AcGeCircArc3d& arc);
    /// 0 unless the radius is above 0.
    static int MakeCircle(const AcGePoint3d& center, double r, AcDbObjectId& id);
    /// An ellipse parallel to the XY plane: `axis` is the direction of its first axis (its length does not
    /// count), `radius` the radius along it, `otherRadius` the one across; either may be the larger. It runs
    /// counter-clockwise between two angles (any numbers of radians), those of the lines from the centre to
    /// its ends, from `axis` on; equal ones make it whole. 0 unless the radii are above 0, and for an axis
    /// that is zero or leaves the plane.
    static int MakeEllipse(const AcGePoint3d& center, AcGeVector3d axis, double radius, double otherRadius,
                           AcDbObjectId& id, double startAngle = 0.0, double endAngle = 6.283185307179586);

    // Filled figures.

    /// A filled triangle in the plane of the points, at any heights; points in line make one without area.
    static int MakeSolid(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                         AcDbObjectId& id);
    /// Fills the inside of a closed planar curve, of any block or drawing, with triangles where its
    /// coordinates lie in the world, and appends their ids. Arcs count as chords no further from them than a
    /// thousandth of the figure's size. 0 for what is no such curve and for one that crosses or touches
    /// itself.
    static int MakeSolid(AcDbObjectId id, AcCmColor color, AcDbObjectIdArray& ids);

    // Texts. Heights are those of capital letters; rotations are radians from the user's X axis. What a text
    // says is kept as it stands: %%d, %%c, %%p, %%u, %%o and \U+XXXX are codes to AutoCAD. Width factor,
    // slant and mirroring are the current text style's. In a vertical style the letters of a line stand below
    // each other along the rotation, upright at 3/2 pi, and alignments count along the column; the lines of a
    // paragraph are columns, upright at 0.

    /// A text whose baseline starts at the point. 0 for null, for line breaks and unless the height is above
    /// 0.
    static int MakeText(const AcGePoint3d& pos, const wchar_t* text, AcDbObjectId& id, double height,
                        double rotation = 0.0);
    /// A text that hangs on the point as the alignment says. 0 also for an alignment that there is not, and
    /// for one so large that its start would lie out of all numbers.
    static int MakeText(const AcGePoint3d& pos, const wchar_t* text, AcDbObjectId& id, double height,
                        _Aligment aligment, double rotation = 0.0);
    /// A text of a class, as high as the current text style says or, where that leaves it to the texts,
    /// TEXTSIZE. Of a paragraph the alignment is the attachment point, for which the baseline is the bottom;
    /// only a paragraph may have line breaks. An attribute without anything but blanks has no tag: 0.
    static int MakeText(_SOFT soft, const AcGePoint3d& pos, CGTStringW text, AcDbObjectId& id,
                        _Aligment aligment, _Text_Class textClass, double rotation = 0.0);
    /// A multiline text along the user's X axis whose frame has its top left corner at the point; `text` is
    /// in the form of multiline texts (\P for a new line). `style` is a text style of the drawing, the null
    /// id the current one. Lines break at `width`, drawing units; at 0 they do not. 0 for null, for another
    /// object than a text style, unless the height is above 0 and for a width below it.
    static int MakeMText(const AcGePoint3d& pos, const wchar_t* text, AcDbObjectId style, double height,
                         double width, AcDbObjectId& id);
    /// A copy of a text, multiline text or attribute definition with other contents, in the drawing, the
    /// block and at the place of the first, with its properties, extended data and extension dictionary; it
    /// belongs to no group. 0 for entities of other classes, and where one line would get line breaks.
    static int CopyText(AcDbObjectId source, const CGTStringW& text, AcDbObjectId& id);
    /// Makes or changes a text style. `font` is a font file ("gbenor.shx", "simsun.ttf"), a font file and a
    /// big font with a comma between ("gbenor.shx,gbcbig.shx"), or without an extension the name of a
    /// typeface. `height` is 0 when each text has its own; `widthFactor` is 0.01 to 100; `oblique` the angle
    /// from the upright to the right, 85 degrees at most to either side. 0 for an empty font, a name that
    /// symbol tables do not allow, and for numbers out of range; a style that exists is unchanged then.
    static int MakeTxtStyle(CGTStringW name, CGTStringW font, double height, double widthFactor,
                            double oblique);

    // Areas.

    /// An associative hatch over closed curves, regions, and open curves that make closed chains (ends
    /// within a millionth of a unit meet); what lies inside of another is an island, islands in islands are
    /// filled again; the frames of texts and multiline texts are left out of what is filled. An id that is
    /// there twice counts once, texts beside what is filled and curves as good as points or lines do not count.
    /// `pattern` is a standard pattern or "SOLID" in any case of letters, `scale` (above 0) enlarges it,
    /// `angle` turns it from the user's X axis. The hatch lies in the plane of its boundary, its draw order
    /// is the newest. 0, and nothing is added, for an empty list, chains that stay open, entities out of one
    /// plane, ids of nothing or of what bounds nothing, entities of another drawing or outside of the current
    /// space, entities that somebody has open for write, unknown patterns, and for lines too dense to count.
    static int MakeHatch(const AcDbObjectIdArray& ids, AcDbObjectId& id, CGTStringW pattern, double scale,
                         double angle);
    /// The same over one entity, in a colour.
    static int MakeHatch(AcDbObjectId boundary, CGTStringW pattern, double scale, double angle,
                         AcCmColor color, AcDbObjectId& id);
    /// Makes the outlines of a hatch, of any block or drawing, anew where its coordinates lie in the world,
    /// as entities with the current properties, and appends their ids. `asRegions` 0: a closed polyline for
    /// each loop of lines and arcs, and for other loops the curve of each edge; else one region for each
    /// loop. 0 for what is no hatch or has no loops.
    static int MakeHatchBoundary(AcDbObjectId hatch, AcDbObjectIdArray& ids, int asRegions = 0);
    /// A new region, which is not added: the caller owns it, and it lies in the world where the points are in
    /// the user coordinate system. They are the corners of a polygon, the last may repeat the first. Null
    /// unless they lie in a plane (any) and the polygon does not cross or touch itself.
    static AcDbRegion* MakeRegion(const AcGePoint3dArray& points);
    /// The same of curves in WORLD coordinates (AcDbCurve*, in a drawing or not; they stay the caller's),
    /// which make closed chains; what lies inside of an odd number of chains is the region. Null when they
    /// do not, leave one plane, or a pointer is null.
    static AcDbRegion* MakeRegion(AcArray<void*> curves);

    // Boundaries, traced around a point among the curves, regions and block references of the current space
    // that are shown and lie parallel to the XY plane, at any height: as seen from above, with everything
    // that crosses, touches or repeats. The outlines lie in that plane at the height of the point. 0 when a
    // gap leaves the area open, the point lies on a curve or outside of everything.

    /// Appends the ids of the smallest outline around the point and, with `islands` not 0, of those that lie
    /// inside: closed polylines where lines and circular arcs bound the area, regions elsewhere; with
    /// `asRegions` not 0 regions always.
    static int MakeBoundary(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int islands, int asRegions);
    /// One entity: the outline without its islands, or a region; with `islands` what they cover is cut out of
    /// it.
    static int MakeBoundary(const AcGePoint3d& pt, AcDbObjectId& id, int islands, int asRegions);
    /// The same among the entities of a selection set, which stays the caller's. AutoCAD's command -BOUNDARY
    /// traces them, so the call must come from a command; 0 too for a name that is no set.
    static int MakeBoundary(const AcGePoint3d& pt, const ads_name candidates, AcDbObjectIdArray& ids,
                            int islands, int asRegions);
    static int MakeBoundary(const AcGePoint3d& pt, const ads_name candidates, AcDbObjectId& id, int islands,
                            int asRegions);

    // Groups.

    /// A selectable group of entities of the drawing's spaces under a name; an id that is twice in the list
    /// counts once. 0 for a name that symbol tables do not allow or that is taken, an empty list, and ids
    /// that are null, erased, no entities, inside a block definition, on a locked layer, or open.
    static int MakeGroup(CGTStringW name, const AcDbObjectIdArray& ids, AcDbObjectId& id);
    /// A group under a name of the drawing's own ("*A1" ...).
    static int MakeNoNameGroup(const AcDbObjectIdArray& ids, AcDbObjectId& id);
    /// Dissolves the anonymous group of this name ("*A1", in any case); an empty text means all of them.
    /// Their entities stay, named groups do too, and groups that somebody has open. 0 when none was
    /// dissolved.
    static int ExplodNoNameGroup(CGTStringW name);

    // Ordinate dimensions. Each measures, from the origin of the user coordinate system, the coordinate of
    // the point across its leader: along X for a leader along Y, along Y for a leader along X. Their straight
    // leaders, `length` drawing units long, point to the sides 0 (+X), 1 (+Y), 2 (-X), 3 (-Y) of the point:
    // the first to `side` (further numbers go on round in both directions), each of the others to the next
    // one counter-clockwise. `style` is a dimension style as it is defined, empty: the current one with the
    // dimension variables as they are set now. The ids are appended. 0, and none of them made, for a style
    // that is not there or a length that is not above 0.

    static int MakeCoordDim1(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length,
                             CGTStringW style = L"");
    static int MakeCoordDim2(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length,
                             CGTStringW style = L"");
    static int MakeCoordDim3(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length,
                             CGTStringW style = L"");
    static int MakeCoordDim4(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length,
                             CGTStringW style = L"");

    // With the user and the screen.

    /// Draws lines through the points on the screen, back to the first one with `closed` not 0 and three
    /// points at least, in a colour from 0 to 256 or, with -1, by inverting what is there. Nothing is added,
    /// and the next redraw wipes them away. 0, and nothing drawn, for fewer than two points, one that is not
    /// finite, and other colours.
    static int MakeGrPl(const AcGePoint3dArray& points, int color, int closed = 0);
    /// The uppermost entity under the pick box at a point of the current view, on a layer whose name fits a
    /// pattern ("WALL*"; empty: any). 0, and `id` as it was, when there is none.
    static int SeekBj(const AcGePoint3d& pt, CGTStringW layer, AcDbObjectId& id);

    // Polylines that the user draws, `width` wide (drawing units, 0: a line). All points are at the height of
    // the first. Before anything is asked: 0 for a layer that is not there and a width that is negative or
    // not finite.

    /// Lets the user draw polylines, one after the other, until there is no more first point; appends their
    /// ids. At each further point a band runs to the cursor; Undo takes the last point back, also the first;
    /// Close, from the third point on, closes the polyline and ends it, Enter ends it. A single point makes
    /// nothing; Esc drops the polyline that is being drawn and ends the drawing. 1 when one was drawn at
    /// least.
    static int DrawPl(AcDbObjectIdArray& ids, const CString& layer = L"", int color = 256,
                      double width = 0.0);
    /// The same for one polyline; 0 also when the user gives fewer than two points.
    static int DrawPlCmd(AcDbObjectId& id, const CString& layer = L"", int color = 256, double width = 0.0);
    /// One closed polyline, for areas: two bands run to the cursor, from the last point and from the first,
    /// so that its shape is seen all the time. Close and Enter end it with three points at least: with fewer,
    /// Enter asks again.
    static int DrawPlWithDoubleElastic(AcDbObjectId& id, const CString& layer = L"", int color = 256,
                                       double width = 0.0);
};
