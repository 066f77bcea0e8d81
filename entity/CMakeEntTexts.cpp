/// Texts and their copies.

#include "CMakeEnt.h"

#include "dbapserv.h"
#include "dbattdef.h"
#include "dbattrib.h"
#include "dbidmap.h"
#include "dbmtext.h"
#include "dbtext.h"
#include "NewEntity.h"
#include "OpenReport.h"
#include "Transaction.h"

namespace
{
constexpr const wchar_t* copier = L"CopyText";

/// How an alignment is said to texts and to multiline texts.
struct Anchor {
    AcDb::TextHorzMode horizontal;
    AcDb::TextVertMode vertical;
    AcDbMText::AttachmentPoint attachment; ///< paragraphs have no baseline of their own: the bottom
};

const Anchor* anchorOf(_Aligment aligment)
{
    // In the order of the alignments.
    static const Anchor anchors[] = {
        {AcDb::kTextLeft, AcDb::kTextBase, AcDbMText::kBottomLeft},
        {AcDb::kTextCenter, AcDb::kTextBase, AcDbMText::kBottomCenter},
        {AcDb::kTextRight, AcDb::kTextBase, AcDbMText::kBottomRight},
        {AcDb::kTextMid, AcDb::kTextBase, AcDbMText::kMiddleCenter},
        {AcDb::kTextLeft, AcDb::kTextTop, AcDbMText::kTopLeft},
        {AcDb::kTextCenter, AcDb::kTextTop, AcDbMText::kTopCenter},
        {AcDb::kTextRight, AcDb::kTextTop, AcDbMText::kTopRight},
        {AcDb::kTextLeft, AcDb::kTextVertMid, AcDbMText::kMiddleLeft},
        {AcDb::kTextCenter, AcDb::kTextVertMid, AcDbMText::kMiddleCenter},
        {AcDb::kTextRight, AcDb::kTextVertMid, AcDbMText::kMiddleRight},
        {AcDb::kTextLeft, AcDb::kTextBottom, AcDbMText::kBottomLeft},
        {AcDb::kTextCenter, AcDb::kTextBottom, AcDbMText::kBottomCenter},
        {AcDb::kTextRight, AcDb::kTextBottom, AcDbMText::kBottomRight},
    };
    const bool isKnown = aligment >= kAligLeft && aligment <= kAligBottomRight;
    return isKnown ? &anchors[aligment] : nullptr;
}

bool fill(AcDbText& line, const AcGePoint3d& pos, const wchar_t* text, double height, double rotation)
{
    return line.setPosition(pos) == Acad::eOk && line.setHeight(height) == Acad::eOk &&
           line.setRotation(rotation) == Acad::eOk && line.setTextString(text) == Acad::eOk;
}

bool align(AcDbText& line, const Anchor& anchor, const AcGePoint3d& pos)
{
    if (line.setHorizontalMode(anchor.horizontal) != Acad::eOk ||
        line.setVerticalMode(anchor.vertical) != Acad::eOk)
        return false;
    if (line.isDefaultAlignment()) return true;
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    return line.setAlignmentPoint(pos) == Acad::eOk && line.adjustAlignment(database) == Acad::eOk &&
           entity::isFinite(line.position());
}

bool fill(AcDbMText& paragraph, const AcGePoint3d& pos, const wchar_t* text, double height, double rotation)
{
    return paragraph.setLocation(pos) == Acad::eOk && paragraph.setTextHeight(height) == Acad::eOk &&
           paragraph.setRotation(rotation) == Acad::eOk && paragraph.setContents(text);
}

template <class Line>
std::unique_ptr<Line> lineOf(const AcGePoint3d& pos, const wchar_t* text, double height, _Aligment aligment,
                             double rotation)
{
    const Anchor* const anchor = anchorOf(aligment);
    auto line = entity::begin<Line>();
    if (!text || !anchor || !fill(*line, pos, text, height, rotation) || !align(*line, *anchor, pos))
        return nullptr;
    return line;
}

std::unique_ptr<AcDbEntity> attributeOf(const AcGePoint3d& pos, const CString& text, double height,
                                        _Aligment aligment, double rotation)
{
    auto attribute = lineOf<AcDbAttributeDefinition>(pos, text, height, aligment, rotation);
    CString tag = text;
    tag.Remove(L' ');
    if (!attribute || tag.IsEmpty() || attribute->setTag(tag) != Acad::eOk) return nullptr;
    return attribute;
}

std::unique_ptr<AcDbEntity> paragraphOf(const AcGePoint3d& pos, const CString& text, double height,
                                        _Aligment aligment, double rotation)
{
    const Anchor* const anchor = anchorOf(aligment);
    auto paragraph = entity::begin<AcDbMText>();
    if (!anchor || !fill(*paragraph, pos, text, height, rotation)) return nullptr;
    if (paragraph->setAttachment(anchor->attachment) != Acad::eOk) return nullptr;
    return paragraph;
}

/// An entity that is in no drawing yet would take a style of any.
bool setStyle(AcDbMText& paragraph, AcDbObjectId style)
{
    const bool isOurs = style.database() == acdbHostApplicationServices()->workingDatabase();
    return isOurs && !style.isErased() && paragraph.setTextStyle(style) == Acad::eOk;
}

/// The height that the current text style and TEXTSIZE give.
double currentTextHeight()
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return 0.0;
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(database->textstyle(), AcDb::kForRead);
    const bool isOpen = entity::isOpen(style, L"MakeText");
    const double fixed = isOpen ? style->textSize() : 0.0;
    return fixed > 0.0 ? fixed : database->textsize();
}

