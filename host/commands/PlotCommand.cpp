/// PLOT.

#include "acdocman.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "Faults.h"
#include "PlotDrawing.h"

namespace
{
void plotDrawing()
{
    const std::optional<std::wstring> layout =
        commands::ask(L"Enter a layout name <Model>: ", ed::Reading::word);
    if (!layout) return;
    const std::optional<std::wstring> file = commands::askFile(L"Enter file name (.png, .svg or .pdf): ");
    if (!file || file->empty()) return;
    plot::PlotRequest request;
    request.file = *file;
    request.layout = layout->c_str();
    const plot::PlotStatus status = plot::plotDrawing(*acDocManager->curDocument()->database(), request);
    const std::string reason = plot::reasonOf(status);
    if (status == plot::PlotStatus::done) return ed::print(*file + L" is plotted.\n");
    ed::fail(L"Cannot plot \"" + *file + L"\": " + std::wstring(reason.begin(), reason.end()) + L".");
}

[[maybe_unused]] const bool added = commands::add({
    {L"PLOT", L"PRINT", ACRX_CMD_MODAL, plotDrawing,
     L"Plots model space or a layout into a PNG, SVG or PDF file"},
});
} // namespace
