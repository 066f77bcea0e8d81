/// The groups of multiline texts.

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "MTextMembers.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbMText, AcDbEntity, MTEXT)

namespace
{
/// Contents stand in groups of this many characters.
constexpr int usualChunk = 250;

AcDbMText& textOf(AcDbObject& object) { return static_cast<AcDbMText&>(object); }
const AcDbMText& textOf(const AcDbObject& object) { return static_cast<const AcDbMText&>(object); }

/// The chunks that contents of a length are written in.
std::vector<MTextChunk> usualChunks(int length)
{
    std::vector<MTextChunk> chunks;
    for (; length > usualChunk; length -= usualChunk) chunks.push_back({3, usualChunk});
    chunks.push_back({1, length});
    return chunks;
}

bool areSame(const std::vector<MTextChunk>& a, const std::vector<MTextChunk>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const MTextChunk& one, const MTextChunk& other) {
        return one.code == other.code && one.length == other.length;
    });
}
} // namespace

/// The fields that are not plain members.
struct MTextRecord : MTextFields {
    /// A run of groups 3 and the group 1 at its end; a file may cut the contents in its own way.
    static void readContents(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcDbMText& text = textOf(object);
        std::vector<MTextChunk> chunks;
        text.mContents.Empty();
        for (const DxfGroup* group = source.peek(); group && (group->code == 3 || group->code == 1);
             group = source.peek()) {
            const CString chunk = group->wide();
            chunks.push_back({group->code, chunk.GetLength()});
            text.mContents += chunk;
            source.take();
        }
        const bool isUsual = areSame(chunks, usualChunks(text.mContents.GetLength()));
        if (!isUsual) text.mExtras.need().chunks = std::move(chunks);
        else if (text.mExtras) text.mExtras->chunks.clear();
    }

    static void writeContents(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const AcDbMText& text = textOf(object);
        const bool isUsual = !text.mExtras || text.mExtras->chunks.empty();
        const std::vector<MTextChunk> chunks =
            isUsual ? usualChunks(text.mContents.GetLength()) : text.mExtras->chunks;
        int at = 0;
        for (const MTextChunk& chunk : chunks) {
            sink.wide(chunk.code, text.mContents.Mid(at, chunk.length));
            at += chunk.length;
        }
    }

    /// An angle about the normal: what a file says in place of a direction, or beside it.
    static void readRotation(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcDbMText& text = textOf(object);
        text.mExtras.need().fileRotation = source.angleOf(*source.peek());
        source.take();
    }

    static void writeRotation(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbMText& text = textOf(object);
        if (text.mExtras && text.mExtras->fileRotation) sink.angle(field.code, *text.mExtras->fileRotation);
    }

    static void readColumns(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        MTextColumns& columns = textOf(object).mExtras.need().columns;
        while (const DxfGroup* group = source.peek()) {
            if (!takeColumn(columns, *group)) return;
            source.take();
        }
    }

    static bool takeColumn(MTextColumns& columns, const DxfGroup& group)
    {
        switch (group.code) {
        case 75: columns.type = static_cast<int>(group.integer); return true;
        case 76: columns.count = static_cast<int>(group.integer); return true;
        case 78: columns.isReversed = group.integer != 0; return true;
        case 79: columns.isAutoHeight = group.integer != 0; return true;
        case 48: columns.width = group.real; return true;
        case 49: columns.gutter = group.real; return true;
        case 50: columns.heights.push_back(group.real); return true;
        default: return false;
        }
    }

    static void writeColumns(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const AcDbMText& text = textOf(object);
        if (!text.columns() || text.mExtras->columns.isInEmbedded) return;
        const MTextColumns& columns = text.mExtras->columns;
        sink.integer(75, columns.type);
        sink.integer(76, columns.count);
        sink.integer(78, columns.isReversed);
        sink.integer(79, columns.isAutoHeight);
        sink.real(48, columns.width);
        sink.real(49, columns.gutter);
        for (const double height : columns.heights) sink.real(50, height);
    }

    template <auto Member>
    static DxfField number(int code)
    {
        return dxf::custom(
            code,
            [](AcDbObject& object, const DxfField&, DxfSource& source) {
                textOf(object).mExtras.need().*Member = valueOf<Member>(*source.peek());
                source.take();
            },
            [](const AcDbObject& object, const DxfField& field, DxfSink& sink) {
                const AcDbMText& text = textOf(object);
                if (!text.mExtras || !((*text.mExtras).*Member)) return;
                put(sink, field.code, *((*text.mExtras).*Member));
            });
    }

    template <auto Member>
    static auto valueOf(const DxfGroup& group)
    {
        using Value = typename std::decay_t<decltype(std::declval<MTextExtras>().*Member)>::value_type;
        return static_cast<Value>(group.kind == DxfKind::real ? group.real : static_cast<double>(group.integer));
    }
    static void put(DxfSink& sink, int code, int value) { sink.integer(code, value); }
    static void put(DxfSink& sink, int code, double value) { sink.real(code, value); }

    static DxfClass table();
};

DxfClass MTextRecord::table()
{
    using X = MTextExtras;
    return {"AcDbMText",
            &AcDbEntity::dxf,
            {
                dxf::point<&AcDbMText::mLocation>(10),
                dxf::real<&AcDbMText::mTextHeight>(40),
                dxf::real<&AcDbMText::mWidth>(41),
                dxf::real<&AcDbMText::mHeight>(46).from(DxfVersion::r2007),
                dxf::integer<&AcDbMText::mAttachment>(71),
                dxf::integer<&AcDbMText::mFlowDirection>(72),
                dxf::custom(3, readContents, nullptr),
                dxf::custom(1, readContents, writeContents),
                dxf::record<&AcDbMText::mStyle>(7),
                dxf::direction<&AcDbMText::mNormal>(210).unlessZAxis(),
                dxf::point<&AcDbMText::mDirection>(11),
                number<&X::fileWidth>(42),
                number<&X::fileHeight>(43),
                dxf::custom(50, readRotation, writeRotation),
                dxf::integer<&AcDbMText::mSpacingStyle>(73),
                dxf::real<&AcDbMText::mSpacingFactor>(44),
                number<&X::fillFlags>(90).from(DxfVersion::r2004),
                number<&X::fillColor>(63).from(DxfVersion::r2004),
                number<&X::fillRgb>(421).from(DxfVersion::r2004),
                number<&X::fillScale>(45).from(DxfVersion::r2004),
                number<&X::fillTransparency>(441).from(DxfVersion::r2004),
                dxf::custom(75, readColumns, writeColumns).from(DxfVersion::r2007),
            }};
}

const DxfClass AcDbMText::dxf = MTextRecord::table();