bool setContents(AcDbEntity& entity, const CString& text)
{
    if (AcDbMText* const paragraph = AcDbMText::cast(&entity)) return paragraph->setContents(text) != 0;
    AcDbText* const line = AcDbText::cast(&entity);
    return line && line->setTextString(text) == Acad::eOk;
}

/// Attributes belong to their block references and are no texts of a block.
bool isCopied(const AcDbEntity& entity)
{
    return (entity.isKindOf(AcDbText::desc()) || entity.isKindOf(AcDbMText::desc())) &&
           !entity.isKindOf(AcDbAttribute::desc());
}

/// The block of a text that can be copied; null for other objects.
AcDbObjectId blockOfText(AcDbObjectId source)
{
    const AcDbEntityPointer original(source, AcDb::kForRead);
    const bool isSource = entity::isOpen(original, copier) && isCopied(*original);
    return isSource ? original->blockId() : AcDbObjectId();
}

/// A copy in a block, with all that belongs to the original; null when the block takes none.
AcDbObjectId copied(AcDbObjectId source, AcDbObjectId block)
{
    AcDbObjectIdArray originals;
    originals.append(source);
    AcDbIdMapping copies;
    AcDbIdPair pair(source, AcDbObjectId(), false);
    const Acad::ErrorStatus status = source.database()->deepCloneObjects(originals, block, copies);
    return status == Acad::eOk && copies.compute(pair) ? pair.value() : AcDbObjectId();
}
} // namespace

int CArxEntity::CMakeEnt::MakeText(const AcGePoint3d& pos, const wchar_t* text, AcDbObjectId& id,
                                   double height, double rotation)
{
    return MakeText(pos, text, id, height, kAligLeft, rotation);
}

int CArxEntity::CMakeEnt::MakeText(const AcGePoint3d& pos, const wchar_t* text, AcDbObjectId& id,
                                   double height, _Aligment aligment, double rotation)
{
    return entity::add(lineOf<AcDbText>(pos, text, height, aligment, rotation), id);
}

int CArxEntity::CMakeEnt::MakeText(_SOFT, const AcGePoint3d& pos, CGTStringW text, AcDbObjectId& id,
                                   _Aligment aligment, _Text_Class textClass, double rotation)
{
    const double height = currentTextHeight();
    switch (textClass) {
    case kTextClassLine:
        return MakeText(pos, text, id, height, aligment, rotation);
    case kTextClassParagraph:
        return entity::add(paragraphOf(pos, text, height, aligment, rotation), id);
    case kTextClassAttribute:
        return entity::add(attributeOf(pos, text, height, aligment, rotation), id);
    }
    return 0;
}

int CArxEntity::CMakeEnt::MakeMText(const AcGePoint3d& pos, const wchar_t* text, AcDbObjectId style,
                                    double height, double width, AcDbObjectId& id)
{
    auto paragraph = entity::begin<AcDbMText>();
    if (!text || !fill(*paragraph, pos, text, height, 0.0) || paragraph->setWidth(width) != Acad::eOk)
        return 0;
    if (!style.isNull() && !setStyle(*paragraph, style)) return 0;
    return entity::add(std::move(paragraph), id);
}

int CArxEntity::CMakeEnt::CopyText(AcDbObjectId source, const CGTStringW& text, AcDbObjectId& id)
{
    const AcDbObjectId block = blockOfText(source);
    if (block.isNull()) return 0;
    entity::Transaction transaction(*source.database());
    const AcDbObjectId copy = copied(source, block);
    AcDbEntity* const added = copy.isNull() ? nullptr : transaction.open(copy, copier);
    if (!added || !setContents(*added, text) || !transaction.keep()) return 0;
    id = copy;
    return 1;
}
