#include "PlotDrawing.h"

#include "CairoCanvas.h"
#include "DatabaseState.h"
#include "PlotPage.h"
#include "SheetPlot.h"
#include "Stub.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dblayout.h"

#include <algorithm>
#include <optional>

namespace plot
{
namespace
{
std::optional<PlotFormat> formatOf(const std::wstring& file)
{
    CString ending(file.substr(std::min(file.rfind(L'.'), file.size())).c_str());
    ending.MakeLower();
    if (ending == L".png") return PlotFormat::png;
    if (ending == L".svg") return PlotFormat::svg;
    if (ending == L".pdf") return PlotFormat::pdf;
    return std::nullopt;
}

/// The layout of a name; null when the drawing has none.
const AcDbLayout* layoutNamed(const AcDbDatabase& database, const CString& name)
{
    const auto* layouts = AcDbDictionary::cast(residentObject(database.layoutDictionaryId()));
    AcDbObjectId id;
    if (!layouts || layouts->getAt(name, id) != Acad::eOk) return nullptr;
    return AcDbLayout::cast(residentObject(id));
}

AcDbExtents2d flat(const AcDbExtents& box)
{
    if (box.isEmpty()) return {};
    return {{box.minPoint().x, box.minPoint().y}, {box.maxPoint().x, box.maxPoint().y}};
}

/// The space, its paper and what of it is seen.
struct Sheet {
    const AcDbBlockTableRecord* block = nullptr;
    const AcDbLayout* layout = nullptr; ///< null for model space
    Paper paper;
    AcDbExtents2d window;
};

Paper askedPaper(const PlotRequest& request)
{
    const double margin = std::min({10.0, request.width / 20, request.height / 20});
    return {request.width, request.height, margin, margin, margin, margin};
}

void layOut(Sheet& sheet, const PlotRequest& request, PlotStyles& styles)
{
    const AcDbExtents2d extents = flat(shownExtents(*sheet.block, styles));
    const bool isAsked = request.width > 0 && request.height > 0;
    const Paper own = sheet.layout ? paperOf(*sheet.layout) : Paper();
    sheet.paper = isAsked ? askedPaper(request) : own.width > 0 ? own : paperFor(extents);
    if (isAsked && own.width > 0) {
        // The sheet as it is, on paper of another size.
        sheet.window = windowOn({request.width, request.height, 0, 0, 0, 0}, windowOf(*sheet.layout, own, extents));
    } else if (own.width > 0) {
        sheet.window = windowOf(*sheet.layout, own, extents);
    } else {
        sheet.window = windowOn(sheet.paper, extents);
    }
}

Page pageOf(const Sheet& sheet, const PlotRequest& request)
{
    Page page;
    page.width = sheet.paper.width;
    page.height = sheet.paper.height;
    page.windowMin = sheet.window.minPoint();
    page.windowMax = sheet.window.maxPoint();
    page.dotsPerInch = request.dotsPerInch;
    if (request.pixels > 0) page.dotsPerInch = request.pixels * 25.4 / std::max(page.width, page.height);
    return page;
}
} // namespace

PlotStatus plotDrawing(const AcDbDatabase& database, const PlotRequest& request)
{
    const std::optional<PlotFormat> format = formatOf(request.file);
    if (!format) return PlotStatus::badFormat;
    Sheet sheet;
    const bool isModel = request.layout.IsEmpty() || request.layout.CompareNoCase(L"Model") == 0;
    if (!isModel) {
        sheet.layout = layoutNamed(database, request.layout);
        if (!sheet.layout) return PlotStatus::noSuchLayout;
    }
    const AcDbObjectId block = isModel ? database.modelSpaceId() : sheet.layout->getBlockTableRecordId();
    sheet.block = AcDbBlockTableRecord::cast(residentObject(block));
    if (!sheet.block) return PlotStatus::noSuchLayout;

    PlotStyles styles(database);
    layOut(sheet, request, styles);
    CairoCanvas canvas(request.file, *format);
    const PlotStatus status = canvas.begin(pageOf(sheet, request));
    if (status != PlotStatus::done) return status;
    drawSheet(canvas, styles, *sheet.block, sheet.layout, sheet.window);
    return canvas.finish();
}

const char* reasonOf(PlotStatus status)
{
    switch (status) {
    case PlotStatus::done:
        return "";
    case PlotStatus::badPage:
        return "the page has no size, or is too large";
    case PlotStatus::notFound:
        return "the folder does not exist";
    case PlotStatus::accessDenied:
        return "the file cannot be written";
    case PlotStatus::diskFull:
        return "the disk is full";
    case PlotStatus::badFormat:
        return "the file's name must end in .png, .svg or .pdf";
    case PlotStatus::noSuchLayout:
        return "the drawing has no such layout";
    default:
        return "the plot failed";
    }
}
} // namespace plot
