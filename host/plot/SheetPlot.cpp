#include "SheetPlot.h"

#include "DatabaseState.h"
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
    drawBlock(canvas, styles, block, view);
}
} // namespace plot
