#pragma once

/// What a plot is drawn on.

#include "HatchFill.h"
#include "IndexColors.h"
#include "LineTypeDash.h"

#include "gemat2d.h"

/// As cairo.h declares it.
typedef struct _cairo_surface cairo_surface_t;

namespace plot
{
/// How a plot ended.
enum class PlotStatus {
    done,
    badPage,      ///< a size or window that is none or too large; a second page where there is one only
    notFound,     ///< the folder does not exist
    accessDenied, ///< the file or folder cannot be written
    diskFull,
    badFormat,    ///< the file's name does not end in .png, .svg or .pdf
    noSuchLayout, ///< the drawing has no layout of that name
    failed        ///< anything else: no memory, no page was begun
};

/// The paper and what of the drawing is on it.
struct Page {
    double width = 297, height = 210; ///< millimetres
    double margin = 0;                ///< millimetres that stay free at every edge
    AcGePoint2d windowMin, windowMax; ///< in drawing units; shown as large as the page allows, in its middle
    colors::Rgb background{255, 255, 255};
    double dotsPerInch = 150; ///< of PNG files
};

struct Ink {
    colors::Rgb color;
    double opacity = 1; ///< 0 ... 1
};

enum class Cap { butt, round, square };
enum class Join { miter, round, bevel };
enum class Measure { drawingUnits, millimetres };

struct Pen {
    Ink ink;
    double width = 0; ///< millimetres; below the thinnest line that can be seen, that one is drawn
    Cap cap = Cap::round;
    Join join = Join::round;
    DashPattern dashes; ///< empty: continuous; else as in dashLine
    Measure dashMeasure = Measure::drawingUnits;
};

/// A line through points.
struct Stroke {
    Points points;
    bool isClosed = false;       ///< the last point is joined to the first
    bool dashPerSegment = false; ///< every segment has the dashes from its own start
};

enum class FillRule { evenOdd, nonZero };
enum class PaintKind { solid, linear, radial };

/// What an area is filled with: `ink`, or from `ink` to `endInk`.
struct Paint {
    PaintKind kind = PaintKind::solid;
    Ink ink, endInk;
    AcGePoint2d start,
        end; ///< linear: where the one ink is whole and where the other; radial: start is the middle
    double radius = 1; ///< radial: where `endInk` is whole, in drawing units
};

/// A surface for plots. Coordinates are drawing units of the present transformation; points that are not
/// finite are left out. Nothing is drawn before a page was begun; finish() reports the first failure.
class Canvas
{
public:
    virtual ~Canvas() = default;

    /// Begins a page and forgets transformations and clips. done, badPage or the file's trouble.
    virtual PlotStatus begin(const Page& page) = 0;
    /// Completes the plot. With another status than done there is no new file, and an old one is as it was.
    virtual PlotStatus finish() = 0;

    /// What is drawn until the pop goes through `transform` first. A pop without its push does nothing.
    virtual void pushTransform(const AcGeMatrix2d& transform) = 0;
    virtual void popTransform() = 0;
    /// Until the pop, only what lies inside the loops is drawn, and inside all clips before.
    virtual void pushClip(const Loops& loops, FillRule rule) = 0;
    virtual void popClip() = 0;

    virtual void stroke(const Stroke& stroke, const Pen& pen) = 0;
    /// Draws many straight lines; the pen's dashes do not count.
    virtual void segments(const std::vector<kernel::HatchPiece>& lines, const Pen& pen) = 0;
    /// Round marks as wide as the pen.
    virtual void dots(const Points& points, const Pen& pen) = 0;
    virtual void fill(const Loops& loops, FillRule rule, const Paint& paint) = 0;
    /// A picture whose lower left corner, lower edge and left edge are these.
    virtual void image(cairo_surface_t* picture, const AcGePoint2d& corner, const AcGeVector2d& width,
                       const AcGeVector2d& height) = 0;

    /// The smallest length that can be seen on the page, in units of the present transformation: curves that
    /// are flattened to a quarter of it look smooth. 0 before a page was begun.
    virtual double finest() const = 0;
};

/// Draws a hatch's pieces, and a tint of the pen's ink where a family of its lines is too dense.
void drawHatch(Canvas& canvas, const Loops& loops, const std::vector<kernel::HatchFamily>& pattern,
               const Pen& pen);
} // namespace plot
