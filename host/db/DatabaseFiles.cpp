/// Drawings from and into files.

#include "DatabaseState.h"
#include "DrawingFileHook.h"
#include "DrawingStamps.h"

namespace
{
hooks::DrawingFiles& drawingFiles()
{
    static hooks::DrawingFiles files;
    return files;
}

hooks::RepairListener listener = nullptr;

struct NamedVersion {
    DxfVersion dxf;
    AcDb::AcDbDwgVersion dwg;
};

constexpr NamedVersion versions[] = {
    {DxfVersion::r12, AcDb::kDHL_1009},   {DxfVersion::r13, AcDb::kDHL_1012},   {DxfVersion::r14, AcDb::kDHL_1014},
    {DxfVersion::r2000, AcDb::kDHL_1015}, {DxfVersion::r2004, AcDb::kDHL_1018}, {DxfVersion::r2007, AcDb::kDHL_1021},
    {DxfVersion::r2010, AcDb::kDHL_1024}, {DxfVersion::r2013, AcDb::kDHL_1027}, {DxfVersion::r2018, AcDb::kDHL_1032},
};

/// 0 for a version that is none.
int dxfVersionOf(AcDb::AcDbDwgVersion version)
{
    for (const NamedVersion& one : versions) {
        if (one.dwg == version) return static_cast<int>(one.dxf);
    }
    return 0;
}

AcDb::AcDbDwgVersion dwgVersionOf(int dxfVersion)
{
    AcDb::AcDbDwgVersion found = AcDb::kDHL_CURRENT;
    for (const NamedVersion& one : versions) {
        if (static_cast<int>(one.dxf) <= dxfVersion) found = one.dwg;
    }
    return found;
}

Acad::ErrorStatus read(AcDbDatabase& database, const ACHAR* path, const ACHAR* logPath)
{
    if (!path || !*path) return Acad::eInvalidInput;
    if (!drawingFiles().read) return Acad::eNotApplicable;
    const Acad::ErrorStatus status = drawingFiles().read(database, path, logPath);
    if (status != Acad::eOk) return status;
    DatabaseAccess::of(database).fileName = path;
    stamps::open(database);
    return status;
}

Acad::ErrorStatus write(AcDbDatabase& database, const ACHAR* path, AcDb::AcDbDwgVersion version, bool keepsBackup)
{
    if (!path || !*path) return Acad::eInvalidInput;
    if (!drawingFiles().write) return Acad::eNotApplicable;
    return drawingFiles().write(database, path, dxfVersionOf(version), keepsBackup);
}
} // namespace

void hooks::setDrawingFiles(const DrawingFiles& files) { drawingFiles() = files; }
void hooks::setRepairListener(RepairListener heard) { listener = heard; }
hooks::RepairListener hooks::repairListener() { return listener; }

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName, OpenMode, bool, const wchar_t*)
{
    return read(*this, fileName, nullptr);
}

Acad::ErrorStatus AcDbDatabase::dxfIn(const ACHAR* fileName, const ACHAR* logFileName)
{
    return read(*this, fileName, logFileName);
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName, bool bakAndRename, AcDb::AcDbDwgVersion version,
                                       const SecurityParams*)
{
    const Acad::ErrorStatus status = write(*this, fileName, version, bakAndRename);
    if (status != Acad::eOk) return status;
    mState->lastSavedVersion = dxfVersionOf(version);
    return status;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName, const SecurityParams* security)
{
    return saveAs(fileName, false, AcDb::kDHL_CURRENT, security);
}

Acad::ErrorStatus AcDbDatabase::save()
{
    if (mState->fileName.IsEmpty()) return Acad::eInvalidInput;
    return saveAs(CString(mState->fileName), true);
}

Acad::ErrorStatus AcDbDatabase::dxfOut(const ACHAR* fileName, int precision, AcDb::AcDbDwgVersion version, bool)
{
    if (precision < 0 || precision > 16) return Acad::eInvalidInput;
    return write(*this, fileName, version, false);
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& fileName) const
{
    fileName = mState->fileName;
    return mState->fileName.IsEmpty() ? Acad::eNoDatabase : Acad::eOk;
}

AcDb::AcDbDwgVersion AcDbDatabase::originalFileVersion() const { return dwgVersionOf(mState->originalVersion); }

AcDb::AcDbDwgVersion AcDbDatabase::lastSavedAsVersion() const
{
    return dwgVersionOf(mState->lastSavedVersion ? mState->lastSavedVersion : mState->originalVersion);
}

bool AcDbDatabase::needsRecovery() const { return mState->needsRecovery; }
