#pragma once

/// Reading and writing drawing files, which a folder above the database does.

#include "acadstrc.h"

#include <cstddef>
#include <string>
#include <vector>

class AcDbDatabase;

namespace hooks
{
struct DrawingFiles {
    /// Fills an empty database; what was repaired goes into a text file when `logPath` is not null.
    Acad::ErrorStatus (*read)(AcDbDatabase& database, const wchar_t* path, const wchar_t* logPath) = nullptr;
    /// `version` as DxfVersion has it.
    Acad::ErrorStatus (*write)(AcDbDatabase& database, const wchar_t* path, int version, bool keepsBackup) = nullptr;
};

void setDrawingFiles(const DrawingFiles& files);

/// Hears what was repaired in a file that was opened: the first repairs as lines, and how many there were in all.
using RepairListener = void (*)(const wchar_t* path, const std::vector<std::string>& repairs, std::size_t count);
/// Null: nobody listens.
void setRepairListener(RepairListener listener);
RepairListener repairListener();
} // namespace hooks
