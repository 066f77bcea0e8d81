/// AxisGrid.arx: the command 轴网 (_QMAXISGRID) draws the axis grid of a building into a site plan.

#include "GridDrawing.h"

#include "arxEntryPoint.h"
#include "arxHeaders.h"

namespace
{
void report(const DrawnGrid& drawn)
{
    acutPrintf(L"\n轴网已绘制: 轴线 %d 条，编号 %d 个，坐标标注 %d 个，填充 %d 处，建筑面积 %.2f 平方米。\n",
               drawn.axes.length(), drawn.labels.length(), drawn.dimensions.length(), drawn.hatch.isNull() ? 0 : 1,
               drawn.areaInSquareMetres);
}
} // namespace

class AxisGridApp : public AcRxArxApp
{
public:
    void RegisterServerComponents() override {}

    static void QMSAMPLEQMAXISGRID()
    {
        GridOrder order = proposedOrder();
        DrawnGrid drawn;
        if (!askGridOrder(order)) {
            acutPrintf(L"\n*取消*\n");
        } else if (!drawGrid(order, drawn)) {
            acutPrintf(L"\n轴网绘制失败，没有留下图元。\n");
        } else {
            report(drawn);
        }
    }
};

IMPLEMENT_ARX_ENTRYPOINT(AxisGridApp)
ACED_ARXCOMMAND_ENTRY_AUTO(AxisGridApp, QMSAMPLE, QMAXISGRID, 轴网, ACRX_CMD_MODAL, NULL)
