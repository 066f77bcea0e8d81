#pragma once

/// AcDbAttribute: a text that belongs to a block reference, known by its tag.

#include "dbtext.h"

class AcDbAttributeDefinition;

class AcDbAttribute : public AcDbText
{
public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    ACDB_STATE_MEMBERS(AcDbAttribute)
    AcDbAttribute() = default;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId::kNull);

    /// A copy that the caller releases with acutDelString.
    ACHAR* tag() const;
    const ACHAR* tagConst() const { return mTag; }
    /// eInvalidInput for null, empty texts and blanks; kept in upper case.
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const { return (mFlags & 1) != 0; }
    Acad::ErrorStatus setInvisible(bool invisible) { return setFlag(1, invisible); }
    bool isConstant() const { return (mFlags & 2) != 0; }
    bool isVerifiable() const { return (mFlags & 4) != 0; }
    bool isPreset() const { return (mFlags & 8) != 0; }
    std::uint16_t fieldLength() const { return static_cast<std::uint16_t>(mFieldLength); }
    Acad::ErrorStatus setFieldLength(std::uint16_t length);
    bool lockPositionInBlock() const { return mLockPosition == 1; }
    Acad::ErrorStatus setLockPositionInBlock(bool lock);
    /// Takes everything but identity from a definition, mapped as the reference maps its block.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition, const AcGeMatrix3d& blockTransform);
    Acad::ErrorStatus setAttributeFromBlock(const AcGeMatrix3d& blockTransform);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool subWorldDraw(AcGiWorldDraw* draw) override;

private:
    template <class T>
    friend struct AttributeFields;
    Acad::ErrorStatus setFlag(int bit, bool on);

    CString mTag;
    std::int16_t mFlags = 0;
    std::int16_t mFieldLength = 0;
    std::int8_t mVersion = 0;      ///< -1: the file gives none
    std::int8_t mLockPosition = 1; ///< -1: the file gives none
};
