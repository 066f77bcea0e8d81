/// The variables of a drawing's header as members of the database.

#include "DatabaseState.h"
#include "ObjectNotices.h"
#include "Stub.h"
#include "dbblock.h"
#include "dbextent.h"
#include "PlanarCoords.h"

#include <cmath>

namespace
{
AcGePoint3d pointOf(const AcGePoint2d& point) { return {point.x, point.y, 0.0}; }
AcGePoint3d pointOf(const AcGePoint3d& point) { return point; }

void take(const AcGePoint3d& point, AcGePoint2d& to) { to.set(point.x, point.y); }
void take(const AcGePoint3d& point, AcGePoint3d& to) { to = point; }
void take(const AcGePoint3d& point, AcGeVector3d& to) { to = point.asVector(); }

AcDbObjectId orElse(AcDbObjectId id, AcDbObjectId otherwise) { return id.isNull() || id.isErased() ? otherwise : id; }

AcDbObjectId standardOf(AcDbObjectId table)
{
    AcDbObjectId id;
    if (const auto* symbols = AcDbSymbolTable::cast(residentObject(table))) symbols->getAt(L"Standard", id);
    return id;
}

/// The status of making an object the current one of its kind.
template <class Record>
Acad::ErrorStatus checkCurrent(const AcDbDatabase& database, AcDbObjectId id)
{
    if (id.isNull() || id.isErased() || !Record::cast(residentObject(id))) return Acad::eInvalidInput;
    return id.database() == &database ? Acad::eOk : Acad::eWrongDatabase;
}

/// Sets a variable between the two notices of it; a leading $ is not part of the name of a system variable.
template <class Set>
void change(const AcDbDatabase& database, const char* variable, Set set)
{
    const CString name(*variable == '$' ? variable + 1 : variable);
    notices::headerWillChange(database, name);
    set();
    notices::headerChanged(database, name);
}

template <class Record>
Acad::ErrorStatus setCurrent(const AcDbDatabase& database, const char* variable, AcDbObjectId id, AcDbObjectId& to)
{
    const Acad::ErrorStatus status = checkCurrent<Record>(database, id);
    if (status == Acad::eOk) change(database, variable, [&] { to = id; });
    return status;
}
} // namespace

// Getters are called for each new entity: the variable is found by its name once.
#define PLACE_OF(NAME) static const int place = HeaderVariables::indexOf(NAME)

#define DEFINE_REAL(GET, SET, NAME, LEAST, MOST)                                                             \
    double AcDbDatabase::GET() const                                                                         \
    {                                                                                                        \
        PLACE_OF(NAME);                                                                                      \
        return mState->header.real(place);                                                                   \
    }                                                                                                        \
    Acad::ErrorStatus AcDbDatabase::SET(double value)                                                        \
    {                                                                                                        \
        if (!(value >= (LEAST) && value <= (MOST))) return Acad::eInvalidInput;                              \
        change(*this, NAME, [&] { mState->header.setReal(NAME, value); });                                   \
        return Acad::eOk;                                                                                    \
    }
ACDB_HEADER_REALS(DEFINE_REAL)

#define DEFINE_INTEGER(TYPE, GET, SET, NAME, LEAST, MOST)                                                    \
    TYPE AcDbDatabase::GET() const                                                                           \
    {                                                                                                        \
        PLACE_OF(NAME);                                                                                      \
        return static_cast<TYPE>(mState->header.integer(place));                                             \
    }                                                                                                        \
    Acad::ErrorStatus AcDbDatabase::SET(TYPE value)                                                          \
    {                                                                                                        \
        const int number = static_cast<int>(value);                                                          \
        if (number < (LEAST) || number > (MOST)) return Acad::eInvalidInput;                                 \
        change(*this, NAME, [&] { mState->header.setInteger(NAME, number); });                               \
        return Acad::eOk;                                                                                    \
    }
ACDB_HEADER_INTEGERS(DEFINE_INTEGER)

#define DEFINE_POINT(TYPE, GET, SET, NAME)                                                                   \
    TYPE AcDbDatabase::GET() const                                                                           \
    {                                                                                                        \
        PLACE_OF(NAME);                                                                                      \
        TYPE value;                                                                                          \
        take(mState->header.point(place), value);                                                            \
        return value;                                                                                        \
    }                                                                                                        \
    Acad::ErrorStatus AcDbDatabase::SET(const TYPE& value)                                                   \
    {                                                                                                        \
        if (!isFinite(pointOf(value))) return Acad::eInvalidInput;                                           \
        change(*this, NAME, [&] { mState->header.setPoint(NAME, pointOf(value)); });                         \
        return Acad::eOk;                                                                                    \
    }
ACDB_HEADER_POINTS(DEFINE_POINT)

#define DEFINE_FRAME(TYPE, GET, NAME)                                                                        \
    TYPE AcDbDatabase::GET() const                                                                           \
    {                                                                                                        \
        PLACE_OF(NAME);                                                                                      \
        TYPE value;                                                                                          \
        take(mState->header.point(place), value);                                                            \
        return value;                                                                                        \
    }
ACDB_HEADER_FRAMES(DEFINE_FRAME)

double AcDbDatabase::angbase() const { return mState->header.real("$ANGBASE") * dxf::radiansPerDegree; }

Acad::ErrorStatus AcDbDatabase::setAngbase(double radians)
{
    if (!std::isfinite(radians)) return Acad::eInvalidInput;
    change(*this, "$ANGBASE", [&] { mState->header.setReal("$ANGBASE", radians / dxf::radiansPerDegree); });
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::clayer() const { return orElse(mState->clayer, mState->layerZero); }
AcDbObjectId AcDbDatabase::celtype() const { return orElse(mState->celtype, mState->byLayer); }
AcDbObjectId AcDbDatabase::textstyle() const { return orElse(mState->textstyle, standardOf(mState->textStyleTable)); }
AcDbObjectId AcDbDatabase::dimstyle() const { return orElse(mState->dimstyle, standardOf(mState->dimStyleTable)); }
AcCmColor AcDbDatabase::cecolor() const { return mState->cecolor; }

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id)
{
    return setCurrent<AcDbLayerTableRecord>(*this, "CLAYER", id, mState->clayer);
}
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId id)
{
    return setCurrent<AcDbLinetypeTableRecord>(*this, "CELTYPE", id, mState->celtype);
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId id)
{
    return setCurrent<AcDbTextStyleTableRecord>(*this, "TEXTSTYLE", id, mState->textstyle);
}
Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId id)
{
    return setCurrent<AcDbDimStyleTableRecord>(*this, "DIMSTYLE", id, mState->dimstyle);
}
Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color)
{
    change(*this, "CECOLOR", [&] { mState->cecolor = color; });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::updateExt(bool)
{
    AcDbExtents extents;
    bool hasAny = false;
    const auto* space = AcDbBlockTableRecord::cast(residentObject(mState->modelSpace));
    for (const AcDbObjectId id : space->entityIds()) {
        AcDbExtents one;
        if (id.isErased() || static_cast<AcDbEntity*>(residentObject(id))->getGeomExtents(one) != Acad::eOk) continue;
        extents.addExt(one);
        hasAny = true;
    }
    // An empty drawing has its extents inside out.
    setExtmin(hasAny ? extents.minPoint() : AcGePoint3d(1e20, 1e20, 1e20));
    setExtmax(hasAny ? extents.maxPoint() : AcGePoint3d(-1e20, -1e20, -1e20));
    return Acad::eOk;
}
