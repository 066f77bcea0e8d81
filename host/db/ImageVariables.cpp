#include "imgvars.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "dbdatabase.h"
#include "dbdict.h"

ACDB_DXF_CLASS(AcDbRasterVariables, AcDbObject, RASTERVARIABLES)
ACDB_DXF_CLASS(AcDbWipeoutVariables, AcDbObject, WIPEOUTVARIABLES)

const DxfClass AcDbRasterVariables::dxf("AcDbRasterVariables", nullptr,
                                        {
                                            dxf::integer<&AcDbRasterVariables::mVersion>(90),
                                            dxf::integer<&AcDbRasterVariables::mFrame>(70),
                                            dxf::integer<&AcDbRasterVariables::mQuality>(71),
                                            dxf::integer<&AcDbRasterVariables::mUnits>(72),
                                        });

const DxfClass AcDbWipeoutVariables::dxf("AcDbWipeoutVariables", nullptr,
                                         {dxf::integer<&AcDbWipeoutVariables::mFrame>(70)});

Acad::ErrorStatus AcDbRasterVariables::openRasterVariables(AcDbRasterVariables*& variables, AcDb::OpenMode mode,
                                                           AcDbDatabase* database)
{
    constexpr const wchar_t* entry = L"ACAD_IMAGE_VARS";
    variables = nullptr;
    if (!database) return Acad::eNoDatabase;
    AcDbDictionary* named = nullptr;
    Acad::ErrorStatus status = database->getNamedObjectsDictionary(named);
    if (status != Acad::eOk) return status;
    AcDbObjectId id;
    if (named->getAt(entry, id) != Acad::eOk) {
        status = named->upgradeOpen();
        auto made = std::make_unique<AcDbRasterVariables>();
        if (status == Acad::eOk) status = named->setAt(entry, made.get(), id);
        if (status == Acad::eOk) made.release()->close();
    }
    named->close();
    return status == Acad::eOk ? acdbOpenObject(variables, id, mode) : status;
}

Acad::ErrorStatus AcDbRasterVariables::setImageFrame(FrameSettings frame)
{
    if (frame < kImageFrameOff || frame > kImageFrameOnNoPlot) return Acad::eInvalidInput;
    return assign(mFrame, static_cast<std::int16_t>(frame));
}

Acad::ErrorStatus AcDbRasterVariables::setImageQuality(ImageQuality quality)
{
    if (quality != kImageQualityDraft && quality != kImageQualityHigh) return Acad::eInvalidInput;
    return assign(mQuality, static_cast<std::int16_t>(quality));
}
