#include "EntityReport.h"

#include "acdbunits.h"
#include "acedvars.h"
#include "acutads.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "VariableStore.h"
#include "XDataReport.h"

#include <memory>

namespace
{
constexpr const wchar_t* indent = L"                  ";

int variable(const wchar_t* name)
{
    resbuf value{};
    return acedGetVar(name, &value) == RTNORM ? value.resval.rint : 0;
}

/// In the drawing's units. Decimals stand in full, as LIST has them.
std::wstring lengthText(double value)
{
    constexpr int decimal = 2;
    wchar_t text[400];
    if (variable(L"LUNITS") != decimal) return acdbRToS(value, -1, -1, text) == RTNORM ? text : L"?";
    swprintf_s(text, L"%.*f", variable(L"LUPREC"), value);
    return text;
}

std::wstring pointText(const AcGePoint3d& point)
{
    return L"X=" + lengthText(point.x) + L"  Y=" + lengthText(point.y) + L"  Z=" + lengthText(point.z);
}

std::wstring line(const std::wstring& name, const std::wstring& value)
{
    return indent + name + L" " + value + L"\n";
}

/// A text that the database made for us.
std::wstring taken(ACHAR* text)
{
    const std::wstring copy = text ? text : L"";
    acutDelString(text);
    return copy;
}

std::wstring spaceOf(const AcDbEntity& entity)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(entity.blockId());
    if (block.openStatus() != Acad::eOk) return L"";
    const CString layout = acdbLayoutNameOf(*block);
    if (layout.IsEmpty()) return line(L"Block:", block->name().GetString());
    return line(L"Space:",
                layout.CompareNoCase(L"Model") == 0 ? L"Model space" : L"Layout " + std::wstring(layout));
}

/// "LINE" for AcDbLine.
std::wstring kindOf(const AcDbEntity& entity)
{
    std::wstring name = entity.isA()->name();
    if (name.compare(0, 4, L"AcDb") == 0) name.erase(0, 4);
    return ed::upperCase(name);
}

std::wstring headOf(const AcDbEntity& entity)
{
    AcDbHandle handle;
    entity.getAcDbHandle(handle);
    wchar_t text[17];
    handle.getIntoAsciiBuffer(text);
    return indent + kindOf(entity) + L"  Layer: \"" + taken(entity.layer()) + L"\"\n" + spaceOf(entity) +
           line(L"Handle =", text);
}

std::wstring lookOf(const AcDbEntity& entity)
{
    std::wstring look;
    const unsigned color = entity.colorIndex();
    const std::wstring linetype = taken(entity.linetype());
    if (color != 256) look += line(L"Color:", color == 0 ? L"BYBLOCK" : std::to_wstring(color));
    if (_wcsicmp(linetype.c_str(), L"ByLayer") != 0) look += line(L"Linetype:", linetype);
    return look;
}

std::wstring curveMeasures(const AcDbCurve& curve)
{
    std::wstring text;
    AcGePoint3d point;
    double end = 0.0, length = 0.0, area = 0.0;
    if (!curve.isClosed()) {
        if (curve.getStartPoint(point) == Acad::eOk) text += line(L"from point", pointText(point));
        if (curve.getEndPoint(point) == Acad::eOk) text += line(L"to point", pointText(point));
    }
    const bool measured =
        curve.getEndParam(end) == Acad::eOk && curve.getDistAtParam(end, length) == Acad::eOk;
    if (measured) text += line(L"Length =", lengthText(length));
    if (curve.isClosed() && curve.getArea(area) == Acad::eOk) text += line(L"Area =", lengthText(area));
    return text;
}

std::wstring circleMeasures(const AcGePoint3d& center, double radius)
{
    return line(L"center point", pointText(center)) + line(L"radius", lengthText(radius));
}

std::wstring blockMeasures(const AcDbBlockReference& reference)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference.blockTableRecord());
    const std::wstring name = block.openStatus() == Acad::eOk ? std::wstring(block->name()) : L"?";
    return line(L"Block name:", L"\"" + name + L"\"") + line(L"at point", pointText(reference.position()));
}

std::wstring measuresOf(const AcDbEntity& entity)
{
    std::wstring text;
    if (const auto* circle = AcDbCircle::cast(&entity))
        text += circleMeasures(circle->center(), circle->radius());
    if (const auto* arc = AcDbArc::cast(&entity)) text += circleMeasures(arc->center(), arc->radius());
    if (const auto* curve = AcDbCurve::cast(&entity)) text += curveMeasures(*curve);
    if (const auto* point = AcDbPoint::cast(&entity)) text += line(L"at point", pointText(point->position()));
    if (const auto* reference = AcDbBlockReference::cast(&entity)) text += blockMeasures(*reference);
    if (const auto* letters = AcDbText::cast(&entity)) {
        text +=
            line(L"text", taken(letters->textString())) + line(L"at point", pointText(letters->position()));
    }
    if (const auto* letters = AcDbMText::cast(&entity)) {
        text += line(L"text", taken(letters->contents())) + line(L"at point", pointText(letters->location()));
    }
    return text;
}

std::wstring boxOf(const AcDbEntity& entity)
{
    AcDbExtents box;
    if (entity.getGeomExtents(box) != Acad::eOk) return L"";
    return line(L"Bounding box: lower bound", pointText(box.minPoint())) +
           line(L"              upper bound", pointText(box.maxPoint()));
}
} // namespace

namespace commands
{
std::wstring reportOf(const AcDbEntity& entity)
{
    return headOf(entity) + lookOf(entity) + measuresOf(entity) + boxOf(entity) + xdataReport(entity);
}
} // namespace commands
