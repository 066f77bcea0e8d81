#include "dbucs.h"

#include "DxfFields.h"
#include "SymbolTableMembers.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbUCSTableRecord, AcDbSymbolTableRecord, UCS)
ACDB_SYMBOL_TABLE_MEMBERS(UCS)

struct UcsAccess {
    /// The kind of an orthographic view (71) and the origin of its system (13).
    static void readBaseOrigin(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcDbUCSTableRecord::BaseOrigin base{static_cast<int>(source.peek()->integer), {}};
        source.take();
        dxf::takeCoordinate(source, 13, base.origin.x);
        dxf::takeCoordinate(source, 23, base.origin.y);
        dxf::takeCoordinate(source, 33, base.origin.z);
        static_cast<AcDbUCSTableRecord&>(object).mBaseOrigins.push_back(base);
    }

    static void writeBaseOrigins(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        for (const AcDbUCSTableRecord::BaseOrigin& base : static_cast<const AcDbUCSTableRecord&>(object).mBaseOrigins) {
            sink.integer(71, base.view);
            sink.point(13, base.origin.x, base.origin.y, base.origin.z);
        }
    }
};

const DxfClass AcDbUCSTableRecord::dxf(
    "AcDbUCSTableRecord", &AcDbSymbolTableRecord::dxf,
    {
        dxf::text<&AcDbUCSTableRecord::mName>(2),
        dxf::integer<&AcDbUCSTableRecord::mFlags>(70),
        dxf::point<&AcDbUCSTableRecord::mOrigin>(10),
        dxf::point<&AcDbUCSTableRecord::mXAxis>(11),
        dxf::point<&AcDbUCSTableRecord::mYAxis>(12),
        dxf::integer<&AcDbUCSTableRecord::mOrthographicType>(79).from(DxfVersion::r2000),
        dxf::real<&AcDbUCSTableRecord::mElevation>(146).from(DxfVersion::r2000),
        dxf::reference<&AcDbUCSTableRecord::mBase>(346).unlessDefault().from(DxfVersion::r2000),
        dxf::custom(71, UcsAccess::readBaseOrigin, UcsAccess::writeBaseOrigins).from(DxfVersion::r2000),
    });

void AcDbUCSTableRecord::setXAxis(const AcGeVector3d& axis)
{
    if (!axis.isZeroLength()) assign(mXAxis, axis.normal());
}

void AcDbUCSTableRecord::setYAxis(const AcGeVector3d& axis)
{
    if (!axis.isZeroLength()) assign(mYAxis, axis.normal());
}

AcGePoint3d AcDbUCSTableRecord::ucsBaseOrigin(AcDb::OrthographicView view) const
{
    const auto found = std::find_if(mBaseOrigins.begin(), mBaseOrigins.end(),
                                    [&](const BaseOrigin& base) { return base.view == view; });
    return found == mBaseOrigins.end() ? mOrigin : found->origin;
}

Acad::ErrorStatus AcDbUCSTableRecord::setUcsBaseOrigin(const AcGePoint3d& origin, AcDb::OrthographicView view)
{
    if (view < AcDb::kTopView || view > AcDb::kRightView) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    const auto found = std::find_if(mBaseOrigins.begin(), mBaseOrigins.end(),
                                    [&](const BaseOrigin& base) { return base.view == view; });
    if (found != mBaseOrigins.end()) {
        found->origin = origin;
    } else {
        mBaseOrigins.push_back({view, origin});
    }
    return status;
}
