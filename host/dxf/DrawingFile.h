#pragma once

#include "FileStatus.h"
#include "FileVersion.h"
#include "OpenDrawing.h"
#include "RepairReport.h"
#include "acadstrc.h"

#include <string>

class AcDbDatabase;

namespace dxf
{
/// Reads a drawing file into an empty database (AcDbDatabase(false)). Statuses:
///     eFileNotFound, eFileAccessErr, eFileSystemErr   the file cannot be read
///     eInvalidDwgVersion                              a binary DWG file
///     eBadDxfSequence                                 no drawing file, or none of a drawing's sections in it
///     eInvalidInput                                   the database is not empty
/// Faults that could be repaired are told in `report`. With another status than eOk the database is empty again.
/// `codePage` is that of files that do not name theirs (0: this machine's).
Acad::ErrorStatus readDrawing(AcDbDatabase& database, const std::wstring& path, RepairReport& report,
                              unsigned codePage = 0);
/// The same from bytes in memory.
Acad::ErrorStatus readDrawing(AcDbDatabase& database, const OpenedDrawing& opened, RepairReport& report);

struct WriteOptions {
    FileVersion version = FileVersion::r2018; ///< r2000 or later
    bool isBinary = false;
    bool keepsBackup = false; ///< the file that was there stays, as *.bak
};

/// Writes a drawing file: the new one is there whole, or the old one is what it was. eInvalidDwgVersion for a version
/// before R2000, eFileAccessErr, eOutOfDisk, eFileSystemErr.
Acad::ErrorStatus writeDrawing(AcDbDatabase& database, const std::wstring& path, const WriteOptions& options);
} // namespace dxf
