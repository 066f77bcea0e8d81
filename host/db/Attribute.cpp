#include "acutads.h"
#include "dbattdef.h"
#include "dbattrib.h"

namespace
{
ACHAR* newCopyOf(const CString& text)
{
    ACHAR* copy = nullptr;
    acutNewString(text, copy);
    return copy;
}

bool isTag(const ACHAR* tag) { return tag && *tag && CString(tag).FindOneOf(L" \t\r\n") < 0; }
} // namespace

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style)
    : AcDbText(position, text, style), mPrompt(prompt)
{
    setTag(tag);
}

ACHAR* AcDbAttributeDefinition::prompt() const { return newCopyOf(mPrompt); }

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt)
{
    if (!prompt) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPrompt = prompt;
    return status;
}

ACHAR* AcDbAttributeDefinition::tag() const { return newCopyOf(mTag); }

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag)
{
    if (!isTag(tag)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) (mTag = tag).MakeUpper();
    return status;
}

Acad::ErrorStatus AcDbAttributeDefinition::setFlag(int bit, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | bit : mFlags & ~bit);
    return status;
}

Acad::ErrorStatus AcDbAttributeDefinition::setFieldLength(std::uint16_t length)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFieldLength = static_cast<std::int16_t>(length);
    return status;
}

Acad::ErrorStatus AcDbAttributeDefinition::setLockPositionInBlock(bool lock)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mLockPosition = lock ? 1 : 0;
    return status;
}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
    : AcDbText(position, text, style)
{
    setTag(tag);
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform)
{
    if (!definition) return Acad::eNullObjectPointer;
    const Acad::ErrorStatus status = setPropertiesFrom(definition);
    if (status != Acad::eOk) return status;
    AcDbText::operator=(*definition);
    mTag = definition->tagConst();
    mFlags = static_cast<std::int16_t>((definition->isInvisible() ? 1 : 0) | (definition->isConstant() ? 2 : 0) |
                                       (definition->isVerifiable() ? 4 : 0) | (definition->isPreset() ? 8 : 0));
    mFieldLength = static_cast<std::int16_t>(definition->fieldLength());
    mLockPosition = definition->lockPositionInBlock() ? 1 : 0;
    return subTransformBy(blockTransform);
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcGeMatrix3d& blockTransform)
{
    const Acad::ErrorStatus status = beginChange();
    return status == Acad::eOk ? subTransformBy(blockTransform) : status;
}

bool AcDbAttribute::subWorldDraw(AcGiWorldDraw* draw) { return isInvisible() || AcDbText::subWorldDraw(draw); }

ACHAR* AcDbAttribute::tag() const { return newCopyOf(mTag); }

Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag)
{
    if (!isTag(tag)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) (mTag = tag).MakeUpper();
    return status;
}

Acad::ErrorStatus AcDbAttribute::setFlag(int bit, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | bit : mFlags & ~bit);
    return status;
}

Acad::ErrorStatus AcDbAttribute::setFieldLength(std::uint16_t length)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFieldLength = static_cast<std::int16_t>(length);
    return status;
}

Acad::ErrorStatus AcDbAttribute::setLockPositionInBlock(bool lock)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mLockPosition = lock ? 1 : 0;
    return status;
}
