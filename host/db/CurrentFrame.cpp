#include "CurrentFrame.h"

#include "DatabaseState.h"
#include "dbapserv.h"
#include "dbviewport.h"
#include "dbxutil.h"
#include "PlanarCoords.h"
#include "Stub.h"

namespace
{
using Mapping = bool (*)(const ads_point normal, AcGeMatrix3d& matrix);

bool ecsToWorld(const ads_point normal, AcGeMatrix3d& matrix)
{
    if (!normal) return false;
    const AcGeVector3d direction(normal[X], normal[Y], normal[Z]);
    if (!isDirection(direction)) return false;
    matrix = AcGeMatrix3d::planeToWorld(direction);
    return true;
}

bool ucsToWorld(const ads_point, AcGeMatrix3d& matrix)
{
    return acdbUcsMatrix(matrix);
}
bool worldToWorld(const ads_point, AcGeMatrix3d& matrix)
{
    matrix.setToIdentity();
    return true;
}

/// The world's own where the header holds no axes.
AcGeMatrix3d frameOf(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y)
{
    AcGeMatrix3d matrix;
    if (!isDirection(x) || !isDirection(y) || x.isParallelTo(y) || !isFinite(origin)) return matrix;
    const AcGeVector3d z = x.crossProduct(y).normal();
    return matrix.setCoordSystem(origin, x.normal(), z.crossProduct(x.normal()), z);
}

bool map(const ads_point from, ads_point to, const ads_point normal, bool isVector, Mapping source,
         Mapping target)
{
    AcGeMatrix3d toWorld, ofTarget;
    if (!from || !to || !isFinite(AcGePoint3d(from[X], from[Y], from[Z]))) return false;
    if (!source(normal, toWorld) || !target(normal, ofTarget)) return false;
    const AcGeMatrix3d matrix = ofTarget.inverse() * toWorld;
    AcGePoint3d point(from[X], from[Y], from[Z]);
    if (isVector) {
        point = AcGePoint3d::kOrigin + matrix * point.asVector();
    } else {
        point = matrix * point;
    }
    for (int i = 0; i < 3; ++i)
        to[i] = point[i];
    return true;
}
} // namespace

namespace frames
{
const AcDbViewport* activeWindow(const AcDbDatabase& database)
{
    const DatabaseState& state = DatabaseAccess::of(database);
    const AcDbObjectId id = state.modelViewport;
    const auto* window = id.isErased() ? nullptr : AcDbViewport::cast(residentObject(id));
    const bool isShown =
        window && window->isOn() && window->number() > 1 && window->ownerId() == state.paperSpace;
    return isShown && !database.tilemode() ? window : nullptr;
}

bool isOnPaper(const AcDbDatabase& database)
{
    return database.currentSpaceId() != database.modelSpaceId();
}

std::string variableOfSpace(const AcDbDatabase& database, const char* name)
{
    return isOnPaper(database) ? std::string("$P") + (name + 1) : name;
}

AcGeMatrix3d current(const AcDbDatabase& database)
{
    const DatabaseState& state = DatabaseAccess::of(database);
    const bool onPaper = isOnPaper(database);
    DatabaseState::Frame& frame = onPaper ? state.paperFrame : state.modelFrame;
    if (frame.revision != state.header.revision())
        frame = {state.header.revision(), onPaper ? frameOf(database.pucsorg(), database.pucsxdir(), database.pucsydir())
                                                  : frameOf(database.ucsorg(), database.ucsxdir(), database.ucsydir())};
    return frame.toWorld;
}

void setCurrent(AcDbDatabase& database, const AcGeMatrix3d& ucsToWorld, const CString& name)
{
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    ucsToWorld.getCoordSystem(origin, x, y, z);
    HeaderVariables& header = DatabaseAccess::of(database).header;
    header.setPoint(variableOfSpace(database, "$UCSORG"), origin);
    header.setPoint(variableOfSpace(database, "$UCSXDIR"), AcGePoint3d::kOrigin + x);
    header.setPoint(variableOfSpace(database, "$UCSYDIR"), AcGePoint3d::kOrigin + y);
    header.setText(variableOfSpace(database, "$UCSNAME"), name);
    header.setText(variableOfSpace(database, "$UCSORTHOREF"), L"");
    header.setInteger(variableOfSpace(database, "$UCSORTHOVIEW"), 0);
}

CString currentName(const AcDbDatabase& database)
{
    return DatabaseAccess::of(database).header.text(variableOfSpace(database, "$UCSNAME"));
}
} // namespace frames

bool acdbUcsMatrix(AcGeMatrix3d& matrix, AcDbDatabase* database)
{
    matrix.setToIdentity();
    if (!database) database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return false;
    matrix = frames::current(*database);
    return true;
}

bool acdbUcs2Wcs(const ads_point from, ads_point to, bool isVector)
{
    return map(from, to, nullptr, isVector, ucsToWorld, worldToWorld);
}

bool acdbWcs2Ucs(const ads_point from, ads_point to, bool isVector)
{
    return map(from, to, nullptr, isVector, worldToWorld, ucsToWorld);
}

bool acdbEcs2Wcs(const ads_point from, ads_point to, const ads_point normal, bool isVector)
{
    return map(from, to, normal, isVector, ecsToWorld, worldToWorld);
}

bool acdbWcs2Ecs(const ads_point from, ads_point to, const ads_point normal, bool isVector)
{
    return map(from, to, normal, isVector, worldToWorld, ecsToWorld);
}

bool acdbEcs2Ucs(const ads_point from, ads_point to, const ads_point normal, bool isVector)
{
    return map(from, to, normal, isVector, ecsToWorld, ucsToWorld);
}

bool acdbUcs2Ecs(const ads_point from, ads_point to, const ads_point normal, bool isVector)
{
    return map(from, to, normal, isVector, ucsToWorld, ecsToWorld);
}
