#pragma once

/// How the host reaches the shape of a region entity.

#include "dbregion.h"
#include "Region.h"

#include "AcisText.h"

#include <optional>

/// The shape of a region, and the modeller data of the file that it came from until it changes. The data is
/// read when the shape is asked for first.
struct DbRegionBody {
    int format = 1;                        ///< group 70
    std::vector<kernel::AcisGroup> groups; ///< as the file has them
    bool hasFormat = false;
    mutable std::optional<kernel::Region> region;
    mutable bool isRead = false;
};

struct DxfField;
class DxfSink;
class DxfSource;

struct RegionAccess {
    /// eGeneralModelingFailure when the shape is not known.
    static Acad::ErrorStatus shape(const AcDbRegion& region, kernel::Region& shape);
    /// A new region, not changed yet.
    static std::unique_ptr<AcDbRegion> make(kernel::Region shape);
    /// Gives a region, which is open for write, another shape.
    static void setShape(AcDbRegion& region, kernel::Region shape);

    static void readFormat(AcDbObject& object, const DxfField& field, DxfSource& source);
    static void readLine(AcDbObject& object, const DxfField& field, DxfSource& source);
    static void write(const AcDbObject& object, const DxfField& field, DxfSink& sink);

private:
    static DbRegionBody& bodyBeingRead(AcDbObject& object);
};
