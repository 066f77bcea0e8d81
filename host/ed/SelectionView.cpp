#include "SelectionView.h"

#include "VariableStore.h"
#include "WindowSize.h"

AcGePoint3d ed::SelectionView::raise(const AcGePoint2d& placed) const
{
    return toPlane.inverse() * AcGePoint3d(placed.x, placed.y, 0.0);
}

ed::SelectionView ed::selectionView()
{
    const Viewport viewport = activeViewport();
    const DisplayView display = viewOf(viewport);
    SelectionView view;
    view.direction = display.direction.normal();
    view.toPlane = parallelToWorld(display).inverse();
    const std::optional<VariableValue> pixels = readVariable(L"PICKBOX");
    view.pickRadius = (pixels ? static_cast<double>(pixels->integer) : 0.0) * unitsPerPixel(viewport);
    view.window = windowOf(viewport);
    return view;
}
