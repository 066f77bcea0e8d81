#include "SheetPlot.h"

#include "DatabaseState.h"
#include "ViewportPlot.h"
#include "dblayout.h"

namespace plot
{
void drawSheet(Canvas& canvas, PlotStyles& styles, const AcDbBlockTableRecord& block, const AcDbLayout* layout,
               const AcDbExtents2d& window)
{
    const HeaderVariables& header = DatabaseAccess::of(styles.database()).header;
    View view;
    view.min = window.minPoint();
    view.max = window.maxPoint();
    view.linetypeScale = header.real("$LTSCALE");
    view.points.mode = static_cast<int>(header.integer("$PDMODE"));
    view.points.size = header.real("$PDSIZE");
    view.hasWeights = !layout || layout->printLineweights();
    // A plot may put the paper's own entities above what the viewports show; as a rule they lie below.
    const bool viewportsFirst = layout && layout->drawViewportsFirst();
    if (viewportsFirst) drawViewports(canvas, styles, block, view);
    drawBlock(canvas, styles, block, view);
    if (layout && !viewportsFirst) drawViewports(canvas, styles, block, view);
}
} // namespace plot
