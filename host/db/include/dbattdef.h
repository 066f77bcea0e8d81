#pragma once

/// AcDbAttributeDefinition: in a block, the pattern of a text that each reference to the block fills in.

#include "dbtext.h"

/// Shows its tag; a constant one its text.
class AcDbAttributeDefinition : public AcDbText
{
public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    ACDB_STATE_MEMBERS(AcDbAttributeDefinition)
    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                            AcDbObjectId style = AcDbObjectId::kNull);

    /// A copy that the caller releases with acutDelString.
    ACHAR* prompt() const;
    const ACHAR* promptConst() const { return mPrompt; }
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);

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
    Acad::ErrorStatus setConstant(bool constant) { return setFlag(2, constant); }
    Acad::ErrorStatus setVerifiable(bool verifiable) { return setFlag(4, verifiable); }
    Acad::ErrorStatus setPreset(bool preset) { return setFlag(8, preset); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    const CString& shownText() const override { return isConstant() ? AcDbText::shownText() : mTag; }

private:
    template <class T>
    friend struct AttributeFields;
    Acad::ErrorStatus setFlag(int bit, bool on);

    CString mPrompt;
    CString mTag;
    std::int16_t mFlags = 0;
    std::int16_t mFieldLength = 0;
    std::int8_t mVersion = 0;      ///< -1: the file gives none
    std::int8_t mLockPosition = 1; ///< -1: the file gives none
};
