#pragma once

/// How a copy gets its contents: the original writes its groups, with every reference noted, and the copy reads them with
/// the references exchanged.

#include "PackedRecords.h"

#include <vector>

/// A reference that an object holds. Codes say of what kind, as in files: 330 soft pointer, 340 hard pointer, 350 soft
/// owner, 360 hard owner.
struct CopyReference {
    int code;
    AcDbStub* to;
};

namespace references
{
bool isHardPointer(int code);
bool isHardOwner(int code);
bool isSoftOwner(int code);
} // namespace references

/// Takes the groups of an original. Records of tables are referred to by mark and not by name, since their copies may
/// have other names; names in extended data and in records of unknown classes are marked as well.
class ReferenceSink final : public PackedSink
{
public:
    ReferenceSink(const AcDbObject& original, AcDbDatabase& from);

    void handle(int code, AcDbStub* stub) override;
    void record(int code, AcDbStub* stub) override;
    void text(int code, std::string_view utf8) override;
    void rawHandle(int code, std::uint64_t value) override;

    std::vector<CopyReference> references;

private:
    bool namesRecord(int code) const;

    AcDbDatabase& mFrom;
    bool mIsKept; ///< the groups are all there is of the object
    std::string mSection;
};

/// What the reader of a copy asks about the originals that its groups refer to.
class CopyTranslation
{
public:
    virtual ~CopyTranslation() = default;
    /// What the copy refers to in place of an original; null for nothing.
    virtual AcDbStub* translate(AcDbStub* original) const = 0;
    /// The same of a reactor, which the copy does not have unless it was copied with it.
    virtual AcDbStub* translateReactor(AcDbStub* original) const = 0;
    /// The name that a record has as what it was translated to.
    virtual CString nameOf(AcDbStub* translated) const = 0;
    /// Whether each copy has the handle of its original.
    virtual bool keepsHandles() const { return false; }
};

/// Gives the groups of an original to its copy.
class CopySource final : public PackedSource
{
public:
    CopySource(const PackedGroups& groups, const AcDbObject& original, AcDbDatabase& from, AcDbDatabase& to,
               const CopyTranslation& translation);

    const DxfGroup* peek() override { return PackedSource::peek() ? &mGroup : nullptr; }
    void take() override;
    AcDbStub* recordOf(int code, std::string_view name) override;

private:
    void exchange();
    void exchangeHandle();
    void exchangeName();
    bool skipsOwnLists();

    AcDbDatabase& mFrom;
    const CopyTranslation& mTranslation;
    bool mIsKept, mIsBlock, mIsNewOrder;
    bool mInReactors = false;
    std::string mSection;
    std::string mName; ///< behind an exchanged name
    DxfGroup mGroup;
};
