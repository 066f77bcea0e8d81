/// The coordinate systems that a drawing's header names.

#include "DatabaseState.h"
#include "ObjectNotices.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <string>

namespace
{
AcDbObjectId namedUcs(const AcDbDatabase& database, const HeaderVariables& header, const char* variable)
{
    AcDbObjectId id;
    const auto* table = AcDbUCSTable::cast(residentObject(database.UCSTableId()));
    const CString name = header.text(variable);
    if (table && !name.IsEmpty()) table->getAt(name, id);
    return id;
}

Acad::ErrorStatus nameUcs(const AcDbDatabase& database, HeaderVariables& header, const char* variable, AcDbObjectId id)
{
    const auto* record = AcDbUCSTableRecord::cast(residentObject(id));
    if (!id.isNull() && (!record || id.isErased())) return Acad::eInvalidInput;
    if (!id.isNull() && id.database() != &database) return Acad::eWrongDatabase;
    notices::headerWillChange(database, CString(variable + 1));
    header.setText(variable, record ? record->name() : CString());
    notices::headerChanged(database, CString(variable + 1));
    return Acad::eOk;
}

/// The variable of an orthographic system's origin; empty for the view that is none.
std::string originVariable(const char* prefix, AcDb::OrthographicView view)
{
    static const char* const sides[] = {"TOP", "BOTTOM", "FRONT", "BACK", "LEFT", "RIGHT"};
    const int side = view - AcDb::kTopView;
    return side < 0 || side > 5 ? std::string() : std::string(prefix) + sides[side];
}

AcGePoint3d originIn(const HeaderVariables& header, const std::string& variable)
{
    return variable.empty() ? AcGePoint3d::kOrigin : header.point(variable);
}

Acad::ErrorStatus setOrigin(const AcDbDatabase& database, HeaderVariables& header, const std::string& variable,
                            const AcGePoint3d& origin)
{
    if (variable.empty() || !isFinite(origin)) return Acad::eInvalidInput;
    notices::headerWillChange(database, CString(variable.c_str() + 1));
    header.setPoint(variable, origin);
    notices::headerChanged(database, CString(variable.c_str() + 1));
    return Acad::eOk;
}
} // namespace

AcDbObjectId AcDbDatabase::ucsname() const { return namedUcs(*this, mState->header, "$UCSNAME"); }
AcDbObjectId AcDbDatabase::pucsname() const { return namedUcs(*this, mState->header, "$PUCSNAME"); }
AcDbObjectId AcDbDatabase::ucsBase() const { return namedUcs(*this, mState->header, "$UCSBASE"); }
AcDbObjectId AcDbDatabase::pucsBase() const { return namedUcs(*this, mState->header, "$PUCSBASE"); }

Acad::ErrorStatus AcDbDatabase::setUcsBase(AcDbObjectId ucs) { return nameUcs(*this, mState->header, "$UCSBASE", ucs); }

Acad::ErrorStatus AcDbDatabase::setPucsBase(AcDbObjectId ucs)
{
    return nameUcs(*this, mState->header, "$PUCSBASE", ucs);
}

AcGePoint3d AcDbDatabase::worldUcsBaseOrigin(AcDb::OrthographicView view) const
{
    return originIn(mState->header, originVariable("$UCSORG", view));
}

Acad::ErrorStatus AcDbDatabase::setWorldUcsBaseOrigin(const AcGePoint3d& origin, AcDb::OrthographicView view)
{
    return setOrigin(*this, mState->header, originVariable("$UCSORG", view), origin);
}

AcGePoint3d AcDbDatabase::worldPucsBaseOrigin(AcDb::OrthographicView view) const
{
    return originIn(mState->header, originVariable("$PUCSORG", view));
}

Acad::ErrorStatus AcDbDatabase::setWorldPucsBaseOrigin(const AcGePoint3d& origin, AcDb::OrthographicView view)
{
    return setOrigin(*this, mState->header, originVariable("$PUCSORG", view), origin);
}
