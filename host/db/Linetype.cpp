#include "dblinetp.h"

#include "DxfFields.h"
#include "SymbolTableMembers.h"
#include "acutads.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, LTYPE)
ACDB_SYMBOL_TABLE_MEMBERS(Linetype)

namespace
{
constexpr int ucsOriented = 1;
constexpr int isText = 2;
constexpr int isShape = 4;
constexpr int mostDashes = 12;
} // namespace

struct LinetypeAccess {
    using Dash = AcDbLinetypeTableRecord::Dash;
    using Shape = AcDbLinetypeTableRecord::Shape;

    static AcDbLinetypeTableRecord& of(AcDbObject& object) { return static_cast<AcDbLinetypeTableRecord&>(object); }

    static void readDash(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        Dash dash;
        dash.length = source.peek()->real;
        source.take();
        while (takeGroup(dash, source)) source.take();
        of(object).mDashes.push_back(std::move(dash));
    }

    /// The groups behind the length of a dash, in any order.
    static bool takeGroup(Dash& dash, DxfSource& source)
    {
        const DxfGroup* group = source.peek();
        if (!group) return false;
        if (group->is(74)) {
            dash.flags = static_cast<int>(group->integer);
            return true;
        }
        Shape shape = dash.shape.value_or(Shape());
        switch (group->code) {
        case 75: shape.number = static_cast<int>(group->integer); break;
        case 340: shape.style = source.stubOf(static_cast<std::uint64_t>(group->integer)); break;
        case 46: shape.scale = group->real; break;
        case 50: shape.rotation = source.angleOf(*group); break;
        case 44: shape.offset.x = group->real; break;
        case 45: shape.offset.y = group->real; break;
        case 9: shape.text = group->wide(); break;
        default: return false;
        }
        dash.shape = std::move(shape);
        return true;
    }

    static void writeCount(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, static_cast<const AcDbLinetypeTableRecord&>(object).numDashes());
    }

    static void writeDashes(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const bool hasShapes = sink.version() >= static_cast<int>(DxfVersion::r13);
        for (const Dash& dash : static_cast<const AcDbLinetypeTableRecord&>(object).mDashes) {
            sink.real(49, dash.length);
            if (hasShapes) writeShape(dash, sink);
        }
    }

    static void writeShape(const Dash& dash, DxfSink& sink)
    {
        sink.integer(74, dash.flags);
        if (!dash.shape) return;
        sink.integer(75, dash.shape->number);
        sink.handle(340, dash.shape->style);
        sink.real(46, dash.shape->scale);
        sink.angle(50, dash.shape->rotation);
        sink.real(44, dash.shape->offset.x);
        sink.real(45, dash.shape->offset.y);
        if (dash.flags & isText) sink.wide(9, dash.shape->text);
    }
};

const DxfClass AcDbLinetypeTableRecord::dxf(
    "AcDbLinetypeTableRecord", &AcDbSymbolTableRecord::dxf,
    {
        dxf::text<&AcDbLinetypeTableRecord::mName>(2),
        dxf::integer<&AcDbLinetypeTableRecord::mFlags>(70),
        dxf::text<&AcDbLinetypeTableRecord::mComments>(3),
        dxf::integer<&AcDbLinetypeTableRecord::mAlignment>(72),
        dxf::custom(
            73, [](AcDbObject&, const DxfField&, DxfSource& source) { source.take(); },
            LinetypeAccess::writeCount),
        dxf::real<&AcDbLinetypeTableRecord::mPatternLength>(40),
        dxf::custom(49, LinetypeAccess::readDash, LinetypeAccess::writeDashes),
    });

bool AcDbLinetypeTableRecord::isPermanent() const
{
    return mName.CompareNoCase(L"Continuous") == 0 || mName.CompareNoCase(L"ByLayer") == 0 ||
           mName.CompareNoCase(L"ByBlock") == 0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(ACHAR*& text) const
{
    return acutNewString(mComments, text) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length)
{
    return std::isfinite(length) && length >= 0.0 ? assign(mPatternLength, length) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count)
{
    if (count < 0 || count == 1) return Acad::eTooFewLineTypeElements;
    if (count > mostDashes) return Acad::eTooManyLineTypeElements;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mDashes.resize(static_cast<std::size_t>(count));
    return status;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const
{
    return has(index) ? mDashes[static_cast<std::size_t>(index)].length : 0.0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length)
{
    if (!has(index)) return Acad::eInvalidIndex;
    return std::isfinite(length) ? assign(mDashes[static_cast<std::size_t>(index)].length, length)
                                 : Acad::eInvalidInput;
}

AcDbLinetypeTableRecord::Shape AcDbLinetypeTableRecord::shapeAt(int index) const
{
    return has(index) ? mDashes[static_cast<std::size_t>(index)].shape.value_or(Shape()) : Shape();
}

template <class Change>
Acad::ErrorStatus AcDbLinetypeTableRecord::changeShape(int index, Change change)
{
    if (!has(index)) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    Dash& dash = mDashes[static_cast<std::size_t>(index)];
    if (!dash.shape) dash.shape.emplace();
    change(dash, *dash.shape);
    return status;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeStyleAt(int index, AcDbObjectId style)
{
    return changeShape(index, [&](Dash&, Shape& shape) { shape.style = style; });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeNumberAt(int index, int number)
{
    return changeShape(index, [&](Dash& dash, Shape& shape) {
        shape.number = number;
        dash.flags = number ? (dash.flags & ~isText) | isShape : dash.flags & ~isShape;
    });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::textAt(int index, ACHAR*& text) const
{
    text = nullptr;
    if (!has(index)) return Acad::eInvalidIndex;
    return acutNewString(shapeAt(index).text, text) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setTextAt(int index, const ACHAR* text)
{
    return changeShape(index, [&](Dash& dash, Shape& shape) {
        shape.text = text;
        dash.flags = shape.text.IsEmpty() ? dash.flags & ~isText : (dash.flags & ~isShape) | isText;
    });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeOffsetAt(int index, const AcGeVector2d& offset)
{
    return changeShape(index, [&](Dash&, Shape& shape) { shape.offset = offset; });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeScaleAt(int index, double scale)
{
    if (!std::isfinite(scale)) return Acad::eInvalidInput;
    return changeShape(index, [&](Dash&, Shape& shape) { shape.scale = scale; });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeRotationAt(int index, double rotation)
{
    if (!std::isfinite(rotation)) return Acad::eInvalidInput;
    return changeShape(index, [&](Dash&, Shape& shape) { shape.rotation = rotation; });
}

bool AcDbLinetypeTableRecord::shapeIsUcsOrientedAt(int index) const
{
    return has(index) && (mDashes[static_cast<std::size_t>(index)].flags & ucsOriented) != 0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeIsUcsOrientedAt(int index, bool oriented)
{
    return changeShape(index, [&](Dash& dash, Shape&) {
        dash.flags = oriented ? dash.flags | ucsOriented : dash.flags & ~ucsOriented;
    });
}
