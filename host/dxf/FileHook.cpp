/// Gives the database its files, when the host is loaded.

#include "AtomicFile.h"
#include "DrawingFile.h"
#include "DrawingFileHook.h"

namespace dxf
{
namespace
{
Acad::ErrorStatus writeLog(const RepairReport& report, const wchar_t* path)
{
    AtomicFile file(path);
    for (const Repair& repair : report.kept()) file.append(textOf(repair) + "\r\n");
    file.append(std::to_string(report.count()) + " repaired\r\n");
    return file.commit() == FileStatus::done ? Acad::eOk : Acad::eFileAccessErr;
}

void tell(const RepairReport& report, const wchar_t* path)
{
    if (report.isEmpty() || !hooks::repairListener()) return;
    std::vector<std::string> lines;
    for (const Repair& repair : report.kept()) lines.push_back(textOf(repair));
    hooks::repairListener()(path, lines, report.count());
}

Acad::ErrorStatus read(AcDbDatabase& database, const wchar_t* path, const wchar_t* logPath)
{
    RepairReport report;
    const Acad::ErrorStatus status = readDrawing(database, path, report);
    if (status == Acad::eOk) tell(report, path);
    // A log that cannot be written does not undo the reading.
    if (logPath && *logPath) writeLog(report, logPath);
    return status;
}

Acad::ErrorStatus write(AcDbDatabase& database, const wchar_t* path, int version, bool keepsBackup)
{
    WriteOptions options;
    options.version = static_cast<FileVersion>(version);
    options.keepsBackup = keepsBackup;
    return writeDrawing(database, path, options);
}

[[maybe_unused]] const bool isInstalled = [] {
    hooks::setDrawingFiles({read, write});
    return true;
}();
} // namespace
} // namespace dxf
