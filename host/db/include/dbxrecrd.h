#pragma once

#include "acdb.h"
#include "dbobject.h"

#include <memory>

class PackedGroups;

/// A list of groups that an application keeps in the drawing.
///
/// Codes are 1 to 481 without 5, 100 and 105. References (330 to 369 ...) are entity names in lists.
class AcDbXrecord : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);
    ACDB_STATE_MEMBERS(AcDbXrecord)
    AcDbXrecord();
    AcDbXrecord(const AcDbXrecord& other);
    AcDbXrecord& operator=(const AcDbXrecord& other);
    ~AcDbXrecord() override;

    /// The groups as a new list that the caller releases with acutRelRb; null for an empty record. References are
    /// looked up in `auxDb`, or in the record's own database.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxDb = nullptr) const;
    /// Replaces all groups; the list stays the caller's. eInvalidResBuf, eInvalidDxfCode; nothing is changed then.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxDb = nullptr);
    bool isEmpty() const;

    AcDb::DuplicateRecordCloning mergeStyle() const { return static_cast<AcDb::DuplicateRecordCloning>(mMergeStyle); }
    Acad::ErrorStatus setMergeStyle(AcDb::DuplicateRecordCloning style);
    /// Whether references to objects that are not copied along are translated too when the record is copied.
    bool isXlateReferences() const { return mXlateReferences; }
    void setXlateReferences(bool translate);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend struct XrecordAccess;

    std::unique_ptr<PackedGroups> mGroups;
    std::uint8_t mMergeStyle = AcDb::kDrcIgnore;
    bool mHasReadMergeStyle = false; ///< a later group 280 is the application's
    bool mXlateReferences = false;
};
