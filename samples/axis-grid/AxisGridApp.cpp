/// AxisGrid.arx: the command 轴网 (_QMAXISGRID) draws the axis grid of a building into a site plan.

#include "GridDrawing.h"
#include "GridProposal.h"

#include "QmCADLib.h"

#include "arxEntryPoint.h"
#include "arxHeaders.h"

namespace
{
/// On the model tab, or inside a viewport of a layout.
bool isInModelSpace()
{
    int onModelTab = 1, viewport = 0;
    CFamStuSysVar::Get(L"TILEMODE", onModelTab);
    CFamStuSysVar::Get(L"CVPORT", viewport);
    constexpr int sheet = 1;
    return onModelTab != 0 || viewport != sheet;
}

void report(const DrawnGrid& drawn)
{
    acutPrintf(L"\n轴网已绘制: 轴线 %d 条，编号 %d 个，坐标标注 %d 个，填充 %d 处，建筑面积 %s 平方米。\n",
               drawn.bubbles.length(), drawn.labels.length(), drawn.dimensions.length(),
               drawn.hatch.isNull() ? 0 : 1, drawn.areaText().GetString());
}

void askAndDraw()
{
    GridOrder order = proposedOrder();
    if (!askGridOrder(order)) return;
    DrawnGrid drawn;
    if (drawGrid(order, drawn))
        report(drawn);
    else
        acutPrintf(L"\n轴网绘制失败，图形没有改变。\n");
}
} // namespace

class AxisGridApp : public AcRxArxApp
{
public:
    void RegisterServerComponents() override {}

    static void QMSAMPLEQMAXISGRID()
    {
        if (isInModelSpace())
            askAndDraw();
        else
            acutPrintf(L"\n轴网画在模型空间: 请先切换到模型选项卡，或进入视口。\n");
    }
};

IMPLEMENT_ARX_ENTRYPOINT(AxisGridApp)
ACED_ARXCOMMAND_ENTRY_AUTO(AxisGridApp, QMSAMPLE, QMAXISGRID, 轴网, ACRX_CMD_MODAL, NULL)
