#include "Session.h"

#include "CommandInput.h"
#include "ConsoleText.h"
#include "Documents.h"
#include "DrawingFile.h"
#include "DrawingFileHook.h"
#include "DrawingSummary.h"
#include "EditorEvents.h"
#include "Faults.h"
#include "FileReason.h"
#include "LiveCounts.h"
#include "ModuleEvents.h"
#include "PlotDrawing.h"
#include "ProgramEnd.h"
#include "ProgressMeter.h"

#include <cstdio>
#include <filesystem>

namespace console
{
namespace
{
bool fail(const std::string& reason)
{
    std::fflush(stdout);
    std::fprintf(stderr, "arxhost: %s\n", reason.c_str());
    return false;
}

bool fail(const std::string& file, const std::string& reason)
{
    return fail(file + ": " + reason);
}

std::string reasonOf(Acad::ErrorStatus status)
{
    return utf8(commands::fileReason(status).c_str());
}

void tellRepairs(const wchar_t* path, const std::vector<std::string>& repairs, std::size_t count)
{
    fail(nativePath(path), std::to_string(count) + " faults were repaired");
    for (const std::string& repair : repairs)
        std::fprintf(stderr, "  %s\n", repair.c_str());
}

bool open(const std::string& drawing)
{
    std::error_code error;
    if (std::filesystem::is_directory(drawing, error)) return fail(drawing, "this is a folder");
    const CString path = wide(drawing);
    const Acad::ErrorStatus status = drawing.empty() ? acDocManager->appContextNewDocument(nullptr)
                                                     : acDocManager->appContextOpenDocument(path);
    return status == Acad::eOk || fail(drawing, reasonOf(status));
}

bool load(const std::string& file)
{
    if (acrxLoadModule(wide(file), false)) return true;
    return fail(utf8(ed::takeFault().c_str()));
}

AcDbDatabase& database()
{
    return *acDocManager->curDocument()->database();
}

bool save(const std::string& file, const Options& options)
{
    dxf::WriteOptions write;
    write.version = static_cast<dxf::FileVersion>(options.saveVersion);
    write.isBinary = options.binary;
    const std::wstring path = static_cast<const wchar_t*>(wide(file));
    const Acad::ErrorStatus status = documents::write(
        acDocManager->curDocument(), path, [&] { return dxf::writeDrawing(database(), path, write); });
    return status == Acad::eOk || fail(file, reasonOf(status));
}

bool plotTo(const std::string& file, const Options& options)
{
    plot::PlotRequest request;
    request.file = static_cast<const wchar_t*>(wide(file));
    request.layout = wide(options.layout);
    request.pixels = options.pixels;
    const plot::PlotStatus status = plot::plotDrawing(database(), request);
    return status == plot::PlotStatus::done || fail(file, plot::reasonOf(status));
}

bool list()
{
    printSummary(database());
    return true;
}

bool perform(const Action& action, const Options& options)
{
    switch (action.kind) {
    case Action::Kind::load:
        return load(action.file);
    case Action::Kind::script:
        return runScript(action.file);
    case Action::Kind::list:
        return list();
    case Action::Kind::save:
        return save(action.file, options);
    default:
        return plotTo(action.file, options);
    }
}

bool performAll(const Options& options)
{
    for (const Action& action : options.actions) {
        if (ed::endIsRequested()) return true;
        if (!perform(action, options)) return false;
    }
    return !options.readsInput() || ed::endIsRequested() || runStandardInput();
}

/// Ends as AutoCAD does. False when objects were left open, which is told.
bool end()
{
    int open = 0;
    ed::tellEditor([](AcEditorReactor& reactor) { reactor.quitWillStart(); });
    modules::quit([&] {
        for (const AcApDocument* document : documents::all())
            open += live::openObjects(*document->database());
        documents::closeAll();
    });
    if (open > 0) std::fprintf(stderr, "arxhost: %d objects were left open\n", open);
    return open == 0;
}
} // namespace

int run(const Options& options)
{
    hooks::setRepairListener(tellRepairs);
    const ProgressOnTerminal progress;
    const bool isDone = open(options.drawing) && performAll(options);
    const bool isClean = end();
    std::fflush(stdout);
    return isDone && isClean ? 0 : 1;
}
} // namespace console
