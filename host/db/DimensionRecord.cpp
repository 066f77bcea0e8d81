/// Dimensions share the name of their records: the section of the class says which one it is, in files
/// without sections the type in group 70.

#include "dbdim.h"
#include "RecordClass.h"

namespace
{
AcRxClass* classOfType(std::int64_t type)
{
    switch (type & 7) {
    case 0:
        return AcDbRotatedDimension::desc();
    case 1:
        return AcDbAlignedDimension::desc();
    case 2:
        return AcDb2LineAngularDimension::desc();
    case 3:
        return AcDbDiametricDimension::desc();
    case 4:
        return AcDbRadialDimension::desc();
    case 5:
        return AcDb3PointAngularDimension::desc();
    case 6:
        return AcDbOrdinateDimension::desc();
    default:
        return nullptr;
    }
}

AcRxClass* classOfDimension(const RecordView& record)
{
    // The section of rotated dimensions stands behind that of aligned ones.
    const struct {
        const char* section;
        AcRxClass* aClass;
    } kinds[] = {
        {"AcDbRotatedDimension", AcDbRotatedDimension::desc()},
        {"AcDbAlignedDimension", AcDbAlignedDimension::desc()},
        {"AcDbOrdinateDimension", AcDbOrdinateDimension::desc()},
        {"AcDbRadialDimension", AcDbRadialDimension::desc()},
        {"AcDbDiametricDimension", AcDbDiametricDimension::desc()},
        {"AcDb2LineAngularDimension", AcDb2LineAngularDimension::desc()},
        {"AcDb3PointAngularDimension", AcDb3PointAngularDimension::desc()},
    };
    for (const auto& kind : kinds) {
        if (record.hasSection(kind.section)) return kind.aClass;
    }
    return record.hasSection("AcDbEntity") ? nullptr : classOfType(record.integer(70, 0));
}

const RecordChoice dimensions("DIMENSION", classOfDimension);
} // namespace
