/// Regions as groups: the text of a solid modeller, coded, in groups 1 and 3.

#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "RegionAccess.h"

#include <algorithm>

const DxfClass AcDbRegion::dxf("AcDbModelerGeometry", &AcDbEntity::dxf,
                               {
                                   dxf::custom(70, RegionAccess::readFormat, RegionAccess::write),
                                   dxf::custom(1, RegionAccess::readLine, nullptr),
                                   dxf::custom(3, RegionAccess::readLine, nullptr),
                               });

namespace
{
bool hasKeptGroups(const AcDbRegion& region)
{
    const DbObjectExtras* extras = DbObjectAccess::extras(region);
    if (!extras) return false;
    const auto& kept = extras->keptGroups;
    return std::any_of(kept.begin(), kept.end(),
                       [](const KeptGroups& at) { return at.section == &AcDbRegion::dxf; });
}

void readShape(const DbRegionBody& body)
{
    kernel::AcisFaces read;
    if (kernel::readAcisText(kernel::acisLines(body.groups), read) != kernel::AcisStatus::kOk) return;
    kernel::RegionStatus status = kernel::RegionStatus::kOk;
    const kernel::Region region = kernel::Region::fromFaces(read.faces, read.normal, status);
    if (status == kernel::RegionStatus::kOk || read.faces.empty()) body.region = region;
}
} // namespace

Acad::ErrorStatus RegionAccess::shape(const AcDbRegion& region, kernel::Region& shape)
{
    const DbRegionBody* body = region.mBody.get();
    if (!body) {
        // Newer files keep the modeller data apart from the record, which then holds groups of other codes.
        if (hasKeptGroups(region)) return Acad::eGeneralModelingFailure;
        shape = kernel::Region();
        return Acad::eOk;
    }
    if (!body->isRead) {
        body->isRead = true;
        readShape(*body);
    }
    if (!body->region) return Acad::eGeneralModelingFailure;
    shape = *body->region;
    return Acad::eOk;
}

std::unique_ptr<AcDbRegion> RegionAccess::make(kernel::Region shape)
{
    auto region = std::make_unique<AcDbRegion>();
    setShape(*region, std::move(shape));
    region->mChanges = 0;
    return region;
}

void RegionAccess::setShape(AcDbRegion& region, kernel::Region shape)
{
    auto body = std::make_shared<DbRegionBody>();
    body->region = std::move(shape);
    body->isRead = true;
    region.mBody = std::move(body);
    ++region.mChanges;
}

DbRegionBody& RegionAccess::bodyBeingRead(AcDbObject& object)
{
    auto& body = static_cast<AcDbRegion&>(object).mBody;
    // While a record is read nobody shares its body, unless an entity list changes an object: that gets its
    // own.
    if (!body || body->isRead || body.use_count() > 1) body = std::make_shared<DbRegionBody>();
    return const_cast<DbRegionBody&>(*body);
}

void RegionAccess::readFormat(AcDbObject& object, const DxfField&, DxfSource& source)
{
    DbRegionBody& body = bodyBeingRead(object);
    body.format = static_cast<int>(source.peek()->integer);
    body.hasFormat = true;
    source.take();
}

void RegionAccess::readLine(AcDbObject& object, const DxfField& field, DxfSource& source)
{
    bodyBeingRead(object).groups.push_back(
        {static_cast<short>(field.code), std::string(source.peek()->text)});
    source.take();
}

void RegionAccess::write(const AcDbObject& object, const DxfField& field, DxfSink& sink)
{
    const auto& region = static_cast<const AcDbRegion&>(object);
    const DbRegionBody* body = region.mBody.get();
    if (!body) return;
    const bool isAsRead = body->hasFormat || !body->groups.empty();
    if (!isAsRead || body->hasFormat) sink.integer(field.code, body->format);
    const bool isNewer = sink.version() >= static_cast<int>(DxfVersion::r2004);
    const std::vector<kernel::AcisGroup> made =
        isAsRead ? std::vector<kernel::AcisGroup>()
                 : kernel::acisGroups(kernel::writeAcisText(*body->region, isNewer ? 700 : 400));
    for (const kernel::AcisGroup& group : isAsRead ? body->groups : made)
        sink.text(group.code, group.text);
}
