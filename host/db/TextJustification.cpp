/// The alignment of a text as one name.

#include "AcString.h"
#include "dbtext.h"

namespace
{
/// Left, centre and right for each vertical mode that has all three.
constexpr AcDbText::AcTextAlignment rowOf[] = {AcDbText::kTextAlignmentLeft, AcDbText::kTextAlignmentBottomLeft,
                                               AcDbText::kTextAlignmentMiddleLeft, AcDbText::kTextAlignmentTopLeft};
} // namespace

AcDbText::AcTextAlignment AcDbText::justification() const
{
    // Aligned, middle and fitted texts have no vertical mode.
    const bool hasRow = mHorizontal <= AcDb::kTextRight;
    return static_cast<AcTextAlignment>(hasRow ? rowOf[mVertical & 3] + mHorizontal : mHorizontal);
}

Acad::ErrorStatus AcDbText::setJustification(AcTextAlignment justification)
{
    if (justification < kTextAlignmentLeft || justification > kTextAlignmentBottomRight) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mVertical = AcDb::kTextBase;
    mHorizontal = static_cast<std::int8_t>(justification);
    for (const int row : {AcDb::kTextBottom, AcDb::kTextVertMid, AcDb::kTextTop}) {
        const int column = justification - rowOf[row];
        if (column < 0 || column > 2) continue;
        mVertical = static_cast<std::int8_t>(row);
        mHorizontal = static_cast<std::int8_t>(column);
    }
    return status;
}

Acad::ErrorStatus AcDbText::textString(AcString& text) const
{
    text = AcString(mText);
    return Acad::eOk;
}
