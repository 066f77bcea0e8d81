/// arxhost: opens a drawing, tells what is in it, saves it, plots it.

#include "ConsoleText.h"
#include "DrawingFile.h"
#include "DrawingSummary.h"
#include "Options.h"
#include "PlotDrawing.h"
#include "dbapserv.h"
#include "dbdatabase.h"

#include <cstdio>

namespace console
{
namespace
{
int fail(const std::string& file, const std::string& reason)
{
    std::fprintf(stderr, "arxhost: %s: %s\n", file.c_str(), reason.c_str());
    return 1;
}

std::string reasonOf(Acad::ErrorStatus status)
{
    switch (status) {
    case Acad::eFileNotFound: return "there is no such file or folder";
    case Acad::eFileAccessErr: return "the system refuses access";
    case Acad::eInvalidDwgVersion: return "a binary DWG file, which is not read; save it as DXF";
    case Acad::eBadDxfSequence: return "this is no drawing file";
    case Acad::eOutOfDisk: return "the disk is full; the old file is as it was";
    default: return "error " + std::to_string(status);
    }
}

void printRepairs(const std::string& file, const dxf::RepairReport& report)
{
    if (report.isEmpty()) return;
    std::fprintf(stderr, "arxhost: %s: %zu faults were repaired\n", file.c_str(), report.count());
    for (const dxf::Repair& repair : report.kept()) std::fprintf(stderr, "  %s\n", dxf::textOf(repair).c_str());
}

bool open(AcDbDatabase& database, const Options& options)
{
    dxf::RepairReport report;
    const Acad::ErrorStatus status =
        dxf::readDrawing(database, static_cast<const wchar_t*>(wide(options.drawing)), report);
    if (status != Acad::eOk) return !fail(options.drawing, reasonOf(status));
    printRepairs(options.drawing, report);
    return true;
}

bool save(AcDbDatabase& database, const Options& options)
{
    dxf::WriteOptions write;
    write.version = static_cast<dxf::FileVersion>(options.saveVersion);
    write.isBinary = options.binary;
    const Acad::ErrorStatus status =
        dxf::writeDrawing(database, static_cast<const wchar_t*>(wide(options.saveAs)), write);
    return status == Acad::eOk || !fail(options.saveAs, reasonOf(status));
}

bool plotTo(const AcDbDatabase& database, const Options& options)
{
    plot::PlotRequest request;
    request.file = static_cast<const wchar_t*>(wide(options.plot));
    request.layout = wide(options.layout);
    request.pixels = options.pixels;
    const plot::PlotStatus status = plot::plotDrawing(database, request);
    return status == plot::PlotStatus::done || !fail(options.plot, plot::reasonOf(status));
}

int run(const Options& options)
{
    AcDbDatabase database(options.drawing.empty());
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    bool isDone = options.drawing.empty() || open(database, options);
    if (isDone && options.list) printSummary(database);
    if (isDone && !options.saveAs.empty()) isDone = save(database, options);
    if (isDone && !options.plot.empty()) isDone = plotTo(database, options);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    return isDone ? 0 : 1;
}
} // namespace
} // namespace console

int main(int argc, char** argv)
{
    int exitStatus = 0;
    const std::optional<console::Options> options = console::parseOptions(argc, argv, exitStatus);
    return options ? console::run(*options) : exitStatus;
}
